#include "menu/MenuEditor.h"
#include "model/Conversions.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

/// A bar with these rows: 1 Datei, 2 Neu, 3 Export, 4 Text, 5 separator, 6 Java, 7 Ende, 8 Hilfe, 9 Info.
MenuBar SmallBar() {
    MenuBar bar;
    cMenu& file = bar.Append("Datei", "hatMenueDatei");
    file.AddEntry("Neu", cMenu::Entry);
    cMenu* exporting = file.AddEntry("Export", cMenu::SubMenu);
    exporting->AddEntry("Text", cMenu::Entry);
    exporting->AddEntry("", cMenu::Separator);
    exporting->AddEntry("Java", cMenu::Entry);
    file.AddEntry("Ende", cMenu::Entry);
    bar.Append("Hilfe", "hatMenueHilfe").AddEntry("Info", cMenu::Entry);
    return bar;
}

/// The rows' texts without their blanks, one behind the other.
std::string Captions(const MenuEditor& editor) {
    std::string captions;
    for (const MenuRow& row : editor.Rows())
        captions.append(captions.empty() ? "" : " ").append(TrimLeft(row.text));
    return captions;
}

constexpr const char* allCaptions = "Datei Neu Export Text -------------- Java Ende Hilfe Info";

void ExpectTagsAreRows(const MenuEditor& editor, MenuBar& bar) {
    for (std::size_t row = 1; row <= editor.Rows().size(); ++row)
        EXPECT_EQ(bar.ReturnMenuPerTag(std::to_string(row)), editor.Rows()[row - 1].node) << row;
}

TEST(MenuEditor, ListsTheBarIndentedAndColoured) {
    MenuBar bar = SmallBar();
    const MenuEditor editor(bar);
    constexpr Colour subMenu = {100, 100, 100};
    constexpr Colour entry = {50, 50, 50};
    const struct {
        const char* text;
        std::optional<Colour> colour;
    } rows[] = {
        {"Datei", {}},
        {"    Neu", entry},
        {"    Export", subMenu},
        {"        Text", {}},
        {"        --------------", {}},
        {"        Java", {}},
        {"    Ende", entry},
        {"Hilfe", {}},
        {"    Info", entry},
    };
    ASSERT_EQ(editor.Rows().size(), std::size(rows));
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        EXPECT_EQ(editor.Rows()[i].text, rows[i].text);
        EXPECT_EQ(editor.Rows()[i].colour, rows[i].colour) << rows[i].text;
    }
    ExpectTagsAreRows(editor, bar);
    EXPECT_EQ(editor.StatusText(), "Aktuelle Menütiefe: 0");
}

