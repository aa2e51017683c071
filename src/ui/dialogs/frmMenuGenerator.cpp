#include "ui/dialogs/frmMenuGenerator.h"

#include "ui/parts/Bitmaps.h"
#include "ui/parts/CellDelegate.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/RowList.h"
#include "ui/parts/TextLine.h"
#include "ui/parts/Theme.h"

#include <QButtonGroup>
#include <QDragMoveEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace pirol {
namespace {

struct OptionRow {
    std::int32_t type;
    const char* name;
    const char* caption;
    const char* toolTip;
};

constexpr OptionRow options[] = {
    {cMenu::Menu, "optType0", "&Menü", "Ein Menü in der Menüleiste"},
    {cMenu::SubMenu, "optType1", "&Untermenü", "Ein Menü innerhalb eines Menüs"},
    {cMenu::Entry, "optType2", "&Eintrag", "Eine Zeile zum Anklicken; sie erhält eine Ereignismethode"},
    {cMenu::Separator, "optType3", "&Trennlinie", "Eine Linie zwischen zwei Einträgen; sie braucht keine Beschriftung"},
};

const char* IconOf(std::int32_t type) {
    switch (type) {
    case cMenu::Menu:
        return "menu";
    case cMenu::SubMenu:
        return "submenu";
    case cMenu::Separator:
        return "separator";
    default:
        return "entry";
    }
}

} // namespace

/// A row's level is in the blanks before its text; they move the icon, too.
class IndentedRow final : public CellDelegate {
  public:
    using CellDelegate::CellDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QString text = index.data().toString();
        const auto first = std::find_if(text.begin(), text.end(), [](QChar sign) { return sign != ' '; });
        QStyleOptionViewItem row = option;
        row.rect.setLeft(row.rect.left() + static_cast<int>(first - text.begin()) * indentPerBlank);
        CellDelegate::paint(painter, row, index);
    }

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        CellDelegate::initStyleOption(option, index);
        while (option->text.startsWith(' '))
            option->text.remove(0, 1);
    }

  private:
    static constexpr int indentPerBlank = tokens::unit + 1;
};

/// The menu bar's rows, which the mouse can drag to other places. It only asks and tells: the owner moves them.
class MenuRowList final : public RowList {
  public:
    using CanDrop = std::function<bool(std::size_t row, std::size_t target, DropPlace place)>;
    using Drop = std::function<void(std::size_t row, std::size_t target, DropPlace place)>;

    MenuRowList() {
        setDragDropMode(DragDrop);
        setDropIndicatorShown(true);
        setItemDelegate(new IndentedRow(this));
    }
    void SetDropping(CanDrop canDrop, Drop drop) {
        canDrop_ = std::move(canDrop);
        drop_ = std::move(drop);
    }

  protected:
    void startDrag(Qt::DropActions) override {
        dragged_ = static_cast<std::size_t>(currentRow()) + 1;
        RowList::startDrag(Qt::CopyAction); // the rows are not Qt's to move
    }
    void dragMoveEvent(QDragMoveEvent* event) override {
        RowList::dragMoveEvent(event); // knows where the pointer is
        const auto target = Target(event->position().toPoint());
        event->setAccepted(event->source() == this && target && canDrop_(dragged_, target->first, target->second));
    }
    void dropEvent(QDropEvent* event) override {
        const auto target = Target(event->position().toPoint());
        event->setDropAction(Qt::CopyAction);
        event->accept();
        stopAutoScroll();
        setState(NoState);
        viewport()->update();
        if (event->source() == this && target)
            drop_(dragged_, target->first, target->second);
    }

  private:
    std::optional<std::pair<std::size_t, DropPlace>> Target(const QPoint& position) const {
        const int row = indexAt(position).row();
        if (row < 0)
            return count() == 0 ? std::nullopt
                                : std::optional(std::pair(static_cast<std::size_t>(count()), DropPlace::Behind));
        const DropPlace place = dropIndicatorPosition() == AboveItem   ? DropPlace::Before
                                : dropIndicatorPosition() == BelowItem ? DropPlace::Behind
                                                                       : DropPlace::Into;
        return std::pair(static_cast<std::size_t>(row) + 1, place);
    }

    CanDrop canDrop_;
    Drop drop_;
    std::size_t dragged_ = 0;
};

