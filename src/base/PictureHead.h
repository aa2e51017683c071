#pragma once

#include <filesystem>
#include <optional>

namespace pirol {

struct PictureSize {
    int width;
    int height;

    bool operator==(const PictureSize&) const = default;
};

/// The size in pixels that the head of a PNG, GIF, JPEG or BMP file tells; nothing when it is none of these, cannot be
/// read, or is no plain file. Reads a few bytes, whatever the size of the file.
std::optional<PictureSize> SizeOfPicture(const std::filesystem::path& path);

} // namespace pirol
