#include "codegen/KnownTexts.h"

#include "codegen/SourceLines.h"

#include <algorithm>

namespace pirol {
namespace {

/// How many texts may be missing between two that are found by comparing.
constexpr std::size_t farthest = 16;
/// So many lines that are none of the next texts may be a pupil's.
constexpr std::size_t mostMissed = 32;

std::string_view LineAt(std::string_view text, std::size_t begin) {
    return text.substr(begin, EndOfLine(text, begin) - begin);
}

} // namespace

std::size_t KnownTexts::Find(std::string_view source, std::size_t begin) {
    std::size_t number = next_;
    const std::size_t end = std::min(next_ + farthest, texts_.size());
    while (number < end && !StandsAt(number, source, begin))
        ++number;
    if (number == end)
        number = ++missed_ > mostMissed ? FindAnywhere(source, begin) : none;
    if (number == none)
        return none;
    found_[number] = true;
    next_ = number + 1;
    missed_ = 0;
    return number;
}

bool KnownTexts::StandsAt(std::size_t number, std::string_view source, std::size_t begin) const {
    const std::string_view text = texts_[number];
    if (text.front() != source[begin] || found_[number] || !source.substr(begin).starts_with(text))
        return false;
    const std::size_t end = begin + text.size();
    return end == source.size() || IsLineEnd(source[end]);
}

std::size_t KnownTexts::FindAnywhere(std::string_view source, std::size_t begin) {
    if (byFirstLine_.Empty()) {
        byFirstLine_.Reserve(texts_.size());
        for (std::size_t number = 0; number < texts_.size(); ++number)
            byFirstLine_.Add(LineAt(texts_[number], 0), static_cast<std::uint32_t>(number));
    }
    const std::uint32_t* const number = byFirstLine_.Find(LineAt(source, begin));
    return number != nullptr && StandsAt(*number, source, begin) ? *number : none;
}

} // namespace pirol
