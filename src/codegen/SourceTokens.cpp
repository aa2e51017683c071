#include "codegen/SourceTokens.h"

#include "base/RuntimeError.h"
#include "codegen/JavaCharacters.h"
#include "codegen/KnownPieces.h"
#include "codegen/SourceLines.h"

#include <algorithm>
#include <array>

namespace pirol {
namespace {

/// Far more than any program has; what a file made for it could ask for ends here.
constexpr std::size_t mostTokens = std::size_t{1} << 25U;
constexpr std::size_t longestSource = std::size_t{1} << 30U;
/// What a token with the blanks around it usually takes.
constexpr std::size_t usualLength = 5;

enum class ByteClass : std::uint8_t { Sign, Word, Blank, LineEnd, Quote, Slash };

constexpr std::array<ByteClass, 256> ByteClasses() {
    std::array<ByteClass, 256> classes{};
    for (std::size_t byte = 0; byte < classes.size(); ++byte) {
        classes[byte] = ContinuesWord(static_cast<char>(byte)) ? ByteClass::Word : ByteClass::Sign;
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

SourceTokens::SourceTokens(std::string_view source, Comments comments, KnownPieces* known) : source_(source) {
    if (source.size() > longestSource)
        throw RuntimeError(RuntimeError::OutOfMemory);
    tokens_.reserve(std::min(source.size() / usualLength, mostTokens));
    Read(comments, known);
}

/// Takes a known piece at the position as one token, if there is one.
bool SourceTokens::TakeKnown(std::size_t begin, KnownPieces& known) {
    const auto [piece, end] = known.Find(begin);
    if (piece == KnownPieces::none)
        return false;
    Add(begin, end, true);
    tokens_.back().known = static_cast<std::uint32_t>(piece + 1);
    return true;
}

void SourceTokens::Read(Comments comments, KnownPieces* known) {
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
            const LiteralEnd literal = EndOfLiteral(source_, begin);
            position = literal.end;
            Add(begin, position, startsLine, literal.closed);
            break;
        }
        case ByteClass::Word:
            if (startsLine && known != nullptr && TakeKnown(begin, *known)) {
                position = tokens_.back().end;
                break;
            }
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
    constexpr std::uint32_t position = 0x7FFFFFFF;
    tokens_.push_back({static_cast<std::uint32_t>(begin) & position, startsLine ? 1U : 0U,
                       static_cast<std::uint32_t>(end) & position, closed ? 1U : 0U, 0});
}

bool SourceTokens::IsWord(std::size_t index) const {
    const std::string_view text = Text(index);
    return !text.empty() && ClassOf(text.front()) == ByteClass::Word && !IsDigit(text.front()) &&
           tokens_[index].known == 0;
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

int LevelStep(std::string_view token) {
    if (token.size() != 1)
        return 0;
    return (token.front() == '{' ? 1 : 0) - (token.front() == '}' ? 1 : 0);
}

} // namespace pirol
