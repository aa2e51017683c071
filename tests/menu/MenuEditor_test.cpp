#include "menu/MenuEditor.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

/// A bar with these rows: 1 D, 2 N, 3 E, 4 T, 5 separator, 6 J, 7 Q, 8 H, 9 I.
MenuBar SmallBar() {
    MenuBar bar;
    cMenu& file = bar.Append("D", "hatMenueD");
    file.AddEntry("N", cMenu::Entry);
    cMenu* exporting = file.AddEntry("E", cMenu::SubMenu);
    exporting->AddEntry("T", cMenu::Entry);
    exporting->AddEntry("", cMenu::Separator);
    exporting->AddEntry("J", cMenu::Entry);
    file.AddEntry("Q", cMenu::Entry);
    bar.Append("H", "hatMenueH").AddEntry("I", cMenu::Entry);
    return bar;
}

/// The first letter of every row's caption. The tags must be the rows' numbers.
std::string Captions(const MenuEditor& editor, MenuBar& bar) {
    std::string captions;
    for (const MenuRow& row : editor.Rows()) {
        captions += TrimLeft(row.text).front();
        EXPECT_EQ(bar.ReturnMenuPerTag(std::to_string(captions.size())), row.node) << captions;
    }
    return captions;
}

/// What the editor answers to a command of the table.
std::string Answer(MenuEditor& editor, const test::TableRow& row) {
    const int argument = row.Number(2);
    const auto number = static_cast<std::size_t>(argument);
    if (row[1] == "add")
        return std::string(editor.Add(argument, row[3], row[4]).value_or(""));
    if (row[1] == "up")
        return std::to_string(editor.MoveUp(number));
    if (row[1] == "down")
        return std::to_string(editor.MoveDown(number));
    if (row[1] == "level up")
        return std::to_string(editor.LevelUp(argument));
    if (row[1] == "drop") {
        const auto place = row[4] == "before"   ? DropPlace::Before
                           : row[4] == "behind" ? DropPlace::Behind
                                                : DropPlace::Into;
        const auto target = static_cast<std::size_t>(row.Number(3));
        return std::to_string(editor.CanDrop(number, target, place) ? editor.Drop(number, target, place) : 0);
    }
    row[1] == "delete" ? editor.Delete(number) : editor.SelectRow(number);
    return "";
}

TEST(MenuEditor, EditsAtTheSelection) {
    const auto rule = [](const test::TableRow& row) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(static_cast<std::size_t>(row.Number(0)));
        const std::string answer = Answer(editor, row);
        EXPECT_EQ(editor.StatusText(), "Aktuelle Menütiefe: " + std::to_string(editor.Depth()));
        return test::Answer(answer, Captions(editor, bar), editor.SelectedRow(), editor.Depth());
    };
    EXPECT_EQ(test::Deviations("menu-editor", rule), "");
}

TEST(MenuEditor, ListsTheBarIndentedAndColoured) {
    MenuBar bar = SmallBar();
    const MenuEditor editor(bar);
    std::string list;
    for (const auto& [text, colour, node] : editor.Rows())
        list += text + (colour ? "(" + std::to_string(colour->red + colour->green + colour->blue) + ")/" : "/");
    EXPECT_EQ(list, "D/    N(150)/    E(300)/        T/        --------------/        J/    Q(150)/H/    I(150)/");
}

TEST(MenuEditor, CancelRestoresTheBar) {
    MenuBar bar = SmallBar();
    MenuEditor editor(bar);
    editor.SelectRow(3);
    editor.Add(cMenu::Entry, "XML", "");
    editor.MoveUp(8);
    editor.Delete(1);
    EXPECT_NE(bar, SmallBar());
    editor.Cancel();
    EXPECT_EQ(bar, SmallBar());
    EXPECT_EQ(Captions(editor, bar), "DNET-JQHI");
    EXPECT_EQ(editor.Depth(), 0);
}

TEST(MenuEditor, ListsTreesThatItWouldNotMake) {
    MenuBar bar;
    cMenu& menu = bar.Append("M", "hatMenueM");
    cMenu* inner = menu.AddEntry("A", cMenu::SubMenu)->AddEntry("B", cMenu::SubMenu)->AddEntry("C", cMenu::SubMenu);
    inner->AddEntry("D", cMenu::Entry)->AddEntry("hidden", cMenu::Entry);
    MenuEditor editor(bar);
    EXPECT_EQ(Captions(editor, bar), "MABCD");
    EXPECT_EQ(editor.Rows().back().text, "        D");

    editor.SelectRow(5);
    EXPECT_EQ(editor.Add(cMenu::SubMenu, "X", ""), "Max. Menütiefe erreicht!");
    for (const int depth : {2, 2, 1, 0, 0}) {
        editor.LevelUp(cMenu::Entry);
        EXPECT_EQ(editor.Depth(), depth);
    }
}

} // namespace
} // namespace pirol
