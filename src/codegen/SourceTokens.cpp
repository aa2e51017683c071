#include "codegen/SourceTokens.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <array>

namespace pirol {
namespace {

/// Far more than any program has; what a file made for it could ask for ends here.
constexpr std::size_t mostTokens = std::size_t{1} << 25U;
constexpr std::size_t longestSource = std::size_t{1} << 30U;
/// How many known texts may be missing between two that are found.
constexpr std::size_t farthestKnown = 64;
/// What a token with the blanks around it usually takes.
constexpr std::size_t usualLength = 5;

enum class ByteClass : std::uint8_t { Sign, Word, Blank, LineEnd, Quote, Slash };

/// Every byte beyond ASCII counts as a letter: which of them Java takes does not matter for finding names.
constexpr std::array<ByteClass, 256> ByteClasses() {
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte) {
        const bool isWord = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                            (byte >= 'a' && byte <= 'z') || byte == '_' || byte == '$' || byte >= 0x80;
        classes[byte] = isWord ? ByteClass::Word : ByteClass::Sign;
    }
    for (const unsigned char byte : {' ', '\t', '\f', '\v'})
        classes[byte] = ByteClass::Blank;
    classes['\n'] = classes['\r'] = ByteClass::LineEnd;
    classes['"'] = classes['\''] = ByteClass::Quote;
    classes['/'] = ByteClass::Slash;
    return classes;
}

constexpr std::array<ByteClass, 256> byteClasses = ByteClasses();

ByteClass ClassOf(char byte) {
    return byteClasses[static_cast<unsigned char>(byte)];
}

bool IsDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

/// Behind the closing quote, or the end of the line when there is none.
std::size_t EndOfLiteral(std::string_view source, std::size_t begin, bool& closed) {
    const char quote = source[begin];
    std::size_t position = begin + 1;
    closed = false;
    while (position < source.size() && !IsLineEnd(source[position])) {
        const char byte = source[position];
        if (byte == '\\' && position + 1 < source.size() && !IsLineEnd(source[position + 1]))
            ++position;
        ++position;
        if (byte == quote) {
            closed = true;
            break;
        }
    }
    return position;
}

/// Whether the lines of a comment may have been commented out as a whole: braces match, and a constructor's call of its
/// super class is in the comment only with the constructor, and the end is in no text. Otherwise two half-written lines
/// happen to look like the ends of a comment.
bool IsWholeCode(std::string_view lines) {
    const SourceTokens tokens(lines, SourceTokens::Comments::WithinLines);
    int level = 0;
    for (std::size_t index = 0; index < tokens.Count(); ++index) {
        level += LevelStep(tokens.Text(index));
        if (level < 0 || (level == 0 && tokens.Are(index, "super", "(")))
            return false;
    }
    const std::size_t last = tokens.Count() - 1;
    const bool endsInText = tokens.Count() > 0 && tokens[last].closed == 0 && tokens[last].end == lines.size() &&
                            lines[tokens[last].begin] == '"';
    return level == 0 && !endsInText;
}

} // namespace

SourceTokens::SourceTokens(std::string_view source, Comments comments, std::span<const std::string_view> known)
    : source_(source) {
    if (source.size() > longestSource)
        throw RuntimeError(RuntimeError::OutOfMemory);
    tokens_.reserve(std::min(source.size() / usualLength, mostTokens));
    Read(comments, known);
}

/// The end of a known text at the position, which becomes a token; the position when there is none.
std::size_t SourceTokens::TakeKnown(std::size_t begin, std::span<const std::string_view> known, std::size_t& next) {
    const char first = source_[begin];
    const std::size_t last = std::min(next + farthestKnown, known.size());
    for (std::size_t index = next; index < last; ++index) {
        const std::string_view text = known[index];
        if (text.front() != first || source_.compare(begin, text.size(), text) != 0)
            continue;
        const std::size_t end = begin + text.size();
        if (end < source_.size() && !IsLineEnd(source_[end]))
            continue;
        Add(begin, end, true);
        tokens_.back().known = static_cast<std::uint32_t>(index + 1);
        next = index + 1;
        return end;
    }
    return begin;
}

