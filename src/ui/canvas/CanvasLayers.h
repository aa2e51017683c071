#pragma once

#include "designer/DesignCanvas.h"

#include <QPixmap>
#include <QRect>

#include <functional>
#include <optional>
#include <span>

class QPainter;

namespace pirol {

/// The canvas painted once for a whole gesture: everything below the component that the gesture changes, and
/// everything above it. So a mouse move costs the same however many components lie on top of each other.
class CanvasLayers {
  public:
    using PaintBackground = std::function<void(QPainter&, std::span<const Rectangle>)>;

    CanvasLayers(DesignCanvas& canvas, const ProjectModel& model, PaintBackground paintBackground)
        : canvas_(canvas), model_(model), paintBackground_(std::move(paintBackground)) {}

    /// Paints both layers for the visible part of the canvas, around the given component or with all components below.
    void Fill(const QRect& visible, std::optional<ComponentRef> moving, double pixelRatio);
    /// What the layers show is no longer so, or the gesture is over. Gives their memory back.
    void Drop();
    bool AreFilledFor(const QRect& visible, std::optional<ComponentRef> moving) const;

    /// Paints the rectangles of the canvas with the moving component where it is now.
    void Paint(QPainter& painter, const QRegion& region) const;

  private:
    void PaintLayer(QPainter& painter, const QRegion& region, const QPixmap& layer) const;

    DesignCanvas& canvas_;
    const ProjectModel& model_;
    PaintBackground paintBackground_;
    QRect visible_;
    std::optional<ComponentRef> moving_;
    QPixmap below_;
    QPixmap above_;
};

} // namespace pirol
