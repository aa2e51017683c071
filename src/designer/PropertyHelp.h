#pragma once

#include "designer/PropertyPanel.h"

#include <string>
#include <string_view>

namespace pirol {

/// What a property is, in a German sentence; empty for a key that no kind has.
std::string_view PropertyHelp(std::string_view key);

/// The same for a row of the list, of an event with its handler and the way to it. Empty for a category.
std::string RowHelp(const PropertyPanelRow& row);

} // namespace pirol
