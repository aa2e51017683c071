#include "designer/ComponentList.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <functional>

namespace pirol::test {
namespace {

ProjectModel Design() {
    ProjectModel model;
    for (const ComponentKind kind : {ComponentKind::Button, ComponentKind::Label, ComponentKind::ComboBox,
                                     ComponentKind::Button, ComponentKind::Button})
        model.PlaceComponent(kind, {10, 10, 80, 30});
    const auto set = [&model](ComponentKind kind, std::size_t index, std::string_view key, std::string_view value) {
        Control& control = model.EditElement({kind, index});
        FindRow(control, key)->set(control, value);
    };
    set(ComponentKind::Button, 2, "value", "Öffnen");
    set(ComponentKind::ComboBox, 1, "combovalues", std::string_view("Rot\0Knopf", 9));
    set(ComponentKind::Button, 3, "name", "hatRot");
    model.DeleteComponent({ComponentKind::Button, 1});
    cMenu& menu = model.EditMenus().Append("Datei", "mnuDatei");
    menu.AddEntry("Öffnen", cMenu::Entry);
    menu.AddEntry("Schließen", cMenu::Entry);
    return model;
}

/// Every name with those below it in parentheses.
std::string Shown(const ComponentList& list, const ProjectModel& model, std::size_t node = ComponentList::root) {
    std::string text = list.NameOf(model, node);
    const ComponentList::Node& shown = list.Nodes()[node];
    for (std::size_t child = 0; child < shown.childCount; ++child) {
        EXPECT_EQ(list.Nodes()[shown.firstChild + child].parent, node);
        text += (child == 0 ? "(" : ", ") + Shown(list, model, shown.firstChild + child);
    }
    return text + (shown.childCount != 0 ? ")" : "");
}

TEST(ComponentList, ShowsAndFindsWhatIsThere) {
    const ProjectModel model = Design();
    EXPECT_EQ(Deviations("component-lists",
                         [&model](const TableRow& row) {
                             ComponentList list;
                             list.SetOrder(row[0] == "kinds" ? ComponentList::Order::Kinds
                                                             : ComponentList::Order::Creation);
                             list.SetFilter(row[1]);
                             list.Rebuild(model);
                             const std::optional<ComponentRef> best = list.BestMatch(model);
                             return Answer(Shown(list, model), best ? model.Element(*best).ObjectName : "");
                         }),
              "");
}

TEST(ComponentList, TellsTextsAndFindsCapitals) {
    ProjectModel model = Design();
    ComponentList list;
    list.Rebuild(model);
    std::string texts;
    for (std::size_t node = 0; node < list.Nodes().size(); ++node)
        texts += list.TextOf(model, node) + "/";
    EXPECT_EQ(texts, "//////Etikett 1/Öffnen/Knopf/Rot////");
    ProjectModel plain;
    for (const ComponentKind kind : {ComponentKind::Slider, ComponentKind::Picture, ComponentKind::Table})
        plain.PlaceComponent(kind, {0, 0, 90, 30});
    static_cast<dBild&>(plain.EditElement({ComponentKind::Picture, 1})).File = "a.bmp";
    list.SetOrder(ComponentList::Order::Creation);
    list.Rebuild(plain);
    EXPECT_EQ(Shown(list, plain), "(Fenster 640 x 480(hatRegler1, hatBild1, hatTabelle1))");
    EXPECT_EQ(list.TextOf(plain, 2) + "/" + list.TextOf(plain, 3), "/a.bmp");
    plain.EditElement({ComponentKind::Table, 1}).ObjectName = std::string(1001, 'x');
    EXPECT_EQ(list.NameOf(plain, 4), std::string(1000, 'x') + "…");
    // The letters from À to ß and from à to ÿ are 32 apart; × and ÷ are none, and ß and ÿ no pair.
    for (int code = 0x80; code <= 0x9F; ++code) {
        const std::string large = {'\xC3', static_cast<char>(code)};
        const std::string small = {'\xC3', static_cast<char>(code + 0x20)};
        model.EditElement({ComponentKind::Label, 1}).ObjectName = "x" + large;
        list.SetFilter("x" + small);
        list.Rebuild(model);
        EXPECT_EQ(list.BestMatch(model).has_value(), code != 0x97 && code != 0x9F) << code;
    }
    EXPECT_TRUE(list.IsOutdatedBy(model, {.components = {}, .menus = true}));
    EXPECT_TRUE(list.IsOutdatedBy(model, {.components = {}, .allComponents = true}));
}

TEST(ComponentList, KnowsWhenItMustBeRebuilt) {
    const struct {
        const char* filter;
        std::function<void(ProjectModel&)> change;
        bool isOutdated;
    } cases[] = {
        {"",
         [](ProjectModel& model) {
             model.EditElement({ComponentKind::Button, 2}).Left = 99;
         },
         false},
        {"",
         [](ProjectModel& model) {
             model.DeleteComponent({ComponentKind::Button, 2});
         },
         true},
        {"",
         [](ProjectModel& model) {
             model.PlaceComponent(ComponentKind::Slider, {0, 0, 90, 30});
         },
         true},
        {"",
         [](ProjectModel& model) {
             model.EditElement({ComponentKind::Button, 2}).ObjectName = "rot";
         },
         false},
        {"rot",
         [](ProjectModel& model) {
             model.EditElement({ComponentKind::Button, 2}).ObjectName = "rot";
         },
         true},
        {"", [](ProjectModel& model) { model.EditMenus().Append("Hilfe", "mnuHilfe"); }, true},
    };
    for (const auto& [filter, change, isOutdated] : cases) {
        const ProjectModel before = Design();
        ComponentList list;
        list.SetFilter(filter);
        list.Rebuild(before);
        ProjectModel after = before;
        change(after);
        EXPECT_EQ(list.IsOutdatedBy(after, Differences(before, after)), isOutdated) << filter;
    }
}

} // namespace
} // namespace pirol::test
