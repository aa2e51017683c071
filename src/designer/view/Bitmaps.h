#pragma once

#include <QImage>

#include <string_view>

namespace pirol {

/// The bitmap of exactly that name ("BUTTON_OL", "option_active" ...) from the program's resources; a null image when
/// there is none. Magenta is transparent. Each bitmap is decoded once.
const QImage& Bitmap(std::string_view name);

} // namespace pirol
