#include "base/RuntimeError.h"
#include "controls/Oddities.h"
#include "model/ProjectModel.h"

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
    model.DeleteComponent({Label, 2});
    EXPECT_EQ(NameOf(model, model.PlaceComponent(Label, box)), "hatEtikett4");
    for (const std::size_t index : {1U, 3U, 4U})
        model.DeleteComponent({Label, index});
    EXPECT_EQ(model.ElementCount(Label), 1U);
    EXPECT_TRUE(model.CreationOrder().empty());
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
    EXPECT_FALSE(model.IsChanged());
}

TEST(ProjectModel, AnnouncesWhatChanged) {
    ProjectModel model;
    const ComponentRef button = model.PlaceComponent(Button, box);
    model.TakeChanges();
    model.EditElement(button).Left = 500;
    const std::vector<Change> changes = model.TakeChanges();
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].component, button);
    EXPECT_EQ(changes[0].before, box);
    EXPECT_TRUE(model.TakeChanges().empty());
    for (int change = 0; change < 1000; ++change)
        model.EditElement(button);
    const std::vector<Change> many = model.TakeChanges();
    ASSERT_EQ(many.size(), 1U);
    EXPECT_EQ(many[0].what, Change::What::Everything);
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
