#include "base/Text.h"
#include "designer/Selection.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

using enum ComponentKind;

/// Labels by their numbers, the leader behind a star.
std::string Shown(const Selection& selection) {
    std::string text;
    for (const ComponentRef component : selection)
        Append(text, component == selection.Leader() ? "*" : "", component.index);
    return text;
}

Selection Of(std::initializer_list<std::size_t> labels) {
    std::vector<ComponentRef> components;
    for (const std::size_t label : labels)
        components.push_back({Label, label});
    return Selection(std::move(components));
}

TEST(Selection, HasEachOnceAndALeader) {
    EXPECT_EQ(Shown(Of({3, 1, 2, 3, 2})), "1*23");
    EXPECT_EQ(Shown(Of({2, 2})), "*2");
    EXPECT_FALSE(Of({2, 2}).IsSeveral());
    EXPECT_EQ(Of({3, 1}).Count(), 2U);
    EXPECT_TRUE(Of({}).IsEmpty());
    EXPECT_EQ(Shown(Of({1, 2}).Toggled({Label, 3})), "12*3");
    EXPECT_EQ(Shown(Of({2, 3}).Toggled({Label, 1})), "*123");
    EXPECT_EQ(Shown(Of({1, 3, 2}).Toggled({Label, 2})), "1*3");
    EXPECT_EQ(Shown(Of({1, 3, 2}).Toggled({Label, 3})), "1*2");
    EXPECT_EQ(Shown(Of({1}).Toggled({Label, 1})), "");
    EXPECT_EQ(Shown(Of({1, 3}).With(Of({4, 2}))), "1*234");
    EXPECT_EQ(Shown(Of({3, 1}).With(Of({}))), "*13");
    EXPECT_EQ(Shown(Of({}).With(Of({3, 1}))), "*13");
    EXPECT_EQ(Shown(Of({}).With(Of({}))), "");
    EXPECT_TRUE(Of({1, 2}) == Of({1, 2}));
    EXPECT_FALSE(Of({1, 2}) == Of({2, 1})) << "another leader";
    EXPECT_FALSE(Of({1, 3}) == Of({2, 3})) << "the same leader";
    EXPECT_FALSE(Of({1, 3}) == Of({3}));
}

TEST(Selection, OfWhatCanBeSeen) {
    ProjectModel model;
    for (int i = 0; i < 4; ++i)
        model.PlaceComponent(Label, {10, 10 * i, 30, 20});
    model.DeleteComponent({Label, 2});
    EXPECT_EQ(Shown(Of({3, 1, 2}).VisibleIn(model)), "1*3") << "the last one leads where the leader has gone";
    EXPECT_EQ(Shown(Of({4, 2, 1}).VisibleIn(model)), "*14");
    EXPECT_EQ(Shown(Of({2}).VisibleIn(model)), "");
    EXPECT_EQ(Shown(Of({4, 5}).VisibleIn(model)), "*4") << "one that never was";
    EXPECT_EQ(Shown(Selection(ComponentRef{Label, 5}).VisibleIn(model)), "");
    EXPECT_EQ(Shown(AllComponents(model)), "13*4");
    EXPECT_EQ(StepLabel(AllComponents(model), "löschen"), "3 Komponenten löschen");
    EXPECT_EQ(StepLabel(Of({1}), "löschen"), "Etikett löschen");
    EXPECT_EQ(StepLabel(Of({}), "löschen"), "");
}

} // namespace
} // namespace pirol
