#include "controls/cRadioButton.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace pirol {

constexpr std::size_t valuesPerRow = 7;

std::string JoinRadioButtons(const std::vector<cRadioButton>& rows) {
    constexpr std::string_view next(&fieldSeparator, 1);
    std::string list;
    for (const cRadioButton& row : rows) {
        if (&row != &rows.front())
            list += fieldSeparator;
        Append(list, row.Name, next, row.Caption, next, row.Width, next, row.Height, next, row.Left, next, row.Top,
               next, FlagText(row.Selected));
    }
    return list;
}

std::vector<cRadioButton> RadioButtonsOf(std::string_view list) {
    std::vector<cRadioButton> rows;
    if (list.empty())
        return rows;
    const std::vector<std::string_view> values = Split(list, fieldSeparator);
    if (values.size() % valuesPerRow != 0)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    rows.reserve(values.size() / valuesPerRow);
    for (auto value = values.begin(); value != values.end(); value += valuesPerRow)
        rows.push_back({std::string(value[0]), std::string(value[1]), ToInt16(value[2]), ToInt16(value[3]),
                        ToInt16(value[4]), ToInt16(value[5]), ConvertToBoolean(value[6])});
    return rows;
}

} // namespace pirol
