#include "Cases.h"
#include "controls/PropertyTable.h"
#include "designer/ListEditorModel.h"
#include "designer/ListText.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <functional>

namespace pirol {
namespace {

constexpr std::string_view captionRows = "Spalte|Beschriftung|tString|";
constexpr std::string_view mixedRows = "Zeile|Name|tString|neu|Zahl|tNumber|7|Schalter|tBoolean|True";

std::string ListOf(const ListEditorModel& model) {
    return ReplaceAll(model.ListText(), std::string_view(&fieldSeparator, 1), "/");
}

std::string Described(const RowDescriptor& row) {
    std::string text = row.label;
    for (const FieldDescriptor& field : row.fields)
        text += ", " + field.label + " " + std::to_string(static_cast<int>(field.type)) + " " + field.initialValue;
    return text;
}

TEST(ListEditorModel, ReadsDescriptors) {
    for (const test::TableRow& row : test::Table("row-descriptors"))
        EXPECT_EQ(test::OutcomeOf([&row] { return Described(ParseRowDescriptor(row[0])); }), row[1]) << row.line;
}

TEST(ListEditorModel, ListsComeBackAsTheyWere) {
    const std::tuple<std::string_view, std::string_view, std::size_t> cases[] = {
        {captionRows, "", 0},
        {captionRows, "a", 1},
        {captionRows, "a//b/", 4},
        {mixedRows, "a/1/Wahr", 1},
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

TEST(ListEditorModel, EditsRows) {
    using Edit = std::function<void(ListEditorModel&)>;
    const std::tuple<std::string_view, Edit, std::string_view> cases[] = {
        {"add", [](auto& model) { EXPECT_EQ(model.AddRow(), 3U); }, "a/1/Wahr/b/2/Falsch/c/3/Wahr/neu/7/Wahr"},
        {"remove first", [](auto& model) { model.RemoveRow(0); }, "b/2/Falsch/c/3/Wahr"},
        {"remove last", [](auto& model) { model.RemoveRow(2); }, "a/1/Wahr/b/2/Falsch"},
        {"up", [](auto& model) { EXPECT_EQ(model.MoveUp(2), 1U); }, "a/1/Wahr/c/3/Wahr/b/2/Falsch"},
        {"up at the top", [](auto& model) { EXPECT_EQ(model.MoveUp(0), 0U); }, "a/1/Wahr/b/2/Falsch/c/3/Wahr"},
        {"down", [](auto& model) { EXPECT_EQ(model.MoveDown(0), 1U); }, "b/2/Falsch/a/1/Wahr/c/3/Wahr"},
        {"down at the end", [](auto& model) { EXPECT_EQ(model.MoveDown(2), 2U); }, "a/1/Wahr/b/2/Falsch/c/3/Wahr"},
        {"text", [](auto& model) { model.SetCell(1, 0, "Größe"); }, "a/1/Wahr/Größe/2/Falsch/c/3/Wahr"},
        {"text with separators", [](auto& model) { model.SetCell(1, 0, std::string_view("x\0\1\r\ny", 6)); },
         "a/1/Wahr/x    y/2/Falsch/c/3/Wahr"},
        {"number", [](auto& model) { model.SetCell(0, 1, " 2,5 "); }, "a/2/Wahr/b/2/Falsch/c/3/Wahr"},
        {"flag", [](auto& model) { model.SetCell(0, 2, "nein"); }, "a/1/Falsch/b/2/Falsch/c/3/Wahr"},
    };
    for (const auto& [what, edit, list] : cases) {
        ListEditorModel model(mixedRows, ListText("a/1/Wahr/b/2/Falsch/c/3/Wahr"));
        edit(model);
        EXPECT_EQ(ListOf(model), list) << what;
    }
}

TEST(ListEditorModel, BadEditsChangeNothing) {
    ListEditorModel model(mixedRows, ListText("a/1/Wahr"));
    const std::pair<std::function<void()>, int> cases[] = {
        {[&] { model.SetCell(0, 1, "viel"); }, 13},
        {[&] { model.SetCell(0, 1, ""); }, 13},
        {[&] { model.SetCell(0, 1, "32768"); }, 6},
        {[&] { model.SetCell(1, 0, "x"); }, 9},
        {[&] { model.SetCell(0, 3, "x"); }, 9},
        {[&] { static_cast<void>(model.Cell(1, 0)); }, 9},
        {[&] { model.RemoveRow(1); }, 9},
        {[&] { model.MoveUp(1); }, 9},
        {[&] { model.MoveDown(1); }, 9},
    };
    for (const auto& row : cases)
        EXPECT_EQ(test::ErrorNumberOf(row.first), row.second) << &row - cases;
    EXPECT_EQ(ListOf(model), "a/1/Wahr");
}

} // namespace
} // namespace pirol
