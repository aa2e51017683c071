#include "ui/canvas/GroupLayers.h"

#include "ui/canvas/PaintingFunctions.h"
#include "ui/parts/FormParts.h"

#include <QPainter>

namespace pirol {
namespace {

/// Borders and the handles of small components reach this far out of them.
constexpr int reach = DesignCanvas::resizerSize;

QPixmap NewLayer(const QSize& size, double pixelRatio) {
    QPixmap layer(size * pixelRatio);
    layer.setDevicePixelRatio(pixelRatio);
    layer.fill(Qt::transparent);
    return layer;
}

Rectangle ToRectangle(const QRect& rect) {
    return {rect.left(), rect.top(), rect.width(), rect.height()};
}

} // namespace

void GroupLayers::Drop() {
    below_ = {};
    dragged_ = {};
}

QPoint GroupLayers::Offset(const CanvasView& view) const {
    return {qRound(canvas_.DraggedX() * view.Factor()), qRound(canvas_.DraggedY() * view.Factor())};
}

void GroupLayers::Paint(QPainter& painter, const QRect& visible, double pixelRatio, const CanvasView& view) {
    offset_ = Offset(view);
    const bool isCurrent = AreFilled() && visible == visible_ && zoom_ == view.Zoom();
    if (!isCurrent || !covered_.contains(group_ & visible.translated(-offset_)))
        Fill(visible, pixelRatio, view);
    painter.drawPixmap(visible_.topLeft(), below_);
    if (!dragged_.isNull())
        painter.drawPixmap(covered_.topLeft() + offset_, dragged_);
}

void GroupLayers::Fill(const QRect& visible, double pixelRatio, const CanvasView& view) {
    visible_ = visible;
    zoom_ = view.Zoom();
    QRect group;
    for (const ComponentRef component : canvas_.AllSelected())
        group |= ToRect(painted_.Covered(component, model_.VisibleBox(component)));
    group_ = ToRect(view.ToScreen(ToRectangle(group.adjusted(-reach, -reach, reach, reach))));
    // As far around as a drag without scrolling can bring into view.
    const QRect around =
        visible.translated(-offset_).adjusted(-visible.width(), -visible.height(), visible.width(), visible.height());
    covered_ = group_ & around;

    const auto paint = [&](QPixmap& layer, const QRect& screen, bool isDragged) {
        layer = screen.isEmpty() ? QPixmap() : NewLayer(screen.size(), pixelRatio);
        if (layer.isNull())
            return;
        QPainter painter(&layer);
        painter.translate(-screen.topLeft());
        painter.scale(view.Factor(), view.Factor());
        const Rectangle area = view.ToDesign(ToRectangle(screen));
        if (!isDragged)
            paintBackground_(painter, {&area, 1});
        for (const ComponentRef component : painted_.On({&area, 1}))
            if (canvas_.AllSelected().Contains(component) == isDragged)
                painted_.Paint(painter, component);
        if (isDragged)
            PaintBorders(painter, area);
    };
    paint(below_, visible, false);
    paint(dragged_, covered_, true);
}

void GroupLayers::PaintBorders(QPainter& painter, const Rectangle& area) const {
    const std::optional<ComponentRef> leader = canvas_.Selected();
    for (const ComponentRef component : canvas_.Intersecting({&area, 1}))
        if (component != leader && canvas_.AllSelected().Contains(component))
            PaintMemberBorder(painter, model_.VisibleBox(component));
    if (!leader)
        return;
    PaintSelectionBorder(painter, model_.VisibleBox(*leader));
    if (std::optional<Rectangle> handle = canvas_.ResizerOf(*leader)) {
        handle->left -= canvas_.DraggedX();
        handle->top -= canvas_.DraggedY();
        PaintResizeHandle(painter, *handle);
    }
}

} // namespace pirol
