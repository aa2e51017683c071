#include "base/Text.h"
#include "codegen/DesignComparison.h"
#include "codegen/DesignFacts.h"
#include "controls/dAuswahl.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

Control& Edit(ProjectModel& model, ComponentKind kind, std::size_t index) {
    return model.EditElement({kind, index});
}

void Set(Control& control, std::string_view key, std::string_view value) {
    FindRow(control, key)->set(control, value);
}

ProjectModel Sample() {
    ProjectModel model;
    for (int i = 0; i < 3; ++i)
        model.PlaceComponent(ComponentKind::Button, {10, 40 * i, 100, 30});
    model.PlaceComponent(ComponentKind::ComboBox, {200, 10, 100, 30});
    Set(Edit(model, ComponentKind::ComboBox, 1), "combovalues", std::string_view("rot\0blau", 8));
    model.PlaceComponent(ComponentKind::Label, {200, 80, 100, 30});
    model.EditMenus().Append("Datei", "hatMenueDatei").AddEntry("Öffnen", cMenu::Entry);
    return model;
}

struct Case {
    void (*change)(ProjectModel&);
    const char* lines; ///< each with "|" behind it
};

const Case cases[] = {
    {[](ProjectModel&) {}, ""},
    {[](ProjectModel& model) { model.SetWindowSize(800, 480); }, "geändert: Fenster, Breite: 640 → 800|"},
    {[](ProjectModel& model) { model.SetAuthor("Öz\nB"); }, "geändert: Fenster, Autor: »« → »Öz\\x0AB«|"},
    {[](ProjectModel& model) {
         model.PlaceComponent(ComponentKind::Slider, {1, 2, 30, 40});
     },
     "neu: Regler hatRegler1 (Links 1, Oben 2, Breite 30, Höhe 40)|"},
    {[](ProjectModel& model) {
         model.DeleteComponent({ComponentKind::Button, 2});
     },
     "entfernt: Knopf hatKnopf2 (Links 10, Oben 40, Breite 100, Höhe 30)|"},
    {[](ProjectModel& model) { Edit(model, ComponentKind::Button, 1).ObjectName = "hatStart"; },
     "umbenannt: Knopf hatKnopf1 in hatStart|"},
    {[](ProjectModel& model) {
         Edit(model, ComponentKind::Button, 1).ObjectName = "hatStart";
         model.PlaceComponent(ComponentKind::Button, {10, 0, 100, 30});
         model.DeleteComponent({ComponentKind::Button, 2});
     },
     "umbenannt: Knopf hatKnopf1 in hatStart|entfernt: Knopf hatKnopf2 (Links 10, Oben 40, Breite 100, Höhe 30)|"
     "neu: Knopf hatKnopf4 (Links 10, Oben 0, Breite 100, Höhe 30)|"},
    {[](ProjectModel& model) {
         Edit(model, ComponentKind::Button, 1).ObjectName = "hatKnopf2";
         Edit(model, ComponentKind::Button, 2).ObjectName = "hatKnopf1";
     },
     "geändert: Knopf hatKnopf1, Oben: 0 → 40|geändert: Knopf hatKnopf2, Oben: 40 → 0|"
     "geändert: Reihenfolge der Art Knopf|"},
    {[](ProjectModel& model) {
         Control& button = Edit(model, ComponentKind::Button, 3);
         Set(button, "value", "Los");
         Set(button, "click", "Wahr");
         Set(Edit(model, ComponentKind::Label, 1), "align", "2");
     },
     "geändert: Etikett hatEtikett1, Ausrichtung: Links → Rechts|geändert: Knopf hatKnopf3, Beschriftung: »Knopf« → "
     "»Los«|geändert: Knopf hatKnopf3, Geklickt: aus → an|"},
    {[](ProjectModel& model) {
         Set(Edit(model, ComponentKind::ComboBox, 1), "combovalues", std::string_view("rot\0grün\0blau", 14));
     },
     "neu: Auswahl hatAuswahl1, Einträge: »grün«|"},
    {[](ProjectModel& model) { model.EditMenus().Menus().begin()->AddEntry("Neu", cMenu::Entry); },
     "neu: Menüs: Menüzeile »Neu« in »Datei«, Ebene 1|"},
    {[](ProjectModel& model) {
         model.EditSql().Server = "localhost";
         model.EditSql().Password = "geheim";
         model.EditSql().Flags[0] = 1;
     },
     "geändert: Datenbank, Server: »« → »localhost«|geändert: Datenbank, Passwort|"
     "geändert: Datenbank, AnzahlDerTabellen(): aus → an|"},
};

TEST(DesignComparison, SaysWhatLeadsFromOneDesignToTheOther) {
    for (const Case& row : cases) {
        ProjectModel changed = Sample();
        row.change(changed);
        std::string lines;
        for (const std::string& line : CompareDesigns(Sample(), changed))
            Append(lines, line, "|");
        EXPECT_EQ(lines, row.lines);
        EXPECT_EQ(DesignText(changed) == DesignText(Sample()), lines.empty()) << lines;
        EXPECT_EQ(CompareDesigns(changed, Sample()).empty(), lines.empty()) << lines;
        EXPECT_EQ(DesignText(changed).find("geheim"), std::string::npos);
    }
}

