#include "menu/MenuBar.h"
#include "model/Conversions.h"
#include "model/RuntimeError.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

/// Reads project lines written with "|" between the fields and "/" between the lines.
MenuBar BarOf(std::string_view lines) {
    MenuBar bar;
    MenuBarReader reader(bar);
    for (const std::string_view line : Split(lines, '/'))
        reader.AddLine(Split(line, '|'));
    return bar;
}

/// The project lines of a bar in the same notation.
std::string LinesOf(const MenuBar& bar) {
    std::string lines = ReplaceAll(bar.CreatePRLString(), lineEnd, "/");
    lines = ReplaceAll(lines, std::string_view(&fieldSeparator, 1), "|");
    if (!lines.empty())
        lines.pop_back();
    return lines;
}

constexpr std::string_view twoMenus = "0|0|hatA|A/1|2|a/1|1|b/2|2|c/2|3/1|2|d/0|0|hatB|B/1|2|e";

void SetTags(const MenuNodes& nodes) {
    for (cMenu& node : nodes) {
        node.Tag = node.Caption;
        SetTags(node.Children());
    }
}

TEST(MenuBar, ReadsBackWhatItWrites) {
    const std::string_view cases[] = {
        "0|0||",
        "0|0|hatA|A",
        twoMenus,
        "0|0|a|A/1|1|B/2|1|C/3|1|D/4|2|E/2|2|F/1|2|G",
        "0|0|a|A/1|2|entry/2|2|below an entry/1|3",
    };
    for (const std::string_view lines : cases)
        EXPECT_EQ(LinesOf(BarOf(lines)), lines);
}

