#include "ui/dialogs/StepRail.h"

#include "ui/parts/FlatStyle.h"
#include "ui/parts/Theme.h"

#include <QPainter>

namespace pirol {
namespace {

constexpr int side = 6 * tokens::unit; ///< of the circle with a step's number
constexpr int distance = 12 * tokens::unit;
constexpr int inset = tokens::unit; ///< of the tick in the circle of a step that is done

QFont Bold(QFont font) {
    font.setBold(true);
    return font;
}

} // namespace

StepRail::StepRail(const QStringList& steps) : steps_(steps) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

void StepRail::ShowStep(int step) {
    present_ = step;
    update();
}

QSize StepRail::sizeHint() const {
    int width = 0;
    for (const QString& step : steps_)
        width = std::max(width, QFontMetrics(Bold(font())).horizontalAdvance(step));
    return {side + tokens::gap + width + tokens::wideGap, static_cast<int>(steps_.size()) * distance};
}

void StepRail::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor line = palette().color(roles::line);
    for (int step = 0; step < steps_.size(); ++step) {
        const QRect circle(1, step * distance + 1, side - 2, side - 2);
        if (step + 1 < steps_.size())
            painter.fillRect(side / 2 - 1, circle.bottom() + tokens::unit, 2, distance - side - tokens::unit, line);
        const bool isPresent = step == present_;
        painter.setPen(QPen(isPresent ? Qt::transparent : palette().color(roles::outline), 1));
        painter.setBrush(palette().color(isPresent ? roles::accent : QPalette::Base));
        painter.drawEllipse(circle);
        const QColor quiet = palette().color(QPalette::PlaceholderText);
        painter.setFont(isPresent ? Bold(font()) : font());
        painter.setPen(isPresent ? AccentText(palette()) : quiet);
        if (step < present_)
            PaintTick(painter, QRectF(circle).adjusted(inset, inset, -inset, -inset), quiet);
        else
            painter.drawText(circle, Qt::AlignCenter, QString::number(step + 1));
        painter.setPen(isPresent ? palette().color(QPalette::WindowText) : quiet);
        painter.drawText(QRect(side + tokens::gap, circle.top(), width(), circle.height()), Qt::AlignVCenter,
                         steps_[step]);
    }
}

} // namespace pirol
