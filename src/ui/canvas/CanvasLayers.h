#pragma once

#include "designer/CanvasView.h"
#include "ui/canvas/PaintedComponents.h"

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

    CanvasLayers(PaintedComponents& painted, const ProjectModel& model, PaintBackground paintBackground)
        : painted_(painted), model_(model), paintBackground_(std::move(paintBackground)) {}

    /// Paints both layers for the visible part of the canvas, in pixels of the screen, around the given component or
    /// with all components below.
    void Fill(const QRect& visible, std::optional<ComponentRef> moving, double pixelRatio, const CanvasView& view);
    /// What the layers show is no longer so, or the gesture is over. Gives their memory back.
    void Drop();
    bool AreFilledFor(const QRect& visible, std::optional<ComponentRef> moving) const;

    /// Paints the parts of the screen with the moving component where it is now.
    void Paint(QPainter& painter, const QRegion& region) const;

  private:
    void PaintLayer(QPainter& painter, const QRegion& region, const QPixmap& layer) const;

    PaintedComponents& painted_;
    const ProjectModel& model_;
    PaintBackground paintBackground_;
    QRect visible_;
    std::optional<ComponentRef> moving_;
    double zoom_ = 1;
    QPixmap below_;
    QPixmap above_;
};

} // namespace pirol
