#pragma once

#include <cstddef>
#include <string_view>

namespace pirol {

// What all readers of Java sources agree on, whole or half-written.

constexpr bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// Whether a byte of UTF-8 continues a name or number. Letters outside ASCII are not told apart here: whether a name is
/// one is asked where it is used.
constexpr bool ContinuesWord(char byte) {
    return IsDigit(byte) || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' ||
           byte == '$' || (static_cast<unsigned char>(byte) & 0x80U) != 0;
}

struct LiteralEnd {
    std::size_t end; ///< behind the closing quote, or the end of the line when there is none
    bool closed;
};

/// Where the literal ends that begins with a quote at a position of a source. None reaches beyond its line.
LiteralEnd EndOfLiteral(std::string_view source, std::size_t begin);

} // namespace pirol
