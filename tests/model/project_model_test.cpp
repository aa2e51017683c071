#include "base/RuntimeError.h"
#include "controls/Oddities.h"
#include "model/Differences.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

using enum ComponentKind;

constexpr Rectangle box{10, 20, 200, 30};

const std::string& NameOf(const ProjectModel& model, ComponentRef component) {
    return model.Element(component).ObjectName;
}

TEST(ProjectModel, HiddenElementsCountUntilTheKindIsEmpty) {
    ProjectModel model;
    for (int placed = 0; placed < 3; ++placed)
        model.PlaceComponent(Label, box);
    const ComponentRef button = model.PlaceComponent(Button, box);
    model.DeleteComponent({Label, 2});
    EXPECT_EQ(NameOf(model, model.PlaceComponent(Label, box)), "hatEtikett4");
    for (const std::size_t index : {1U, 3U, 4U})
        model.DeleteComponent({Label, index});
    EXPECT_EQ(model.ElementCount(Label), 1U);
    ASSERT_EQ(model.CreationOrder().size(), 1U);
    EXPECT_EQ(*model.CreationOrder().begin(), button);
    EXPECT_EQ(NameOf(model, model.PlaceComponent(Label, box)), "hatEtikett1");
}

TEST(ProjectModel, SlidersAndProgressBarsGoOnCounting) {
    for (const KindRow& row : KindRows()) {
        ProjectModel model;
        model.DeleteComponent(model.PlaceComponent(row.kind, box));
        const bool goesOn = row.kind == Slider || row.kind == ProgressBar;
        EXPECT_EQ(model.PlaceComponent(row.kind, box).index, goesOn ? 2U : 1U) << row.key;
    }
}

TEST(ProjectModel, APlaceOutsideSixteenBitsChangesNothing) {
    ProjectModel model;
    EXPECT_THROW(model.PlaceComponent(Button, {40000, 0, 30, 30}), RuntimeError);
    EXPECT_EQ(model, ProjectModel());
    EXPECT_TRUE(model.CreationOrder().empty());
}

/// The history's limit is one of memory, and texts are what makes a design large.
TEST(ProjectModel, TextsCountAsBytes) {
    EXPECT_EQ(HeapBytesOf(dEtikett()), 0U) << "short texts take no memory of their own";
    const std::string text(1000, 'x');
    for (const KindRow& row : KindRows()) {
        ProjectModel model;
        Control& element = model.EditElement(model.PlaceComponent(row.kind, box));
        for (const PropertyRow& property : element.Table().Rows()) {
            const bool isText = property.key->editor == EditorKind::Text || property.key->editor == EditorKind::File;
            if (!isText && property.key->editor != EditorKind::List)
                continue;
            const std::size_t before = HeapBytesOf(element);
            const bool isRow = property.key->key == keys::optionbuttons.key;
            property.set(element, isRow ? JoinRadioButtons({cRadioButton{.Name = text, .Caption = text}}) : text);
            EXPECT_GE(HeapBytesOf(element), (isRow ? 2 : 1) * text.size()) << row.key << property.key->key;
            EXPECT_LE(HeapBytesOf(element), before + 3 * text.size()) << row.key << property.key->key;
        }
    }
}

/// What two designs do not share counts, and nothing else.
TEST(ProjectModel, WhatDiffersCountsAsBytes) {
    static const std::string text(1000, 'x');
    struct Case {
        void (*change)(ProjectModel&);
        std::size_t texts;
    };
    const Case cases[] = {
        {[](ProjectModel& model) { model.SetAuthor(text); }, 1},
        {[](ProjectModel& model) { model.EditMenus().Append(text, text).AddEntry(text, cMenu::SubMenu)->Name = text; },
         4},
        {[](ProjectModel& model) {
             for (const SQLField& field : sqlFields)
                 model.EditSql().*field.text = text;
         },
         5},
    };
    const ProjectModel empty;
    const std::size_t least = empty.UnsharedBytes(empty);
    for (const Case& row : cases) {
        ProjectModel changed = empty;
        row.change(changed);
        EXPECT_GE(changed.UnsharedBytes(empty), least + row.texts * text.size());
        EXPECT_LE(changed.UnsharedBytes(empty), least + row.texts * text.size() + 600);
        ProjectModel next = changed;
        EXPECT_EQ(next.UnsharedBytes(changed), least);
    }
}

