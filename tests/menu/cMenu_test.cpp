#include "menu/cMenu.h"

#include <gtest/gtest.h>

#include <utility>

namespace pirol {
namespace {

struct Node {
    cMenu::Type type;
    const char* caption;
    const char* tag;
    std::vector<Node> children = {};
};

void AddAll(cMenu& menu, const std::vector<Node>& nodes) {
    for (const Node& node : nodes) {
        cMenu* child = menu.AddEntry(node.caption, node.type);
        child->Tag = node.tag;
        AddAll(*child, node.children);
    }
}

cMenu MenuWith(const std::vector<Node>& nodes) {
    cMenu menu;
    menu.Caption = "Datei";
    menu.Name = "hatMenueDatei";
    menu.Tag = "1";
    AddAll(menu, nodes);
    return menu;
}

cMenu FileMenu() {
    return MenuWith({{cMenu::Entry, "Neu", "2"},
                     {cMenu::SubMenu, "Export", "3", {{cMenu::Entry, "Text", "4"}, {cMenu::Entry, "Java", "5"}}},
                     {cMenu::Separator, "", "6"},
                     {cMenu::Entry, "Ende", "7"}});
}

/// The tags in tree order; a submenu's children stand in brackets.
std::string Order(const cMenu& menu) {
    std::string order = menu.Tag;
    if (menu.Children().empty())
        return order;
    order += "[";
    for (const cMenu& child : menu.Children())
        order += Order(child);
    return order + "]";
}

void ExpectParentsRight(const cMenu& menu) {
    for (const cMenu& child : menu.Children()) {
        EXPECT_EQ(child.Parent(), &menu) << child.Caption;
        ExpectParentsRight(child);
    }
}

TEST(CMenu, CleanStringSpellsAndRemoves) {
    const struct {
        const char* caption;
        const char* clean;
    } cases[] = {
        {"Öffnen ...", "Oeffnen"},
        {"Größe-Ändern #2", "GroesseAendern2"},
        {"Speichern (neu)", "Speichern(neu)"},
        {"Über\\Öl\\ÄäÜüöß", "UeberOelAeaeUeueoess"},
        {"2. Café?", "2Café?"},
        {" -.\\#", ""},
        {"", ""},
    };
    for (const auto& row : cases)
        EXPECT_EQ(cMenu::CleanString(row.caption), row.clean) << row.caption;
}

TEST(CMenu, AddEntryFindsItsPlace) {
    const struct {
        const char* afterTag;
        const char* order; // the new node has the tag "n"
    } cases[] = {
        {"-1", "1[23[45]67n]"}, {"2", "1[2n3[45]67]"}, {"3", "1[23[45]n67]"},
        {"7", "1[23[45]67n]"},  {"4", "1[23[45]67]"}, // a grandchild
        {"1", "1[23[45]67]"},                         // the node itself
        {"8", "1[23[45]67]"},   {"", "1[23[45]67]"},
    };
    for (const auto& row : cases) {
        cMenu menu = FileMenu();
        cMenu* added = menu.AddEntry("neu", cMenu::Entry, row.afterTag);
        if (added != nullptr) {
            EXPECT_TRUE(added->Tag.empty() && added->Name.empty());
            added->Tag = "n";
        }
        EXPECT_EQ(Order(menu), row.order) << row.afterTag;
        ExpectParentsRight(menu);
    }
}

TEST(CMenu, OnlySeparatorsGetTheFixedCaption) {
    cMenu menu;
    EXPECT_EQ(menu.AddEntry("Titel", cMenu::Separator)->Caption, "--------------");
    EXPECT_EQ(menu.AddEntry("", cMenu::Entry)->Caption, "");
    EXPECT_EQ(menu.AddEntry("Titel", 7)->EntryType, 7);
}

TEST(CMenu, TagOperationsReachWholeTree) {
    const struct {
        const char* tag;
        const char* moved;     // after "UP"
        const char* movedDown; // after "DOWN"
        const char* deleted;
    } cases[] = {
        {"2", "1[23[45]67]", "1[3[45]267]", "1[3[45]67]"},  {"3", "1[3[45]267]", "1[263[45]7]", "1[267]"},
        {"4", "1[23[45]67]", "1[23[54]67]", "1[23[5]67]"},  {"5", "1[23[54]67]", "1[23[45]67]", "1[23[4]67]"},
        {"7", "1[23[45]76]", "1[23[45]67]", "1[23[45]6]"},  {"1", "1[23[45]67]", "1[23[45]67]", "1[23[45]67]"},
        {"9", "1[23[45]67]", "1[23[45]67]", "1[23[45]67]"},
    };
    for (const auto& row : cases) {
        cMenu menu = FileMenu();
        menu.MoveItemPerTag(row.tag, "UP");
        EXPECT_EQ(Order(menu), row.moved) << row.tag;
        menu = FileMenu();
        menu.MoveItemPerTag(row.tag, "DOWN");
        EXPECT_EQ(Order(menu), row.movedDown) << row.tag;
        menu.MoveItemPerTag(row.tag, "up");
        EXPECT_EQ(Order(menu), row.movedDown) << row.tag;
        menu = FileMenu();
        menu.DeletePerTag(row.tag);
        EXPECT_EQ(Order(menu), row.deleted) << row.tag;
        ExpectParentsRight(menu);
    }
}

TEST(CMenu, TagSearchSkipsWhatIsNoSubmenu) {
    cMenu menu = FileMenu();
    menu.ReturnMenuPerTag("2")->AddEntry("verborgen", cMenu::Entry)->Tag = "20";
    EXPECT_EQ(menu.ReturnMenuPerTag("5")->Caption, "Java");
    EXPECT_EQ(menu.ReturnMenuPerTag("1"), &menu);
    EXPECT_EQ(menu.ReturnMenuPerTag("20"), nullptr);
    cMenu* entry = menu.ReturnMenuPerTag("7");
    EXPECT_EQ(entry->ReturnMenuPerTag("7"), nullptr) << "an entry does not find itself";
}

TEST(CMenu, GeneratedTextsOfOneMenu) {
    const struct {
        const char* what;
        cMenu menu;
        const char* main;
        const char* events;
    } cases[] = {
        {"entries and a separator",
         MenuWith({{cMenu::Entry, "Neu", ""}, {cMenu::Separator, "", ""}, {cMenu::Entry, "Öffnen ...", ""}}),
         "        hatMenueDatei = new Menue(\"Datei\");\r\n"
         "        hatMenueDatei.haengeZeileAn(\"Neu\", \"hatMenueDateiNeu\");\r\n"
         "        hatMenueDatei.haengeTrennungAn();\r\n"
         "        hatMenueDatei.haengeZeileAn(\"Öffnen ...\", \"hatMenueDateiOeffnen\");\r\n",
         "    public void hatMenueDateiNeu()\r\n    {\r\n\r\n    }\r\n\r\n"
         "    public void hatMenueDateiOeffnen()\r\n    {\r\n\r\n    }\r\n\r\n"},
        {"a submenu with a separator, quotes in captions",
         MenuWith({{cMenu::SubMenu, "\"B\"", "", {{cMenu::Entry, "\"C\"", ""}, {cMenu::Separator, "", ""}}}}),
         "        hatMenueDatei = new Menue(\"Datei\");\r\n"
         "        hatMenueTemp = hatMenueDatei.neuesUntermenue(\"\"B\"\");\r\n"
         "        hatMenueTemp.haengeZeileAn(\"\"C\"\", \"hatMenueDatei\"C\"\");\r\n"
         "        hatMenueTemp.haengeTrennungAn();\r\n",
         "    public void hatMenueDatei\"C\"()\r\n    {\r\n\r\n    }\r\n\r\n"},
        {"a submenu inside a submenu has no parent's name to use",
         MenuWith({{cMenu::SubMenu, "A", "", {{cMenu::SubMenu, "B", "", {{cMenu::Entry, "C", ""}}}}}}),
         "        hatMenueDatei = new Menue(\"Datei\");\r\n"
         "        hatMenueTemp = hatMenueDatei.neuesUntermenue(\"A\");\r\n"
         "        hatMenueTemp = .neuesUntermenue(\"B\");\r\n"
         "        hatMenueTemp.haengeZeileAn(\"C\", \"C\");\r\n",
         "    public void C()\r\n    {\r\n\r\n    }\r\n\r\n"},
        {"a menu as a child writes nothing", MenuWith({{cMenu::Menu, "X", "", {{cMenu::Entry, "Y", ""}}}}),
         "        hatMenueDatei = new Menue(\"Datei\");\r\n", ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(row.menu.GenerateMenuInitCode(), "    Menue hatMenueDatei;\r\n");
        EXPECT_EQ(row.menu.GenerateMenuCode(), row.main) << row.what;
        EXPECT_EQ(row.menu.GenerateMenuEventCode(), row.events) << row.what;
    }
}

TEST(CMenu, ProjectLinesCarryLevels) {
    using namespace std::string_literals;
    cMenu menu = FileMenu();
    menu.AddEntry("verboten", cMenu::Menu);
    EXPECT_EQ(menu.CreatePRLString(5), "0\0000\0hatMenueDatei\0Datei\r\n"
                                       "6\0002\0Neu\r\n"
                                       "6\0001\0Export\r\n"
                                       "7\0002\0Text\r\n"
                                       "7\0002\0Java\r\n"
                                       "6\0003\r\n"
                                       "6\0002\0Ende\r\n"s);
}

TEST(CMenu, CopiesStandAlone) {
    cMenu original = FileMenu();
    cMenu copy = original;
    ExpectParentsRight(copy);
    EXPECT_EQ(copy, original);

    copy.ReturnMenuPerTag("5")->Tag = "50";
    EXPECT_EQ(copy, original) << "tags do not count";
    copy.ReturnMenuPerTag("50")->Caption = "C++";
    EXPECT_NE(copy, original);
    EXPECT_EQ(original.ReturnMenuPerTag("5")->Caption, "Java");

    const cMenu subMenu = *original.ReturnMenuPerTag("3");
    EXPECT_EQ(subMenu.Parent(), nullptr);
    EXPECT_EQ(subMenu.GenerateMenuEventCode().substr(0, 22), "    public void Text()");
}

TEST(CMenu, MovingAndAssigningKeepParentsRight) {
    cMenu source = FileMenu();
    const cMenu* grandchild = source.ReturnMenuPerTag("4");
    cMenu moved = std::move(source);
    EXPECT_EQ(moved.ReturnMenuPerTag("4"), grandchild) << "nodes stay where they are";
    ExpectParentsRight(moved);

    cMenu* child = moved.ReturnMenuPerTag("2");
    *child = FileMenu();
    EXPECT_EQ(child->Parent(), &moved) << "the place in the tree belongs to the place";
    ExpectParentsRight(moved);

    moved = std::move(*moved.ReturnMenuPerTag("3"));
    EXPECT_EQ(Order(moved), "3[45]") << "a node can be replaced by its own descendant";
    ExpectParentsRight(moved);

    const cMenu& same = moved;
    moved = same;
    EXPECT_EQ(Order(moved), "3[45]");
}

TEST(CMenu, EqualityLooksAtEveryStoredPart) {
    const cMenu menu = FileMenu();
    const auto differs = [&menu](auto change) {
        cMenu other = menu;
        change(other);
        return other != menu;
    };
    EXPECT_TRUE(differs([](cMenu& m) { m.Name += "2"; }));
    EXPECT_TRUE(differs([](cMenu& m) { m.Caption.clear(); }));
    EXPECT_TRUE(differs([](cMenu& m) { m.EntryType = cMenu::SubMenu; }));
    EXPECT_TRUE(differs([](cMenu& m) { m.AddEntry("", cMenu::Separator); }));
    EXPECT_TRUE(differs([](cMenu& m) { m.MoveItemPerTag("4", "DOWN"); }));
    EXPECT_FALSE(differs([](cMenu& m) { m.Tag = "42"; }));
}

} // namespace
} // namespace pirol
