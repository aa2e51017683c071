#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pirol {

/// One radio button of a radio group; position in pixels relative to its group.
struct cRadioButton {
    std::string Name = "hatRadioKnopf";
    std::string Caption;
    std::int16_t Width = 150;
    std::int16_t Height = 20;
    std::int16_t Left = 0;
    std::int16_t Top = 0;
    bool Selected = false;

    bool operator==(const cRadioButton&) const = default;
};

/// The rows as one list of values separated by code 0: seven values a row, in the order of the members.
std::string JoinRadioButtons(const std::vector<cRadioButton>& rows);

/// The rows of such a list; an empty text holds none. Raises RuntimeError::IndexOutOfRange when the last row is not
/// complete, and what ToInt16 raises for its numbers.
std::vector<cRadioButton> RadioButtonsOf(std::string_view list);

} // namespace pirol