TEST(ProjectModel, ResetKeepsTheDatabase) {
    ProjectModel model;
    model.EditSql().Server = "localhost";
    model.PlaceComponent(Button, box);
    model.EditMenus().Append("Datei", "hatMenueDatei");
    model.SetWindowSize(100, 100);
    model.SetAuthor("x");
    model.Reset();
    ProjectModel expected;
    expected.EditSql().Server = "localhost";
    EXPECT_EQ(model, expected);
}

TEST(ProjectModel, DifferencesListWhatIsNotAlike) {
    ProjectModel before;
    for (int placed = 0; placed < 500; ++placed)
        before.PlaceComponent(placed % 2 == 0 ? Button : Label, box);
    ProjectModel after = before;
    EXPECT_FALSE(Differences(before, after).Any());
    after.EditElement({Button, 7}).Left = 500;
    after.EditElement({Label, 250}).Visible = false;
    const ComponentRef added = after.PlaceComponent(Table, box);
    const DesignChange change = Differences(before, after);
    EXPECT_FALSE(change.allComponents || change.window || change.menus || change.sql);
    ASSERT_EQ(change.components.size(), 3U);
    EXPECT_EQ(change.components[0].component, (ComponentRef{Label, 250}));
    EXPECT_EQ(change.components[0].after, Rectangle{});
    EXPECT_EQ(change.components[1].before, box);
    EXPECT_EQ(change.components[1].after.left, 500);
    EXPECT_EQ(change.components[2].component, added);
    EXPECT_EQ(change.components[2].before, Rectangle{});
    EXPECT_GT(after.UnsharedBytes(before), sizeof(dButton));
    EXPECT_LT(after.UnsharedBytes(before), std::size_t{100'000});
    for (std::size_t index = 1; index <= 61; ++index)
        after.EditElement({Label, index}).Top = 1;
    EXPECT_EQ(Differences(before, after).components.size(), 64U);
    after.EditElement({Label, 62}).Top = 1;
    EXPECT_TRUE(Differences(before, after).allComponents);
    EXPECT_TRUE(Differences(before, after).components.empty());
}

TEST(ProjectModel, EqualityLooksAtEveryPart) {
    ProjectModel model;
    model.PlaceComponent(Button, box);
    void (*const changes[])(ProjectModel&) = {
        [](ProjectModel& other) { other.SetWindowSize(640, 481); },
        [](ProjectModel& other) { other.SetWindowSize(641, 480); },
        [](ProjectModel& other) { other.SetAuthor("x"); },
        [](ProjectModel& other) {
            other.EditElement({Button, 1}).ObjectName = "hatAnderer";
        },
        [](ProjectModel& other) { other.EditMenus().Append("Datei", "hatMenueDatei"); },
        [](ProjectModel& other) { other.EditSql().Server = "localhost"; },
    };
    for (const auto change : changes) {
        ProjectModel other = model;
        EXPECT_EQ(other, model);
        change(other);
        EXPECT_NE(other, model);
        EXPECT_TRUE(Differences(model, other).Any());
    }
}

TEST(ComponentKinds, AreFoundByEachOfTheirNames) {
    for (const KindRow& row : KindRows()) {
        EXPECT_EQ(KindByKey(row.key), row.kind);
        EXPECT_EQ(KindByControl(row.control), row.kind);
        EXPECT_EQ(KindByJavaClass(row.javaClass), row.kind);
        EXPECT_EQ(KindByNumber(static_cast<int>(row.kind)), row.kind);
    }
    EXPECT_FALSE(KindByKey("Label") || KindByControl("") || KindByNumber(0) || KindByNumber(16));
    EXPECT_EQ(oddities::CrossTextAreas(CharField), RowField);
    EXPECT_EQ(oddities::CrossTextAreas(RowField), CharField);
    EXPECT_EQ(oddities::CrossTextAreas(Label), Label);
}

} // namespace
} // namespace pirol
