#include "designer/Guides.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol::test {
namespace {

/// "10 20 30 40" or with a baseline "10 20 30 40 33".
GuideBox BoxFrom(std::string_view text) {
    std::vector<int> numbers;
    for (const std::string_view word : Split(text, ' '))
        numbers.push_back(std::stoi(std::string(word)));
    GuideBox box = {{numbers.at(0), numbers.at(1), numbers.at(2), numbers.at(3)}, std::nullopt};
    if (numbers.size() > 4)
        box.baseline = numbers[4];
    return box;
}

std::string Shown(const Guides::Found& found) {
    std::string text = std::to_string(found.x) + " " + std::to_string(found.y) + ":";
    for (const GuideLine& line : found.lines) {
        text += (line.isUpright ? " x" : " y") + std::to_string(line.position) + "(" + std::to_string(line.begin) +
                ".." + std::to_string(line.end) + ")";
        if (line.distance != 0)
            text += "=" + std::to_string(line.distance) + "@" + std::to_string(line.numberAt);
    }
    return text;
}

TEST(Guides, FindWhatLinesUp) {
    EXPECT_EQ(Deviations("guides",
                         [](const TableRow& row) {
                             std::vector<GuideBox> others;
                             for (const std::string_view other : Split(row[0], ','))
                                 others.push_back(BoxFrom(Trim(other)));
                             const auto moves = [&row](char side) { return row[2].find(side) != std::string::npos; };
                             const MovingSides sides = {moves('l'), moves('t'), moves('r'), moves('b')};
                             const Guides guides(others, 1000, 900);
                             return Answer(Shown(guides.Find(BoxFrom(row[1]), sides, row[3] == "yes")));
                         }),
              "");
}

/// What is pulled lies where the lines say: asked again, it stays, and shows the same.
TEST(Guides, PullOnce) {
    std::vector<GuideBox> others;
    for (int i = 0; i < 40; ++i)
        others.push_back({{i * 37 % 700, i * 53 % 500, 40 + i % 7, 20 + i % 5}, i * 53 % 500 + 14});
    const Guides guides(others, 800, 600);
    for (int step = 0; step < 2000; ++step) {
        GuideBox moved = {{step * 7 % 811 - 20, step * 11 % 617 - 20, 45, 22}, step * 11 % 617 - 6};
        const Guides::Found found = guides.Find(moved, {}, true);
        ASSERT_LE(std::max(std::abs(found.x), std::abs(found.y)), Guides::reach);
        moved.box.left += found.x;
        moved.box.top += found.y;
        *moved.baseline += found.y;
        ASSERT_EQ(guides.Find(moved, {}, false).lines, found.lines) << step;
        ASSERT_TRUE((found.x == 0 && found.y == 0) || !found.lines.empty()) << step;
    }
}

} // namespace
} // namespace pirol::test
