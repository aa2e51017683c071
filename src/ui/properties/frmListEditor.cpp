#include "ui/properties/frmListEditor.h"

#include "base/Conversions.h"
#include "designer/ListEditorModel.h"
#include "ui/parts/CellDelegate.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace pirol {

/// The rows being edited as an item model.
class ListRowsModel final : public QAbstractTableModel {
  public:
    ListRowsModel(ListEditorModel list, QWidget* owner)
        : QAbstractTableModel(owner), list_(std::move(list)), owner_(owner) {
        untilReport_.setSingleShot(true);
    }

    std::string ListText() const { return list_.ListText(); }

    /// Whether a value was refused whose error report is still to come.
    bool HasPendingReport() const { return untilReport_.isActive(); }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(list_.RowCount());
    }

    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(list_.Descriptor().fields.size());
    }

    FieldType TypeOf(int column) const { return list_.Descriptor().fields[static_cast<std::size_t>(column)].type; }

    QVariant data(const QModelIndex& index, int role) const override {
        if (!index.isValid())
            return {};
        const std::string& value = CellAt(index);
        const bool isFlag = TypeOf(index.column()) == FieldType::Boolean;
        switch (role) {
        case Qt::DisplayRole:
            return Shown(isFlag ? LowerCase(value) : value);
        case Qt::EditRole:
            return ToText(value);
        case CellDelegate::isNumberRole:
            return TypeOf(index.column()) == FieldType::Number;
        case Qt::CheckStateRole:
            return isFlag ? QVariant(ConvertToBoolean(value) ? Qt::Checked : Qt::Unchecked) : QVariant();
        default:
            return {};
        }
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override {
        const std::string text = role == Qt::CheckStateRole ? std::string(FlagText(value.toInt() == Qt::Checked))
                                                            : value.toString().toStdString();
        const bool taken = ReportErrorsLater(owner_, [&] {
            UnderLabel(propertyChangedLabel, [&] {
                list_.SetCell(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()), text);
            });
        });
        if (taken)
            emit dataChanged(index, index);
        else
            untilReport_.start(0);
        return taken;
    }

    Qt::ItemFlags flags(const QModelIndex& index) const override {
        if (!index.isValid())
            return Qt::NoItemFlags;
        const bool isFlag = TypeOf(index.column()) == FieldType::Boolean;
        return QAbstractTableModel::flags(index) | (isFlag ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (role != Qt::DisplayRole)
            return {};
        if (orientation == Qt::Vertical)
            return section + 1;
        return ToText(list_.Descriptor().fields[static_cast<std::size_t>(section)].label);
    }

    int AddRow() {
        const int row = rowCount();
        beginInsertRows({}, row, row);
        list_.AddRow();
        endInsertRows();
        return row;
    }

    void RemoveRow(int row) {
        beginRemoveRows({}, row, row);
        list_.RemoveRow(static_cast<std::size_t>(row));
        endRemoveRows();
    }

    /// Gives the row's new place.
    int MoveRow(int row, bool up) {
        const auto place = static_cast<std::size_t>(row);
        const int moved = static_cast<int>(up ? list_.MoveUp(place) : list_.MoveDown(place));
        emit dataChanged(index(std::min(row, moved), 0), index(std::max(row, moved), columnCount() - 1));
        return moved;
    }

  private:
    static QString Shown(const std::string& value) {
        PropertyPanelRow row;
        row.value = value;
        return ToText(ShownText(row));
    }

    const std::string& CellAt(const QModelIndex& index) const {
        return list_.Cell(static_cast<std::size_t>(index.row()), static_cast<std::size_t>(index.column()));
    }

    ListEditorModel list_;
    QWidget* owner_;
    QTimer untilReport_; ///< runs out when the report is shown
};

