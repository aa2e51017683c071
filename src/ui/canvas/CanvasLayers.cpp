#include "ui/canvas/CanvasLayers.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>

namespace pirol {
namespace {

/// An opaque layer is copied; one with holes is blended, for which Qt starts threads.
QPixmap NewLayer(const QRect& visible, double pixelRatio, bool isOpaque) {
    QPixmap layer(visible.size() * pixelRatio);
    layer.setDevicePixelRatio(pixelRatio);
    layer.fill(isOpaque ? Qt::white : Qt::transparent);
    return layer;
}

} // namespace

void CanvasLayers::Fill(const QRect& visible, std::optional<ComponentRef> moving, double pixelRatio,
                        const CanvasView& view) {
    visible_ = visible;
    moving_ = moving;
    zoom_ = view.Factor();
    const Rectangle area = view.ToDesign(Rectangle{visible.left(), visible.top(), visible.width(), visible.height()});
    // The moving component may be out of sight, but it is needed to tell what is below it.
    const Rectangle areas[] = {area, moving ? model_.VisibleBox(*moving) : area};
    const std::vector<ComponentRef> components = painted_.On(areas);
    const auto border = moving ? std::find(components.begin(), components.end(), *moving) : components.end();

    const auto paint = [&](QPixmap& layer, bool withBackground, auto begin, auto end) {
        layer = NewLayer(visible, pixelRatio, withBackground);
        QPainter painter(&layer);
        painter.translate(-visible.topLeft());
        painter.scale(zoom_, zoom_);
        if (withBackground)
            paintBackground_(painter, std::span(&area, 1));
        for (auto component = begin; component != end; ++component)
            painted_.Paint(painter, *component);
    };
    paint(below_, true, components.begin(), border);
    above_ = {};
    if (border != components.end() && std::next(border) != components.end())
        paint(above_, false, std::next(border), components.end());
}

void CanvasLayers::Drop() {
    below_ = {};
    above_ = {};
}

bool CanvasLayers::AreFilledFor(const QRect& visible, std::optional<ComponentRef> moving) const {
    return !below_.isNull() && visible_ == visible && moving_ == moving;
}

void CanvasLayers::Paint(QPainter& painter, const QRegion& region) const {
    PaintLayer(painter, region, below_);
    if (moving_) {
        painter.save();
        painter.scale(zoom_, zoom_);
        painted_.Paint(painter, *moving_);
        painter.restore();
    }
    if (!above_.isNull())
        PaintLayer(painter, region, above_);
}

void CanvasLayers::PaintLayer(QPainter& painter, const QRegion& region, const QPixmap& layer) const {
    const double ratio = layer.devicePixelRatio();
    for (const QRect& rect : region& visible_) {
        const QRect inLayer = rect.translated(-visible_.topLeft());
        painter.drawPixmap(rect, layer, QRect(inLayer.topLeft() * ratio, inLayer.size() * ratio));
    }
}

} // namespace pirol
