#pragma once

#include <charconv>
#include <concepts>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace pirol {

/// Appends texts and whole numbers one after another; numbers in decimal without grouping.
template <class... Pieces>
void Append(std::string& out, const Pieces&... pieces) {
    const auto appendOne = [&out](const auto& piece) {
        if constexpr (std::integral<std::remove_cvref_t<decltype(piece)>>) {
            char digits[24];
            out.append(digits, std::to_chars(digits, digits + sizeof digits, piece).ptr);
        } else {
            out += std::string_view(piece);
        }
    };
    (appendOne(pieces), ...);
}

template <class... Pieces>
std::string Concatenate(const Pieces&... pieces) {
    const auto mostCharacters = [](const auto& piece) {
        if constexpr (std::integral<std::remove_cvref_t<decltype(piece)>>)
            return std::size_t{std::numeric_limits<std::remove_cvref_t<decltype(piece)>>::digits10} + 2;
        else
            return std::string_view(piece).size();
    };
    std::string text;
    text.reserve((mostCharacters(pieces) + ...));
    Append(text, pieces...);
    return text;
}

/// Whether a byte of a UTF-8 text is the first one of a character.
constexpr bool BeginsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// The most characters that a text typed into a design may have, and what the user is told of a longer one.
constexpr std::size_t mostTextCharacters = 65535;
constexpr std::string_view textTooLong = "Der Text ist zu lang. Erlaubt sind höchstens 65.535 Zeichen.";

/// The text; when it is longer than `mostBytes`, as many whole characters as fit into them, and then "…".
std::string Shortened(std::string_view text, std::size_t mostBytes);

} // namespace pirol
