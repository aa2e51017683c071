#include "ui/main/tbComponents.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace pirol {
namespace {

constexpr int leastButtonHeight = 17;
constexpr int mostButtonHeight = 30;

QToolButton* NewButton(const QString& key, const QString& label, const QString& statusTip, const QIcon& icon) {
    auto* button = new QToolButton;
    button->setObjectName("tbComponents_" + key);
    button->setText(label);
    button->setAccessibleName(label);
    button->setStatusTip(statusTip);
    button->setIcon(icon);
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
    const auto add = [&](QToolButton* button, int index) {
        rows->addWidget(button, 1);
        buttons_.addButton(button, index);
        button->installEventFilter(this);
    };
    add(NewButton("pointer", "Zeiger", "Komponenten wählen und verschieben, ohne neue zu zeichnen",
                  CommandIcon("pointer")),
        0);
    for (const KindRow& row : KindRows())
        add(NewButton(ToText(row.key), ToText(row.toolbarLabel),
                      ToText(row.menuLabel) +
                          " wählen und ein Rechteck aufziehen; Doppelklick, Eingabe oder Ziehen setzt eines ein",
                      KindIcon(row.kind)),
            static_cast<int>(row.kind));
    rows->addStretch();
    setWidget(column);
    connect(&buttons_, &QButtonGroup::idClicked, this, &tbComponents::ButtonClicked);
}

void tbComponents::PressButton(int index) {
    if (QAbstractButton* button = buttons_.button(index))
        button->click();
}

bool tbComponents::eventFilter(QObject* watched, QEvent* event) {
    const int index = buttons_.id(qobject_cast<QAbstractButton*>(watched));
    switch (event->type()) {
    case QEvent::MouseButtonDblClick:
        emit PlaceWanted(index);
        return false;
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter)
            return false;
        emit PlaceWanted(index);
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return Drag(index, *event);
    default:
        return QScrollArea::eventFilter(watched, event);
    }
}

/// The button has the mouse until it is let go, wherever that is.
bool tbComponents::Drag(int index, const QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const QPoint global = mouse.globalPosition().toPoint();
    if (event.type() == QEvent::MouseButtonPress) {
        pressedAt_ = global;
    } else if (event.type() == QEvent::MouseMove && mouse.buttons().testFlag(Qt::LeftButton)) {
        isDragging_ = isDragging_ || (global - pressedAt_).manhattanLength() >= QApplication::startDragDistance();
        if (isDragging_)
            emit Dragged(index, global);
    } else if (event.type() == QEvent::MouseButtonRelease && std::exchange(isDragging_, false)) {
        emit Dropped(index, global);
    }
    return false;
}

int tbComponents::PressedButton() const {
    return buttons_.checkedId();
}

} // namespace pirol
