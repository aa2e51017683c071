#include "codegen/JavaSyntax.h"

#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/JavaCharacters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace pirol {
namespace {

constexpr bool IsOctalDigit(char character) {
    return character >= '0' && character <= '7';
}

constexpr bool IsHexDigit(char character) {
    return IsDigit(character) || (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F');
}

struct ByteRange {
    std::uint8_t first;
    std::uint8_t last;
};

/// The letters and currency signs of Windows-1252.
constexpr ByteRange nameCharacters[] = {
    {'$', '$'},   {'A', 'Z'},   {'_', '_'},   {'a', 'z'},   {0x80, 0x80}, {0x83, 0x83}, {0x88, 0x88},
    {0x8A, 0x8A}, {0x8C, 0x8C}, {0x8E, 0x8E}, {0x9A, 0x9A}, {0x9C, 0x9C}, {0x9E, 0x9F}, {0xA2, 0xA5},
    {0xAA, 0xAA}, {0xB5, 0xB5}, {0xBA, 0xBA}, {0xC0, 0xD6}, {0xD8, 0xF6}, {0xF8, 0xFF},
};

bool StartsName(char byte) {
    return std::any_of(std::begin(nameCharacters), std::end(nameCharacters), [byte](ByteRange range) {
        const auto code = static_cast<std::uint8_t>(byte);
        return code >= range.first && code <= range.last;
    });
}

bool ContinuesName(char byte) {
    return StartsName(byte) || IsDigit(byte);
}

/// In alphabetical order.
constexpr std::string_view keywords[] = {
    "_",          "abstract", "assert",    "boolean",   "break",  "byte",     "case",  "catch",      "char",
    "class",      "const",    "continue",  "default",   "do",     "double",   "else",  "enum",       "extends",
    "false",      "final",    "finally",   "float",     "for",    "goto",     "if",    "implements", "import",
    "instanceof", "int",      "interface", "long",      "native", "new",      "null",  "package",    "private",
    "protected",  "public",   "return",    "short",     "static", "strictfp", "super", "switch",     "synchronized",
    "this",       "throw",    "throws",    "transient", "true",   "try",      "void",  "volatile",   "while",
};
static_assert(std::is_sorted(std::begin(keywords), std::end(keywords)));

/// The length of the escape sequence with which the text begins behind its backslash, or 0 for none.
std::size_t EscapeLength(std::string_view text) {
    if (text.empty())
        return 0;
    if (IsOctalDigit(text.front())) {
        const std::size_t most = text.front() <= '3' ? 3 : 2;
        const auto end = std::find_if_not(text.begin(), text.begin() + std::min(most, text.size()), IsOctalDigit);
        return static_cast<std::size_t>(end - text.begin());
    }
    return std::string_view("btnfr\"'\\").find(text.front()) == std::string_view::npos ? 0 : 1;
}

/// The length of the Unicode escape with which the text begins behind its backslash: any number of "u" and four
/// hexadecimal digits; 0 for none. The compiler replaces these before anything else, so one that stands for a quote, a
/// backslash or a line break acts like that character; it counts as none.
std::size_t UnicodeEscapeLength(std::string_view text) {
    const std::size_t digits = std::min(text.find_first_not_of('u'), text.size());
    const std::string_view number = text.substr(digits, 4);
    if (digits == 0 || number.size() < 4 || !std::all_of(number.begin(), number.end(), IsHexDigit))
        return 0;
    constexpr std::string_view harmful[] = {"0022", "0027", "005c", "005C", "000a", "000A", "000d", "000D"};
    return std::find(std::begin(harmful), std::end(harmful), number) == std::end(harmful) ? digits + 4 : 0;
}

/// Cuts off the literal with which the text begins, up to its closing quote or the text's end.
void SkipLiteral(std::string_view& text) {
    const char quote = text.front();
    std::size_t end = 1;
    while (end < text.size() && text[end] != quote)
        end += text[end] == '\\' ? 2 : 1;
    text.remove_prefix(std::min(end + 1, text.size()));
}

/// Cuts off the name or number with which the text begins.
void SkipWord(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), ContinuesName);
    text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
}

} // namespace

bool IsIdentifierPart(std::string_view text) {
    const std::string bytes = ToWindows1252(std::string(text));
    return std::all_of(bytes.begin(), bytes.end(), ContinuesName);
}

bool IsJavaIdentifier(std::string_view text) {
    return !text.empty() && !IsDigit(text.front()) && IsIdentifierPart(text);
}

bool IsJavaKeyword(std::string_view text) {
    return std::binary_search(std::begin(keywords), std::end(keywords), text);
}

LiteralText ReadLiteral(std::string_view text, char quote) {
    LiteralText literal;
    for (std::size_t position = 0; position < text.size(); ++position) {
        const char character = text[position];
        if (BeginsCharacter(character))
            ++literal.characters;
        literal.hasQuote |= character == quote;
        literal.hasLineBreak |= character == '\r' || character == '\n';
        if (character == '\\') {
            const std::string_view rest = text.substr(position + 1);
            const std::size_t length = std::max(EscapeLength(rest), UnicodeEscapeLength(rest));
            literal.hasBackslash |= length == 0;
            position += length;
        }
    }
    return literal;
}

std::size_t MethodBytes(std::string_view statements) {
    // What a piece of a statement costs: constants 3; "new" with its copy 4; a call 3; a field with its object 4.
    std::size_t bytes = 0;
    const std::string bytesOfText = ToWindows1252(std::string(statements));
    std::string_view rest = bytesOfText;
    while (!rest.empty()) {
        if (rest.front() == '"' || rest.front() == '\'') {
            bytes += 3;
            SkipLiteral(rest);
        } else if (rest.starts_with("//")) {
            rest.remove_prefix(std::min(rest.find('\n'), rest.size()));
        } else if (IsDigit(rest.front())) {
            bytes += 3;
            SkipWord(rest);
        } else if (StartsName(rest.front())) {
            SkipWord(rest);
            bytes += rest.starts_with('(') ? 3 : 4;
        } else {
            rest.remove_prefix(1);
        }
    }
    return bytes;
}

} // namespace pirol
