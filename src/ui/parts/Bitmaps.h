#pragma once

#include "controls/ComponentKind.h"

#include <QIcon>
#include <QImage>

#include <string_view>

namespace pirol {

/// The bitmap of exactly that name ("BUTTON_OL", "option_active" ...) from the program's resources; a null image when
/// there is none. Magenta is transparent. Each bitmap is decoded once.
const QImage& Bitmap(std::string_view name);

/// The same piece drawn three times as large for screens with small pixels. Only pieces whose
/// slanted lines would show stairs there have one; a null image for all others.
const QImage& LargeBitmap(std::string_view name);
constexpr int largeBitmapScale = 3;

/// One size (16, 20, 24, 32, 48) of a drawing among the icons, by its name; a null image when there is none. Decoded
/// once.
const QImage& IconImage(std::string_view name, int size);

/// The picture of a kind for the toolbar and the menu.
QIcon KindIcon(ComponentKind kind);

/// The picture of a command in all its sizes, by the name of its drawing ("open"); an empty icon when there is none.
QIcon CommandIcon(std::string_view name);

/// The same for what is white paper in every look.
QIcon PaperIcon(std::string_view name);

/// The program's own picture in all its sizes.
QIcon ProgramIcon();

} // namespace pirol
