#include "base/Text.h"
#include "Cases.h"
#include "codegen/JavaGenerator.h"
#include "designer/PropertyHelp.h"
#include "designer/PropertyPanel.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pirol {
namespace {

ComponentRef Place(ProjectModel& model, std::string_view kind) {
    return model.PlaceComponent(*KindByKey(kind), {30, 40, 120, 25});
}

/// Places one more component and selects it.
ComponentRef Place(Document& document, std::string_view kind) {
    document.EditAndSelect("", [&](ProjectModel& model) { return Place(model, kind); });
    return *document.Selected();
}

/// The list as text: categories in brackets, every other row as caption=shown text.
std::string Outline(const std::vector<PropertyPanelRow>& rows) {
    std::string text;
    for (const PropertyPanelRow& row : rows) {
        const std::string caption(row.caption);
        text += (text.empty() ? "" : " ") + (row.isCategory ? "[" + caption + "]" : caption + "=" + ShownText(row));
    }
    return text;
}

std::optional<PropertyPanelRow> RowOf(const ProjectModel& model, ComponentRef component, std::string_view key) {
    for (const PropertyPanelRow& row : LoadProperties(model, component))
        if (row.key == key && !row.isCategory)
            return row;
    return std::nullopt;
}

/// As the tables call it.
EditorKind EditorNamed(std::string_view name) {
    constexpr std::string_view names[] = {"Text", "Number", "Flag", "Choice", "Character", "File", "List"};
    return static_cast<EditorKind>(std::find(std::begin(names), std::end(names), name) - std::begin(names));
}

TEST(PropertyPanel, EveryRowSaysWhatItIs) {
    for (const KindRow& kind : KindRows()) {
        ProjectModel model;
        const ComponentRef component = Place(model, std::string(kind.key));
        if (kind.kind == ComponentKind::OptionGroup)
            FindRow(model.Element(component), "optionbuttons")
                ->set(model.EditElement(component), PropertyText(std::vector<cRadioButton>(1)));
        for (const PropertyRow& row : model.Element(component).Table().Rows())
            if (row.isOn != nullptr)
                row.set(model.EditElement(component), "Wahr");
        for (const PropertyPanelRow& row : LoadProperties(model, component)) {
            EXPECT_EQ(RowHelp(row).empty(), row.isCategory) << row.key;
            const std::size_t line = LineOfHandler(GenerateCode(model, {}), row.handler);
            EXPECT_EQ(line != 0, !row.handler.empty()) << row.handler;
        }
    }
}

TEST(PropertyPanel, RowsOfEveryKind) {
    const std::vector<test::TableRow> table = test::Table("property-lists");
    EXPECT_EQ(table.size(), kindCount + 1);
    for (const test::TableRow& row : table) {
        ProjectModel model;
        std::optional<ComponentRef> selected;
        if (row[0] != "nothing")
            selected = Place(model, row[0]);
        EXPECT_EQ(Outline(LoadProperties(model, selected)), row[1]);
    }
    Document document;
    EXPECT_EQ(PropertyChanged(document, "width", "no number"), "");
    EXPECT_FALSE(document.CanUndo());
}

TEST(PropertyPanel, ATextThatIsTooLongIsRefused) {
    Document document;
    Place(document, "combobox");
    std::string text;
    for (std::size_t i = 0; i < 65'535; ++i)
        text += "ä";
    for (const char* key : {"name", "combovalues"}) {
        EXPECT_EQ(PropertyChanged(document, key, text), "") << key;
        EXPECT_EQ(PropertyChanged(document, key, text + "x"), textTooLong) << key;
        EXPECT_EQ(RowOf(document.Model(), *document.Selected(), key)->value, text) << key;
    }
    EXPECT_EQ(PropertyChanged(document, "combovalues", text + fieldSeparator + text), "");
}

TEST(PropertyPanel, EditorsAndTheirDetails) {
    for (const test::TableRow& row : test::Table("property-editors")) {
        ProjectModel model;
        const std::optional<PropertyPanelRow> shown = RowOf(model, Place(model, row[0]), row[1]);
        ASSERT_TRUE(shown) << row.line;
        EXPECT_EQ(shown->editor, EditorNamed(row[2])) << row.line;
        EXPECT_EQ(shown->detail, row[3]) << row.line;
    }
}

TEST(PropertyPanel, EditsReachTheControlOrChangeNothing) {
    for (const test::TableRow& row : test::Table("property-edits")) {
        Document document;
        Place(document, "movie");
        Place(document, "movie");
        document.Edit("", [](ProjectModel& model) { model.DeleteComponent({ComponentKind::Movie, 1}); });
        const ComponentRef component = Place(document, row[0]);
        document.MarkSaved({});
        const ProjectModel before = document.Model();
        const std::string outcome = test::OutcomeOf([&] {
            const std::string message = PropertyChanged(document, row[1], row[2]);
            const std::optional<PropertyPanelRow> shown = RowOf(document.Model(), component, row[1]);
            return !message.empty() ? message : shown ? "=" + shown->value : "no such row";
        });
        EXPECT_EQ(outcome, row[3]) << row.line;
        if (!outcome.starts_with('=')) {
            EXPECT_EQ(document.Model(), before) << row.line;
            EXPECT_FALSE(document.IsChanged()) << row.line;
        }
    }
}

/// Of several components, the last one the leader, each a pixel farther to the right than the one before.
TEST(PropertyPanel, SeveralShowAndTakeWhatTheyShare) {
    EXPECT_EQ(test::Deviations("property-shared",
                               [](const test::TableRow& row) {
                                   Document document;
                                   std::vector<ComponentRef> components;
                                   for (const std::string_view kind : Split(row[0], ',')) {
                                       const ComponentRef component = Place(document, Trim(kind));
                                       document.Edit("", [&](ProjectModel& model) {
                                           Control& control = model.EditElement(component);
                                           control.Left = static_cast<std::int16_t>(30 + components.size());
                                       });
                                       components.push_back(component);
                                   }
                                   document.Select(Selection(components));
                                   document.MarkSaved({});
                                   const std::string outcome =
                                       test::OutcomeOf([&] { return PropertyChanged(document, row[1], row[2]); });
                                   const auto rows = LoadProperties(document.Model(), document.AllSelected());
                                   for (const PropertyPanelRow& shown : rows)
                                       EXPECT_EQ(shown.handler, "");
                                   return test::Answer(document.IsChanged() ? document.UndoLabel() : outcome,
                                                       Outline(rows));
                               }),
              "");
}

TEST(PropertyPanel, FlagsGoOnAndOff) {
    for (const KindRow& kind : KindRows()) {
        Document document;
        const ComponentRef component = Place(document, kind.key);
        for (const PropertyPanelRow& row : LoadProperties(document.Model(), component)) {
            if (row.isCategory || row.editor != EditorKind::Flag)
                continue;
            for (const char* flag : {"wahr", "falsch"}) {
                EXPECT_EQ(PropertyChanged(document, row.key, flag), "");
                EXPECT_EQ(RowOf(document.Model(), component, row.key)->value, flag) << kind.key << row.key;
            }
        }
    }
}

TEST(PropertyPanel, TypingInOnePropertyIsOneStep) {
    Document document;
    const ComponentRef label = Place(document, "label");
    const auto change = [&](const char* key, const char* value) { PropertyChanged(document, key, value); };
    change("width", "120,4");
    EXPECT_EQ(document.UndoLabel(), "") << "the width is 120 already";
    change("width", "121");
    change("width", "122");
    change("height", "30");
    EXPECT_EQ(document.UndoLabel(), "Höhe ändern");
    document.Undo();
    document.Undo();
    EXPECT_EQ(document.Model().Element(label).Width, 120);
    change("width", "121");
    document.MarkSaved("a.prl");
    change("width", "122");
    document.Select(std::nullopt);
    document.Select(label);
    change("width", "123");
    document.Undo();
    EXPECT_EQ(document.Model().Element(label).Width, 122) << "another selection ends the step";
    document.Undo();
    EXPECT_FALSE(document.IsChanged()) << "saving ends the step";
}

TEST(PropertyPanel, AGoneComponentIsAnError) {
    EXPECT_EQ(test::ErrorOf([&] {
                  LoadProperties(ProjectModel(), ComponentRef{ComponentKind::Table, 3});
              }),
              "Fehler 9: Index außerhalb des gültigen Bereichs (Main.File.Properties.LoadProperties)");
}

TEST(PropertyPanel, ShownTextIsShort) {
    for (const test::TableRow& row : test::Table("property-shown"))
        EXPECT_EQ(ShownText({"key", "caption", false, row[2], EditorNamed(row[0]), row[1]}, 8), row[3]) << row.line;
    EXPECT_EQ(ShownText({"k", "c", false, std::string(257, 'x'), EditorKind::Text, {}}), std::string(256, 'x') + "…");
    const std::string many(1000000, '\0');
    EXPECT_LE(ShownText({"k", "c", false, many, EditorKind::List, "Spalte|Beschriftung|tString|"}).size(), 260U);
}

TEST(PropertyPanel, ChoicesOfADetail) {
    using Choice = std::pair<std::string_view, std::string_view>;
    EXPECT_EQ(Choices("0|Links|1|Mitte|2|Rechts"),
              (std::vector<Choice>{{"0", "Links"}, {"1", "Mitte"}, {"2", "Rechts"}}));
    EXPECT_EQ(Choices("0|Links|1"), (std::vector<Choice>{{"0", "Links"}}));
    EXPECT_TRUE(Choices("").empty());
}

} // namespace
} // namespace pirol
