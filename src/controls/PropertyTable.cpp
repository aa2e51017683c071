#include "controls/PropertyTable.h"

#include "base/Conversions.h"
#include "controls/Control.h"

#include <algorithm>

namespace pirol {

ControlTable::ControlTable(ComponentKind kind, std::vector<PropertyRow> rows) : kind_(kind), rows_(std::move(rows)) {
    for (const PropertyRow& row : rows_)
        if (row.fileField != notStored)
            storedRows_.push_back(&row);
    std::sort(storedRows_.begin(), storedRows_.end(),
              [](const PropertyRow* left, const PropertyRow* right) { return left->fileField < right->fileField; });
}

const std::vector<PropertyRow>& CommonRows() {
    static const std::vector<PropertyRow> rows = {
        Property<&Control::ObjectName>(keys::name), Property<&Control::Width>(keys::width),
        Property<&Control::Height>(keys::height),   Property<&Control::Left>(keys::left),
        Property<&Control::Top>(keys::top),
    };
    return rows;
}

const PropertyRow* FindRow(const Control& control, std::string_view key) {
    for (const std::vector<PropertyRow>* rows : {&CommonRows(), &control.Table().Rows()})
        for (const PropertyRow& row : *rows)
            if (row.key->key == key)
                return &row;
    return nullptr;
}

std::string PropertyText(const std::string& value) {
    return value;
}

std::string PropertyText(std::int16_t value) {
    return std::to_string(value);
}

std::string PropertyText(bool value) {
    return std::string(FlagText(value));
}

std::string PropertyText(const std::vector<std::string>& value) {
    return JoinList(value);
}

std::string PropertyText(const std::vector<cRadioButton>& value) {
    return JoinRadioButtons(value);
}

void SetFromText(std::string& value, std::string_view text) {
    value = text;
}

void SetFromText(std::int16_t& value, std::string_view text) {
    value = ToInt16(text);
}

void SetFromText(bool& value, std::string_view text) {
    value = ConvertToBoolean(text);
}

void SetFromText(std::vector<std::string>& value, std::string_view text) {
    value = ListItems(text);
}

void SetFromText(std::vector<cRadioButton>& value, std::string_view text) {
    value = RadioButtonsOf(text);
}

std::size_t HeapBytesOf(const Control& control) {
    std::size_t bytes = HeapBytes(control.ObjectName);
    for (const PropertyRow& row : control.Table().Rows())
        bytes += row.heapBytes(control);
    return bytes;
}

std::size_t HeapBytes(const std::string& value) {
    // Short texts stand within the string itself.
    return value.capacity() > std::string().capacity() ? value.capacity() + 1 : 0;
}

std::size_t HeapBytes(const std::vector<std::string>& value) {
    std::size_t bytes = value.capacity() * sizeof(std::string);
    for (const std::string& item : value)
        bytes += HeapBytes(item);
    return bytes;
}

std::size_t HeapBytes(const std::vector<cRadioButton>& value) {
    std::size_t bytes = value.capacity() * sizeof(cRadioButton);
    for (const cRadioButton& button : value)
        bytes += HeapBytes(button.Name) + HeapBytes(button.Caption);
    return bytes;
}

} // namespace pirol
