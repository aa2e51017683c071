#include "codegen/SyntaxHighlighter.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <map>

namespace pirol {
namespace {

/// A letter for each character: access, type, object, text, comment, or a point for plain.
std::string Picture(std::u16string_view text) {
    const std::map<int, char> letters = {{102 + 51, 'a'}, {204, 't'}, {102 + 153, 'o'}, {102, '"'}, {3 * 153, '/'}};
    std::string picture(text.size(), '.');
    std::size_t reached = 0;
    for (const ColourSpan& span : HightlightSyntax(text)) {
        EXPECT_GE(span.begin, reached);
        EXPECT_GT(span.length, 0U);
        reached = span.begin + span.length;
        const char letter = letters.at(span.colour.red + span.colour.green + span.colour.blue);
        picture.replace(span.begin, span.length, span.length, letter);
    }
    EXPECT_LE(reached, text.size());
    return picture;
}

TEST(SyntaxHighlighter, ColoursEveryCharacter) {
    const auto rule = [](const test::TableRow& row) {
        return test::Answer(Picture(std::u16string(row[0].begin(), row[0].end())));
    };
    EXPECT_EQ(test::Deviations("highlighting", rule), "");
    EXPECT_EQ(HightlightSyntax(u"super(").at(0).colour, (Colour{0, 102, 153}));
}

/// A step that looks through the rest of the text at every match would take minutes.
TEST(SyntaxHighlighter, StaysLinear) {
    for (const std::u16string_view repeated : {u"public", u"int ", u"\"", u"//", u"//\r\n", u"super", u"this"})
        for (const std::u16string_view end : {u"", u" ", u"(", u"."}) {
            std::u16string text;
            while (text.size() < 1'000'000)
                text += repeated;
            HightlightSyntax(text.append(end));
        }
}

} // namespace
} // namespace pirol
