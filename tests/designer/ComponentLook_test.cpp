#include "designer/ComponentLook.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <array>
#include <numeric>
#include <tuple>

namespace pirol {
namespace {

std::string Text(const Rectangle& box) {
    return std::to_string(box.left) + " " + std::to_string(box.top) + " " + std::to_string(box.width) + " " +
           std::to_string(box.height);
}

TEST(ComponentLookTest, SlidersStandOrLieWithTheirKnobAtTheValue) {
    for (const test::TableRow& row : test::Table("slider-looks")) {
        SCOPED_TRACE(row.line);
        dRegler slider;
        slider.Width = static_cast<std::int16_t>(row.Number(1));
        slider.Height = static_cast<std::int16_t>(row.Number(2));
        slider.Value = static_cast<std::int16_t>(row.Number(3));
        slider.Min = static_cast<std::int16_t>(row.Number(4));
        slider.Max = static_cast<std::int16_t>(row.Number(5));
        const SliderLook look = LookOf(slider);
        EXPECT_EQ(look.upright, row[6] == "yes");
        EXPECT_EQ(Text(look.track), row[7]);
        EXPECT_EQ(Text(look.filled), row[8]);
        EXPECT_EQ(Text(look.knob), row[9]);
    }
}

TEST(ComponentLookTest, ProgressBarsAreFilledByTheirShare) {
    const std::array<std::int16_t, 5> cases[] = {
        {200, 0, 0, 100, 0},     {200, 40, 0, 100, 79}, {200, 1, 0, 100, 2},      {200, 100, 0, 100, 198},
        {200, 300, 0, 100, 198}, {200, -5, 0, 100, 0},  {30, 50, 0, 100, 14},     {200, 50, 100, 0, 0},
        {200, 7, 7, 7, 0},       {1, 100, 0, 100, 0},   {202, -50, -100, 0, 100},
    };
    for (const auto& [width, value, minimum, maximum, filled] : cases) {
        dFortschritt bar;
        bar.Width = width;
        bar.Value = value;
        bar.Min = minimum;
        bar.Max = maximum;
        EXPECT_EQ(FilledWidth(bar), filled) << width << ": " << value << " of " << minimum << " to " << maximum;
    }
}

TEST(ComponentLookTest, ColumnsShareTheWidth) {
    EXPECT_EQ(ColumnWidths(3, 242), (std::vector{81, 81, 80}));
    EXPECT_EQ(ColumnWidths(4, 182), (std::vector{46, 45, 46, 45}));
    EXPECT_EQ(ColumnWidths(2, 20), (std::vector{15, 15})) << "too narrow for both";
    EXPECT_TRUE(ColumnWidths(0, 100).empty());
    for (const std::size_t columns : {1U, 7U, 13U}) {
        const std::vector<int> widths = ColumnWidths(columns, 500);
        EXPECT_EQ(std::accumulate(widths.begin(), widths.end(), 0), 500) << columns;
    }
    EXPECT_EQ(ColumnWidths(100'000, -3), std::vector<int>(100'000, 15));
}

TEST(ComponentLookTest, ScrollBarsHaveAThumbWhereSomethingIsHidden) {
    const std::tuple<int, int, std::optional<Thumb>> cases[] = {
        {113, 480, Thumb{15, 19}},
        {113, 64, {}},
        {113, 113, {}},
        {63, 1600, Thumb{15, 15}},
        {44, 1600, {}},
        {0, 100, {}},
        {-5, 100, {}},
        {182, 2'000'000'000, Thumb{15, 15}},
    };
    for (const auto& [bar, total, thumb] : cases)
        EXPECT_EQ(ScrollThumb(bar, bar, total), thumb) << bar << " " << total;
}

TEST(ComponentLookTest, BeyondTheLongestUsefulTotalNoThumbChanges) {
    for (const int bar : {50, 113, 500, 32767}) {
        const int longest = LongestUsefulTotal(bar, bar);
        EXPECT_EQ(ScrollThumb(bar, bar, longest), ScrollThumb(bar, bar, longest + 1'000'000)) << bar;
    }
}

std::u16string Wide(std::string_view text) {
    return {text.begin(), text.end()};
}

/// "i" is narrow, everything else 10 pixels wide.
int TestAdvance(char16_t point) {
    return point == u'i' ? 4 : 10;
}

TEST(ComponentLookTest, TextsAreCutWithDotsOrWrapAtWords) {
    for (const test::TableRow& row : test::Table("fitted-texts"))
        EXPECT_EQ(FittedText(Wide(row[0]), row.Number(1), TestAdvance), Wide(row[2])) << row.line;
    for (const test::TableRow& row : test::Table("wrapped-texts"))
        EXPECT_EQ(std::to_string(WrapPoint(Wide(row[0]), row.Number(1), TestAdvance)), row[2]) << row.line;
}

TEST(ComponentLookTest, NoMoreIsMeasuredThanFits) {
    int measured = 0;
    const Advance counting = [&measured](char16_t point) {
        ++measured;
        return TestAdvance(point);
    };
    const std::u16string endless(100'000, u'x');
    FittedText(endless, 200, counting);
    WrapPoint(endless, 200, counting);
    EXPECT_LE(measured, 100);
}

} // namespace
} // namespace pirol
