#pragma once

namespace pirol {

/// A rectangle in pixels of the designed window.
struct Rectangle {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    int Right() const { return left + width; }
    int Bottom() const { return top + height; }
    bool Contains(int x, int y) const { return x >= left && x < Right() && y >= top && y < Bottom(); }
    /// Whether the two have a pixel in common; an empty rectangle has none.
    bool Intersects(const Rectangle& other) const {
        return width > 0 && height > 0 && other.width > 0 && other.height > 0 && left < other.Right() &&
               other.left < Right() && top < other.Bottom() && other.top < Bottom();
    }
    bool operator==(const Rectangle&) const = default;
};

} // namespace pirol
