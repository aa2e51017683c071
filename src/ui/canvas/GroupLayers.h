#pragma once

#include "designer/CanvasView.h"
#include "designer/DesignCanvas.h"
#include "ui/canvas/PaintedComponents.h"

#include <QPixmap>
#include <QRect>

#include <functional>
#include <span>

class QPainter;

namespace pirol {

/// The canvas painted once for a drag of several components: all others below, and the dragged ones with their borders
/// above. So a mouse move costs the same however many are dragged.
class GroupLayers {
  public:
    using PaintBackground = std::function<void(QPainter&, std::span<const Rectangle>)>;

    GroupLayers(DesignCanvas& canvas, PaintedComponents& painted, const ProjectModel& model,
                PaintBackground paintBackground)
        : canvas_(canvas), painted_(painted), model_(model), paintBackground_(std::move(paintBackground)) {}

    /// Paints the visible part of the canvas with the components where they have been dragged to.
    void Paint(QPainter& painter, const QRect& visible, double pixelRatio, const CanvasView& view);
    /// What the layers show is no longer so, or the drag is over. Gives their memory back.
    void Drop();
    bool AreFilled() const { return !below_.isNull(); }
    /// What the dragged components cover on the screen; once the layers are filled.
    QRect Area() const { return group_.translated(offset_); }
    /// The same for where they are now.
    QRect AreaNow(const CanvasView& view) const { return group_.translated(Offset(view)); }

  private:
    QPoint Offset(const CanvasView& view) const;
    void Fill(const QRect& visible, double pixelRatio, const CanvasView& view);
    void PaintBorders(QPainter& painter, const Rectangle& area) const;

    DesignCanvas& canvas_;
    PaintedComponents& painted_;
    const ProjectModel& model_;
    PaintBackground paintBackground_;
    QRect visible_;
    QRect group_;   ///< all dragged components where they lay, on the screen
    QRect covered_; ///< the part of it that is painted
    QPoint offset_; ///< as painted last
    int zoom_ = 0;
    QPixmap below_;
    QPixmap dragged_;
};

} // namespace pirol
