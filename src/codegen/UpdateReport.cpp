#include "codegen/UpdateReport.h"

#include "base/Text.h"
#include "codegen/SourceLines.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace pirol {
namespace {

constexpr std::string_view actionWords[] = {"neu",      "geändert",  "verschoben", "entfernt",
                                            "behalten", "umbenannt", "gemeldet"};
static_assert(std::size(actionWords) == updateActionCount);

} // namespace

std::string_view WordOf(UpdateAction action) {
    return actionWords[static_cast<std::size_t>(action)];
}

std::string LineOf(const UpdateEntry& entry) {
    std::string line = Concatenate(WordOf(entry.action), ": ", entry.text);
    if (entry.newLine != 0)
        Append(line, " (Zeile ", entry.newLine, ")");
    else if (entry.oldLine != 0)
        Append(line, " (Zeile ", entry.oldLine, " bisher)");
    return line;
}

std::string SummaryOf(const std::vector<UpdateEntry>& entries) {
    std::array<std::size_t, updateActionCount> counts{};
    for (const UpdateEntry& entry : entries)
        ++counts[static_cast<std::size_t>(entry.action)];
    std::string summary;
    for (std::size_t action = 0; action < updateActionCount; ++action)
        if (counts[action] != 0)
            Append(summary, summary.empty() ? "" : ", ", counts[action], " ", actionWords[action]);
    return summary;
}

void NumberLines(std::string_view text, std::vector<PlacedEntry>& entries, std::size_t PlacedEntry::*position,
                 std::size_t UpdateEntry::*line) {
    std::vector<PlacedEntry*> inOrder;
    for (PlacedEntry& placed : entries)
        if (placed.*position != noPosition)
            inOrder.push_back(&placed);
    std::sort(inOrder.begin(), inOrder.end(), [position](const PlacedEntry* left, const PlacedEntry* right) {
        return left->*position < right->*position;
    });
    std::size_t number = 1;
    std::size_t counted = 0;
    for (PlacedEntry* placed : inOrder) {
        number += LineBreaks(text.substr(counted, placed->*position - counted));
        counted = placed->*position;
        placed->entry.*line = number;
    }
}

} // namespace pirol
