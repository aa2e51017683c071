#include "codegen/HeldBlocks.h"

#include "codegen/GeneratedCode.h"
#include "codegen/SourceLines.h"

#include <cstddef>

namespace pirol {

CodeOptions HeldBlocks(const SourceTokens& tokens) {
    CodeOptions held;
    for (std::size_t index = 2; index < tokens.Count(); ++index) {
        if (!tokens.Is(index, ";"))
            continue;
        held.menu |= tokens.Are(index - 2, menuClass, subMenu);
        held.database |= tokens.Are(index - 2, databaseClass, database);
    }
    return held;
}

CodeOptions SeeminglyHeldBlocks(std::string_view source) {
    constexpr std::size_t mostBlanks = 80;
    const auto isDeclared = [source](std::string_view javaClass, std::string_view name) {
        for (std::size_t hit = source.find(javaClass); hit != std::string_view::npos;
             hit = source.find(javaClass, hit + 1)) {
            const std::string_view behind = Stripped(source.substr(hit + javaClass.size(), mostBlanks));
            if (behind.starts_with(name) && Stripped(behind.substr(name.size())).starts_with(';'))
                return true;
        }
        return false;
    };
    return {isDeclared(menuClass, subMenu), isDeclared(databaseClass, database)};
}

} // namespace pirol
