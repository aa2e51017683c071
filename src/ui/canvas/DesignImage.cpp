#include "ui/canvas/DesignImage.h"

#include "ui/canvas/PaintingFunctions.h"

#include <QPainter>

#include <algorithm>

namespace pirol {
namespace {

/// Up to this size the whole window is painted and then made smaller, which looks better than painting small.
constexpr int mostPixelsOfASide = 2000;

} // namespace

QImage DesignImage(const ProjectModel& model, const QSize& largest) {
    const QSize own(std::max<int>(model.WindowWidth(), 1), std::max<int>(model.WindowHeight(), 1));
    const QSize painted = own.boundedTo({mostPixelsOfASide, mostPixelsOfASide});
    const QSize size = painted == own ? own : own.scaled(painted, Qt::KeepAspectRatio).expandedTo({1, 1});
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(static_cast<double>(size.width()) / own.width(), static_cast<double>(size.height()) / own.height());
    const QRect window(QPoint(0, 0), own);
    for (const ComponentRef component : model.CreationOrder()) {
        const Control& control = model.Element(component);
        const Rectangle box = model.VisibleBox(component);
        if (control.Visible && window.intersects({box.left, box.top, box.width, box.height}))
            PaintControl(painter, control);
    }
    painter.end();
    const bool fits = size.boundedTo(largest) == size;
    return fits ? image
                : image.scaled(size.scaled(largest, Qt::KeepAspectRatio).expandedTo({1, 1}), Qt::IgnoreAspectRatio,
                               Qt::SmoothTransformation);
}

} // namespace pirol
