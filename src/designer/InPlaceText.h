#pragma once

#include "controls/Control.h"

#include <optional>
#include <string>
#include <string_view>

namespace pirol {

/// The text of a component that is edited where it stands: its caption, or its first list with a line for each row.
struct InPlaceText {
    std::string_view key;  ///< of the property
    bool hasLines = false; ///< of a list
    std::string text;      ///< UTF-8, lines ended by line feeds but for the last one
};

/// Nothing for a component that has neither a caption nor a list.
std::optional<InPlaceText> InPlaceTextOf(const Control& control);

/// The value for the property when that text stands there instead. Of rows with several fields the lines are the
/// captions: rows keep their other fields, further ones get the usual values, and those without a line go. Empty lines
/// at the end count for nothing.
std::string InPlaceValue(const Control& control, std::string_view text);

} // namespace pirol
