#pragma once

#include <cstdint>

namespace pirol {

/// A colour of the screen, each part from 0 to 255.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

} // namespace pirol
