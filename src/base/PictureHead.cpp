#include "base/PictureHead.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <string_view>

namespace pirol {
namespace {

/// The first bytes of a file; those that it lacks are 0.
using Head = std::array<unsigned char, 32>;

/// A number of `bytes` bytes, the last one being the lowest.
std::uint32_t Number(const unsigned char* begin, int bytes) {
    std::uint32_t number = 0;
    for (int i = 0; i < bytes; ++i)
        number = number << 8U | begin[i];
    return number;
}

/// The same, the first one being the lowest.
std::uint32_t TurnedNumber(const unsigned char* begin, int bytes) {
    std::uint32_t number = 0;
    for (int i = bytes; i > 0; --i)
        number = number << 8U | begin[i - 1];
    return number;
}

/// Nothing for what no picture measures.
std::optional<PictureSize> SizeFrom(std::uint32_t width, std::uint32_t height) {
    constexpr std::uint32_t largest = std::numeric_limits<std::int32_t>::max();
    if (width == 0 || height == 0 || width > largest || height > largest)
        return std::nullopt;
    return PictureSize{static_cast<int>(width), static_cast<int>(height)};
}

std::optional<PictureSize> SizeOfPng(const Head& head, std::istream&) {
    return SizeFrom(Number(&head[16], 4), Number(&head[20], 4));
}

std::optional<PictureSize> SizeOfGif(const Head& head, std::istream&) {
    return SizeFrom(TurnedNumber(&head[6], 2), TurnedNumber(&head[8], 2));
}

std::optional<PictureSize> SizeOfBmp(const Head& head, std::istream&) {
    constexpr std::uint32_t oldHeader = 12;
    if (TurnedNumber(&head[14], 4) == oldHeader)
        return SizeFrom(TurnedNumber(&head[18], 2), TurnedNumber(&head[20], 2));
    // A picture whose rows begin at the top has a negative height.
    const std::int64_t height = static_cast<std::int32_t>(TurnedNumber(&head[22], 4));
    return SizeFrom(TurnedNumber(&head[18], 4), static_cast<std::uint32_t>(std::abs(height)));
}

/// A JPEG file is a row of segments: FF, a type, the length of what follows. One of them holds the size.
std::optional<PictureSize> SizeOfJpeg(const Head&, std::istream& file) {
    constexpr int mostSegments = 1000;
    file.seekg(2);
    for (int segment = 0; segment < mostSegments; ++segment) {
        std::array<unsigned char, 9> bytes = {};
        const auto begin = file.tellg();
        if (!file.read(reinterpret_cast<char*>(bytes.data()), bytes.size()) || bytes[0] != 0xFF)
            return std::nullopt;
        const unsigned char type = bytes[1];
        const bool isFrame = type >= 0xC0 && type <= 0xCF && type != 0xC4 && type != 0xC8 && type != 0xCC;
        if (isFrame)
            return SizeFrom(Number(&bytes[7], 2), Number(&bytes[5], 2));
        // The type may be led in by more than one FF.
        file.seekg(begin + std::streamoff{type == 0xFF ? 1 : 2 + static_cast<int>(Number(&bytes[2], 2))});
    }
    return std::nullopt;
}

struct Format {
    std::string_view beginning;
    std::optional<PictureSize> (*size)(const Head& head, std::istream& file);
};

constexpr Format formats[] = {
    {"\x89PNG\r\n\x1A\n", SizeOfPng},
    {"GIF8", SizeOfGif},
    {"BM", SizeOfBmp},
    {"\xFF\xD8", SizeOfJpeg},
};

} // namespace

std::optional<PictureSize> SizeOfPicture(const std::filesystem::path& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    Head head = {};
    file.read(reinterpret_cast<char*>(head.data()), head.size());
    const std::string_view begin(reinterpret_cast<const char*>(head.data()), head.size());
    file.clear();
    for (const Format& format : formats)
        if (begin.starts_with(format.beginning))
            return format.size(head, file);
    return std::nullopt;
}

} // namespace pirol
