#include "controls/Control.h"

#include "base/Conversions.h"
#include "base/JavaText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>

namespace pirol {

std::string Control::CreateHeaderText() const {
    return FieldDeclaration(RowOf(Kind()).javaClass, ObjectName);
}

std::string Control::CreateEventText() const {
    std::string text;
    for (const PropertyRow& row : Table().Rows())
        if (row.isOn != nullptr && row.isOn(*this))
            text += HandlerStub(ObjectName, row.handlerSuffix);
    return text;
}

std::string Control::CreatePRLString(int left, int top) const {
    constexpr std::string_view next(&fieldSeparator, 1);
    std::string line =
        Concatenate(static_cast<int>(Kind()), next, left, next, top, next, Width, next, Height, next, ObjectName);
    for (const PropertyRow* row : Table().StoredRows()) {
        std::string value = row->get(*this);
        if (row->key->editor == EditorKind::List)
            std::replace(value.begin(), value.end(), fieldSeparator, itemSeparator);
        Append(line, next, value);
    }
    line += lineEnd;
    return line;
}

void Control::LoadFromPRL(std::span<const std::string_view> fields) {
    std::size_t position = 1;
    const auto nextField = [&] {
        if (position >= fields.size())
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        return fields[position++];
    };
    Left = ToInt16(nextField());
    Top = ToInt16(nextField());
    Width = ToInt16(nextField());
    Height = ToInt16(nextField());
    ObjectName = nextField();
    for (const PropertyRow* row : Table().StoredRows()) {
        const std::string_view field = nextField();
        if (row->key->editor == EditorKind::List) {
            std::string list(field);
            std::replace(list.begin(), list.end(), itemSeparator, fieldSeparator);
            row->set(*this, list);
        } else {
            row->set(*this, field);
        }
    }
}

std::string Control::Box(int left, int top) const {
    return Concatenate(left, ", ", top, ", ", Width, ", ", Height);
}

std::string Control::Creation(std::string_view arguments) const {
    return Concatenate("        ", ObjectName, " = new ", RowOf(Kind()).javaClass, "(", arguments, ");\r\n");
}

std::string Control::Call(std::string_view method, std::string_view arguments) const {
    return CallStatement(ObjectName, method, arguments);
}

std::string Control::Registrations() const {
    std::string text;
    for (const PropertyRow& row : Table().Rows())
        if (row.isOn != nullptr && row.isOn(*this))
            text += HandlerRegistration(ObjectName, row.handlerSuffix);
    return text;
}

} // namespace pirol
