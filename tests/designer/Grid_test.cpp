#include "Cases.h"
#include "designer/Grid.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace pirol {
namespace {

TEST(SnapToGrid, RoundsToTheGridAndNegativeValuesTowardsZero) {
    for (const test::TableRow& row : test::Table("snap-to-grid"))
        for (const bool gridOn : {true, false})
            EXPECT_EQ(test::OutcomeOf([&] { return std::to_string(SnapToGrid(std::stod(row[0]), gridOn)); }),
                      row[gridOn ? 1 : 2])
                << row.line;
}

using Pixels = std::set<std::pair<int, int>>;

Pixels PixelsOf(const std::vector<Rectangle>& marks) {
    Pixels pixels;
    for (const Rectangle& mark : marks)
        for (int y = mark.top; y < mark.Bottom(); ++y)
            for (int x = mark.left; x < mark.Right(); ++x)
                pixels.emplace(x, y);
    return pixels;
}

bool IsMarked(int style, int x, int y, int width, int height) {
    if (x == 0 || y == 0 || x == width - 1 || y == height - 1)
        return true; // the outline
    const auto offset = [](int value) { return (value + 5) % 10 - 5; };
    const auto hasPoint = [offset](int value, int size) { return value - offset(value) <= size; };
    const bool onColumn = offset(x) == 0;
    const bool onRow = offset(y) == 0;
    switch (style) {
    case 0:
        return onColumn && onRow;
    case 1:
        return (onColumn && std::abs(offset(y)) <= 2 && hasPoint(y, height)) ||
               (onRow && std::abs(offset(x)) <= 2 && hasPoint(x, width));
    case 2:
        return onColumn || onRow;
    default:
        return false;
    }
}

TEST(GridMarks, CoverExactlyTheDirtyPartOfTheStyle) {
    const Rectangle dirtyAreas[] = {{0, 0, 43, 30}, {-20, -20, 100, 100}, {11, 8, 1, 1},    {12, 9, 21, 13},
                                    {7, 13, 3, 9},  {42, 0, 1, 30},       {50, 50, 10, 10}, {20, 10, 0, 0}};
    const Rectangle canvases[] = {{0, 0, 43, 30}, {0, 0, 40, 31}, {0, 0, 42, 29}, {0, 0, 1, 1}};
    for (const int style : {0, 1, 2, 3, -1, 70000})
        for (const Rectangle& canvas : canvases)
            for (const Rectangle& dirty : dirtyAreas) {
                const int width = canvas.width;
                const int height = canvas.height;
                Pixels expected;
                for (int y = 0; y < height; ++y)
                    for (int x = 0; x < width; ++x)
                        if (dirty.Contains(x, y) && IsMarked(style, x, y, width, height))
                            expected.emplace(x, y);
                Pixels drawn = PixelsOf(GridMarks(style, width, height, dirty));
                // A mark at the edge may reach beyond the canvas, where nothing is painted, but never beyond the dirt.
                std::erase_if(drawn, [&](const auto& pixel) {
                    EXPECT_TRUE(dirty.Contains(pixel.first, pixel.second));
                    return !canvas.Contains(pixel.first, pixel.second);
                });
                EXPECT_EQ(drawn, expected) << "style " << style << ", " << width << " x " << height << ", dirty from "
                                           << dirty.left << ", " << dirty.top;
            }
}

} // namespace
} // namespace pirol
