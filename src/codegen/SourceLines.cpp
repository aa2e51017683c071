#include "codegen/SourceLines.h"

#include <algorithm>
#include <cstdint>

namespace pirol {
namespace {

bool IsBlankByte(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\f' || byte == '\v' || IsLineEnd(byte);
}

/// At how many positions something holds. In small counters and without a branch, so that the compiler takes many
/// positions at once.
template <class Condition>
std::size_t CountWhere(std::size_t begin, std::size_t end, const Condition& holds) {
    constexpr std::size_t most = 255;
    std::size_t count = 0;
    while (begin < end) {
        const std::size_t limit = std::min(begin + most, end);
        std::uint8_t some = 0;
        for (; begin < limit; ++begin)
            some = static_cast<std::uint8_t>(some + static_cast<std::uint8_t>(holds(begin)));
        count += some;
    }
    return count;
}

} // namespace

std::size_t EndOfLine(std::string_view text, std::size_t position) {
    // Two searches in a window are much faster than a look at each byte; without one, a text that has only one of the
    // two line ends would be searched to its end for the other, line by line.
    constexpr std::size_t window = 256;
    if (position >= text.size() || IsLineEnd(text[position]))
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

std::size_t LineStart(std::string_view source, std::size_t position, std::size_t lowest) {
    std::size_t start = position;
    while (start > lowest && (source[start - 1] == ' ' || source[start - 1] == '\t'))
        --start;
    return start == lowest || IsLineEnd(source[start - 1]) ? start : position;
}

std::size_t LineBreaks(std::string_view text) {
    // Each line end counts by its last byte.
    const std::size_t last = std::max<std::size_t>(text.size(), 1) - 1;
    const std::size_t before = CountWhere(0, last, [text](std::size_t at) {
        const auto isLoneReturn = static_cast<unsigned>(text[at] == '\r') & static_cast<unsigned>(text[at + 1] != '\n');
        return static_cast<bool>(static_cast<unsigned>(text[at] == '\n') | isLoneReturn);
    });
    return before + (!text.empty() && IsLineEnd(text[last]) ? 1 : 0);
}

std::string_view UsualLineEnd(std::string_view text) {
    const std::size_t returns = CountWhere(0, text.size(), [text](std::size_t at) { return text[at] == '\r'; });
    const std::size_t feeds = CountWhere(0, text.size(), [text](std::size_t at) { return text[at] == '\n'; });
    const std::size_t both = CountWhere(1, text.size(), [text](std::size_t at) {
        return static_cast<bool>(static_cast<unsigned>(text[at - 1] == '\r') & static_cast<unsigned>(text[at] == '\n'));
    });
    if (feeds - both > both && feeds >= returns)
        return "\n";
    return returns - both > both ? "\r" : "\r\n";
}

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsBlankByte);
}

std::string_view Stripped(std::string_view text) {
    while (!text.empty() && IsBlankByte(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlankByte(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace pirol
