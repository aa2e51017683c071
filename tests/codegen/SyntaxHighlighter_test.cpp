#include "codegen/SyntaxHighlighter.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace pirol {
namespace {

/// A letter for each character: access, type, object, text, comment, or a point for plain.
std::string Picture(std::u16string_view text) {
    std::string picture(text.size(), '.');
    std::size_t reached = 0;
    for (const ColourSpan& span : HightlightSyntax(text)) {
        EXPECT_GE(span.begin, reached);
        EXPECT_GT(span.length, 0U);
        reached = span.begin + span.length;
        const struct {
            Colour colour;
            char letter;
        } letters[] = {
            {{102, 0, 51}, 'a'}, {{204, 0, 0}, 't'}, {{0, 102, 153}, 'o'}, {{0, 102, 0}, '"'}, {{153, 153, 153}, '/'},
        };
        for (const auto& row : letters)
            if (row.colour == span.colour)
                picture.replace(span.begin, span.length, span.length, row.letter);
    }
    EXPECT_LE(reached, text.size());
    return picture;
}

TEST(SyntaxHighlighter, ColoursEveryCharacter) {
    for (const test::TableRow& row : test::Table("highlighting"))
        EXPECT_EQ(Picture(std::u16string(row[0].begin(), row[0].end())), row[1]) << row.line;
}

TEST(SyntaxHighlighter, StaysLinear) {
    const std::pair<std::u16string_view, std::u16string_view> cases[] = {
        {u"public", u""}, {u"public", u" "}, {u"super", u"("}, {u"this", u"."},
        {u"int ", u""},   {u"\"", u""},      {u"//", u""},     {u"//\r\n", u""},
    };
    for (const auto& [repeated, end] : cases) {
        std::u16string text;
        while (text.size() < 1'000'000)
            text += repeated;
        text += end;
        const auto start = std::chrono::steady_clock::now();
        HightlightSyntax(text);
        // A step that looks through the rest of the text at every match would take minutes.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    }
}

} // namespace
} // namespace pirol