frmMenuGenerator::frmMenuGenerator(MenuBar& bar, cCommonDialog& dialogs, QWidget* owner)
    : QDialog(owner), editor_(bar), dialogs_(dialogs),
      lstEntries_(Named(new MenuRowList, "lstEntries", "Alle Zeilen der Menüleiste")),
      txtCaption_(Named(new TextLine, "txtCaption", "Beschriftung")),
      txtName_(Named(new TextLine, "txtName", "Menüname")), optType_(new QButtonGroup(this)),
      lblDepth_(Named(new QLabel, "lblDepth", "Aktuelle Menütiefe")),
      cmdDel_(NewIconButton("cmdDel", "&Löschen", "delete", "Die gewählte Zeile mit allem darunter löschen")),
      cmdMoveUp_(NewIconButton("cmdMoveUp", "Nach &oben", "up", "Die gewählte Zeile mit ihrer Vorgängerin tauschen")),
      cmdMoveDown_(
          NewIconButton("cmdMoveDown", "Nach u&nten", "down", "Die gewählte Zeile mit ihrer Nachfolgerin tauschen")),
      cmdLevelUp_(NewIconButton("cmdLevelUp", "Eine Ebene &höher", "left",
                                "Neue Zeilen wieder eine Ebene höher anlegen, am Ende in der Menüleiste selbst")) {
    setObjectName("frmMenuGenerator");
    setWindowTitle("Pirol - Menü-Generator");

    auto* const stbStatus = Named(new QStatusBar, "stbStatus", "Statusleiste");
    stbStatus->addWidget(lblDepth_);

    auto* const commands = new QVBoxLayout;
    commands->addWidget(NewEntryGroup());
    commands->addWidget(NewSelectionGroup());
    commands->addStretch();
    commands->addLayout(NewClosingButtons());

    auto* const columns = new QHBoxLayout;
    columns->addLayout(NewList(), 1);
    columns->addLayout(commands);

    auto* const all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addWidget(stbStatus);

    ShowOption(cMenu::Menu);
    RefreshList();
    txtCaption_->setFocus();
}

QLayout* frmMenuGenerator::NewList() {
    auto* const caption = new QLabel("Menüle&iste:");
    caption->setBuddy(lstEntries_);
    lstEntries_->setUniformItemSizes(true);
    lstEntries_->setPalette(PaperPalette()); // its rows have colours of their own, which are those of a white sheet
    lstEntries_->setMinimumWidth(fontMetrics().averageCharWidth() * 44);
    lstEntries_->setToolTip("Neue Zeilen kommen in das gewählte Menü oder hinter den gewählten Eintrag. Zeilen lassen "
                            "sich mit der Maus an eine andere Stelle ziehen.");
    lstEntries_->SetDropping(
        [this](std::size_t row, std::size_t target, DropPlace place) { return editor_.CanDrop(row, target, place); },
        [this](std::size_t row, std::size_t target, DropPlace place) {
            editor_.SelectRow(editor_.Drop(row, target, place));
            ShowOption(editor_.FittingOption(Option()));
            RefreshList();
        });
    connect(lstEntries_, &QListWidget::currentRowChanged, this, &frmMenuGenerator::SelectRow);

    auto* const layout = new QVBoxLayout;
    layout->addWidget(caption);
    layout->addWidget(lstEntries_, 1);
    return layout;
}

QGroupBox* frmMenuGenerator::NewEntryGroup() {
    auto* const group = new QGroupBox("Neue Zeile");
    auto* const form = new QFormLayout(group);
    txtCaption_->setToolTip("Was in der Menüleiste zu lesen ist");
    txtName_->setToolTip("Name des Menü-Objekts im Java-Quelltext");
    form->addRow("&Beschriftung:", txtCaption_);
    form->addRow("Menün&ame:", txtName_);
    for (const OptionRow& row : options) {
        auto* const option = NewOption(row.name, row.caption, row.toolTip);
        optType_->addButton(option, row.type);
        form->addRow(row.type == cMenu::Menu ? "Art:" : "", option);
    }
    auto* const cmdAdd = NewIconButton("cmdAdd", "Hin&zufügen", "add", "Die neue Zeile in die Menüleiste aufnehmen");
    cmdAdd->setDefault(true);
    form->addRow(cmdAdd);

    connect(txtCaption_, &QLineEdit::textChanged, this, &frmMenuGenerator::ProposeName);
    connect(optType_, &QButtonGroup::idToggled, this, [this](int, bool isOn) {
        if (isOn)
            ShowNameOfOption();
    });
    connect(cmdAdd, &QPushButton::clicked, this, &frmMenuGenerator::Add);
    return group;
}

