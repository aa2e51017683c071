#pragma once

#include <cstddef>
#include <string_view>

namespace pirol {

/// What Java accepts in a source file of Windows-1252. All texts are UTF-8 as in the design; what Windows-1252 lacks
/// counts as the "?" that the file will hold.

/// Whether the text has the form of a name: a letter, "_" or a currency sign, then also digits. Control characters are
/// refused even where Java skips them, because they cannot be seen in a name.
bool IsJavaIdentifier(std::string_view text);

/// Whether the text, put behind a letter, leaves a name: letters, digits, "_" and currency signs, or nothing.
bool IsIdentifierPart(std::string_view text);

/// The reserved words of the language, with "true", "false", "null" and "_".
bool IsJavaKeyword(std::string_view text);

/// What a text is between two quotes of a Java source.
struct LiteralText {
    std::size_t characters = 0; ///< how many characters the program gets, each escape sequence counting as one
    bool hasQuote = false;      ///< ends the literal early
    bool hasBackslash = false;  ///< a backslash begins no escape sequence; "\s" is none, as older compilers lack it
    bool hasLineBreak = false;  ///< CR or LF

    bool Compiles() const { return !hasQuote && !hasBackslash && !hasLineBreak; }
};

/// Reads a text as what stands between two quotes of the given kind, " or '.
LiteralText ReadLiteral(std::string_view text, char quote);

/// An upper bound for the bytes that the compiler makes of the generator's statements, seldom more than a tenth too
/// high. The compiler refuses a method of more than mostMethodBytes.
std::size_t MethodBytes(std::string_view statements);
constexpr std::size_t mostMethodBytes = 65535;

/// The longest string literal and the longest name, in bytes.
constexpr std::size_t longestConstant = 65535;

} // namespace pirol
