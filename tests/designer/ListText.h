#pragma once

#include "base/Conversions.h"

#include <string>
#include <string_view>

namespace pirol {

/// A list as properties hold it, written with "/" between its items.
inline std::string ListText(std::string_view items) {
    return ReplaceAll(items, "/", std::string_view(&fieldSeparator, 1));
}

} // namespace pirol
