#pragma once

#include "model/ComponentKind.h"

#include <QIcon>
#include <QImage>

#include <string_view>

namespace pirol {

/// The bitmap of exactly that name ("BUTTON_OL", "option_active" ...) from the program's resources; a null image when
/// there is none. Magenta is transparent. Each bitmap is decoded once.
const QImage& Bitmap(std::string_view name);

/// The picture of a kind for the toolbar and the menu.
QIcon KindIcon(ComponentKind kind);

/// The picture of a command in all its sizes, by the name of its drawing ("open"); an empty icon when there is none.
QIcon CommandIcon(std::string_view name);

/// The program's own picture in all its sizes.
QIcon ProgramIcon();

} // namespace pirol
