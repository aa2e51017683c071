#pragma once

#include "designer/Document.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pirol {

/// The error label of everything that edits a property.
constexpr std::string_view propertyChangedLabel = "Main.File.Properties.PropertyChanged";

/// One row of the property list. A category has key and caption only.
struct PropertyPanelRow {
    std::string_view key;
    std::string_view caption;
    bool isCategory = false;
    std::string value; ///< UTF-8; flags "wahr" or "falsch", choices by their number, list items separated by code 0
    EditorKind editor = EditorKind::Text;
    std::string_view detail;  ///< choices, file filter or row descriptor, as the editor kind needs it
    bool differs = false;     ///< several components have different values; `value` is empty then
    std::string handler = {}; ///< of an event that is on, the method that it calls

    bool operator==(const PropertyPanelRow&) const = default;
};

/// The rows for the selected components in the order of the list: each category is followed by its rows. Several have
/// the rows that all of them have, without the name, and without the sizes where one is never sized. Without a
/// component the one category row "noobject". Raises RuntimeError::IndexOutOfRange under
/// "Main.File.Properties.LoadProperties" when there is no such component.
std::vector<PropertyPanelRow> LoadProperties(const ProjectModel& model, const Selection& selected);

/// Writes an edited value into the selected components, all or none, as a step that goes on while the same property is
/// edited. For a number "+=30" and "-=10" change each from its own value. A key that one does not have changes nothing.
/// Line breaks and the codes 0 and 1 divide project files, so each becomes a blank; within a list code 0 stays. Gives
/// the German message to show when the design refuses the value (an empty name, one that is taken, a password character
/// that is not one character, a text that is too long); otherwise an empty text. Raises what ToInt16 and RadioButtonsOf
/// raise, under propertyChangedLabel. Refused and bad values are no step.
std::string PropertyChanged(Document& document, std::string_view key, std::string_view value);

/// A property's text as one field of a project file can hold it; a list's items each.
std::string OnOneLine(EditorKind editor, std::string_view text);

/// The choices of a detail like "0|Links|1|Mitte|2|Rechts": value and label of each.
std::vector<std::pair<std::string_view, std::string_view>> Choices(std::string_view detail);

/// What the list shows for a row's value on one line: the label of a choice, the rows of a list separated by commas,
/// everything else as it is. At most `mostBytes` bytes (no character is cut in half) and then "…", so that showing a
/// huge value costs nothing.
std::string ShownText(const PropertyPanelRow& row, std::size_t mostBytes = 256);

} // namespace pirol
