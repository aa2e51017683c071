#pragma once

#include "model/ProjectModel.h"

#include <QImage>
#include <QPixmap>

#include <functional>
#include <string>

namespace pirol {

/// No side of a picture is decoded larger than this, in the screen's pixels; larger areas show it stretched.
constexpr int largestPictureSide = 1024;

/// As many bytes of pictures are held at the same time; others are not shown.
constexpr qint64 mostPictureBytes = 128 * 1024 * 1024;

/// Where painting gets an image file's picture from, for a screen of that scale. A null picture cannot be shown (yet).
using PictureSource = std::function<QPixmap(const std::string& path, double scale)>;

/// The picture in an image file, decoded for a screen of that scale: its device-independent size is the file's own.
/// A null image when there is no such file or nothing in it is a picture, whatever its name says. Any thread may call
/// it.
QImage DecodedPicture(const std::string& path, double scale);

/// All pictures of a design, each in its own size, at most 128 MB of them. They are read beside the window's thread;
/// returns when that is done.
PictureSource PicturesOf(const ProjectModel& model);

} // namespace pirol
