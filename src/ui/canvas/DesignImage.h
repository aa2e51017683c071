#pragma once

#include "model/ProjectModel.h"

#include <QImage>
#include <QSize>

namespace pirol {

/// The picture of a design as the running program would show it, without grid and selection. It is made smaller when
/// the designed window is larger than `largest`. Needs no window, but the window's own thread.
QImage DesignImage(const ProjectModel& model, const QSize& largest);

} // namespace pirol
