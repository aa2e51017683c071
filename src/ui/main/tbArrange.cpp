#include "ui/main/tbArrange.h"

#include "ui/parts/FormParts.h"

#include <QAction>
#include <QHBoxLayout>
#include <QToolButton>

namespace pirol {
namespace {

constexpr int buttonWidth = 22;
constexpr int gapWidth = 6;

} // namespace

tbArrange::tbArrange(QWidget* parent) : QWidget(parent), buttons_(new QHBoxLayout(this)) {
    Named(this, "tbArrange", "Anordnen");
    buttons_->setContentsMargins(0, 0, 0, 0);
    buttons_->setSpacing(0);
}

void tbArrange::Add(QAction* command) {
    if (command == nullptr)
        return buttons_->addSpacing(gapWidth);
    auto* button = new QToolButton(this);
    button->setObjectName("tbArrange_" + command->objectName());
    button->setDefaultAction(command);
    const QString keys = command->shortcut().toString(QKeySequence::NativeText);
    button->setToolTip(command->statusTip() + (keys.isEmpty() ? QString() : " (" + keys + ")"));
    button->setAccessibleName(command->text().remove('&'));
    button->setAutoRaise(true);
    button->setIconSize({16, 16});
    button->setFixedWidth(buttonWidth);
    button->setFocusPolicy(Qt::NoFocus);
    buttons_->addWidget(button);
}

void tbArrange::PlaceIn(const QRect& row, int headingWidth) {
    const int room = std::max(row.width() - headingWidth, 0);
    int width = 0;
    for (int i = 0; i < buttons_->count(); ++i) {
        QWidget* const button = buttons_->itemAt(i)->widget();
        width += button != nullptr ? buttonWidth : gapWidth;
        if (button != nullptr)
            button->setVisible(width <= room);
    }
    const int shown = std::min(width, room);
    setGeometry(row.right() + 1 - shown, row.top(), shown, row.height());
}

} // namespace pirol
