#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Separates the fields of a project-file line, and in memory the items of a list.
constexpr char fieldSeparator = '\0';
/// Separates the items of a list inside one field of a project-file line.
constexpr char itemSeparator = '\1';
constexpr std::string_view lineEnd = "\r\n";

/// Reads a whole number. Blanks around it are ignored; a decimal comma or point is accepted and rounded half to even.
/// Raises RuntimeError::TypeMismatch for a text that is no number and RuntimeError::Overflow outside the 16-bit range.
std::int16_t ToInt16(std::string_view text);

/// Rounds half to even. Raises RuntimeError::Overflow outside the 16-bit range (and for what is no number).
std::int16_t ToInt16(double value);

/// Raises RuntimeError::Overflow outside the 16-bit range.
std::int16_t ToInt16(int value);

/// True when ToInt16 would read the text as a number, whether or not it lies in the 16-bit range.
bool IsNumeric(std::string_view text);

/// A stored flag is true exactly for "wahr", "true" and "-1", in any case.
bool ConvertToBoolean(std::string_view text);

/// The text of a flag in files, the same on every system: "Wahr" or "Falsch".
std::string_view FlagText(bool flag);

/// The pieces between the separators, as views into the text; one empty piece for an empty text. What follows the last
/// piece wanted is left out.
std::vector<std::string_view> Split(std::string_view text, char separator,
                                    std::size_t mostPieces = std::string_view::npos);

/// The items of a list as it is held in memory, separated by code 0; an empty text holds no items.
std::vector<std::string> ListItems(std::string_view list);
std::string JoinList(const std::vector<std::string>& items);

/// The text as a single field of a project file can hold it: line breaks and the codes 0 and 1 become blanks.
std::string SingleLine(std::string_view text);

/// Without the blanks at the left end, or at both ends.
std::string_view TrimLeft(std::string_view text);
std::string_view Trim(std::string_view text);

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with);

/// A text as it may stand in a line that the user reads: its beginning when it is long, control characters as blanks.
std::string Excerpt(std::string_view text);

/// A to Z become a to z; everything else stays, whatever the locale.
std::string LowerCase(std::string_view text);

} // namespace pirol
