#pragma once

#include <QImage>
#include <QPixmap>

#include <functional>
#include <string>

namespace pirol {

/// No side of a picture is decoded larger than this, in the screen's pixels; larger areas show it stretched.
constexpr int largestPictureSide = 1024;

/// Where painting gets an image file's picture from, for a screen of that scale. A null picture cannot be shown (yet).
using PictureSource = std::function<QPixmap(const std::string& path, double scale)>;

/// The picture in an image file, decoded for a screen of that scale: its device-independent size is the file's own.
/// A null image when there is no such file or nothing in it is a picture, whatever its name says. Any thread may call
/// it.
QImage DecodedPicture(const std::string& path, double scale);

/// The same for painting, from a cache: a file is decoded once for a scale, and its failure is remembered too. Waits
/// for the disk.
QPixmap PictureFile(const std::string& path, double scale);

} // namespace pirol
