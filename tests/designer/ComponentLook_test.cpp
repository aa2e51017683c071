#include "designer/ComponentLook.h"

#include <gtest/gtest.h>

#include <numeric>

namespace pirol {
namespace {

std::string Text(const Rectangle& box) {
    return std::to_string(box.left) + " " + std::to_string(box.top) + " " + std::to_string(box.width) + " " +
           std::to_string(box.height);
}

TEST(ComponentLookTest, SlidersStandOrLieWithTheirKnobAtTheValue) {
    const struct {
        const char* name;
        std::int16_t width, height, value, minimum, maximum;
        bool upright;
        const char* track;
        const char* filled;
        const char* knob;
    } cases[] = {
        {"lies", 200, 40, 30, 0, 100, false, "7 16 185 6", "7 16 56 6", "56 11 15 16"},
        {"stands", 40, 150, 70, 0, 100, true, "16 7 6 135", "16 48 6 94", "11 41 16 15"},
        {"square lies", 50, 50, 5, 5, 5, false, "7 21 35 6", "7 21 0 6", "0 16 15 16"},
        {"maximum keeps the knob inside", 200, 40, 100, 0, 100, false, "7 16 185 6", "7 16 185 6", "185 11 15 16"},
        {"minimum stands at the bottom", 40, 150, 0, 0, 100, true, "16 7 6 135", "16 142 6 0", "11 135 16 15"},
        {"below its minimum", 200, 40, -5, 0, 100, false, "7 16 185 6", "7 16 0 6", "0 11 15 16"},
        {"above its maximum", 200, 40, 500, 0, 100, false, "7 16 185 6", "7 16 185 6", "185 11 15 16"},
        {"limits exchanged", 200, 40, 50, 100, 0, false, "7 16 185 6", "7 16 0 6", "0 11 15 16"},
        {"whole 16-bit range", 214, 17, 0, -32768, 32767, false, "7 5 199 6", "7 5 100 6", "100 0 15 16"},
        {"shorter than its knob", 10, 5, 50, 0, 100, false, "7 -1 0 6", "7 -1 0 6", "0 -6 15 16"},
    };
    for (const auto& [name, width, height, value, minimum, maximum, upright, track, filled, knob] : cases) {
        SCOPED_TRACE(name);
        dRegler slider;
        slider.Width = width;
        slider.Height = height;
        slider.Value = value;
        slider.Min = minimum;
        slider.Max = maximum;
        const SliderLook look = LookOf(slider);
        EXPECT_EQ(look.upright, upright);
        EXPECT_EQ(Text(look.track), track);
        EXPECT_EQ(Text(look.filled), filled);
        EXPECT_EQ(Text(look.knob), knob);
    }
}

TEST(ComponentLookTest, ProgressBarsAreFilledByTheirShare) {
    const struct {
        std::int16_t width, value, minimum, maximum;
        int filled;
    } cases[] = {
        {200, 0, 0, 100, 0},     {200, 40, 0, 100, 79}, {200, 1, 0, 100, 2},      {200, 100, 0, 100, 198},
        {200, 300, 0, 100, 198}, {200, -5, 0, 100, 0},  {30, 50, 0, 100, 14},     {200, 50, 100, 0, 0},
        {200, 7, 7, 7, 0},       {1, 100, 0, 100, 0},   {202, -50, -100, 0, 100},
    };
    for (const auto& [width, value, minimum, maximum, filled] : cases) {
        SCOPED_TRACE(testing::Message() << width << ": " << value << " of " << minimum << " to " << maximum);
        dFortschritt bar;
        bar.Width = width;
        bar.Value = value;
        bar.Min = minimum;
        bar.Max = maximum;
        EXPECT_EQ(FilledWidth(bar), filled);
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
    const struct {
        int bar, visible, total;
        std::optional<Thumb> thumb;
    } cases[] = {
        {113, 113, 480, Thumb{15, 19}}, {113, 113, 64, std::nullopt},
        {113, 113, 113, std::nullopt},  {63, 63, 1600, Thumb{15, 15}},
        {44, 44, 1600, std::nullopt},   {0, 0, 100, std::nullopt},
        {-5, -5, 100, std::nullopt},    {182, 182, 2'000'000'000, Thumb{15, 15}},
    };
    for (const auto& [bar, visible, total, thumb] : cases)
        EXPECT_EQ(ScrollThumb(bar, visible, total), thumb) << bar << " " << visible << " " << total;
}

TEST(ComponentLookTest, BeyondTheLongestUsefulTotalNoThumbChanges) {
    for (const int bar : {50, 113, 500, 32767}) {
        const int longest = LongestUsefulTotal(bar, bar);
        EXPECT_EQ(ScrollThumb(bar, bar, longest), ScrollThumb(bar, bar, longest + 1'000'000)) << bar;
    }
}

/// "i" is narrow, everything else 10 pixels wide.
int TestAdvance(char16_t point) {
    return point == u'i' ? 4 : 10;
}

TEST(ComponentLookTest, TextIsCutWithDots) {
    const struct {
        std::u16string_view text;
        int width;
        std::u16string_view fitted;
    } cases[] = {
        {u"Text", 40, u"Text"},         {u"Texte", 49, u"T..."}, {u"Texte", 50, u"Texte"},
        {u"Texte", 39, u"..."},         {u"Texte", 30, u"..."},  {u"Texte", 0, u"..."},
        {u"Texte", -7, u"..."},         {u"", -7, u""},          {u"iiiiiiiiii", 40, u"iiiiiiiiii"},
        {u"iiiiiiiiiii", 40, u"ii..."}, {u"", 0, u""},
    };
    for (const auto& [text, width, fitted] : cases)
        EXPECT_EQ(FittedText(text, width, TestAdvance), fitted) << text.size() << " in " << width;
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

TEST(ComponentLookTest, LinesWrapAtWords) {
    const struct {
        std::u16string_view text;
        int width;
        std::size_t count;
    } cases[] = {
        {u"ab cd ef", 60, 6}, {u"ab cd ef", 50, 6}, {u"ab cd ef", 49, 3}, {u"abcdef", 35, 3}, {u"abcdef", 5, 1},
        {u"abcdef", 60, 6},   {u"", 60, 0},         {u"ab    cd", 20, 3}, {u"  abcd", 30, 2}, {u"a", -1, 1},
    };
    for (const auto& [text, width, count] : cases)
        EXPECT_EQ(WrapPoint(text, width, TestAdvance), count) << text.size() << " in " << width;
}

} // namespace
} // namespace pirol
