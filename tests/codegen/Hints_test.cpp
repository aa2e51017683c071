#include "base/Conversions.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "codegen/Hints.h"
#include "project/ProjectFile.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace pirol {
namespace {

namespace fs = std::filesystem;

std::string Lines(const std::vector<Hint>& hints) {
    std::string lines;
    for (const Hint& hint : hints)
        lines.append(hint.text).append(" [").append(hint.rule->key).append("]\n");
    return lines;
}

/// tests/data/hints/RULE: design.prl gives hints.txt with the options of options.txt. What becomes of the generated
/// program stands in effect.txt; the tests with the Java compiler look at that.
TEST(Hints, EachRuleHasACase) {
    std::set<std::string_view> rules;
    for (const HintRule& rule : HintRules())
        rules.insert(rule.key);
    for (const fs::path& folder : test::CaseFolders("hints")) {
        const std::string rule = folder.filename().string();
        ProjectModel model;
        ASSERT_EQ(ReadPRLFile(folder / "design.prl", model), ReadResult::Loaded) << folder;
        const std::vector<Hint> hints = FindHints(model, TextOf(folder / "design.prl"), test::OptionsIn(folder));
        const std::string lines = Lines(hints);
        EXPECT_EQ(lines, ReadFileBytes(folder / "hints.txt")) << folder;
        EXPECT_NE(lines.find("[" + rule + "]"), std::string::npos) << folder;
        EXPECT_EQ(rules.erase(rule), 1U) << folder;
        for (const Hint& hint : hints)
            EXPECT_TRUE(hint.property.empty() || FindRow(model.Element(hint.component.value()), hint.property))
                << folder;
    }
    // A project file holds no character that it could not hold.
    EXPECT_EQ(rules, std::set<std::string_view>{"unknown-character"});
}

TEST(Hints, ACharacterThatWindows1252LacksReallyIsLost) {
    ProjectModel model;
    auto& label = static_cast<dEtikett&>(model.EditElement(model.PlaceComponent(ComponentKind::Label, {0, 0, 50, 50})));
    label.Caption = "Ж und 漢 statt €";
    const std::vector<Hint> hints = FindHints(model, {}, {});
    EXPECT_EQ(Lines(hints), "Etikett »hatEtikett1«, Beschriftung: Das Zeichen »Ж« gibt es in Windows-1252 nicht; das "
                            "Programm zeigt dafür »?«. [unknown-character]\n");
    EXPECT_NE(ToWindows1252(GenerateCode(model, {})).find("\"? und ? statt \x80\""), std::string::npos);
}

/// A click on a hint selects the component and the row of the property list.
TEST(Hints, SayWhatToSelect) {
    ProjectModel model;
    for (int placed = 0; placed < 2; ++placed)
        model.PlaceComponent(ComponentKind::Button, {0, 0, 50, 50});
    auto& button = static_cast<dButton&>(model.EditElement({ComponentKind::Button, 2}));
    button.ObjectName = "für jeden";
    button.Caption = "\"";
    button.Left = 620;
    model.EditMenus().Append("", "hatMenueDatei");
    const ComponentRef second{ComponentKind::Button, 2};
    std::string told;
    for (const Hint& hint : FindHints(model, {}, {.menu = true, .database = true})) {
        told.append(hint.rule->key)
            .append("/")
            .append(hint.property)
            .append(WhereToMend(hint.subject).substr(0, 30))
            .append("\n");
        EXPECT_EQ(hint.component.has_value(), hint.subject == HintSubject::Component);
        EXPECT_EQ(hint.component.value_or(second), second);
    }
    EXPECT_EQ(told, "invalid-name/nameEin Klick oder die Eingabetast\n"
                    "outside-window/leftEin Klick oder die Eingabetast\n"
                    "unescaped-quote/valueEin Klick oder die Eingabetast\n"
                    "missing-caption/Ändern: Funktionen → Menü-\n"
                    "missing-server/Ändern: Funktionen → SQL-Ge\n"
                    "missing-table/Ändern: Funktionen → SQL-Ge\n");
    // What is not generated needs no hint.
    EXPECT_EQ(FindHints(model, {}, {}).size(), 3U);
    model.DeleteComponent(second);
    EXPECT_EQ(Lines(FindHints(model, {}, {})), "");
}

TEST(Hints, BeginExactlyWhereSomethingGoesWrong) {
    const auto rule = [](const test::TableRow& row) {
        ProjectModel model;
        Control& control = model.EditElement(model.PlaceComponent(KindByKey(row[0]).value(), {0, 0, 50, 50}));
        for (const std::string_view setting : Split(row[1], ';')) {
            const std::size_t equals = setting.find('=');
            if (equals != std::string_view::npos)
                FindRow(control, Trim(setting.substr(0, equals)))
                    ->set(control, ReplaceAll(setting.substr(equals + 1), ",", std::string(1, fieldSeparator)));
        }
        model.EditMenus().Append("Menü", "hatMenue");
        model.EditSql() = {"s", "u", "p", "d", "t", {}};
        std::string hints;
        for (const Hint& hint : FindHints(model, {}, {row[2] == "menu", row[2] == "sql"}))
            Append(hints, hints.empty() ? "" : " / ", hint.text.substr(hint.text.find("«") + 4));
        return test::Answer(hints);
    };
    EXPECT_EQ(test::Deviations("hint-bounds", rule), "");
}

TEST(Hints, WhatFollowsFromAnotherHintIsNone) {
    const std::string entry = "?"; // no name of a method
    ProjectModel model;
    cMenu& unnamed = model.EditMenus().Append("A", "1");
    unnamed.AddEntry(entry, cMenu::Entry);
    unnamed.AddEntry("B", cMenu::SubMenu)->AddEntry(entry, cMenu::Entry);
    cMenu* sub = model.EditMenus().Append("C", "c").AddEntry("D\"", cMenu::SubMenu);
    sub->AddEntry("E", cMenu::SubMenu)->AddEntry(entry, cMenu::Entry);
    std::string keys;
    for (const Hint& hint : FindHints(model, {}, {.menu = true}))
        Append(keys, hint.rule->key, " ");
    EXPECT_EQ(keys, "invalid-name unescaped-quote nested-submenu ");
}

TEST(Hints, AWindowNeedsAPixel) {
    for (const auto& [width, height] : {std::pair(0, 1), {1, 0}, {1, 1}}) {
        ProjectModel model;
        model.SetWindowSize(static_cast<std::int16_t>(width), static_cast<std::int16_t>(height));
        EXPECT_EQ(FindHints(model, {}, {}).empty(), width == 1 && height == 1);
    }
}

TEST(Hints, StayShortForAnyDesign) {
    ProjectModel model;
    for (std::size_t i = 0; i < 3000; ++i)
        model.EditElement(model.PlaceComponent(ComponentKind::Button, {0, 0, 50, 50})).ObjectName =
            std::string(1000, i % 2 == 0 ? '\x01' : '"');
    const std::vector<Hint> hints = FindHints(model, {}, {});
    EXPECT_EQ(hints.size(), 1000U);
    for (const Hint& hint : hints) {
        EXPECT_LT(hint.text.size(), 400U);
        EXPECT_EQ(hint.text.find_first_of("\x01\r\n"), std::string::npos);
    }
}

/// The compiler takes strings and names of 65,535 bytes; up to 100 of them are the generator's own.
TEST(Hints, TextsMayBeAsLongAsTheCompilerTakesThem) {
    const auto isTooLong = [](ComponentKind kind, const PropertyKey& property, std::size_t length) {
        ProjectModel model;
        Control& element = model.EditElement(model.PlaceComponent(kind, {0, 0, 50, 50}));
        FindRow(element, property.key)->set(element, std::string(length, 'x'));
        return Lines(FindHints(model, {}, {})).find("[text-too-long]") != std::string::npos;
    };
    for (const auto& [kind, property, longest] : {std::tuple(ComponentKind::Button, keys::value, 65435U),
                                                  {ComponentKind::Button, keys::name, 65435U},
                                                  {ComponentKind::Picture, keys::pictureFile, 65535U}}) {
        EXPECT_FALSE(isTooLong(kind, property, longest)) << property.key;
        EXPECT_TRUE(isTooLong(kind, property, longest + 1)) << property.key;
    }
}

TEST(Hints, MenusMayBeAsLongAsTheCompilerTakesThem) {
    const auto keysOf = [](std::size_t name, std::size_t caption, int entries) {
        ProjectModel model;
        cMenu& menu = model.EditMenus().Append("M", std::string(name, 'm'));
        menu.AddEntry(std::string(caption, 'x'), cMenu::Entry);
        for (int entry = 0; entry < entries; ++entry)
            menu.AddEntry(std::to_string(entry), cMenu::Entry);
        std::string keys;
        for (const Hint& hint : FindHints(model, {}, {.menu = true}))
            Append(keys, hint.rule->key, " ");
        return keys;
    };
    EXPECT_EQ(keysOf(60000, 5535, 0), "");
    EXPECT_EQ(keysOf(60000, 5536, 0), "text-too-long ");
    EXPECT_EQ(keysOf(1, 1, 3000), "");
    EXPECT_EQ(keysOf(1, 1, 8000), "program-too-large ");
}

/// Every line of a menu repeats the menu's name, so a small file can ask for more text than any memory holds.
TEST(Hints, AMenuTooLargeToGenerateIsOneHint) {
    ProjectModel model;
    cMenu& menu = model.EditMenus().Append("Datei", std::string(60000, 'x'));
    for (int entry = 0; entry < 2000; ++entry)
        menu.AddEntry(std::to_string(entry), cMenu::Entry);
    EXPECT_EQ(Lines(FindHints(model, {}, {.menu = true})),
              "Programm: Das Programm lässt sich nicht erzeugen: Nicht genügend Speicher. [not-generated]\n");
}

} // namespace
} // namespace pirol
