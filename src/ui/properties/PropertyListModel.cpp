#include "ui/properties/PropertyListModel.h"

#include "base/Conversions.h"
#include "designer/PropertyHelp.h"
#include "ui/parts/CellDelegate.h"
#include "ui/parts/FormParts.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// Whether two sets of rows differ in nothing but values.
bool IsSameList(const std::vector<PropertyPanelRow>& left, const std::vector<PropertyPanelRow>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const PropertyPanelRow& a, const PropertyPanelRow& b) {
                          return a.key == b.key && a.caption == b.caption && a.isCategory == b.isCategory &&
                                 a.editor == b.editor && a.detail == b.detail;
                      });
}

QString Shown(const PropertyPanelRow& row) {
    return ToText(ShownText(row));
}

/// The text as a tool tip; without escaping, a value like "<b>" would count as markup.
QString ToolTip(const QString& text) {
    return "<qt>" + text.toHtmlEscaped() + "</qt>";
}

} // namespace

void PropertyListModel::ShowRows(std::vector<PropertyPanelRow> rows) {
    if (!IsSameList(rows, rows_)) {
        beginResetModel();
        rows_ = std::move(rows);
        FindCategories();
        endResetModel();
        return;
    }
    for (std::size_t place = 0; place < rows.size(); ++place) {
        if (rows[place] == rows_[place])
            continue;
        rows_[place] = std::move(rows[place]);
        const QModelIndex changed = IndexAt(place, ValueColumn);
        emit dataChanged(changed, changed);
    }
}

const PropertyPanelRow& PropertyListModel::RowAt(const QModelIndex& index) const {
    return rows_[PlaceOf(index)];
}

QModelIndex PropertyListModel::IndexOf(std::string_view key) const {
    const auto row =
        std::find_if(rows_.begin(), rows_.end(), [key](const PropertyPanelRow& other) { return other.key == key; });
    if (row == rows_.end())
        return {};
    return IndexAt(static_cast<std::size_t>(row - rows_.begin()), row->isCategory ? CaptionColumn : ValueColumn);
}

// An index of a category has the internal number 0, one of its rows the category's number counted from 1.

QModelIndex PropertyListModel::index(int row, int column, const QModelIndex& parent) const {
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
}

QModelIndex PropertyListModel::parent(const QModelIndex& child) const {
    if (!child.isValid() || child.internalId() == 0)
        return {};
    return createIndex(static_cast<int>(child.internalId()) - 1, 0, quintptr{0});
}

int PropertyListModel::rowCount(const QModelIndex& parent) const {
    if (!parent.isValid())
        return static_cast<int>(categories_.size());
    if (parent.internalId() != 0 || parent.column() != CaptionColumn)
        return 0;
    return static_cast<int>(categories_[static_cast<std::size_t>(parent.row())].rowCount);
}

int PropertyListModel::columnCount(const QModelIndex&) const {
    return ValueColumn + 1;
}

QVariant PropertyListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const PropertyPanelRow& row = RowAt(index);
    const bool isValue = index.column() == ValueColumn && !row.isCategory;
    switch (role) {
    case Qt::DisplayRole:
        return isValue ? Shown(row) : index.column() == CaptionColumn ? ToText(row.caption) : QString();
    case Qt::EditRole:
        return isValue ? QVariant(ToText(row.value)) : QVariant();
    case CellDelegate::isNumberRole:
    case CellDelegate::takesStepsRole:
        return isValue && row.editor == EditorKind::Number;
    case Qt::CheckStateRole:
        if (isValue && row.editor == EditorKind::Flag)
            return row.differs ? Qt::PartiallyChecked : ConvertToBoolean(row.value) ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::ToolTipRole:
        return isValue && (row.differs || !row.value.empty()) ? QVariant(ToolTip(Shown(row)))
               : row.isCategory                               ? QVariant()
                                                              : QVariant(ToolTip(ToText(RowHelp(row))));
    case Qt::AccessibleDescriptionRole:
        return ToText(RowHelp(row));
    case Qt::AccessibleTextRole:
        // A screen reader on the value says which property it is.
        return isValue ? ToText(row.caption) + ": " + Shown(row) : ToText(row.caption);
    default:
        return {};
    }
}

bool PropertyListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || RowAt(index).isCategory)
        return false;
    // The row may be gone when the listeners are done.
    const std::string key(RowAt(index).key);
    if (role == Qt::CheckStateRole)
        emit PropertyEdited(key, LowerCase(FlagText(value.toInt() == Qt::Checked)));
    else if (role == Qt::EditRole)
        emit PropertyEdited(key, value.toString().toStdString());
    else
        return false;
    return true;
}

Qt::ItemFlags PropertyListModel::flags(const QModelIndex& index) const {
    if (!index.isValid())
        return Qt::NoItemFlags;
    const PropertyPanelRow& row = RowAt(index);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (row.isCategory || index.column() != ValueColumn)
        return flags;
    flags |= Qt::ItemNeverHasChildren;
    if (row.editor == EditorKind::Flag)
        flags |= Qt::ItemIsUserCheckable;
    else if (row.editor != EditorKind::List)
        flags |= Qt::ItemIsEditable;
    return flags;
}

QVariant PropertyListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return QString(section == CaptionColumn ? "Eigenschaft" : "Wert");
}

void PropertyListModel::FindCategories() {
    categories_.clear();
    for (std::size_t place = 0; place < rows_.size(); ++place) {
        if (rows_[place].isCategory)
            categories_.push_back({place, 0});
        else if (!categories_.empty())
            ++categories_.back().rowCount;
    }
}

std::size_t PropertyListModel::PlaceOf(const QModelIndex& index) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (index.internalId() == 0)
        return categories_[row].place;
    return categories_[index.internalId() - 1].place + 1 + row;
}

QModelIndex PropertyListModel::IndexAt(std::size_t place, int column) const {
    const auto next = std::upper_bound(categories_.begin(), categories_.end(), place,
                                       [](std::size_t value, const Category& other) { return value < other.place; });
    if (next == categories_.begin())
        return {};
    const Category& category = *(next - 1);
    const auto number = static_cast<quintptr>(next - categories_.begin());
    if (place == category.place)
        return createIndex(static_cast<int>(number) - 1, column, quintptr{0});
    return createIndex(static_cast<int>(place - category.place) - 1, column, number);
}

} // namespace pirol
