#pragma once

#include <QPixmap>

#include <string>

namespace pirol {

/// No side of a picture is decoded larger than this, in the screen's pixels; larger areas show it stretched.
constexpr int largestPictureSide = 1024;

/// The image file for an area of that size in the screen's pixels, or a null picture when it cannot be shown: there is
/// no such file, or nothing in it is a picture, whatever its name says. A file is decoded once for a size, and its
/// failure is remembered too.
QPixmap PictureFile(const std::string& path, const QSize& size);

} // namespace pirol
