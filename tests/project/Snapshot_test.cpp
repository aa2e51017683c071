#include "base/Conversions.h"
#include "Cases.h"
#include "codegen/JavaGenerator.h"
#include "project/Snapshot.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

/// Texts that divide lines and fields elsewhere, that Windows-1252 lacks, and that look like a snapshot.
const std::string texts[] = {"",        "Übung", "3:abc", std::string("a\0b\1c", 5), "zwei\r\nZeilen", "漢字 🙂",
                             "\xFF\xC3"};

/// A value that the property does not have yet.
std::string OtherValue(const PropertyRow& row, const Control& control, std::size_t round) {
    static const std::string buttons = JoinRadioButtons({{"r", "漢\r\n3:x", 1, 2, 3, 4, true}, cRadioButton{}});
    const std::string& text = texts[round % std::size(texts)];
    switch (row.key->editor) {
    case EditorKind::Flag:
        return std::string(FlagText(!ConvertToBoolean(row.get(control))));
    case EditorKind::Number:
    case EditorKind::Choice:
        return std::to_string(round % 2 == 0 ? -32768 : 32767);
    case EditorKind::List:
        return row.key->key == keys::optionbuttons.key ? buttons : JoinList({"", "漢", "x\r\ny", ""});
    default:
        return text;
    }
}

/// A design with every kind, every value of every property changed, hidden components and all else there is.
ProjectModel FullDesign() {
    ProjectModel model;
    model.SetWindowSize(-1, 32767);
    model.SetAuthor("Zoë\r\n");
    model.EditSql() = {"server", "", "pass\1word", "db", "漢", {1, -1, 32767}};
    cMenu& menu = model.EditMenus().Append("Datei", "hatMenue1");
    cMenu* sub = menu.AddEntry(std::string("Unter\0menü", 11), cMenu::SubMenu);
    sub->AddEntry("Eintrag", cMenu::Entry)->Name = "name of an entry";
    sub->AddEntry({}, cMenu::Separator);
    menu.AddEntry("", cMenu::Menu);
    model.EditMenus().Append("", "").EntryType = 7;
    for (std::size_t round = 0; round < std::size(texts); ++round)
        for (const KindRow& row : KindRows()) {
            const ComponentRef component =
                round % 3 == 0 ? model.AddElement(row.kind) : model.PlaceComponent(row.kind, {1, 2, 30, 40});
            Control& control = model.EditElement(component);
            for (const auto* rows : {&CommonRows(), &control.Table().Rows()})
                for (const PropertyRow& property : *rows) {
                    const std::string before = SnapshotOf({model, {}});
                    property.set(control, OtherValue(property, control, round));
                    EXPECT_TRUE(round != 2 || SnapshotOf({model, {}}) != before) << property.key->label;
                }
            if (round % 2 == 1)
                model.DeleteComponent(component);
        }
    return model;
}

TEST(Snapshot, HoldsAllOfADesign) {
    for (const OpenDesign& design : {OpenDesign(), OpenDesign{FullDesign(), "/Schule/Übung 漢.prl"}}) {
        const OpenDesign back = DesignOfSnapshot(SnapshotOf(design));
        EXPECT_EQ(back.model, design.model);
        EXPECT_TRUE(back.model.CreationOrder() == design.model.CreationOrder());
        EXPECT_EQ(back.filePath, design.filePath);
    }
}

TEST(Snapshot, DamageIsAnErrorOrAnotherDesign) {
    ProjectModel model;
    model.EditMenus().Append("Datei", "m").AddEntry("Neu", cMenu::Entry);
    model.PlaceComponent(ComponentKind::OptionGroup, {1, 2, 30, 40});
    model.PlaceComponent(ComponentKind::Table, {1, 2, 30, 40});
    const std::string snapshot = SnapshotOf({model, {}});
    const auto isRefused = [](std::string_view text) {
        return !test::ErrorOf([&] { DesignOfSnapshot(text); }).empty();
    };
    std::size_t refused = 0;
    for (std::size_t length = 0; length < snapshot.size(); ++length)
        refused += isRefused(snapshot.substr(0, length)) ? 1 : 0;
    EXPECT_GE(refused, snapshot.size() - 3); // what ends behind the menus or a component is another design
    for (std::size_t at = 0; at < snapshot.size(); ++at)
        for (const char other : {'\0', ':', '9', '-', '\xFF'}) {
            std::string damaged = snapshot;
            damaged[at] = other;
            isRefused(damaged);
        }
    for (const char* begin : {"99999999999999999999:", "0;", "0", ":", "-0:"})
        EXPECT_TRUE(isRefused(begin + snapshot.substr(2))) << begin;
    std::string deep;
    for (int level = 0; level < 100'000; ++level)
        deep += "1:+1:10:0:";
    EXPECT_TRUE(isRefused("0:1:11:10:0:0:0:0:0:1:01:01:0" + deep));
}

} // namespace
} // namespace pirol
