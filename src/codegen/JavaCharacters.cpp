#include "codegen/JavaCharacters.h"

#include "codegen/SourceLines.h"

namespace pirol {

LiteralEnd EndOfLiteral(std::string_view source, std::size_t begin) {
    std::size_t position = begin + 1;
    while (position < source.size() && !IsLineEnd(source[position])) {
        const char byte = source[position++];
        if (byte == source[begin])
            return {position, true};
        if (byte == '\\' && position < source.size() && !IsLineEnd(source[position]))
            ++position;
    }
    return {position, false};
}

} // namespace pirol
