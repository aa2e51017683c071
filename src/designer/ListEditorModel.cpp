#include "designer/ListEditorModel.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "controls/PropertyTable.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <unordered_set>
#include <utility>

namespace pirol {
namespace {

constexpr std::pair<std::string_view, FieldType> typeNames[] = {
    {"tString", FieldType::String},
    {"tNumber", FieldType::Number},
    {"tBoolean", FieldType::Boolean},
};

FieldType TypeNamed(std::string_view name) {
    for (const auto& [typeName, type] : typeNames)
        if (typeName == name)
            return type;
    throw RuntimeError(RuntimeError::TypeMismatch);
}

/// The one form in which a value of the type is held.
std::string ValueOf(FieldType type, std::string_view text) {
    switch (type) {
    case FieldType::Number:
        return std::to_string(ToInt16(text));
    case FieldType::Boolean:
        return std::string(FlagText(ConvertToBoolean(text)));
    case FieldType::String:
        break;
    }
    return SingleLine(text);
}

std::optional<std::size_t> ColumnOf(const RowDescriptor& descriptor, const PropertyKey& key) {
    const auto field = std::find_if(descriptor.fields.begin(), descriptor.fields.end(),
                                    [&key](const FieldDescriptor& other) { return other.label == key.label; });
    if (field == descriptor.fields.end())
        return std::nullopt;
    return static_cast<std::size_t>(field - descriptor.fields.begin());
}

} // namespace

RowDescriptor ParseRowDescriptor(std::string_view text) {
    constexpr std::size_t partsPerField = 3;
    const std::vector<std::string_view> parts = Split(text, '|');
    if (parts.size() == 1 || (parts.size() - 1) % partsPerField != 0)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    RowDescriptor descriptor{std::string(parts.front()), {}};
    for (std::size_t part = 1; part < parts.size(); part += partsPerField) {
        const FieldType type = TypeNamed(parts[part + 1]);
        descriptor.fields.push_back({std::string(parts[part]), type, ValueOf(type, parts[part + 2])});
    }
    return descriptor;
}

ListEditorModel::ListEditorModel(std::string_view descriptor, std::string_view list)
    : descriptor_(ParseRowDescriptor(descriptor)) {
    const std::size_t fieldCount = descriptor_.fields.size();
    std::vector<std::string> values = ListItems(list);
    if (values.size() % fieldCount != 0)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    rows_.reserve(values.size() / fieldCount);
    for (auto value = values.begin(); value != values.end(); value += static_cast<std::ptrdiff_t>(fieldCount))
        rows_.emplace_back(std::make_move_iterator(value),
                           std::make_move_iterator(value + static_cast<std::ptrdiff_t>(fieldCount)));
}

const std::string& ListEditorModel::Cell(std::size_t row, std::size_t column) const {
    CheckRow(row);
    if (column >= descriptor_.fields.size())
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    return rows_[row][column];
}

void ListEditorModel::SetCell(std::size_t row, std::size_t column, std::string_view value) {
    Cell(row, column);
    rows_[row][column] = ValueOf(descriptor_.fields[column].type, value);
}

std::size_t ListEditorModel::AddRow() {
    Row row;
    for (const FieldDescriptor& field : descriptor_.fields) {
        const bool isName = field.label == keys::name.label;
        row.push_back(isName ? FreeName(row.size(), field.initialValue) : field.initialValue);
    }
    PutBelowLastRow(row);
    rows_.push_back(std::move(row));
    return rows_.size() - 1;
}

void ListEditorModel::RemoveRow(std::size_t row) {
    CheckRow(row);
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
}

std::size_t ListEditorModel::MoveUp(std::size_t row) {
    CheckRow(row);
    if (row == 0)
        return row;
    std::swap(rows_[row - 1], rows_[row]);
    return row - 1;
}

std::size_t ListEditorModel::MoveDown(std::size_t row) {
    CheckRow(row);
    if (row + 1 == rows_.size())
        return row;
    std::swap(rows_[row], rows_[row + 1]);
    return row + 1;
}

std::string ListEditorModel::FreeName(std::size_t column, const std::string& name) const {
    std::unordered_set<std::string_view> taken;
    for (const Row& row : rows_)
        taken.insert(row[column]);
    std::string free = name;
    for (std::size_t number = 2; taken.contains(free); ++number)
        free = Concatenate(name, number);
    return free;
}

void ListEditorModel::PutBelowLastRow(Row& row) const {
    const std::optional<std::size_t> top = ColumnOf(descriptor_, keys::top);
    const std::optional<std::size_t> height = ColumnOf(descriptor_, keys::height);
    if (rows_.empty() || !top || !height)
        return;
    const int below = ToInt16(rows_.back()[*top]) + ToInt16(rows_.back()[*height]);
    constexpr int lowest = std::numeric_limits<std::int16_t>::max();
    row[*top] = std::to_string(std::min(below, lowest));
}

std::string ListEditorModel::ListText() const {
    std::vector<std::string> values;
    values.reserve(rows_.size() * descriptor_.fields.size());
    for (const Row& row : rows_)
        values.insert(values.end(), row.begin(), row.end());
    return JoinList(values);
}

void ListEditorModel::CheckRow(std::size_t row) const {
    if (row >= rows_.size())
        throw RuntimeError(RuntimeError::IndexOutOfRange);
}

} // namespace pirol