TEST(DesignComparison, OfSeveralInOnePlaceEachFindsItsOwn) {
    const auto named = [](const std::vector<std::string>& names) {
        ProjectModel model;
        for (const std::string& name : names)
            model.EditElement(model.PlaceComponent(ComponentKind::Button, {1, 2, 30, 40})).ObjectName = name;
        return model;
    };
    EXPECT_EQ(CompareDesigns(named({"a", "b", "b"}), named({"c", "d", "b"})),
              (std::vector<std::string>{"umbenannt: Knopf a in c", "umbenannt: Knopf b in d",
                                        "geändert: Reihenfolge der Art Knopf"}));
}

TEST(DesignComparison, ShowsTextsWhereTheyDiffer) {
    const auto rule = [](const test::TableRow& row) {
        ProjectModel before = Sample();
        ProjectModel after = before;
        Set(Edit(before, ComponentKind::Button, 1), "value", row[0]);
        Set(Edit(after, ComponentKind::Button, 1), "value", row[1]);
        constexpr std::string_view place = "geändert: Knopf hatKnopf1, Beschriftung: ";
        return test::Answer(CompareDesigns(before, after).at(0).substr(place.size()));
    };
    EXPECT_EQ(test::Deviations("shown-differences", rule), "");
}

TEST(DesignFacts, TellAllOfADesign) {
    ProjectModel model;
    model.SetWindowSize(800, 600);
    Set(model.EditElement(model.PlaceComponent(ComponentKind::Label, {1, 2, 3, 4})), "align", "7");
    Set(model.EditElement(model.PlaceComponent(ComponentKind::Label, {1, 2, 3, 4})), "align", "1");
    model.DeleteComponent({ComponentKind::Label, 1});
    const ComponentRef group = model.PlaceComponent(ComponentKind::OptionGroup, {5, 6, 7, 8});
    Set(model.EditElement(group), "optionbuttons",
        JoinRadioButtons({{"r", "Rot\n", 1, 2, 3, 4, true}, {"s", "", -5, 6, 7, 8, false}}));
    Set(model.EditElement(model.PlaceComponent(ComponentKind::ComboBox, {9, 10, 11, 12})), "combovalues",
        std::string_view("a\0b", 3));
    cMenu& file = model.EditMenus().Append("Datei", "mDatei");
    cMenu* sub = file.AddEntry("Mehr", cMenu::SubMenu);
    sub->AddEntry("Neu", cMenu::Entry);
    sub->AddEntry("", cMenu::Separator);
    file.AddEntry("M", cMenu::Menu);
    model.EditMenus().Append("Hilfe", "");
    model.EditSql() = {"s", "", "p", "", "", {0, 1, 0}};
    EXPECT_EQ(DesignText(model), R"(Fenster
    Breite: 800
    Höhe: 600
    Autor: »«
Etikett hatEtikett2
    Breite: 3
    Höhe: 4
    Links: 1
    Oben: 2
    Beschriftung: »Etikett 2«
    Ausrichtung: Mitte
    Schriftgröße: 8
Radiogruppe hatOptionsgruppe1
    Breite: 7
    Höhe: 8
    Links: 5
    Oben: 6
    Radioknöpfe: Name r, Beschriftung Rot\x0A, Breite 1, Höhe 2, Links 3, Oben 4, Aktiviert Wahr
    Radioknöpfe: Name s, Beschriftung , Breite -5, Höhe 6, Links 7, Oben 8, Aktiviert Falsch
    Geklickt: an
Auswahl hatAuswahl1
    Breite: 11
    Höhe: 12
    Links: 9
    Oben: 10
    Einträge: »a«
    Einträge: »b«
    Geändert: aus
    Fokus erhalten: aus
    Fokus verloren: aus
Menüs
    Menüleiste: Menü »Datei«, Name mDatei
    Menüleiste: Untermenü »Mehr« in »Datei«, Ebene 1
    Menüleiste: Menüzeile »Neu« in »Mehr«, Ebene 2
    Menüleiste: Trennlinie in »Mehr«, Ebene 2
    Menüleiste: Menü »M« in »Datei«, Ebene 1
    Menüleiste: Menü »Hilfe«
Datenbank
    Server: »s«
    Username: »«
    Passwort: (wird nicht gezeigt)
    Datenbank: »«
    Name der Tabelle: »«
    AnzahlDerTabellen(): aus
    NameDerTabelle(int pIndex): an
    AnzahlDerEintraege(): aus
)");
}

TEST(DesignComparison, IsBoundedForDesignsThatShareNothing) {
    ProjectModel before;
    ProjectModel after;
    for (int i = 0; i < 10000; ++i) {
        before.PlaceComponent(ComponentKind::Button, {0, 0, 30, 30});
        after.PlaceComponent(ComponentKind::Button, {1, 0, 30, 30});
        Edit(after, ComponentKind::Button, static_cast<std::size_t>(i) + 1).ObjectName += "neu";
    }
    EXPECT_EQ(CompareDesigns(before, after).size(), 1000U);
}

} // namespace
} // namespace pirol
