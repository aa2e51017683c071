#pragma once

#include <QImage>

#include <string_view>

namespace pirol {

/// The picture that the build has packed (cmake/PackPictures.java); a null image for no bytes. Unlike reading a PNG
/// this loads none of Qt's modules for files of pictures, which a start would wait for.
QImage UnpackedPicture(std::string_view bytes);

} // namespace pirol
