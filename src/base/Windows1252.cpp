#include "base/Windows1252.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace pirol {
namespace {

/// What the codes 80 to 9F stand for; all other codes stand for the character of the same number.
constexpr std::array<char16_t, 32> upperControls = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char replacement = '?';

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

/// The number of ASCII characters before the first other one. Most text is nothing else, so eight are tested at a time.
std::size_t AsciiLength(std::string_view text) {
    constexpr std::uint64_t upperBits = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t eight = 0; text.size() - length >= sizeof eight; length += sizeof eight) {
        std::memcpy(&eight, text.data() + length, sizeof eight);
        if ((eight & upperBits) != 0)
            break;
    }
    while (length < text.size() && IsAscii(text[length]))
        ++length;
    return length;
}

void AppendUtf8(std::string& out, char16_t character) {
    const auto byte = [&out](unsigned value) { out += static_cast<char>(value); };
    if (character < 0x800) {
        byte(0xC0u | (character >> 6u));
    } else {
        byte(0xE0u | (character >> 12u));
        byte(0x80u | ((character >> 6u) & 0x3Fu));
    }
    byte(0x80u | (character & 0x3Fu));
}

/// A character read from UTF-8 and the number of bytes it took; `valid` is false for a byte that starts none.
struct Decoded {
    std::uint32_t character;
    std::size_t length;
    bool valid;
};

Decoded DecodeOne(std::string_view text) {
    const auto byte = [&text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned first = byte(0);
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    constexpr Decoded invalid{0, 1, false};
    if (first < 0xC2 || first > 0xF4 || text.size() < length)
        return invalid;
    std::uint32_t character = first & (0xFFu >> (length + 1));
    for (std::size_t index = 1; index < length; ++index) {
        if ((byte(index) & 0xC0u) != 0x80u)
            return invalid;
        character = (character << 6u) | (byte(index) & 0x3Fu);
    }
    constexpr std::array<std::uint32_t, 5> smallest = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < smallest[length] || character > 0x10FFFF || surrogate)
        return invalid;
    return {character, length, true};
}

char EncodeOne(std::uint32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    const auto found = std::find(upperControls.begin(), upperControls.end(), character);
    return found == upperControls.end() ? replacement : static_cast<char>(0x80 + (found - upperControls.begin()));
}

} // namespace

std::string FromWindows1252(std::string_view bytes) {
    const auto wide = std::count_if(bytes.begin(), bytes.end(), [](char byte) { return !IsAscii(byte); });
    std::string out;
    out.reserve(bytes.size() + 2 * static_cast<std::size_t>(wide));
    while (!bytes.empty()) {
        const std::size_t plain = AsciiLength(bytes);
        out.append(bytes, 0, plain);
        bytes.remove_prefix(plain);
        if (bytes.empty())
            break;
        const auto code = static_cast<unsigned char>(bytes.front());
        AppendUtf8(out, code < 0xA0 ? upperControls[code - 0x80u] : code);
        bytes.remove_prefix(1);
    }
    return out;
}

std::string ToWindows1252(std::string utf8) {
    // The encoded text is never longer, so it is written over the part that has been read.
    std::string_view rest = utf8;
    std::size_t length = 0;
    while (!rest.empty()) {
        const std::size_t plain = AsciiLength(rest);
        std::memmove(utf8.data() + length, rest.data(), plain);
        length += plain;
        rest.remove_prefix(plain);
        if (rest.empty())
            break;
        const Decoded decoded = DecodeOne(rest);
        utf8[length++] = decoded.valid ? EncodeOne(decoded.character) : replacement;
        rest.remove_prefix(decoded.length);
    }
    utf8.resize(length);
    return utf8;
}

bool IsUtf8(std::string_view bytes) {
    for (bytes.remove_prefix(AsciiLength(bytes)); !bytes.empty(); bytes.remove_prefix(AsciiLength(bytes))) {
        const Decoded decoded = DecodeOne(bytes);
        if (!decoded.valid)
            return false;
        bytes.remove_prefix(decoded.length);
    }
    return true;
}

} // namespace pirol
