#include "designer/Grid.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

/// What the marks cover of the dirty part of a canvas, with "/" between its rows. A mark at the edge may reach beyond
/// the canvas, where nothing is painted, but never beyond the dirt.
std::string Drawn(int style, int width, int height, const Rectangle& dirty) {
    std::vector<std::string> rows(static_cast<std::size_t>(height), std::string(static_cast<std::size_t>(width), '.'));
    for (const Rectangle& mark : GridMarks(style, width, height, dirty))
        for (int y = mark.top; y < mark.Bottom(); ++y)
            for (int x = mark.left; x < mark.Right(); ++x) {
                EXPECT_TRUE(dirty.Contains(x, y)) << x << ", " << y;
                if (Rectangle{0, 0, width, height}.Contains(x, y))
                    rows.at(static_cast<std::size_t>(y)).at(static_cast<std::size_t>(x)) = '#';
            }
    std::string picture;
    for (const std::string& row : rows)
        picture += (picture.empty() ? "" : "/") + row;
    return picture;
}

TEST(GridMarks, CoverExactlyTheDirtyPartOfTheStyle) {
    EXPECT_EQ(
        test::Deviations(
            "grid-marks",
            [](const test::TableRow& row) {
                const int width = row.Number(1);
                const int height = row.Number(2);
                const std::string whole = Drawn(row.Number(0), width, height, {-20, -20, width + 40, height + 40});
                for (int from = -3; from < 25; ++from) {
                    const Rectangle dirty{from, from + 2, from % 7 + 1, from % 11 + 2};
                    std::string part = whole;
                    for (std::size_t at = 0; at < part.size(); ++at)
                        if (const int i = static_cast<int>(at);
                            part[at] == '#' && !dirty.Contains(i % (width + 1), i / (width + 1)))
                            part[at] = '.';
                    EXPECT_EQ(Drawn(row.Number(0), width, height, dirty), part) << row.line << from;
                }
                return test::Answer(whole);
            }),
        "");
}

} // namespace
} // namespace pirol