TEST(MenuEditor, ProposesNamesForMenusOnly) {
    const struct {
        const char* caption;
        const char* name;
    } cases[] = {
        {"Über uns", "hatMenueÜberuns"},
        {"Größe", "hatMenueGroeße"},
        {"äöü ÄÖÜß .-", "hatMenueaeoeueÄÖÜß.-"},
        {"", "hatMenue"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(MenuEditor::ProposeName(cMenu::Menu, row.caption), row.name);
    for (const auto option : {cMenu::SubMenu, cMenu::Entry, cMenu::Separator})
        EXPECT_FALSE(MenuEditor::ProposeName(option, "Datei"));
}

TEST(MenuEditor, SelectionSetsTheDepthAndTheWayUp) {
    const struct {
        std::size_t row;
        int depth;
        int depthAbove;       // after one level up
        std::size_t rowAbove; // selected then
    } cases[] = {
        {0, 0, 0, 0}, {99, 0, 0, 0}, // no such rows
        {1, 1, 0, 0}, {2, 1, 0, 0},  {3, 2, 1, 1}, {4, 2, 1, 1}, {5, 2, 1, 1}, {7, 1, 0, 0}, {9, 1, 0, 0},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(row.row);
        EXPECT_EQ(editor.Depth(), row.depth) << row.row;
        EXPECT_EQ(editor.SelectedRow(), row.depth == 0 ? 0 : row.row);
        editor.LevelUp(cMenu::Entry);
        EXPECT_EQ(editor.SelectedRow(), row.rowAbove) << row.row;
        EXPECT_EQ(editor.Depth(), row.depthAbove) << row.row;
        EXPECT_EQ(editor.StatusText(), "Aktuelle Menütiefe: " + std::to_string(row.depthAbove));
    }
}

TEST(MenuEditor, LevelUpChoosesTheOption) {
    const struct {
        std::size_t row;
        cMenu::Type chosen;
        cMenu::Type after;
    } cases[] = {
        {3, cMenu::SubMenu, cMenu::SubMenu},     {3, cMenu::Menu, cMenu::Entry},
        {1, cMenu::Separator, cMenu::Menu},      {1, cMenu::Menu, cMenu::Menu},
        {0, cMenu::Separator, cMenu::Separator},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(row.row);
        EXPECT_EQ(editor.LevelUp(row.chosen), row.after) << row.row;
    }
}

TEST(MenuEditor, AddsWhereTheSelectionIs) {
    const struct {
        std::size_t row;
        cMenu::Type option;
        const char* caption;
        const char* captions;
        std::size_t selectedAfter;
    } cases[] = {
        {0, cMenu::Menu, "X", "Datei Neu Export Text -------------- Java Ende Hilfe Info X", 0},
        {1, cMenu::Entry, "X", "Datei Neu Export Text -------------- Java Ende X Hilfe Info", 1},
        {1, cMenu::SubMenu, "X", "Datei Neu Export Text -------------- Java Ende X Hilfe Info", 1},
        {2, cMenu::Entry, "X", "Datei Neu X Export Text -------------- Java Ende Hilfe Info", 2},
        {2, cMenu::SubMenu, "X", "Datei Neu X Export Text -------------- Java Ende Hilfe Info", 2},
        {3, cMenu::Entry, "X", "Datei Neu Export Text -------------- Java X Ende Hilfe Info", 3},
        {5, cMenu::Entry, "X", "Datei Neu Export Text -------------- X Java Ende Hilfe Info", 5},
        {6, cMenu::Separator, "", "Datei Neu Export Text -------------- Java -------------- Ende Hilfe Info", 6},
        {8, cMenu::Separator, "X", "Datei Neu Export Text -------------- Java Ende Hilfe Info --------------", 8},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(row.row);
        const int depth = editor.Depth();
        EXPECT_FALSE(editor.Add(row.option, row.caption, "hatMenueX"));
        EXPECT_EQ(Captions(editor), row.captions);
        EXPECT_EQ(editor.SelectedRow(), row.selectedAfter);
        EXPECT_EQ(editor.Depth(), depth);
        ExpectTagsAreRows(editor, bar);
    }
}

TEST(MenuEditor, RefusesInTheGivenOrder) {
    const char* onlyMenus = "In der 1. Ebene können nur Menüs erzeugt werden!";
    const char* noMenus = "Menüs können nur in der 1. Ebene erzeugt werden!";
    const char* noCaption = "Bitte geben Sie eine Beschriftung an!";
    const char* tooDeep = "Max. Menütiefe erreicht!";
    const struct {
        std::size_t row;
        cMenu::Type option;
        const char* caption;
        const char* name;
        const char* message;
    } cases[] = {
        {0, cMenu::SubMenu, "", "", onlyMenus},
        {0, cMenu::Entry, "X", "x", onlyMenus},
        {0, cMenu::Separator, "", "", onlyMenus},
        {0, cMenu::Menu, "", "", noCaption},
        {0, cMenu::Menu, "X", "", "Bitte geben Sie einen Menünamen an!"},
        {1, cMenu::Menu, "", "", noMenus},
        {4, cMenu::Menu, "X", "x", noMenus},
        {1, cMenu::SubMenu, "", "", noCaption},
        {1, cMenu::Entry, "", "x", noCaption},
        {3, cMenu::SubMenu, "", "", tooDeep},
        {4, cMenu::SubMenu, "X", "", tooDeep},
        {4, cMenu::Entry, "", "", noCaption},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(row.row);
        EXPECT_EQ(editor.Add(row.option, row.caption, row.name), row.message) << row.row << ' ' << row.option;
        EXPECT_EQ(bar, SmallBar());
    }
}

TEST(MenuEditor, MovesAndSaysWhereTo) {
    const struct {
        std::size_t row;
        bool up;
        std::size_t rowAfter;
        const char* captions;
    } cases[] = {
        {2, true, 2, allCaptions},
        {7, false, 7, allCaptions},
        {1, true, 1, allCaptions},
        {8, false, 8, allCaptions},
        {0, true, 0, allCaptions},
        {10, false, 10, allCaptions},
        {7, true, 3, "Datei Neu Ende Export Text -------------- Java Hilfe Info"},
        {2, false, 6, "Datei Export Text -------------- Java Neu Ende Hilfe Info"},
        {6, true, 5, "Datei Neu Export Text Java -------------- Ende Hilfe Info"},
        {8, true, 1, "Hilfe Info Datei Neu Export Text -------------- Java Ende"},
        {1, false, 3, "Hilfe Info Datei Neu Export Text -------------- Java Ende"},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(row.row);
        const int depth = editor.Depth();
        EXPECT_EQ(row.up ? editor.MoveUp(row.row) : editor.MoveDown(row.row), row.rowAfter) << row.row;
        EXPECT_EQ(Captions(editor), row.captions) << row.row;
        EXPECT_EQ(editor.Depth(), depth) << row.row;
        ExpectTagsAreRows(editor, bar);
    }
}

TEST(MenuEditor, DeletingKeepsTheSelectionAlive) {
    const struct {
        std::size_t selected;
        std::size_t deleted;
        std::size_t selectedAfter;
        int depthAfter;
        const char* captions;
    } cases[] = {
        {2, 2, 1, 1, "Datei Export Text -------------- Java Ende Hilfe Info"},
        {4, 4, 3, 2, "Datei Neu Export -------------- Java Ende Hilfe Info"},
        {6, 3, 1, 1, "Datei Neu Ende Hilfe Info"},
        {6, 1, 0, 0, "Hilfe Info"},
        {9, 1, 2, 1, "Hilfe Info"},
        {1, 8, 1, 1, "Datei Neu Export Text -------------- Java Ende"},
        {0, 5, 0, 0, "Datei Neu Export Text Java Ende Hilfe Info"},
        {1, 0, 1, 1, allCaptions},
        {1, 10, 1, 1, allCaptions},
    };
    for (const auto& row : cases) {
        MenuBar bar = SmallBar();
        MenuEditor editor(bar);
        editor.SelectRow(row.selected);
        editor.Delete(row.deleted);
        EXPECT_EQ(Captions(editor), row.captions);
        EXPECT_EQ(editor.SelectedRow(), row.selectedAfter) << row.selected << ' ' << row.deleted;
        EXPECT_EQ(editor.Depth(), row.depthAfter) << row.selected << ' ' << row.deleted;
        ExpectTagsAreRows(editor, bar);
    }
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
    EXPECT_EQ(Captions(editor), allCaptions);
    EXPECT_EQ(editor.Depth(), 0);
    ExpectTagsAreRows(editor, bar);
}

TEST(MenuEditor, ListsTreesThatItWouldNotMake) {
    MenuBar bar;
    cMenu& menu = bar.Append("M", "hatMenueM");
    cMenu* inner = menu.AddEntry("A", cMenu::SubMenu)->AddEntry("B", cMenu::SubMenu)->AddEntry("C", cMenu::SubMenu);
    inner->AddEntry("D", cMenu::Entry)->AddEntry("hidden", cMenu::Entry);
    MenuEditor editor(bar);
    EXPECT_EQ(Captions(editor), "M A B C D");
    EXPECT_EQ(editor.Rows().back().text, "        D");
    ExpectTagsAreRows(editor, bar);

    editor.SelectRow(5);
    EXPECT_EQ(editor.Add(cMenu::SubMenu, "X", ""), "Max. Menütiefe erreicht!");
    const int depths[] = {2, 2, 1, 0, 0};
    for (const int depth : depths) {
        editor.LevelUp(cMenu::Entry);
        EXPECT_EQ(editor.Depth(), depth);
    }
}

} // namespace
} // namespace pirol
