#include "codegen/DatabaseQueries.h"

#include "codegen/SourceStatement.h"
#include "sql/SQLModule.h"

#include <string>
#include <unordered_map>

namespace pirol {

const SourceTokens& Queries() {
    static const std::string code = [] {
        SQLSettings settings{"?", "?", "?", "?", "?", {}};
        settings.Flags.fill(1);
        return GenerateSQLMethods(settings);
    }();
    static const SourceTokens tokens(code, SourceTokens::Comments::WithinLines);
    return tokens;
}

std::size_t FindQuery(std::string_view name) {
    static const std::unordered_map<std::string_view, std::size_t> names = [] {
        std::unordered_map<std::string_view, std::size_t> found;
        for (std::size_t index = 0; index < Queries().Count(); ++index)
            if (IsMethodHead(Queries(), index, {}))
                found.emplace(Queries().Text(index), index);
        return found;
    }();
    const auto place = names.find(name);
    return place == names.end() ? Queries().Count() : place->second;
}

} // namespace pirol
