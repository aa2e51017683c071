#include "Cases.h"
#include "designer/PropertyPanel.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace pirol {
namespace {

ComponentRef Place(ProjectModel& model, std::string_view kind) {
    return model.PlaceComponent(*KindByKey(kind), {30, 40, 120, 25});
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
    ProjectModel model;
    EXPECT_EQ(PropertyChanged(model, std::nullopt, "width", "no number"), "");
    EXPECT_EQ(model, ProjectModel());
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
        ProjectModel model;
        Place(model, "movie");
        Place(model, "movie");
        model.DeleteComponent({ComponentKind::Movie, 1});
        const ComponentRef component = Place(model, row[0]);
        model.MarkUnchanged({});
        const ProjectModel before = model;
        const std::string outcome = test::OutcomeOf([&] {
            const std::string message = PropertyChanged(model, component, row[1], row[2]);
            const std::optional<PropertyPanelRow> shown = RowOf(model, component, row[1]);
            return !message.empty() ? message : shown ? "=" + shown->value : "no such row";
        });
        EXPECT_EQ(outcome, row[3]) << row.line;
        if (!outcome.starts_with('=')) {
            EXPECT_EQ(model, before) << row.line;
            EXPECT_FALSE(model.IsChanged()) << row.line;
        }
    }
}

TEST(PropertyPanel, FlagsGoOnAndOff) {
    for (const KindRow& kind : KindRows()) {
        ProjectModel model;
        const ComponentRef component = Place(model, kind.key);
        for (const PropertyPanelRow& row : LoadProperties(model, component)) {
            if (row.isCategory || row.editor != EditorKind::Flag)
                continue;
            for (const char* flag : {"wahr", "falsch"}) {
                EXPECT_EQ(PropertyChanged(model, component, row.key, flag), "");
                EXPECT_EQ(RowOf(model, component, row.key)->value, flag) << kind.key << row.key;
            }
        }
    }
}

TEST(PropertyPanel, AnnouncesRealChangesOnly) {
    ProjectModel model;
    const ComponentRef label = Place(model, "label");
    model.TakeChanges();
    PropertyChanged(model, label, "width", "120,4");
    EXPECT_TRUE(model.TakeChanges().empty());
    PropertyChanged(model, label, "width", "121");
    EXPECT_EQ(model.TakeChanges().size(), 1U);
}

TEST(PropertyPanel, AGoneComponentIsAnError) {
    ProjectModel model;
    const ComponentRef gone{ComponentKind::Table, 3};
    EXPECT_EQ(test::ErrorOf([&] { LoadProperties(model, gone); }),
              "Fehler 9: Index außerhalb des gültigen Bereichs (Main.File.Properties.LoadProperties)");
    EXPECT_EQ(test::ErrorOf([&] { PropertyChanged(model, gone, "width", "1"); }),
              "Fehler 9: Index außerhalb des gültigen Bereichs (Main.File.Properties.PropertyChanged)");
}

TEST(PropertyPanel, ShownTextIsShort) {
    for (const test::TableRow& row : test::Table("property-shown"))
        EXPECT_EQ(ShownText({"key", "caption", false, row[2], EditorNamed(row[0]), row[1]}, 8), row[3]) << row.line;
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
