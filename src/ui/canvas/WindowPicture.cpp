#include "ui/canvas/WindowPicture.h"

#include "base/RuntimeError.h"
#include "ui/canvas/DesignImage.h"
#include "ui/canvas/Lettering.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

namespace pirol {
namespace {

constexpr int mostPixelsOfASide = 8000;
constexpr int pixelsPerInch = 96;
constexpr double pointsPerPixel = 72.0 / pixelsPerInch;

// The frame: a title and a border, plain enough to stand for that of any system.
constexpr int border = 1;
constexpr int titleHeight = 28;
constexpr int titlePixels = 13;
constexpr int buttonSize = 9;
constexpr int buttonGap = 20;
constexpr QColor titleColour(222, 226, 232);
constexpr QColor lineColour(120, 130, 142);
constexpr QColor signColour(60, 66, 74);
constexpr std::u16string_view title = u"SuMAnwendung";

QMargins MarginsOf(WindowFrame frame) {
    return frame == WindowFrame::With ? QMargins(border, titleHeight + border, border, border) : QMargins();
}

QSize SizeOf(const ProjectModel& model, WindowFrame frame) {
    return DesignSize(model).grownBy(MarginsOf(frame));
}

/// The signs for making a window small and large and for closing it.
void PaintButtons(QPainter& painter, int right) {
    const int top = border + (titleHeight - buttonSize) / 2;
    painter.setPen(QPen(signColour, 1));
    QRect box(right - buttonGap, top, buttonSize, buttonSize);
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.bottomLeft(), box.topRight());
    box.translate(-buttonGap, 0);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    box.translate(-buttonGap, 0);
    painter.drawLine(box.bottomLeft(), box.bottomRight());
}

void PaintFrame(QPainter& painter, const QSize& size) {
    painter.fillRect(QRect(QPoint(0, 0), size), lineColour);
    painter.fillRect(border, border, size.width() - 2 * border, titleHeight, titleColour);
    painter.fillRect(border, titleHeight, size.width() - 2 * border, 1, lineColour);
    const Lettering& letters = Lettering::Of(painter, titlePixels, QFont::Bold);
    const int room = size.width() - 3 * buttonGap - 2 * border;
    if (room > buttonGap)
        PaintButtons(painter, size.width() - border);
    if (room > letters.Width(title))
        letters.Paint(painter, buttonGap / 2, border + (titleHeight - letters.Height()) / 2, title, signColour);
}

void PaintWindow(QPainter& painter, const ProjectModel& model, WindowFrame frame, const PictureSource& pictures) {
    if (frame == WindowFrame::With)
        PaintFrame(painter, SizeOf(model, frame));
    const QMargins margins = MarginsOf(frame);
    painter.translate(margins.left(), margins.top());
    PaintDesign(painter, model, pictures);
}

} // namespace

QImage WindowImage(const ProjectModel& model, WindowFrame frame, const PictureSource& pictures) {
    const QSize own = SizeOf(model, frame);
    const QSize most(mostPixelsOfASide, mostPixelsOfASide);
    const QSize size = own.boundedTo(most) == own ? own : own.scaled(most, Qt::KeepAspectRatio).expandedTo({1, 1});
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        throw RuntimeError(RuntimeError::OutOfMemory);
    QPainter painter(&image);
    painter.scale(static_cast<double>(size.width()) / own.width(), static_cast<double>(size.height()) / own.height());
    PaintWindow(painter, model, frame, pictures);
    return image;
}

QByteArray WindowPng(const ProjectModel& model, WindowFrame frame, const PictureSource& pictures) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!WindowImage(model, frame, pictures).save(&buffer, "PNG"))
        throw RuntimeError(RuntimeError::OutOfMemory);
    return bytes;
}

QByteArray WindowPdf(const ProjectModel& model, WindowFrame frame, const PictureSource& pictures) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    const QSize size = SizeOf(model, frame);
    writer.setResolution(pixelsPerInch);
    writer.setTitle("SuMAnwendung");
    writer.setPageLayout(
        QPageLayout(QPageSize(QSizeF(size) * pointsPerPixel, QPageSize::Point, {}, QPageSize::ExactMatch),
                    QPageLayout::Portrait, {}));
    QPainter painter(&writer);
    if (!painter.isActive())
        throw RuntimeError(RuntimeError::OutOfMemory);
    PaintWindow(painter, model, frame, pictures);
    painter.end();
    return bytes;
}

} // namespace pirol
