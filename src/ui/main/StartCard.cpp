#include "ui/main/StartCard.h"

#include <QKeyEvent>
#include <QPainter>

namespace pirol {
namespace {

constexpr int margin = 8;
constexpr int rounding = 4;

/// Of two colours of the palette the one in between, for lines and texts that shall not stand out.
QColor Between(const QColor& one, const QColor& other) {
    return QColor((one.red() + other.red()) / 2, (one.green() + other.green()) / 2, (one.blue() + other.blue()) / 2);
}

} // namespace

StartCard::StartCard(const QString& name, const QSize& pictureSize, const QString& caption, const QString& note,
                     QWidget* parent)
    : QAbstractButton(parent), pictureSize_(pictureSize) {
    setObjectName(name);
    setText(caption);
    ShowNote(note);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    resize(sizeHint());
}

QSize StartCard::PicturePixels() const {
    return pictureSize_ * devicePixelRatio();
}

void StartCard::ShowPicture(const QImage& picture) {
    picture_ = picture;
    update();
}

void StartCard::ShowNote(const QString& note) {
    note_ = note;
    setAccessibleName(text() + ", " + note);
    update();
}

QSize StartCard::sizeHint() const {
    return {pictureSize_.width() + 2 * margin, pictureSize_.height() + 2 * fontMetrics().height() + 3 * margin};
}

void StartCard::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const bool isMarked = hasFocus() || underMouse() || isDown();
    const QColor line = Between(palette().color(QPalette::Window), palette().color(QPalette::WindowText));
    painter.setPen(isMarked ? QPen(palette().color(QPalette::Highlight), 2)
                            : QPen(Between(line, palette().color(QPalette::Window)), 1));
    painter.setBrush(palette().color(isDown() ? QPalette::AlternateBase : QPalette::Base));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), rounding, rounding);

    QRect place(QPoint(margin, margin), pictureSize_);
    if (picture_.isNull()) {
        painter.fillRect(place, palette().color(QPalette::Window));
    } else {
        const QSize own = picture_.size() / devicePixelRatio();
        const bool fits = own.boundedTo(pictureSize_) == own;
        QRect shown(QPoint(0, 0), fits ? own : own.scaled(pictureSize_, Qt::KeepAspectRatio));
        shown.moveCenter(place.center());
        painter.drawImage(shown, picture_);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(line);
        painter.drawRect(QRectF(shown).adjusted(-0.5, -0.5, 0.5, 0.5));
    }

    place.moveTop(place.bottom() + 1 + margin);
    place.setHeight(fontMetrics().height());
    const auto write = [&](const QString& text, const QColor& colour, Qt::TextElideMode elision) {
        painter.setPen(colour);
        painter.drawText(place, Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextSingleLine,
                         painter.fontMetrics().elidedText(text, elision, place.width()));
        place.translate(0, place.height());
    };
    write(text(), palette().color(QPalette::Text), Qt::ElideRight);
    write(note_, Between(line, palette().color(QPalette::Text)), Qt::ElideMiddle);
}

void StartCard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace pirol