void SourceTokens::Read(Comments comments, std::span<const std::string_view> known) {
    std::size_t nextKnown = 0;
    bool startsLine = true;
    std::size_t position = 0;
    while (position < source_.size()) {
        const std::size_t begin = position++;
        switch (ClassOf(source_[begin])) {
        case ByteClass::Blank:
            continue;
        case ByteClass::LineEnd:
            startsLine = true;
            continue;
        case ByteClass::Slash:
            if (position < source_.size() && (source_[position] == '/' || source_[position] == '*')) {
                position = SkipComment(begin, startsLine, comments);
                continue;
            }
            Add(begin, position, startsLine);
            break;
        case ByteClass::Quote: {
            bool closed = false;
            position = EndOfLiteral(source_, begin, closed);
            Add(begin, position, startsLine, closed);
            break;
        }
        case ByteClass::Word:
            if (startsLine && nextKnown < known.size())
                position = std::max(TakeKnown(begin, known, nextKnown), begin + 1);
            if (position > begin + 1)
                break; // behind a known text, which is longer than one byte
            while (position < source_.size() && ClassOf(source_[position]) == ByteClass::Word)
                ++position;
            Add(begin, position, startsLine);
            break;
        case ByteClass::Sign:
            Add(begin, position, startsLine);
            break;
        }
        startsLine = false;
    }
}

std::size_t SourceTokens::SkipComment(std::size_t begin, bool startsLine, Comments comments) {
    const std::size_t endOfLine = EndOfLine(source_, begin);
    if (source_[begin + 1] == '/') {
        if (startsLine)
            comments_.push_back({begin, endOfLine});
        return endOfLine;
    }
    const std::size_t inLine = source_.substr(0, endOfLine).find("*/", begin + 2);
    if (inLine != std::string_view::npos)
        return inLine + 2;
    if (comments == Comments::WithinLines)
        return endOfLine;
    for (std::size_t sign = endOfLine; sign + 1 < source_.size(); ++sign) {
        if (source_[sign] == '/' && source_[sign + 1] == '*')
            break;
        if (source_[sign] != '*' || source_[sign + 1] != '/')
            continue;
        if (!IsWholeCode(source_.substr(endOfLine, sign - endOfLine)))
            break;
        hasLongComments_ = true;
        return sign + 2;
    }
    return endOfLine;
}

void SourceTokens::Add(std::size_t begin, std::size_t end, bool startsLine, bool closed) {
    if (tokens_.size() == mostTokens)
        throw RuntimeError(RuntimeError::OutOfMemory);
    SourceToken token{};
    token.begin = static_cast<std::uint32_t>(begin) & 0x7FFFFFFFU;
    token.end = static_cast<std::uint32_t>(end) & 0x7FFFFFFFU;
    token.startsLine = startsLine ? 1U : 0U;
    token.closed = closed ? 1U : 0U;
    tokens_.push_back(token);
}

bool SourceTokens::IsWord(std::size_t index) const {
    if (index >= tokens_.size() || tokens_[index].known != 0)
        return false;
    const char first = source_[tokens_[index].begin];
    return ClassOf(first) == ByteClass::Word && !IsDigit(first);
}

bool SourceTokens::IsNumber(std::size_t index) const {
    return index < tokens_.size() && IsDigit(source_[tokens_[index].begin]);
}

bool SourceTokens::IsLiteral(std::size_t index, char quote) const {
    return index < tokens_.size() && source_[tokens_[index].begin] == quote && tokens_[index].closed != 0;
}

std::size_t SourceTokens::From(std::size_t position) const {
    const auto found = std::partition_point(tokens_.begin(), tokens_.end(),
                                            [position](const SourceToken& token) { return token.begin < position; });
    return static_cast<std::size_t>(found - tokens_.begin());
}

std::size_t EndOfLine(std::string_view text, std::size_t position) {
    // Two searches in a window are much faster than a look at each byte; without one, a text that has only one of the
    // two line ends would be searched to its end for the other, line by line.
    constexpr std::size_t window = 256;
    if (position >= text.size())
        return position;
    for (; position < text.size(); position += window) {
        const std::string_view part = text.substr(position, window);
        const std::size_t feed = part.find('\n');
        const std::size_t carriage = part.substr(0, feed).find('\r');
        if (const std::size_t end = std::min(feed, carriage); end != std::string_view::npos)
            return position + end;
    }
    return text.size();
}

std::size_t BehindLine(std::string_view text, std::size_t position) {
    position = EndOfLine(text, position);
    if (position < text.size())
        position += text.substr(position).starts_with("\r\n") ? 2 : 1;
    return position;
}

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return ClassOf(byte) == ByteClass::Blank || IsLineEnd(byte); });
}

int LevelStep(std::string_view token) {
    if (token.size() != 1)
        return 0;
    return (token.front() == '{' ? 1 : 0) - (token.front() == '}' ? 1 : 0);
}

std::string_view Stripped(std::string_view text) {
    while (!text.empty() && IsBlank(text.substr(0, 1)))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.substr(text.size() - 1)))
        text.remove_suffix(1);
    return text;
}

} // namespace pirol
