#include "ui/main/tbComponents.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <array>

namespace pirol {
namespace {

constexpr int leastButtonHeight = 17;
constexpr int mostButtonHeight = 8 * tokens::unit;
constexpr int leastHeightForLarge = tokens::kindIcon + tokens::unit; ///< of a button with a large picture
constexpr int lineRoom = 9;

/// What a kind is good for, and whether a group of kinds begins with it.
struct PurposeRow {
    ComponentKind kind;
    const char* purpose;
    bool beginsGroup;
};

using enum ComponentKind;
// clang-format off
constexpr std::array<PurposeRow, kindCount> purposes = {{
    {Label,       "Zeigt einen Text, den nur das Programm ändert: Überschriften, Beschriftungen, Ergebnisse", true},
    {Button,      "Löst mit einem Klick etwas aus", false},
    {TextField,   "Nimmt eine Zeile Text auf, zum Beispiel einen Namen oder eine Zahl", false},
    {CharField,   "Nimmt einen langen Text auf, dessen Zeilen am Rand umbrechen", false},
    {RowField,    "Nimmt einen Text aus vielen Zeilen auf; lange Zeilen lassen sich rollen", false},
    {Password,    "Nimmt eine Zeile auf, die niemand mitlesen kann", false},
    {CheckBox,    "Ist an oder aus", true},
    {OptionGroup, "Mehrere Radioknöpfe, von denen immer nur einer gewählt ist", false},
    {ComboBox,    "Klappt eine Liste auf, aus der einer der Einträge gewählt wird", false},
    {Slider,      "Stellt mit der Maus eine Zahl zwischen zwei Grenzen ein", false},
    {ProgressBar, "Zeigt, wie weit etwas ist", false},
    {Table,       "Zeigt Texte in Zeilen und Spalten", false},
    {Picture,     "Zeigt ein Bild aus einer Datei", true},
    {Sound,       "Spielt eine Tondatei ab; im Fenster ist nichts zu sehen", false},
    {Movie,       "Spielt einen Film aus einer Datei ab", false},
}};
// clang-format on
static_assert(HasEveryKind(purposes));

/// A quiet line between two groups.
class GroupLine final : public QWidget {
  public:
    GroupLine() { setFixedHeight(lineRoom); }

  private:
    void paintEvent(QPaintEvent*) override {
        QPainter(this).fillRect(tokens::gap, lineRoom / 2, width() - 2 * tokens::gap, 1, palette().color(roles::line));
    }
};

/// As large as its place allows; its caption is not measured for that.
class KindButton final : public QToolButton {
  public:
    QSize sizeHint() const override { return {0, mostButtonHeight}; }
};

/// Markup, so that long tips are broken.
QString Tip(const QString& heading, const QString& text) {
    return "<qt><b>" + heading + "</b><br>" + text + "</qt>";
}

QToolButton* NewButton(const QString& key, const QString& label, const QString& statusTip, const QIcon& icon) {
    auto* button = new KindButton;
    button->setObjectName("tbComponents_" + key);
    button->setText(label);
    button->setAccessibleName(label);
    button->setStatusTip(statusTip);
    button->setIcon(icon);
    button->setIconSize({tokens::kindIcon, tokens::kindIcon});
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
    verticalScrollBar()->setFixedWidth(tokens::gap);
    setFocusPolicy(Qt::NoFocus);

    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins(tokens::hairGap, tokens::hairGap, tokens::hairGap, tokens::hairGap);
    rows->setSpacing(0);
    const auto add = [&](QToolButton* button, int index) {
        rows->addWidget(button, 1);
        buttons_.addButton(button, index);
        button->installEventFilter(this);
    };
    const QString pointing = "Komponenten wählen und verschieben, ohne neue zu zeichnen";
    auto* const pointer = NewButton("pointer", "Zeiger", pointing, CommandIcon("pointer"));
    pointer->setToolTip(Tip("Zeiger", pointing));
    add(pointer, 0);
    for (const KindRow& row : KindRows()) {
        auto* const button =
            NewButton(ToText(row.key), ToText(row.toolbarLabel),
                      ToText(row.menuLabel) +
                          " wählen und ein Rechteck aufziehen; Doppelklick, Eingabe oder Ziehen setzt eines ein",
                      KindIcon(row.kind));
        const PurposeRow& purpose = purposes[Position(row.kind)];
        button->setToolTip(Tip(ToText(row.menuLabel), purpose.purpose));
        if (purpose.beginsGroup)
            rows->addWidget(new GroupLine);
        add(button, static_cast<int>(row.kind));
    }
    rows->addStretch();
    setWidget(column);
    connect(&buttons_, &QButtonGroup::idClicked, this, &tbComponents::ButtonClicked);
}

void tbComponents::resizeEvent(QResizeEvent* event) {
    const int count = static_cast<int>(buttons_.buttons().size());
    constexpr int lines = 3;
    const int room = (height() - lines * lineRoom - tokens::unit) / count;
    const int side = room >= leastHeightForLarge ? tokens::kindIcon : tokens::smallIcon;
    for (QAbstractButton* const button : buttons_.buttons())
        button->setIconSize({side, side});
    QScrollArea::resizeEvent(event);
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
