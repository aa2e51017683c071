#pragma once

#include <algorithm>
#include <iterator>
#include <string_view>

namespace pirol {

/// Whether a short list of words holds one.
template <class Words>
bool Contains(const Words& words, std::string_view word) {
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

} // namespace pirol
