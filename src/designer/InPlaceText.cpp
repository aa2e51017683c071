#include "designer/InPlaceText.h"

#include "base/Conversions.h"
#include "designer/ListEditorModel.h"

#include <algorithm>

namespace pirol {
namespace {

const PropertyRow* FirstRow(const Control& control, EditorKind editor) {
    for (const PropertyRow& row : control.Table().Rows())
        if (row.key->editor == editor && row.isOn == nullptr)
            return &row;
    return nullptr;
}

const PropertyRow* InPlaceRow(const Control& control) {
    const PropertyRow* caption = FirstRow(control, EditorKind::Text);
    return caption != nullptr ? caption : FirstRow(control, EditorKind::List);
}

std::size_t CaptionColumn(const RowDescriptor& row) {
    const auto caption = std::find_if(row.fields.begin(), row.fields.end(),
                                      [](const FieldDescriptor& field) { return field.label == keys::value.label; });
    return caption == row.fields.end() ? 0 : static_cast<std::size_t>(caption - row.fields.begin());
}

} // namespace

std::optional<InPlaceText> InPlaceTextOf(const Control& control) {
    const PropertyRow* const row = InPlaceRow(control);
    if (row == nullptr)
        return std::nullopt;
    if (row->key->editor != EditorKind::List)
        return InPlaceText{row->key->key, false, row->get(control)};
    const ListEditorModel list(row->key->detail, row->get(control));
    const std::size_t column = CaptionColumn(list.Descriptor());
    std::string text;
    for (std::size_t line = 0; line < list.RowCount(); ++line)
        text.append(line == 0 ? "" : "\n").append(list.Cell(line, column));
    return InPlaceText{row->key->key, true, std::move(text)};
}

std::string InPlaceValue(const Control& control, std::string_view text) {
    const PropertyRow* const row = InPlaceRow(control);
    if (row == nullptr || row->key->editor != EditorKind::List)
        return std::string(text);
    while (!text.empty() && text.back() == '\n')
        text.remove_suffix(1);
    std::vector<std::string_view> lines = Split(text, '\n');
    if (text.empty())
        lines.clear();
    ListEditorModel list(row->key->detail, row->get(control));
    const std::size_t column = CaptionColumn(list.Descriptor());
    while (list.RowCount() > lines.size())
        list.RemoveRow(list.RowCount() - 1);
    while (list.RowCount() < lines.size())
        list.AddRow();
    for (std::size_t line = 0; line < lines.size(); ++line)
        list.SetCell(line, column, lines[line]);
    return list.ListText();
}

} // namespace pirol
