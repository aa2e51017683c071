#pragma once

#include <cstddef>
#include <string_view>

namespace pirol {

// Lines of a source end in CR LF, LF or CR.

constexpr bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

/// The position where the line around a position ends, before its line end or behind it.
std::size_t EndOfLine(std::string_view text, std::size_t position);
std::size_t BehindLine(std::string_view text, std::size_t position);

/// The beginning of the line when only blanks and tabs stand before the position, but for `lowest`; the position
/// otherwise.
std::size_t LineStart(std::string_view source, std::size_t position, std::size_t lowest);

/// How many line ends the text holds.
std::size_t LineBreaks(std::string_view text);

/// The line end that most lines of the text have; CR LF for a text without any.
std::string_view UsualLineEnd(std::string_view text);

/// True for a text of nothing but blanks, tabs and line ends.
bool IsBlank(std::string_view text);
/// The text without those at both ends.
std::string_view Stripped(std::string_view text);

} // namespace pirol
