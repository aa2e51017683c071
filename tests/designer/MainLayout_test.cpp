#include "base/RuntimeError.h"
#include "designer/MainLayout.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <array>

namespace pirol {
namespace {

TEST(MainLayout, DividesTheWindow) {
    const MainLayout layout = LayOutMainWindow(1000, 700, 640, 480);
    EXPECT_EQ(layout.frame, (Rectangle{150, 20, 630, 660}));
    EXPECT_EQ(layout.toolbar, (Rectangle{0, 20, 150, 660}));
    EXPECT_EQ(layout.list, (Rectangle{780, 20, 220, 660}));
    EXPECT_EQ(layout.headings, (Rectangle{0, 0, 1000, 20}));
    EXPECT_EQ(layout.status, (Rectangle{0, 680, 1000, 20}));
    EXPECT_EQ(layout.vertical.box, (Rectangle{610, 0, 20, 640}));
    EXPECT_EQ(layout.horizontal.box, (Rectangle{0, 640, 610, 20}));
}

TEST(MainLayout, CentresOrScrollsEachDirectionByItself) {
    for (const test::TableRow& row : test::Table("canvas-places")) {
        SCOPED_TRACE(row.line);
        const int room = row.Number(0);
        const int designed = row.Number(1);
        const int maximum = row.Number(3);
        const MainLayout across = LayOutMainWindow(room + 370, 400, designed, 10);
        EXPECT_EQ(across.canvas.left, row.Number(2));
        EXPECT_EQ(across.canvas.width, designed);
        EXPECT_EQ(across.horizontal.maximum, maximum);
        EXPECT_EQ(across.horizontal.enabled, maximum != 0);
        EXPECT_FALSE(across.vertical.enabled);

        const MainLayout down = LayOutMainWindow(800, room + 40, 10, designed);
        EXPECT_EQ(down.canvas.top, row.Number(2));
        EXPECT_EQ(down.vertical.maximum, maximum);
        EXPECT_EQ(down.vertical.enabled, maximum != 0);
        EXPECT_FALSE(down.horizontal.enabled);
    }
}

TEST(MainLayout, HasNoNegativeSizesInAWindowThatIsTooSmall) {
    for (const int size : {0, 10, 39, 200, 369, 380}) {
        const MainLayout layout = LayOutMainWindow(size, size, 640, 480);
        for (const Rectangle& box :
             {layout.frame, layout.toolbar, layout.list, layout.vertical.box, layout.horizontal.box}) {
            EXPECT_GE(box.width, 0) << size;
            EXPECT_GE(box.height, 0) << size;
        }
    }
}

TEST(MainLayout, ScrollsInStepsOfEightUpTo16Bits) {
    EXPECT_EQ(ScrolledPosition(0), 0);
    EXPECT_EQ(ScrolledPosition(3), -24);
    EXPECT_EQ(ScrolledPosition(4095), -32760);
    EXPECT_THROW(ScrolledPosition(4096), RuntimeError);
}

TEST(MainLayout, ScrollsNoFurtherThanNeededToShowSomething) {
    const std::array<int, 4> cases[] = {
        {0, 30, 0, 0},     {0, 30, 9, 0},     {79, 90, 9, 9},    {71, 90, 9, 8},      {150, 170, 9, 9},
        {170, 173, 9, 10}, {170, 180, 9, 10}, {300, 900, 9, 37}, {2000, 2010, 9, 40}, {-50, -20, 9, 0},
    };
    for (const auto& [begin, end, value, expected] : cases)
        EXPECT_EQ(BarValueToShow(begin, end, 100, value, 40), expected) << begin;
}

TEST(MainLayout, PresetsCentreTheWindowOnTheScreen) {
    EXPECT_EQ(WindowPreset(0, 1920, 1080), (Rectangle{796, 376, 328, 328}));
    EXPECT_EQ(WindowPreset(1, 1920, 1080), (Rectangle{636, 267, 648, 546}));
    EXPECT_EQ(WindowPreset(2, 1920, 1080), (Rectangle{556, 207, 808, 666}));
    EXPECT_EQ(WindowPreset(3, 1920, 1080), std::nullopt);
    EXPECT_EQ(WindowPreset(-1, 1920, 1080), std::nullopt);
}

} // namespace
} // namespace pirol
