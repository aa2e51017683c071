#include "ui/canvas/CanvasSurround.h"

#include "menu/MenuBar.h"
#include "ui/canvas/Lettering.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/Theme.h"

#include <QEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QPaintEvent>

namespace pirol {
namespace {

// The designed window is light in every look, and so is its frame.
constexpr QColor titleTop(250, 250, 249);
constexpr QColor titleBottom(236, 236, 233);
constexpr QColor titleInk(60, 66, 74);
constexpr QColor frameLine(168, 172, 178);
constexpr int titleHeight = 7 * tokens::unit;
constexpr int signSize = 9;
constexpr int signGap = 20;

// The menu bar as Swing draws it.
constexpr QColor menuTop(255, 255, 255);
constexpr QColor menuBottom(218, 218, 218);
constexpr QColor menuLine(204, 204, 204);
constexpr QColor menuInk(51, 51, 51);
constexpr int menuTextSize = 12;
constexpr int menuTextTop = 2;
constexpr int menuGap = 5; // on both sides of a caption

constexpr int shadowReach = 3 * tokens::unit;
constexpr int shadowDrop = tokens::unit; // it lies a little lower
constexpr int shadowStrength = 7;        // of each of its layers, of 255

void PaintShadow(QPainter& painter, const QRect& window) {
    const QColor layer(0, 0, 0, shadowStrength);
    for (int reach = 2; reach <= shadowReach; reach += 2) {
        QPainterPath path;
        path.addRoundedRect(window.adjusted(-reach, shadowDrop - reach, reach, shadowDrop + reach), reach, reach);
        painter.fillPath(path, layer);
    }
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
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize)
        UpdateAll();
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
    painter.fillRect(event->rect(), palette().color(roles::surround));
    const QRect window = Window().adjusted(-1, 0, 1, 1);
    if (canvas_->geometry().contains(event->rect()))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    PaintShadow(painter, window);
    QPainterPath frame;
    frame.addRoundedRect(window, tokens::radius, tokens::radius);
    frame.addRect(window.adjusted(0, titleHeight, 0, 0));
    frame.setFillRule(Qt::WindingFill);
    painter.fillPath(frame, frameLine);
    painter.setRenderHint(QPainter::Antialiasing, false);
    PaintTitle(painter, {window.left() + 1, window.top() + 1, window.width() - 2, titleHeight - 2});
    if (showsMenus_)
        PaintMenus(painter, {canvas_->x(), canvas_->y() - MenuHeight(), canvas_->width(), MenuHeight()});
}

void CanvasSurround::PaintTitle(QPainter& painter, const QRect& bar) const {
    QLinearGradient face(bar.topLeft(), bar.bottomLeft());
    face.setColorAt(0, titleTop);
    face.setColorAt(1, titleBottom);
    QPainterPath shape;
    shape.addRoundedRect(bar.adjusted(0, 0, 0, tokens::radius), tokens::radius - 1, tokens::radius - 1);
    painter.save();
    painter.setClipRect(bar, Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape, face);
    painter.setRenderHint(QPainter::Antialiasing, false);
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
    painter.restore();
}

void CanvasSurround::PaintMenus(QPainter& painter, const QRect& bar) const {
    painter.save();
    painter.setClipRect(bar, Qt::IntersectClip);
    painter.translate(bar.topLeft());
    const double factor = canvas_->View().Factor();
    painter.scale(factor, factor);
    const int width = canvas_->Model().WindowWidth();
    constexpr int height = MenuBar::runningHeight;
    QLinearGradient face(0, 0, 0, height);
    face.setColorAt(0, menuTop);
    face.setColorAt(1, menuBottom);
    painter.fillRect(0, 0, width, height, face);
    painter.fillRect(0, height - 1, width, 1, menuLine);
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
