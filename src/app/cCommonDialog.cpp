#include "app/cCommonDialog.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"

#include <algorithm>

namespace pirol {
namespace {

std::vector<std::string> Patterns(std::string_view text) {
    std::vector<std::string> patterns;
    for (const std::string_view pattern : Split(text, ';'))
        if (const std::string_view trimmed = Trim(pattern); !trimmed.empty())
            patterns.emplace_back(trimmed);
    return patterns;
}

} // namespace

std::vector<FileFilter> FileFilters(std::string_view filter) {
    std::vector<FileFilter> filters;
    if (filter.empty())
        return filters;
    const std::vector<std::string_view> pieces = Split(filter, '|');
    for (std::size_t index = 0; index < pieces.size(); index += 2) {
        std::vector<std::string> patterns =
            index + 1 < pieces.size() ? Patterns(pieces[index + 1]) : std::vector<std::string>();
        if (patterns.empty())
            patterns.emplace_back("*");
        filters.push_back({std::string(pieces[index]), std::move(patterns)});
    }
    return filters;
}

std::string ExtensionOf(const FileFilter& filter) {
    constexpr std::string_view beginning = "*.";
    const std::string& pattern = filter.patterns.front();
    const std::string_view extension = std::string_view(pattern).substr(std::min(beginning.size(), pattern.size()));
    const bool isPlain = pattern.starts_with(beginning) && extension.find_first_of("*?.") == std::string_view::npos;
    return std::string(isPlain ? extension : "");
}

bool MayReplaceFile(std::string_view path, cCommonDialog& dialogs) {
    return !IsExistingFile(PathOf(path)) || dialogs.Question("Die Datei existiert bereits! Überschreiben?");
}

} // namespace pirol
