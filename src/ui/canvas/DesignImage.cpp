#include "ui/canvas/DesignImage.h"

#include "ui/canvas/PaintingFunctions.h"

#include <QPainter>

#include <algorithm>

namespace pirol {
namespace {

/// Up to this size the whole window is painted and then made smaller, which looks better than painting small.
constexpr int mostPixelsOfASide = 2000;

/// Paints a component unless it is hidden or lies outside the window. A picture may reach into it from outside.
void PaintComponent(QPainter& painter, const ProjectModel& model, ComponentRef component,
                    const PictureSource& pictures) {
    const QSize size = DesignSize(model);
    const Rectangle box = model.VisibleBox(component);
    const bool isPicture = component.kind == ComponentKind::Picture && box != Rectangle{};
    if (isPicture || box.Intersects({0, 0, size.width(), size.height()}))
        PaintControl(painter, model.Element(component), pictures);
}

} // namespace

QSize DesignSize(const ProjectModel& model) {
    return {std::max<int>(model.WindowWidth(), 1), std::max<int>(model.WindowHeight(), 1)};
}

void PaintDesign(QPainter& painter, const ProjectModel& model, const PictureSource& pictures) {
    const QRect window(QPoint(0, 0), DesignSize(model));
    painter.save();
    painter.setClipRect(window, Qt::IntersectClip);
    painter.fillRect(window, Qt::white);
    for (const ComponentRef component : model.CreationOrder())
        PaintComponent(painter, model, component, pictures);
    painter.restore();
}

DesignPicture::DesignPicture(const ProjectModel& model, const QSize& largest, PictureSource pictures)
    : model_(model), largest_(largest), pictures_(std::move(pictures)), own_(DesignSize(model)) {
    const QSize painted = own_.boundedTo({mostPixelsOfASide, mostPixelsOfASide});
    const QSize size = painted == own_ ? own_ : own_.scaled(painted, Qt::KeepAspectRatio).expandedTo({1, 1});
    image_ = QImage(size, QImage::Format_RGB32);
    image_.fill(Qt::white);
}

bool DesignPicture::PaintMore(std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    const PagedArray<ComponentRef>& order = model_.CreationOrder();
    QPainter painter(&image_);
    painter.scale(static_cast<double>(image_.width()) / own_.width(),
                  static_cast<double>(image_.height()) / own_.height());
    for (std::size_t paintedNow = 0; painted_ < order.size(); ++painted_, ++paintedNow) {
        constexpr std::size_t betweenLooks = 64; // at the clock
        if (paintedNow % betweenLooks == betweenLooks - 1 && std::chrono::steady_clock::now() >= end)
            return true;
        PaintComponent(painter, model_, order[painted_], pictures_);
    }
    return false;
}

QImage DesignPicture::Image() const {
    const QSize size = image_.size();
    const bool fits = size.boundedTo(largest_) == size;
    return fits ? image_
                : image_.scaled(size.scaled(largest_, Qt::KeepAspectRatio).expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                                Qt::SmoothTransformation);
}

QImage DesignImage(const ProjectModel& model, const QSize& largest, const PictureSource& pictures) {
    DesignPicture picture(model, largest, pictures);
    while (picture.PaintMore(std::chrono::hours(1)))
        continue;
    return picture.Image();
}

} // namespace pirol
