#include "base/Text.h"
#include "codegen/LineDifferences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>

namespace pirol {
namespace {

/// A text with a line for each letter.
std::string TextOf(std::string_view letters) {
    std::string text;
    for (const char letter : letters)
        Append(text, std::string_view(&letter, 1), "\r\n");
    return text;
}

/// "2-3>4" for old lines 2 to 3 (excluded) that become new ones up to 4.
std::string Shown(const std::vector<DifferentLines>& differences) {
    std::string shown;
    for (const DifferentLines& lines : differences)
        Append(shown, lines.oldBegin, "-", lines.oldEnd, ">", lines.newBegin, "-", lines.newEnd, " ");
    return shown;
}

TEST(LineDifferences, AreFewAndLeaveUniqueLinesAlone) {
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"", "", ""},
        {"abc", "abc", ""},
        {"", "ab", "0-0>0-2 "},
        {"ab", "", "0-2>0-0 "},
        {"abc", "axc", "1-2>1-2 "},
        {"abcd", "acbd", "1-2>1-1 3-3>2-3 "},
        {"a{m}b{n}", "a{m}x{o}b{n}", "4-4>4-8 "},
        {"{}{}{}", "{}{}", "4-6>4-4 "},
        {"xxayy", "yyaxx", "0-2>0-2 3-5>3-5 "},
        {"aab", "baa", "0-2>0-0 3-3>1-3 "},
        {"ab}cb}", "cb}ab}", "0-1>0-1 3-4>3-4 "},
    };
    for (const auto& [before, after, differences] : cases)
        EXPECT_EQ(Shown(LineDifferences(LinesOf(TextOf(before)), LinesOf(TextOf(after)))), differences)
            << before << " " << after;
    EXPECT_EQ(LinesOf("a\nb\r\n\rc").size(), 4U);
    EXPECT_EQ(SideBySide().RowCount(), 0U);
}

/// How many lines a comparison by the longest common subsequence keeps, if it is the one that must come out: where no
/// line occurs twice in a text, or none occurs once in both when what is equal at both ends is left out.
std::optional<std::size_t> MostKept(std::string_view before, std::string_view after) {
    const auto equalEnds = [&] {
        const auto [left, right] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
        before.remove_prefix(static_cast<std::size_t>(left - before.begin()));
        after.remove_prefix(static_cast<std::size_t>(right - after.begin()));
        while (!before.empty() && !after.empty() && before.back() == after.back()) {
            before.remove_suffix(1);
            after.remove_suffix(1);
        }
    };
    const std::size_t all = before.size();
    const auto count = [](std::string_view text, char letter) { return std::count(text.begin(), text.end(), letter); };
    const auto isTwice = [&](char letter) { return count(before, letter) > 1 || count(after, letter) > 1; };
    const bool isOrder = std::none_of(before.begin(), before.end(), isTwice);
    equalEnds();
    const auto isOnce = [&](char letter) { return count(before, letter) == 1 && count(after, letter) == 1; };
    if (!isOrder && std::any_of(before.begin(), before.end(), isOnce))
        return std::nullopt;
    std::vector<std::vector<std::size_t>> most(before.size() + 1, std::vector<std::size_t>(after.size() + 1));
    for (std::size_t left = 1; left <= before.size(); ++left)
        for (std::size_t right = 1; right <= after.size(); ++right)
            most[left][right] = before[left - 1] == after[right - 1]
                                    ? most[left - 1][right - 1] + 1
                                    : std::max(most[left - 1][right], most[left][right - 1]);
    return all - before.size() + most.back().back();
}

/// Applying the differences gives the new text, rows hold each line once and in order, equal lines stand together, and
/// no more differs than must.
TEST(LineDifferences, LeadFromOneTextToTheOtherByAsFewAsMust) {
    std::mt19937 random(7); // the same texts in every run
    for (int round = 0; round < 2000; ++round) {
        const auto letters = [&](std::size_t length) {
            std::string text(length, ' ');
            for (char& letter : text)
                letter = static_cast<char>('a' + random() % (1 + static_cast<unsigned>(round) % 26));
            if (round % 4 == 0) { // every letter once
                std::sort(text.begin(), text.end());
                text.erase(std::unique(text.begin(), text.end()), text.end());
                std::shuffle(text.begin(), text.end(), random);
            }
            return text;
        };
        const std::string oldLetters = letters(random() % 40);
        const std::string newLetters = letters(random() % 40);
        const std::string oldText = TextOf(oldLetters);
        const std::string newText = TextOf(newLetters);
        const auto before = LinesOf(oldText);
        const auto after = LinesOf(newText);
        const SideBySide rows(LineDifferences(before, after), before.size());
        std::size_t oldLine = 0;
        std::size_t newLine = 0;
        std::size_t kept = 0;
        std::size_t begun = 0; // differences so far
        for (std::size_t row = 0; row < rows.RowCount(); ++row) {
            const SideBySide::Row shown = rows[row];
            ASSERT_TRUE(shown.oldLine || shown.newLine);
            ASSERT_TRUE(shown.differs || before.at(*shown.oldLine) == after.at(*shown.newLine));
            begun += begun < rows.DifferenceCount() && rows.FirstRow(begun) == row ? 1 : 0;
            ASSERT_EQ(rows.DifferenceAt(row), shown.differs ? std::optional(begun - 1) : std::nullopt);
            kept += shown.differs ? 0 : 1;
            if (shown.oldLine) {
                ASSERT_EQ(*shown.oldLine, oldLine);
                ASSERT_EQ(rows.RowOfOldLine(oldLine++), row);
            }
            if (shown.newLine) {
                ASSERT_EQ(*shown.newLine, newLine);
                ASSERT_EQ(rows.RowOfNewLine(newLine++), row);
            }
        }
        ASSERT_EQ(oldLine, before.size());
        ASSERT_EQ(newLine, after.size());
        ASSERT_EQ(begun, rows.DifferenceCount());
        ASSERT_EQ(MostKept(oldLetters, newLetters).value_or(kept), kept) << oldLetters << " " << newLetters;
    }
}

/// Texts made so that each step finds one more unique line, or none at all: without a bound these take minutes.
TEST(LineDifferences, EndSoonForTextsMadeToTakeLong) {
    std::string nested;
    std::string mirrored;
    for (int line = 0; line < 60'000; ++line) {
        const std::string number = std::to_string(line);
        nested = line < 3000 ? Concatenate(number, "\n", nested, number, "\nx", number, "\n", number, "\n") : nested;
        Append(mirrored, line % 2 == 0 ? "a" : "b", "\n");
    }
    const auto lines = LinesOf(nested);
    const auto others = LinesOf(mirrored);
    for (const auto& [before, after] : {std::pair(lines, others), std::pair(others, lines)})
        EXPECT_EQ(Shown(LineDifferences(before, after)), Concatenate("0-", before.size(), ">0-", after.size(), " "));
    std::vector<std::string_view> turned(others.rbegin(), others.rend());
    turned.insert(turned.begin(), "b");
    EXPECT_FALSE(LineDifferences(others, turned).empty());
    std::vector<std::string_view> longer = lines;
    longer.insert(longer.begin() + 3000, "neu");
    EXPECT_EQ(LineDifferences(lines, longer).size(), 1U);
}

} // namespace
} // namespace pirol
