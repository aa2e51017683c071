#include "base/Conversions.h"
#include "Cases.h"
#include "menu/MenuBar.h"
#include "menu/MenuEditor.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <utility>

namespace pirol {
namespace {

constexpr std::string_view twoMenus = "0|0|hatA|A/1|2|a/1|1|b/2|2|c/2|3/1|2|d/0|0|hatB|B/1|2|e";

/// Reads project lines written with "|" between the fields and "/" between the lines. A line that is refused adds
/// nothing.
void ReadLines(MenuBar& bar, std::string_view lines) {
    MenuBarReader reader(bar);
    for (const std::string_view line : Split(lines, '/')) {
        const MenuBar before = bar; // NOLINT(performance-unnecessary-copy-initialization): the reader changes it
        try {
            reader.AddLine(Split(line, '|'));
        } catch (const RuntimeError&) {
            EXPECT_EQ(bar, before) << line;
            throw;
        }
    }
}

/// The bar of these lines; each node's tag is its caption, that of a separator is "-".
MenuBar BarOf(std::string_view lines) {
    MenuBar bar;
    ReadLines(bar, lines);
    const auto setTags = [](const auto& self, const MenuNodes& nodes) -> void {
        for (cMenu& node : nodes) {
            node.Tag = node.EntryType == cMenu::Separator ? "-" : node.Caption;
            self(self, node.Children());
        }
    };
    setTags(setTags, bar.Menus());
    return bar;
}

/// The tags in the order of the tree, children in brackets.
std::string Order(const std::list<cMenu>& nodes, const cMenu* parent = nullptr) {
    std::string order;
    for (const cMenu& node : nodes) {
        EXPECT_EQ(node.Parent(), parent) << node.Tag;
        order += node.Tag + (node.Children().empty() ? "" : "[" + Order(node.Children(), &node) + "]");
    }
    return order;
}

TEST(MenuBar, LinesAreReadAndWritten) {
    const auto rule = [](const test::TableRow& row) {
        MenuBar bar;
        ReadLines(bar, row[0]);
        const std::string lines = ReplaceAll(bar.CreatePRLString(), std::string_view(&fieldSeparator, 1), "|");
        return test::Answer(ReplaceAll(lines.substr(0, lines.rfind(lineEnd)), lineEnd, "/"));
    };
    EXPECT_EQ(test::Deviations("menu-lines", rule), "");
    MenuBar bar;
    EXPECT_EQ(test::ErrorNumberOf([&bar] { MenuBarReader(bar).AddLine({}); }), RuntimeError::IndexOutOfRange);
}

TEST(MenuBar, ReaderLimitsDepth) {
    MenuBar bar;
    MenuBarReader reader(bar);
    reader.AddLine(Split("0|0|b|B", '|'));
    for (int depth = 1; depth <= MenuBarReader::maxDepth; ++depth)
        reader.AddLine(Split(std::to_string(depth) + "|1|x", '|'));
    const std::string tooDeep = std::to_string(MenuBarReader::maxDepth + 1) + "|2|x";
    EXPECT_EQ(test::ErrorNumberOf([&] { reader.AddLine(Split(tooDeep, '|')); }), RuntimeError::OutOfMemory);
    const MenuBar copy = bar;
    EXPECT_EQ(copy, bar);
    EXPECT_EQ(bar.ReturnMenuPerTag("x"), nullptr);
}

TEST(MenuBar, TagOperations) {
    const auto rule = [](const test::TableRow& row) {
        MenuBar bar = BarOf(twoMenus);
        if (row[0] == "DELETE")
            bar.DeletePerTag(row[1]);
        else if (row[0] != "ADD")
            bar.MoveItemPerTag(row[1], row[0]);
        else if (cMenu* added = bar.ReturnMenuPerTag("A")->AddEntry("new", cMenu::Entry, row[1]))
            added->Tag = "n";
        return test::Answer(Order(std::as_const(bar).Menus()));
    };
    EXPECT_EQ(test::Deviations("menu-tags", rule), "");
}

TEST(MenuBar, TagSearchSkipsWhatIsNoSubmenu) {
    MenuBar bar = BarOf("0|0|hatA|A/1|1|b/2|2|c/1|2|d/2|2|hidden");
    EXPECT_EQ(bar.ReturnMenuPerTag("c")->Caption, "c");
    EXPECT_EQ(bar.ReturnMenuPerTag("hidden"), nullptr);
    cMenu* menu = bar.ReturnMenuPerTag("A");
    EXPECT_EQ(menu, &*bar.Menus().begin());
    EXPECT_EQ(menu->ReturnMenuPerTag("A"), menu);
    menu->MoveItemPerTag("A", cMenu::up);
    menu->DeletePerTag("A");
    EXPECT_EQ(Order(std::as_const(bar).Menus()), "A[b[c]d[hidden]]");
    menu->MoveItemPerTag("d", cMenu::up);
    menu->DeletePerTag("c");
    EXPECT_EQ(Order(std::as_const(bar).Menus()), "A[d[hidden]b]");
    EXPECT_EQ(bar.ReturnMenuPerTag("d")->ReturnMenuPerTag("d"), nullptr) << "an entry does not find itself";
}

TEST(MenuBar, OnlyMenusHaveNames) {
    for (const auto option : {cMenu::SubMenu, cMenu::Entry, cMenu::Separator})
        EXPECT_FALSE(MenuEditor::ProposeName(option, "Datei"));
}

/// What the cases in tests/data/generate cannot hold.
TEST(MenuBar, AMenuAsAChildIsNeitherGeneratedNorStored) {
    MenuBar bar;
    cMenu& menu = bar.Append("Datei", "hatMenueDatei");
    menu.AddEntry("X", cMenu::Menu)->AddEntry("Y", cMenu::Entry);
    EXPECT_EQ(menu.AddEntry("Titel", cMenu::Separator)->Caption, "--------------");
    EXPECT_EQ(bar.GenerateCode(MenuSection::Main),
              "        hatMenueDatei = new Menue(\"Datei\");\r\n        hatMenueDatei.haengeTrennungAn();\r\n");
    EXPECT_EQ(bar.GenerateCode(MenuSection::Events), "");
    using namespace std::string_literals;
    EXPECT_EQ(bar.CreatePRLString(), "0\0000\0hatMenueDatei\0Datei\r\n1\0003\r\n"s);
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
    for (const auto& [bar, section] :
         {std::pair(&oneMenu, MenuSection::Main), {&oneMenu, MenuSection::Events}, {&manyMenus, MenuSection::Init}})
        EXPECT_EQ(test::ErrorNumberOf([&, bar = bar, section = section] { bar->GenerateCode(section); }),
                  RuntimeError::OutOfMemory);
}

TEST(MenuBar, EqualityLooksAtEveryStoredPartButNotAtTags) {
    const auto rule = [](const test::TableRow& row) {
        MenuBar other;
        ReadLines(other, row[0]);
        return test::Answer(BarOf("0|0|hatA|A/1|1|b/2|2|c/2|3") == other);
    };
    EXPECT_EQ(test::Deviations("menu-differences", rule), "");
}

TEST(CMenu, CopiesAndMovedNodesKeepTheirParentsRight) {
    MenuBar bar = BarOf(twoMenus);
    cMenu& original = *bar.Menus().begin();
    const cMenu* grandchild = original.ReturnMenuPerTag("c");
    const cMenu copiedChild = *original.ReturnMenuPerTag("b");
    EXPECT_EQ(Order({copiedChild}), "b[c-]");
    std::list<cMenu> nodes = {original};
    nodes.front().ReturnMenuPerTag("d")->Caption = "changed";
    EXPECT_NE(nodes.front(), original);
    EXPECT_EQ(original.ReturnMenuPerTag("d")->Caption, "d");

    nodes.emplace_back(std::move(original));
    EXPECT_EQ(Order(nodes), "A[ab[c-]d]A[ab[c-]d]");
    cMenu& moved = nodes.back();
    EXPECT_EQ(moved.ReturnMenuPerTag("c"), grandchild) << "nodes stay where they are";
    *moved.ReturnMenuPerTag("a") = nodes.front();
    EXPECT_EQ(Order(nodes), "A[ab[c-]d]A[A[ab[c-]d]b[c-]d]") << "the place in the tree belongs to the place";
    moved = std::move(*moved.ReturnMenuPerTag("b"));
    EXPECT_EQ(Order(nodes), "A[ab[c-]d]b[c-]") << "a node can be replaced by its own descendant";
    const cMenu& same = moved;
    moved = same;
    EXPECT_EQ(Order(nodes), "A[ab[c-]d]b[c-]");
}

} // namespace
} // namespace pirol
