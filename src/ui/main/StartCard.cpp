#include "ui/main/StartCard.h"

#include "ui/parts/Theme.h"

#include <QKeyEvent>
#include <QPainter>

namespace pirol {
namespace {

constexpr int margin = tokens::gap;

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
    painter.setRenderHint(QPainter::Antialiasing);
    const double thickness = hasFocus() ? tokens::focusWidth : tokens::hairline;
    painter.setPen(QPen(palette().color(hasFocus() ? roles::focus : roles::line), thickness));
    painter.setBrush(palette().color(isDown() ? roles::pressed : underMouse() ? roles::hover : QPalette::Base));
    const double edge = thickness / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(edge, edge, -edge, -edge), tokens::radius, tokens::radius);

    QRect place(QPoint(margin, margin), pictureSize_);
    if (picture_.isNull()) {
        painter.fillRect(place, palette().color(QPalette::Window));
    } else {
        const QSize own = picture_.size() / devicePixelRatio();
        const bool fits = own.boundedTo(pictureSize_) == own;
        QRect shown(QPoint(0, 0), fits ? own : own.scaled(pictureSize_, Qt::KeepAspectRatio));
        shown.moveCenter(place.center());
        painter.fillRect(shown.adjusted(-1, -1, 1, 1), palette().color(roles::outline));
        // What Qt smooths it paints in threads of its own, and making these would take longer than painting.
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, !fits);
        painter.drawImage(shown, picture_);
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
    write(note_, palette().color(QPalette::PlaceholderText), Qt::ElideMiddle);
}

void StartCard::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace pirol
