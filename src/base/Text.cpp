#include "base/Text.h"

namespace pirol {

std::string Shortened(std::string_view text, std::size_t mostBytes) {
    if (text.size() <= mostBytes)
        return std::string(text);
    while (mostBytes > 0 && !BeginsCharacter(text[mostBytes]))
        --mostBytes;
    return std::string(text.substr(0, mostBytes)).append("…");
}

} // namespace pirol
