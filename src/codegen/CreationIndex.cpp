#include "codegen/CreationIndex.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>

namespace pirol {
namespace {

/// The variable before the "=" of a statement: it begins after the last blank or line end.
std::string_view VariableBefore(std::string_view source, std::size_t equalsSign) {
    std::string_view before = source.substr(0, equalsSign);
    if (before.ends_with(' '))
        before.remove_suffix(1);
    const std::size_t blank = before.rfind(' ');
    if (blank != std::string_view::npos)
        before.remove_prefix(blank + 1);
    const std::size_t end = before.rfind(lineEnd);
    return end == std::string_view::npos ? before : before.substr(end + lineEnd.size());
}

} // namespace

CreationIndex::CreationIndex(std::string_view source, std::span<const std::string_view> javaClasses) : source_(source) {
    std::size_t longest = 0;
    for (const std::string_view javaClass : javaClasses) {
        statements_.try_emplace(javaClass);
        longest = std::max(longest, javaClass.size());
    }
    constexpr std::string_view creation = "= new ";
    for (std::size_t hit = source.find(creation); hit != std::string_view::npos; hit = source.find(creation, hit + 1)) {
        const std::size_t begin = hit + creation.size();
        const std::string_view name = source.substr(begin, longest + 1);
        const std::size_t length = name.find('(');
        const auto found = statements_.find(name.substr(0, length));
        if (length != std::string_view::npos && found != statements_.end())
            found->second.push_back({hit, begin + length + 1});
    }
}

std::string CreationIndex::GetAllLines(std::string_view javaClass) const {
    return UnderLabel("Main.File.Import.GetAllLines", [&] {
        ArgumentScanner scanner(source_);
        std::string lines;
        for (const Statement& statement : statements_.at(javaClass)) {
            if (!lines.empty())
                lines += fieldSeparator;
            Append(lines, VariableBefore(source_, statement.equalsSign), ",", scanner.Read(statement.arguments));
        }
        std::erase(lines, '"');
        return lines;
    });
}

} // namespace pirol
