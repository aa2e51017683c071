#include "ui/main/tbComponents.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr int leastButtonHeight = 17;
constexpr int mostButtonHeight = 30;

QToolButton* NewButton(const KindRow& row) {
    auto* button = new QToolButton;
    button->setObjectName("tbComponents_" + ToText(row.key));
    button->setText(ToText(row.toolbarLabel));
    button->setAccessibleName(ToText(row.toolbarLabel));
    button->setStatusTip(ToText(row.menuLabel) + " wählen und auf dem Fenster ein Rechteck aufziehen");
    button->setIcon(KindIcon(row.kind));
    button->setIconSize(QSize(16, 16));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setCheckable(true);
    button->setAutoRaise(true);
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    button->setMinimumHeight(leastButtonHeight);
    button->setMaximumHeight(mostButtonHeight);
    return button;
}

} // namespace

tbComponents::tbComponents(QWidget* parent) : QScrollArea(parent) {
    setObjectName("tbComponents");
    setAccessibleName("Komponenten");
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A slim bar, so that the longest caption stays whole beside it.
    verticalScrollBar()->setFixedWidth(8);
    setFocusPolicy(Qt::NoFocus);

    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins(2, 2, 2, 2);
    rows->setSpacing(0);
    for (const KindRow& row : KindRows()) {
        QToolButton* button = NewButton(row);
        rows->addWidget(button, 1);
        buttons_.addButton(button, static_cast<int>(row.kind));
    }
    rows->addStretch();
    setWidget(column);
    connect(&buttons_, &QButtonGroup::idClicked, this, &tbComponents::ButtonClicked);
}

void tbComponents::PressButton(int index) {
    if (QAbstractButton* button = buttons_.button(index))
        button->click();
}

} // namespace pirol
