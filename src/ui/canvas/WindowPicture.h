#pragma once

#include "model/ProjectModel.h"
#include "ui/canvas/PictureFile.h"

#include <QByteArray>
#include <QImage>

namespace pirol {

/// Pictures of a designed window for worksheets. With a frame it has a title and a border around it. All raise
/// RuntimeError::OutOfMemory when there is no memory for the picture.
enum class WindowFrame { Without, With };

/// One pixel for each of the window; the largest windows are made smaller.
QImage WindowImage(const ProjectModel& model, WindowFrame frame, const PictureSource& pictures);

/// The same as the bytes of a PNG file.
QByteArray WindowPng(const ProjectModel& model, WindowFrame frame, const PictureSource& pictures);

/// The bytes of a PDF file of one page as large as the window, 96 pixels an inch. Letters stay letters, lines stay
/// lines.
QByteArray WindowPdf(const ProjectModel& model, WindowFrame frame, const PictureSource& pictures);

} // namespace pirol