TEST(MenuBar, ReaderAcceptsLooseLines) {
    const struct {
        std::string_view lines;
        std::string_view same;
    } cases[] = {
        {"5|0|a|A/1|2|x", "0|0|a|A/1|2|x"},
        {" 0 | 0 |a|A/+1|2,0|x|more|fields", "0|0|a|A/1|2|x"},
        {"0|0|a|A/1|3|ignored", "0|0|a|A/1|3"},
        {"0|0|a|A/1|1|b/2|2|c/-7|0|d|D/1|2|e", "0|0|a|A/1|1|b/2|2|c/0|0|d|D/1|2|e"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(LinesOf(BarOf(row.lines)), row.same) << row.lines;
}

TEST(MenuBar, ReaderRefusesWhatFitsNowhere) {
    const struct {
        std::string_view start;
        std::string_view line;
        int number;
    } cases[] = {
        {"", "1|2|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "0|2|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "-1|2|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "2|2|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A/1|1|b/2|1|c/1|2|d", "3|2|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A/1|1|b/0|0|c|C", "2|2|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "1|4|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "1|-1|x", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "1|2", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "1|1", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "1", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "0|0|b", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "0|0", RuntimeError::IndexOutOfRange},
        {"0|0|a|A", "", RuntimeError::TypeMismatch},
        {"0|0|a|A", "x|2|x", RuntimeError::TypeMismatch},
        {"0|0|a|A", "1|x|x", RuntimeError::TypeMismatch},
        {"0|0|a|A", "1||x", RuntimeError::TypeMismatch},
        {"0|0|a|A", "99999|2|x", RuntimeError::Overflow},
    };
    for (const auto& row : cases) {
        MenuBar bar;
        MenuBarReader reader(bar);
        if (!row.start.empty())
            for (const std::string_view line : Split(row.start, '/'))
                reader.AddLine(Split(line, '|'));
        const MenuBar before = bar;
        try {
            reader.AddLine(Split(row.line, '|'));
            ADD_FAILURE() << "accepted " << row.line;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.ErrorNumber(), row.number) << row.line;
        }
        EXPECT_EQ(bar, before) << row.line;
    }
    MenuBar bar;
    EXPECT_THROW(MenuBarReader(bar).AddLine({}), RuntimeError);
}

TEST(MenuBar, ReaderLimitsDepth) {
    MenuBar bar = BarOf("0|0|a|A");
    MenuBarReader reader(bar);
    reader.AddLine(Split("0|0|b|B", '|'));
    for (int depth = 1; depth <= MenuBarReader::maxDepth; ++depth)
        reader.AddLine(Split(std::to_string(depth) + "|1|x", '|'));
    try {
        reader.AddLine(Split(std::to_string(MenuBarReader::maxDepth + 1) + "|2|x", '|'));
        ADD_FAILURE() << "no limit";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.ErrorNumber(), RuntimeError::OutOfMemory);
    }
    const MenuBar copy = bar;
    EXPECT_EQ(copy, bar);
    EXPECT_EQ(copy.CreatePRLString(), bar.CreatePRLString());
    EXPECT_EQ(bar.ReturnMenuPerTag("x"), nullptr);
}

TEST(MenuBar, TagOperationsTakeTopLevelMenusToo) {
    const struct {
        const char* tag;
        const char* direction; // empty: delete
        std::string_view result;
    } cases[] = {
        {"A", "UP", twoMenus},
        {"B", "DOWN", twoMenus},
        {"A", "DOWN", "0|0|hatB|B/1|2|e/0|0|hatA|A/1|2|a/1|1|b/2|2|c/2|3/1|2|d"},
        {"B", "UP", "0|0|hatB|B/1|2|e/0|0|hatA|A/1|2|a/1|1|b/2|2|c/2|3/1|2|d"},
        {"d", "UP", "0|0|hatA|A/1|2|a/1|2|d/1|1|b/2|2|c/2|3/0|0|hatB|B/1|2|e"},
        {"c", "DOWN", "0|0|hatA|A/1|2|a/1|1|b/2|3/2|2|c/1|2|d/0|0|hatB|B/1|2|e"},
        {"e", "UP", twoMenus},
        {"B", "sideways", twoMenus},
        {"?", "UP", twoMenus},
        {"A", "", "0|0|hatB|B/1|2|e"},
        {"B", "", "0|0|hatA|A/1|2|a/1|1|b/2|2|c/2|3/1|2|d"},
        {"b", "", "0|0|hatA|A/1|2|a/1|2|d/0|0|hatB|B/1|2|e"},
        {"e", "", "0|0|hatA|A/1|2|a/1|1|b/2|2|c/2|3/1|2|d/0|0|hatB|B"},
        {"?", "", twoMenus},
    };
    for (const auto& row : cases) {
        MenuBar bar = BarOf(twoMenus);
        SetTags(bar.Menus());
        if (*row.direction == '\0')
            bar.DeletePerTag(row.tag);
        else
            bar.MoveItemPerTag(row.tag, row.direction);
        EXPECT_EQ(LinesOf(bar), row.result) << row.tag << ' ' << row.direction;
    }
}

TEST(MenuBar, CollectsTheThreeTexts) {
    const MenuBar empty;
    EXPECT_EQ(empty.GenerateCode(MenuSection::Init), "    Menue hatMenueTemp;\r\n");
    EXPECT_EQ(empty.GenerateCode(MenuSection::Main), "");
    EXPECT_EQ(empty.GenerateCode(MenuSection::Events), "");

    const MenuBar bar = BarOf("0|0|hatA|A/1|1|b/2|2|c/1|2|Ä x/0|0|hatB|B");
    EXPECT_EQ(bar.GenerateCode(MenuSection::Init), "    Menue hatMenueTemp;\r\n    Menue hatA;\r\n    Menue hatB;\r\n");
    EXPECT_EQ(bar.GenerateCode(MenuSection::Main), "        hatA = new Menue(\"A\");\r\n"
                                                   "        hatMenueTemp = hatA.neuesUntermenue(\"b\");\r\n"
                                                   "        hatMenueTemp.haengeZeileAn(\"c\", \"hatAc\");\r\n"
                                                   "        hatA.haengeZeileAn(\"Ä x\", \"hatAAex\");\r\n"
                                                   "        hatB = new Menue(\"B\");\r\n");
    EXPECT_EQ(bar.GenerateCode(MenuSection::Events), "    public void hatAc()\r\n    {\r\n\r\n    }\r\n\r\n"
                                                     "    public void hatAAex()\r\n    {\r\n\r\n    }\r\n\r\n");
}

TEST(MenuBar, LimitsTheTextThatNamesMultiply) {
    const std::string longName(cMenu::largestCode / 4, 'n');
    MenuBar oneMenu;
    cMenu& menu = oneMenu.Append("M", longName);
    MenuBar manyMenus;
    for (int i = 0; i < 4; ++i) {
        menu.AddEntry("E", cMenu::Entry);
        manyMenus.Append("M", longName);
    }
    const struct {
        const MenuBar& bar;
        MenuSection section;
    } cases[] = {
        {oneMenu, MenuSection::Main},
        {oneMenu, MenuSection::Events},
        {manyMenus, MenuSection::Init},
    };
    for (const auto& row : cases) {
        try {
            row.bar.GenerateCode(row.section);
            ADD_FAILURE() << static_cast<int>(row.section);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.ErrorNumber(), RuntimeError::OutOfMemory);
        }
    }
}

TEST(MenuBar, IsAValueWithStableMenus) {
    MenuBar bar;
    EXPECT_TRUE(bar.IsEmpty());
    cMenu& first = bar.Append("Datei", "hatMenueDatei");
    for (int i = 0; i < 100; ++i)
        bar.Append("X", "hatMenueX");
    EXPECT_EQ(&first, &*bar.Menus().begin());
    EXPECT_EQ(first.EntryType, cMenu::Menu);

    MenuBar copy = bar;
    EXPECT_EQ(copy, bar);
    copy.Menus().begin()->Name = "hatMenueY";
    EXPECT_NE(copy, bar);
    copy.Clear();
    EXPECT_TRUE(copy.IsEmpty());
    EXPECT_FALSE(bar.IsEmpty());
}

} // namespace
} // namespace pirol
