#include "ui/canvas/CanvasSurround.h"

#include "menu/MenuBar.h"
#include "ui/canvas/Lettering.h"
#include "ui/canvas/PaintingFunctions.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPaintEvent>

namespace pirol {
namespace {

// The designed window is light in every look, and so is its frame.
constexpr QColor titleFace(240, 240, 237);
constexpr QColor titleInk(60, 66, 74);
constexpr QColor frameLine(168, 172, 178);
constexpr int titleHeight = 7 * tokens::unit;
constexpr int signSize = 9;
constexpr int signGap = 20;

// The menu bar as Swing draws it: from white to this, line by line, as Qt starts threads for a gradient.
constexpr int menuBottom = 218;
constexpr QColor menuLine(204, 204, 204);
constexpr QColor menuInk(51, 51, 51);
constexpr int menuTextSize = 12;
constexpr int menuTextTop = 2;
constexpr int menuGap = 5; // on both sides of a caption

constexpr int shadowReach = 3 * tokens::unit;
constexpr int shadowDrop = tokens::unit; // it lies a little lower
constexpr double shadowStrength = 0.24;  // at the window's edge, of 1

/// The outline of a rectangle, inside it.
void PaintFrame(QPainter& painter, const QRect& box, const QColor& colour) {
    painter.fillRect(box.left(), box.top(), box.width(), 1, colour);
    painter.fillRect(box.left(), box.bottom(), box.width(), 1, colour);
    painter.fillRect(box.left(), box.top() + 1, 1, box.height() - 2, colour);
    painter.fillRect(box.right(), box.top() + 1, 1, box.height() - 2, colour);
}

/// Line by line, each fainter than the one inside it. All are opaque: for translucent ones Qt starts threads.
void PaintShadow(QPainter& painter, const QRect& window, const QColor& ground) {
    for (int reach = 1 - shadowDrop; reach <= shadowReach; ++reach) {
        const double share = 1 - std::max(reach, 0) / (shadowReach + 1.0);
        const double light = 1 - shadowStrength * share * share;
        const QColor line =
            QColor::fromRgbF(static_cast<float>(ground.redF() * light), static_cast<float>(ground.greenF() * light),
                             static_cast<float>(ground.blueF() * light));
        PaintFrame(painter, window.adjusted(-reach, shadowDrop - reach, reach, shadowDrop + reach), line);
    }
}

/// A bar with round corners above, which stand on what is painted around it already.
void PaintBar(QPainter& painter, const QRect& bar, double radius, const QColor& colour) {
    QPainterPath shape;
    shape.addRoundedRect(QRectF(bar).adjusted(0, 0, 0, radius), radius, radius);
    painter.save();
    painter.setClipRect(bar, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, colour);
    painter.restore();
}

/// The signs for making a window small and large and for closing it.
void PaintSigns(QPainter& painter, const QRect& bar) {
    painter.setPen(titleInk);
    QRect box(bar.right() - signGap, bar.center().y() - signSize / 2, signSize, signSize);
    painter.drawLine(box.topLeft(), box.bottomRight());
    painter.drawLine(box.bottomLeft(), box.topRight());
    box.translate(-signGap, 0);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    box.translate(-signGap, 0);
    painter.drawLine(box.bottomLeft(), box.bottomRight());
}

} // namespace

CanvasSurround::CanvasSurround(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CanvasSurround::SetCanvas(picContainer* canvas) {
    canvas_ = canvas;
    canvas_->installEventFilter(this);
}

void CanvasSurround::ShowTitle(const QString& title) {
    if (std::exchange(title_, title) != title)
        UpdateAll();
}

/// Asked whenever the menus may have changed.
void CanvasSurround::ShowMenus(bool shown) {
    if (std::exchange(showsMenus_, shown) || shown)
        UpdateAll();
}

/// The canvas itself is not painted anew.
void CanvasSurround::UpdateAll() {
    update(QRegion(rect()) - canvas_->geometry());
}

bool CanvasSurround::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::FocusIn:
    case QEvent::FocusOut:
        UpdateAll();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

int CanvasSurround::MenuHeight() const {
    return showsMenus_ ? canvas_->View().ToScreen(MenuBar::runningHeight) : 0;
}

/// The canvas with what stands above it.
QRect CanvasSurround::Window() const {
    return canvas_->geometry().adjusted(0, -titleHeight - MenuHeight(), 0, 0);
}

void CanvasSurround::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QColor ground = palette().color(roles::surround);
    painter.fillRect(event->rect(), ground);
    const QRect window = Window().adjusted(-1, 0, 1, 1);
    if (canvas_->geometry().contains(event->rect()))
        return;
    const QColor line = canvas_->hasFocus() ? palette().color(roles::focus) : frameLine;
    PaintShadow(painter, window, ground);
    PaintFrame(painter, window.adjusted(0, titleHeight - 1, 0, 0), line);
    PaintBar(painter, {window.left(), window.top(), window.width(), titleHeight}, tokens::radius, line);
    PaintTitle(painter, {window.left() + 1, window.top() + 1, window.width() - 2, titleHeight - 2});
    if (showsMenus_)
        PaintMenus(painter, {canvas_->x(), canvas_->y() - MenuHeight(), canvas_->width(), MenuHeight()});
}

void CanvasSurround::PaintTitle(QPainter& painter, const QRect& bar) const {
    PaintBar(painter, bar, tokens::radius - 1, titleFace);
    const int signs = 3 * signGap + tokens::gap;
    const QRect room = bar.adjusted(tokens::gap, 0, -signs, 0);
    if (bar.width() > signs)
        PaintSigns(painter, bar);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(titleInk);
    painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                     QFontMetrics(bold).elidedText(title_, Qt::ElideRight, room.width()));
}

void CanvasSurround::PaintMenus(QPainter& painter, const QRect& bar) const {
    painter.save();
    painter.setClipRect(bar, Qt::IntersectClip);
    painter.translate(bar.topLeft());
    const double factor = canvas_->View().Factor();
    painter.scale(factor, factor);
    const int width = canvas_->Model().WindowWidth();
    constexpr int height = MenuBar::runningHeight;
    constexpr int white = 255;
    painter.fillRect(0, 0, width, height, QColor(menuBottom, menuBottom, menuBottom));
    for (int y = 0; y < height - 1; ++y) {
        const int shade = white - (white - menuBottom) * y / height;
        FillSharply(painter, {0, y, width, 1}, QColor(shade, shade, shade));
    }
    FillSharply(painter, {0, height - 1, width, 1}, menuLine);
    const Lettering& letters = Lettering::Of(painter, menuTextSize, QFont::Bold);
    int left = 0;
    for (const cMenu& menu : canvas_->Model().Menus().Menus()) {
        if (left > width)
            break;
        const QString caption = ToText(menu.Caption).left(width); // a letter has a pixel at least
        const std::u16string_view text(reinterpret_cast<const char16_t*>(caption.utf16()),
                                       static_cast<std::size_t>(caption.size()));
        letters.Paint(painter, left + menuGap, menuTextTop, text, menuInk);
        left += letters.Width(text) + 2 * menuGap;
    }
    painter.restore();
}

} // namespace pirol
