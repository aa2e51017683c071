#include "Cases.h"
#include "controls/PropertyTable.h"
#include "designer/ListEditorModel.h"
#include "designer/ListText.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

constexpr std::string_view mixedRows = "Zeile|Name|tString|neu|Zahl|tNumber|7|Schalter|tBoolean|True";

std::string ListOf(const ListEditorModel& model) {
    return ReplaceAll(model.ListText(), std::string_view(&fieldSeparator, 1), "/");
}

/// What a command of the table answers: the row that is current behind it.
std::string Edit(ListEditorModel& model, const test::TableRow& row) {
    const auto number = static_cast<std::size_t>(row.Number(2));
    if (row[1] == "add")
        return std::to_string(model.AddRow());
    if (row[1] == "up")
        return std::to_string(model.MoveUp(number));
    if (row[1] == "down")
        return std::to_string(model.MoveDown(number));
    if (row[1] == "show")
        return model.Cell(number, std::stoul(row[3]));
    row[1] == "remove" ? model.RemoveRow(number) : model.SetCell(number, std::stoul(row[3]), row[4]);
    return "";
}

TEST(ListEditorModel, ListsComeBackAsTheyWere) {
    const std::tuple<std::string_view, std::string_view, std::size_t> cases[] = {
        {"Spalte|Beschriftung|tString|", "", 0},      {"Spalte|Beschriftung|tString|", "a", 1},
        {"Spalte|Beschriftung|tString|", "a//b/", 4}, {mixedRows, "a/1/Wahr", 1},
        {mixedRows, "a/1/Wahr//-5/Falsch", 2},
    };
    for (const auto& [descriptor, list, rows] : cases) {
        const ListEditorModel model(descriptor, ListText(list));
        EXPECT_EQ(model.RowCount(), rows) << list;
        EXPECT_EQ(ListOf(model), list);
    }
    EXPECT_EQ(test::ErrorNumberOf([] { ListEditorModel(mixedRows, ListText("a/1/Wahr/b")); }), 9);
}

TEST(ListEditorModel, ANewRadioButtonHasItsOwnNameAndPlace) {
    ListEditorModel model(keys::optionbuttons.detail, {});
    for (int row = 0; row < 3; ++row)
        model.AddRow();
    model.SetCell(2, 5, "32760");
    model.SetCell(2, 0, "meiner");
    model.AddRow();
    EXPECT_EQ(ListOf(model), "hatRadioKnopf//150/20/0/0/Falsch/hatRadioKnopf2//150/20/0/20/Falsch/"
                             "meiner//150/20/0/32760/Falsch/hatRadioKnopf3//150/20/0/32767/Falsch");
}

TEST(ListEditorModel, EditsRowsAndRefusesWhatIsWrong) {
    const auto rule = [](const test::TableRow& row) {
        ListEditorModel model(mixedRows, ListText(row[0]));
        const std::string answer = test::OutcomeOf([&] { return Edit(model, row); });
        return test::Answer(answer, ListOf(model));
    };
    EXPECT_EQ(test::Deviations("list-edits", rule), "");
}

} // namespace
} // namespace pirol
