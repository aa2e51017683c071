#pragma once

#include "model/ProjectModel.h"
#include "ui/canvas/PictureFile.h"

#include <QImage>
#include <QSize>

#include <chrono>

class QPainter;

namespace pirol {

/// The size of the designed window in pixels, at least one each way.
QSize DesignSize(const ProjectModel& model);

/// Paints a design as the running program would show it, without grid and selection, one unit of the painter for each
/// pixel. What lies outside the window is cut off.
void PaintDesign(QPainter& painter, const ProjectModel& model, const PictureSource& pictures);

/// The picture of a design. It is made smaller when the designed window is larger than `largest`. Needs no window, but
/// the window's own thread.
QImage DesignImage(const ProjectModel& model, const QSize& largest, const PictureSource& pictures);

/// The same picture, painted in parts, so that a large design holds up no window.
class DesignPicture {
  public:
    DesignPicture(const ProjectModel& model, const QSize& largest, PictureSource pictures);

    /// Goes on painting for about so long; false when all is painted.
    bool PaintMore(std::chrono::milliseconds time);
    /// What has been painted so far.
    QImage Image() const;

  private:
    ProjectModel model_;
    QSize largest_;
    PictureSource pictures_;
    QSize own_; ///< of the designed window
    QImage image_;
    std::size_t painted_ = 0; ///< of the order in which the components were created
};

} // namespace pirol