QGroupBox* frmMenuGenerator::NewSelectionGroup() {
    auto* const group = new QGroupBox("Gewählte Zeile");
    auto* const grid = new QGridLayout(group);
    grid->addWidget(cmdMoveUp_, 0, 0);
    grid->addWidget(cmdMoveDown_, 0, 1);
    grid->addWidget(cmdDel_, 1, 0);
    grid->addWidget(cmdLevelUp_, 1, 1);
    connect(cmdMoveUp_, &QPushButton::clicked, this, [this] { Move(&MenuEditor::MoveUp); });
    connect(cmdMoveDown_, &QPushButton::clicked, this, [this] { Move(&MenuEditor::MoveDown); });
    connect(cmdDel_, &QPushButton::clicked, this, &frmMenuGenerator::Delete);
    connect(cmdLevelUp_, &QPushButton::clicked, this, &frmMenuGenerator::LevelUp);
    return group;
}

QLayout* frmMenuGenerator::NewClosingButtons() {
    auto* const cmdOK = NewButton("cmdOK", "OK", "Die Menüleiste so übernehmen");
    auto* const cmdCancel = NewButton("cmdCancel", "Abbrechen", "Die Menüleiste so lassen, wie sie vorher war");
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    return NewButtonRow({cmdOK, cmdCancel});
}

std::int32_t frmMenuGenerator::Option() const {
    return optType_->checkedId();
}

void frmMenuGenerator::ShowOption(std::int32_t option) {
    optType_->button(option)->setChecked(true);
}

void frmMenuGenerator::ProposeName() {
    isAdded_ = false;
    if (const auto name = MenuEditor::ProposeName(Option(), txtCaption_->text().toStdString()))
        txtName_->setText(ToText(*name));
}

/// The name of another menu never stays behind.
void frmMenuGenerator::ShowNameOfOption() {
    txtName_->setEnabled(Option() == cMenu::Menu);
    txtName_->clear();
    if (!txtCaption_->text().isEmpty())
        ProposeName();
}

void frmMenuGenerator::SelectRow(int row) {
    editor_.SelectRow(static_cast<std::size_t>(row) + 1); // no row is -1 and becomes 0
    isAdded_ = false;
    ShowOption(editor_.FittingOption(Option()));
    ShowSelection();
}

void frmMenuGenerator::Add() {
    if (isAdded_)
        return;
    const auto refusal = editor_.Add(Option(), txtCaption_->text().toStdString(), txtName_->text().toStdString());
    if (refusal)
        return dialogs_.Information(*refusal);
    isAdded_ = true;
    RefreshList();
    // The next caption is typed over this one.
    txtCaption_->setFocus();
    txtCaption_->selectAll();
}

void frmMenuGenerator::LevelUp() {
    ShowOption(editor_.LevelUp(Option()));
    ShowSelection();
}

void frmMenuGenerator::Move(std::size_t (MenuEditor::*move)(std::size_t)) {
    (editor_.*move)(editor_.SelectedRow());
    RefreshList();
}

void frmMenuGenerator::Delete() {
    editor_.Delete(editor_.SelectedRow());
    ShowOption(editor_.FittingOption(Option()));
    RefreshList();
}

void frmMenuGenerator::reject() {
    editor_.Cancel();
    QDialog::reject();
}

void frmMenuGenerator::RefreshList() {
    const QSignalBlocker blocker(lstEntries_);
    lstEntries_->clear();
    for (const MenuRow& row : editor_.Rows()) {
        auto* const item = new QListWidgetItem(ToText(row.text), lstEntries_);
        item->setIcon(PaperIcon(IconOf(row.node->EntryType)));
        if (row.colour)
            item->setForeground(ToColor(*row.colour));
    }
    ShowSelection();
}

void frmMenuGenerator::ShowSelection() {
    const QSignalBlocker blocker(lstEntries_);
    lstEntries_->setCurrentRow(static_cast<int>(editor_.SelectedRow()) - 1);
    lblDepth_->setText(ToText(editor_.StatusText()));
    const bool isSelected = editor_.SelectedRow() != 0;
    for (QPushButton* const button : {cmdDel_, cmdMoveUp_, cmdMoveDown_})
        button->setEnabled(isSelected);
    cmdLevelUp_->setEnabled(editor_.Depth() > 0);
}

} // namespace pirol
