#include "designer/Grid.h"

#include "base/Conversions.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// A cross reaches from 2 pixels before its point up to, but not including, 3 pixels after it.
constexpr int crossArm = 2;
constexpr int crossLength = 5;

/// The grid coordinates from 0 to `last` inclusive of which a mark can reach into the pixels from `begin` to `end`.
struct GridRange {
    int first;
    int last;

    GridRange(int begin, int end, int size)
        : first(std::max(0, (begin - crossLength + gridSpacing - 1) / gridSpacing * gridSpacing)),
          last(std::min(size, end + crossLength)) {}
};

Rectangle Cut(const Rectangle& mark, const Rectangle& dirty) {
    const int left = std::max(mark.left, dirty.left);
    const int top = std::max(mark.top, dirty.top);
    return {left, top, std::min(mark.Right(), dirty.Right()) - left, std::min(mark.Bottom(), dirty.Bottom()) - top};
}

/// Gathers the marks that reach into the dirty rectangle.
class MarkList {
  public:
    MarkList(int width, int height, const Rectangle& dirty)
        : width_(width), height_(height), dirty_(dirty), columns_(dirty.left, dirty.Right(), width),
          rows_(dirty.top, dirty.Bottom(), height) {}

    void AddMarks(GridStyle style) {
        if (style == GridStyle::Lines)
            AddLines();
        else
            for (int y = rows_.first; y <= rows_.last; y += gridSpacing)
                for (int x = columns_.first; x <= columns_.last; x += gridSpacing)
                    AddPoint(style, x, y);
    }

    void AddOutline() {
        Add({0, 0, width_, 1});
        Add({0, height_ - 1, width_, 1});
        Add({0, 0, 1, height_});
        Add({width_ - 1, 0, 1, height_});
    }

    std::vector<Rectangle> Marks() && { return std::move(marks_); }

  private:
    void AddPoint(GridStyle style, int x, int y) {
        if (style == GridStyle::Dots) {
            Add({x, y, 1, 1});
        } else {
            Add({x - crossArm, y, crossLength, 1});
            Add({x, y - crossArm, 1, crossLength});
        }
    }

    void AddLines() {
        for (int y = rows_.first; y <= rows_.last; y += gridSpacing)
            Add({0, y, width_, 1});
        for (int x = columns_.first; x <= columns_.last; x += gridSpacing)
            Add({x, 0, 1, height_});
    }

    void Add(const Rectangle& mark) {
        if (mark.Intersects(dirty_))
            marks_.push_back(Cut(mark, dirty_));
    }

    int width_;
    int height_;
    Rectangle dirty_;
    GridRange columns_;
    GridRange rows_;
    std::vector<Rectangle> marks_;
};

} // namespace

std::int16_t SnapToGrid(double pixels, bool gridOn) {
    const std::int16_t whole = ToInt16(pixels);
    if (!gridOn)
        return whole;
    const int remainder = whole % gridSpacing;
    return ToInt16(remainder < gridSpacing / 2 ? whole - remainder : whole + gridSpacing - remainder);
}

std::vector<Rectangle> GridMarks(int gridStyle, int width, int height, const Rectangle& dirty) {
    MarkList marks(width, height, dirty);
    if (gridStyle >= static_cast<int>(GridStyle::Dots) && gridStyle <= static_cast<int>(GridStyle::Lines))
        marks.AddMarks(static_cast<GridStyle>(gridStyle));
    marks.AddOutline();
    return std::move(marks).Marks();
}

} // namespace pirol