frmListEditor::frmListEditor(const PropertyPanelRow& property, QWidget* owner)
    : QDialog(owner), rows_(new ListRowsModel({property.detail, property.value}, this)),
      lstRows_(Named(new QTableView, "lstRows", ToText(property.caption))) {
    setObjectName("frmListEditor");
    const QString caption = ToText(property.caption);
    setWindowTitle("Pirol - " + caption + " bearbeiten");

    lstRows_->setModel(rows_);
    lstRows_->setItemDelegate(new CellDelegate(lstRows_));
    lstRows_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstRows_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstRows_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    lstRows_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                              QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
    lstRows_->setToolTip("Eingabe oder Doppelklick: das Feld bearbeiten");
    // Tab leaves the table; while a cell is edited it goes on to the next one.
    lstRows_->setTabKeyNavigation(false);
    lstRows_->installEventFilter(this);
    FitColumns();

    auto* cmdAdd = NewIconButton("cmdAdd", "&Hinzufügen", "add", "Einfg: eine neue Zeile am Ende");
    cmdRemove_ = NewIconButton("cmdRemove", "&Entfernen", "remove", "Entf: die gewählte Zeile");
    cmdUp_ = NewIconButton("cmdUp", "Nach &oben", "up", "Alt+Pfeil hoch: die gewählte Zeile mit der vorigen tauschen");
    cmdDown_ = NewIconButton("cmdDown", "Nach &unten", "down",
                             "Alt+Pfeil runter: die gewählte Zeile mit der nächsten tauschen");
    auto* rowButtons = new QVBoxLayout;
    for (QPushButton* button : {cmdAdd, cmdRemove_, cmdUp_, cmdDown_})
        rowButtons->addWidget(button);
    rowButtons->addStretch();

    auto* closing = new QDialogButtonBox;
    auto* cmdAccept = NewButton("cmdAccept", "OK", "Die Liste so übernehmen");
    closing->addButton(cmdAccept, QDialogButtonBox::AcceptRole);
    closing->addButton(NewButton("cmdCancel", "Abbrechen", "Die Liste so lassen, wie sie vorher war"),
                       QDialogButtonBox::RejectRole);
    auto* table = new QHBoxLayout;
    table->addWidget(lstRows_, 1);
    table->addLayout(rowButtons);
    auto* all = new QVBoxLayout(this);
    all->addLayout(table, 1);
    all->addWidget(closing);

    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(true); // Enter presses the button that has the focus
    cmdAccept->setDefault(true);

    connect(cmdAdd, &QPushButton::clicked, this, &frmListEditor::AddRow);
    connect(cmdRemove_, &QPushButton::clicked, this, &frmListEditor::RemoveRow);
    connect(cmdUp_, &QPushButton::clicked, this, [this] { MoveRow(true); });
    connect(cmdDown_, &QPushButton::clicked, this, [this] { MoveRow(false); });
    connect(closing, &QDialogButtonBox::accepted, this, &frmListEditor::accept);
    connect(closing, &QDialogButtonBox::rejected, this, &frmListEditor::reject);

    SelectRow(0);
    UpdateButtons();
    lstRows_->setFocus();
}

std::string frmListEditor::ListText() const {
    return rows_->ListText();
}

void frmListEditor::accept() {
    FinishEditing();
    if (!rows_->HasPendingReport())
        QDialog::accept();
}

bool frmListEditor::eventFilter(QObject* watched, QEvent* event) {
    // While a cell is edited, its editor gets the keys, and the table does not act on those that the editor ignores.
    if (watched == lstRows_ && event->type() == QEvent::KeyPress && lstRows_->hasFocus()) {
        const auto* press = static_cast<QKeyEvent*>(event);
        if (HandleTableKey(press->key(), press->modifiers().testFlag(Qt::AltModifier)))
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

bool frmListEditor::HandleTableKey(int key, bool alt) {
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        EditCurrentCell();
        return true;
    case Qt::Key_Insert:
        AddRow();
        return true;
    case Qt::Key_Delete:
        RemoveRow();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt)
            MoveRow(key == Qt::Key_Up);
        return alt;
    default:
        return false;
    }
}

void frmListEditor::AddRow() {
    FinishEditing();
    SelectRow(rows_->AddRow());
    UpdateButtons();
    EditCurrentCell();
}

void frmListEditor::RemoveRow() {
    FinishEditing();
    const int row = lstRows_->currentIndex().row();
    if (row < 0)
        return;
    rows_->RemoveRow(row);
    SelectRow(std::min(row, rows_->rowCount() - 1));
    UpdateButtons();
}

void frmListEditor::MoveRow(bool up) {
    FinishEditing();
    const QModelIndex current = lstRows_->currentIndex();
    if (current.isValid())
        lstRows_->setCurrentIndex(current.siblingAtRow(rows_->MoveRow(current.row(), up)));
}

void frmListEditor::EditCurrentCell() {
    const QModelIndex current = lstRows_->currentIndex();
    if (current.flags().testFlag(Qt::ItemIsUserCheckable))
        rows_->setData(current, current.data(Qt::CheckStateRole).toInt() == Qt::Checked ? Qt::Unchecked : Qt::Checked,
                       Qt::CheckStateRole);
    else if (current.isValid())
        lstRows_->edit(current);
}

void frmListEditor::FinishEditing() {
    const QWidget* focused = QApplication::focusWidget();
    if (focused != lstRows_ && lstRows_->isAncestorOf(focused))
        lstRows_->setFocus();
}

void frmListEditor::SelectRow(int row) {
    lstRows_->setCurrentIndex(rows_->index(row, 0));
}

void frmListEditor::UpdateButtons() {
    const bool hasRows = rows_->rowCount() > 0;
    // A button that goes grey hands the focus to its neighbour, which the next key press would then trigger.
    if (!hasRows && QApplication::focusWidget() == cmdRemove_)
        lstRows_->setFocus();
    for (QPushButton* button : {cmdRemove_, cmdUp_, cmdDown_})
        button->setEnabled(hasRows);
}

void frmListEditor::FitColumns() {
    constexpr int textCharacters = 18;
    constexpr int numberCharacters = 8;
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < rows_->columnCount(); ++column) {
        const int wanted = character * (rows_->TypeOf(column) == FieldType::String ? textCharacters : numberCharacters);
        lstRows_->setColumnWidth(column, std::max(wanted, lstRows_->horizontalHeader()->sectionSizeHint(column)));
    }
    lstRows_->horizontalHeader()->setStretchLastSection(true);
    const int borders = character * 8;
    lstRows_->setMinimumWidth(std::max(lstRows_->horizontalHeader()->length() + borders, character * 40));
    lstRows_->setMinimumHeight(fontMetrics().height() * 14);
}

} // namespace pirol
