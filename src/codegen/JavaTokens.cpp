#include "codegen/JavaTokens.h"

#include "base/Windows1252.h"
#include "codegen/JavaCharacters.h"
#include "codegen/SourceLines.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::string_view textBlockQuotes = "\"\"\"";

/// Of the operators those of several characters that must not be taken for others; the longer ones first.
constexpr std::string_view longSigns[] = {
    "<<=", ">>=", "==", "!=", "<=", ">=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "++", "--", "&&", "||", "->",
};

constexpr bool IsBlank(char character) {
    return (character >= 0 && character <= ' ') || character == '\x7F';
}

std::size_t LengthWhile(std::string_view text, bool (*belongs)(char)) {
    const auto end = std::find_if_not(text.begin(), text.end(), belongs);
    return static_cast<std::size_t>(end - text.begin());
}

/// Digits, letters and points, and the sign of an exponent.
std::size_t NumberLength(std::string_view text) {
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    std::size_t length = 1;
    for (; length < text.size(); ++length) {
        const char before = text[length - 1];
        const bool signOfExponent =
            !isHexadecimal && (before == 'e' || before == 'E') && (text[length] == '+' || text[length] == '-');
        if (!ContinuesWord(text[length]) && text[length] != '.' && !signOfExponent)
            break;
    }
    return length;
}

std::size_t SignLength(std::string_view text) {
    constexpr std::string_view secondCharacters = "=+-&|<>";
    if (text.size() < 2 || secondCharacters.find(text[1]) == std::string_view::npos)
        return 1;
    for (const std::string_view sign : longSigns)
        if (text.starts_with(sign))
            return sign.size();
    return 1;
}

} // namespace

std::string DecodeSource(std::string_view bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (bytes.starts_with(mark))
        bytes.remove_prefix(mark.size());
    return IsUtf8(bytes) ? std::string(bytes) : FromWindows1252(bytes);
}

std::optional<JavaToken> JavaTokenizer::Next() {
    SkipBlanksAndComments();
    const std::string_view rest = Rest();
    if (rest.empty())
        return std::nullopt;
    const char first = rest.front();
    if (IsDigit(first) || (first == '.' && rest.size() > 1 && IsDigit(rest[1])))
        return Take(TokenKind::Number, NumberLength(rest));
    if (ContinuesWord(first))
        return Take(TokenKind::Word, LengthWhile(rest, ContinuesWord));
    if (rest.starts_with(textBlockQuotes)) {
        const std::string_view behind = rest.substr(textBlockQuotes.size());
        const std::size_t blanks = std::min(behind.find_first_not_of(" \t"), behind.size());
        if (blanks < behind.size() && IsLineEnd(behind[blanks]))
            return TakeTextBlock();
    }
    if (first == '"' || first == '\'')
        return TakeLiteral(first == '"' ? TokenKind::Text : TokenKind::Character);
    return Take(TokenKind::Sign, SignLength(rest));
}

void JavaTokenizer::SkipBlanksAndComments() {
    for (;;) {
        SkipTo(position_ + LengthWhile(Rest(), IsBlank));
        const std::string_view rest = Rest();
        if (rest.starts_with("//")) {
            SkipTo(position_ + std::min(rest.find_first_of("\r\n"), rest.size()));
        } else if (rest.starts_with("/*") && !IsInHandlerName()) {
            const std::size_t end = rest.find("*/", 2);
            if (end == std::string_view::npos)
                openComment_ = line_;
            SkipTo(end == std::string_view::npos ? source_.size() : position_ + end + 2);
        } else {
            return;
        }
    }
}

/// The generator makes the handler's name of a menu line's caption, even when that holds what begins a comment. It
/// spoils the handler, but must not take all that follows with it.
bool JavaTokenizer::IsInHandlerName() const {
    constexpr std::size_t longestLine = 1000;
    const std::string_view line = source_.substr(lineBegin_, longestLine);
    return line.starts_with("    public void ") && line.substr(0, line.find('\r')).ends_with("()") &&
           line.find("()\r\n    {\r\n\r\n    }\r\n") != std::string_view::npos;
}

/// Goes on to a position and counts the lines that end before it.
void JavaTokenizer::SkipTo(std::size_t position) {
    for (; position_ < position; ++position_) {
        const bool endsLine = source_[position_] == '\n' ||
                              (source_[position_] == '\r' && !source_.substr(position_ + 1).starts_with('\n'));
        if (endsLine) {
            ++line_;
            lineBegin_ = position_ + 1;
        }
    }
}

JavaToken JavaTokenizer::Take(TokenKind kind, std::size_t length) {
    const JavaToken token{kind, source_.substr(position_, length), line_};
    position_ += length;
    return token;
}

JavaToken JavaTokenizer::TakeLiteral(TokenKind kind) {
    const auto [end, closed] = EndOfLiteral(source_, position_);
    if (!closed)
        return Take(TokenKind::Other, end - position_);
    JavaToken token = Take(kind, end - position_);
    token.text = token.text.substr(1, token.text.size() - 2);
    return token;
}

JavaToken JavaTokenizer::TakeTextBlock() {
    const std::string_view rest = Rest();
    std::size_t end = textBlockQuotes.size();
    while (end < rest.size() && !rest.substr(end).starts_with(textBlockQuotes))
        end += rest[end] == '\\' ? 2 : 1;
    end = std::min(end + textBlockQuotes.size(), rest.size());
    const JavaToken token{TokenKind::Other, rest.substr(0, end), line_};
    SkipTo(position_ + end);
    return token;
}

} // namespace pirol
