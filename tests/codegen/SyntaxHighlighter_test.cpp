#include "codegen/SyntaxHighlighter.h"

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
    const struct {
        std::u16string_view text;
        std::string_view picture;
    } cases[] = {
        {u"", ""},
        {u"    public void hatKnopf1Geklickt()\r\n", "....aaaaaa.tttt......................"},
        {u"public class SuMAnwendung extends EBAnwendung\r\n", "aaaaaa.ttttt..............ttttttt.............."},
        {u"import sum.sql.*;\r\n//import x.*;\r\n", "tttttt............./////////////.."},
        {u"        super(640, 480);", "........ooooo..........."},
        {u"  this.x = 1;", "..oooo......."},
        {u"  // int ä public \"x\"\r\n int y", "..///////////////////...ttt.."},
        {u"  // LF alone\n int y", "..///////////..ttt.."},
        {u"// no line end", "//////////////"},
        {u"\r\n//\r\n\r\n//\r\n", "..//....//.."},
        {u"\n//\n", ".//."},
        // Coarse matching: in longer words, up to the delimiter wherever it is.
        {u"thisWert = b.c(", "oooooooooooo..."},
        {u"point x print\r\n", "..ttt.........."},
        {u"private\r\n  x ", "aaaaaaaaa...."},
        {u"superpublic x(", "ooooooooooooo."},
        {u"int double  void", "ttt.tttttt......"},
        // Texts: what follows a closing quote at once opens no other text.
        {u"a \"b c\" d", "..\"\"\"\"\".."},
        {u"\"a\"\"b\" \"c\"", "\"\"\"..\"\"\".."},
        {u"\"\"", "\"\""},
        {u"\"public this.\"", "\"\"\"\"\"\"\"\"\"\"\"\"\"\""},
        {u"\"http://x\" y\r\nz", "\"\"\"\"\"\"//////..."},
        // No delimiter up to the end: nothing is coloured from there.
        {u"public x public", "aaaaaa........."},
        {u"x public", "........"},
        {u"super this", ".........."},
        {u"this. this", "oooo......"},
        {u"int", "..."},
        {u"\"a\" \"b", "\"\"\"..."},
        {u"\"", "."},
    };
    for (const auto& row : cases) {
        const std::string text(row.text.begin(), row.text.end());
        EXPECT_EQ(Picture(row.text), row.picture) << text;
    }
}

TEST(SyntaxHighlighter, StaysLinear) {
    const struct {
        std::u16string_view repeated;
        std::u16string_view end;
    } cases[] = {
        {u"public", u""}, {u"public", u" "}, {u"super", u"("}, {u"this", u"."},
        {u"int ", u""},   {u"\"", u""},      {u"//", u""},     {u"//\r\n", u""},
    };
    for (const auto& row : cases) {
        std::u16string text;
        while (text.size() < 1'000'000)
            text += row.repeated;
        text += row.end;
        const auto start = std::chrono::steady_clock::now();
        HightlightSyntax(text);
        // A step that looks through the rest of the text at every match would take minutes.
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    }
}

} // namespace
} // namespace pirol
