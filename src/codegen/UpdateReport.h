#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

enum class UpdateAction { New, Changed, Moved, Removed, Kept, Renamed, Reported };
constexpr std::size_t updateActionCount = 7;

/// The German word for it: "neu", "geändert" ...
std::string_view WordOf(UpdateAction action);

/// One thing that an update of a Java source did, or left to the pupil.
struct UpdateEntry {
    UpdateAction action;
    std::string text;        ///< German, names the thing; UTF-8
    std::size_t oldLine = 0; ///< in the source before, from 1; 0 when it is not in there
    std::size_t newLine = 0; ///< in the new source
};

/// A position in a source that is none.
constexpr std::size_t noPosition = static_cast<std::size_t>(-1);

/// An entry whose lines are still positions.
struct PlacedEntry {
    UpdateEntry entry;
    std::size_t oldPosition;
    std::size_t newPosition;
};

/// Fills in the lines of the given positions of a text. Linear in the text's length but for sorting the entries.
void NumberLines(std::string_view text, std::vector<PlacedEntry>& entries, std::size_t PlacedEntry::*position,
                 std::size_t UpdateEntry::*line);

/// More things are not listed one by one.
constexpr std::size_t mostUpdateEntries = 100'000;

/// "neu: Knopf hatKnopf1 (Zeile 12)": with the line in the new source, or in the old one when it is gone.
std::string LineOf(const UpdateEntry& entry);

/// "2 neu, 1 entfernt"; empty without entries.
std::string SummaryOf(const std::vector<UpdateEntry>& entries);

} // namespace pirol
