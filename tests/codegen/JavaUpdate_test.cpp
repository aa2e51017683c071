#include "base/Conversions.h"
#include "base/Text.h"
#include "codegen/JavaUpdate.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

using Edit = void (*)(ProjectModel&, UpdateOptions&);

Control& Element(ProjectModel& model, ComponentKind kind) {
    return model.EditElement({kind, 1});
}

/// A button with a click, a switch that is on, a sound, a text area, and a database.
ProjectModel Design() {
    ProjectModel model;
    const auto place = [&model](ComponentKind kind) -> Control& {
        return model.EditElement(model.PlaceComponent(kind, {10, 20, 80, 30}));
    };
    static_cast<dButton&>(place(ComponentKind::Button)).EventClick = true;
    static_cast<dSchalter&>(place(ComponentKind::CheckBox)).Checked = true;
    place(ComponentKind::Sound);
    place(ComponentKind::RowField);
    model.EditSql().Server = "localhost";
    return model;
}

void Nothing(ProjectModel&, UpdateOptions&) {}
void NoClick(ProjectModel& model, UpdateOptions&) {
    static_cast<dButton&>(Element(model, ComponentKind::Button)).EventClick = false;
}
void NoButton(ProjectModel& model, UpdateOptions&) {
    model.DeleteComponent({ComponentKind::Button, 1});
}
void NoDatabase(ProjectModel& model, UpdateOptions& options) {
    model.EditSql().Server.clear();
    options.withoutDatabase = true;
}
void NewName(ProjectModel& model, UpdateOptions& options) {
    Element(model, ComponentKind::Button).ObjectName = "hatStart";
    Element(model, ComponentKind::Sound).ObjectName = "hatKnopf1"; // the old name goes to another one
    options.renames = {{"hatKnopf1", "hatStart"}, {"hatTon1", "hatKnopf1"}};
}
void OddName(ProjectModel& model, UpdateOptions&) {
    Element(model, ComponentKind::Button).ObjectName = "mein Knopf";
}
void OtherArea(ProjectModel& model, UpdateOptions& options) {
    model.DeleteComponent({ComponentKind::RowField, 1});
    Control& area = model.EditElement(model.PlaceComponent(ComponentKind::CharField, {10, 99, 80, 30}));
    area.ObjectName = "hatZeilenbereich1";
    options.isUnknown = [](std::string_view, std::string_view) { return false; };
}
void JustLoaded(ProjectModel& model, UpdateOptions& options) {
    OtherArea(model, options);
    auto& box = static_cast<dSchalter&>(Element(model, ComponentKind::CheckBox));
    box.Checked = false;
    box.Left = 11;
    options.isUnknown = [](std::string_view, std::string_view) { return true; };
}

/// What is put into the generated source in place of what, what becomes of the design, and what the update gives: texts
/// that are there, one that is not, and a line of the report. "" for none, "=" for no change.
struct Case {
    std::string_view what, with;
    Edit edit;
    std::string_view there, alsoThere, notThere, report;
};

constexpr std::string_view stub = "        //   Hier wird der Methodeninhalt eingefügt\r\n";

const Case cases[] = {
    // The pupil's layout, statements over several lines, comments and modifiers are no changes.
    {"        ", "\t", Nothing, "=", "", "", ""},
    {"\r\n", "\n", Nothing, "=", "", "", ""},
    {"new Knopf(10, 20,", "new Knopf(10,\r\n   20,", Nothing, "=", "", "", ""},
    {"    Knopf hatKnopf1;", "    private Knopf hatKnopf1; // meiner", Nothing, "=", "", "", ""},
    {"Knopf hatKnopf1;", "Knopf hatKnopf1, zweiter;", Nothing, "=", "", "", ""},
    {"super(640, 480)", "super(5, 6, 640, 480)", Nothing, "=", "", "", ""},
    {"extends EBAnwendung", "extends sum.ereignis.EBAnwendung implements Runnable", Nothing, "=", "", "", ""},
    {"//import sum.werkzeuge.*;", "import sum.werkzeuge.*;", Nothing, "=", "", "", ""},
    {"//hatTon1.spieleTon();", "hatTon1.spieleTon();", Nothing, "=", "", "", ""},
    {"}\r\n\r\n    public void",
     "}\r\n/*\r\n    public void hatKnopf1Geklickt()\r\n    {\r\n    }\r\n*/\r\n    public void", Nothing, "=", "", "",
     ""},
    {"\r\n}", "\r\n    class Innen { Knopf hatKnopf1; public void hatKnopf1Geklickt() { tue(); } }\r\n}", Nothing, "=",
     "", "", ""},
    {"\r\n}", "\r\n    public void hatKnopf1Geklickt(int a) { }\r\n}\r\nclass Andere { }", Nothing, "=", "", "", ""},
    {"        hatSchalter1 =",
     "        new Thread(new Runnable() { public void run() { tue(); } });\r\n        hatSchalter1 =", Nothing, "=", "",
     "", ""},
    {"    Knopf hatKnopf1;", "    SuMAnwendung f = new\r\n        SuMAnwendung() { };\r\n    Knopf hatKnopf1;", Nothing,
     "=", "", "", ""},
    // What he changed of the design's values becomes the design's again, and both are named.
    {"10, 20, 80, 30, \"Knopf\");", "11, 20, f(breite), 30, \"Knopf\"); // hier", Nothing,
     "new Knopf(10, 20, 80, 30, \"Knopf\"); // hier\r\n", "", "breite",
     "geändert: hatKnopf1: 11, 20, f(breite), 30, \"Knopf\" wird 10, 20, 80, 30, \"Knopf\""},
    {"new Schalter(10", "new Schalter(12", Nothing, "new Schalter(10", "", "", "geändert: hatSchalter1: 12"},
    // Handlers: an empty one goes with its event, a changed one stays.
    {"", "", NoClick, "hatKnopf1 = new", "", "Geklickt", "entfernt: Methode hatKnopf1Geklickt()"},
    {stub, "        tue();\r\n", NoClick, "hatKnopf1Geklickt()\r\n    {\r\n        tue();", "", "setzeBearbeiter",
     "behalten: Methode hatKnopf1Geklickt() gehört zu keinem Ereignis mehr"},
    {"\r\n}", "\r\n    void a() { tue(\"\\\" /*\"); hatKnopf1Geklickt(); }\r\n}", NoClick, stub,
     "hatKnopf1Geklickt(); }", "", ""},
    {"    public void hat", "    final public void hat", NoClick, "    final public void hatKnopf1Geklickt()", "", "",
     "behalten: Methode hatKnopf1Geklickt() gehört zu keinem Ereignis mehr"},
    {"    }\r\n\r\n    public void hat",
     "    }\r\n\r\n    public void a()\r\n    {\r\n        "
     "hatKnopf1.setzeBearbeiterGeklickt(\"hatKnopf1Geklickt\");\r\n"
     "    }\r\n\r\n    public void hat",
     NoClick, stub, "public void a()", "", "entfernt: hatKnopf1.setzeBearbeiterGeklickt"},
    {"eingefügt\r\n    }", "eingefügt\r\n        }", NoClick, stub, "", "",
     "behalten: Methode hatKnopf1Geklickt() gehört zu keinem Ereignis mehr"},
    // What is half written is his.
    {"schalteAn();", "schalteAn()", Nothing, "schalteAn()\r\n", "schalteAn();\r\n", "",
     "neu: hatSchalter1.schalteAn();"},
    {"Knopf hatKnopf1;", "Knopf hatKnopf1 = new Knopf(1, 2, 3, 4, \"K\");", Nothing, "=", "", "",
     "gemeldet: hatKnopf1 wird schon bei der Deklaration erzeugt"},
    // A component that is gone: its lines go, his stay and are named.
    {"\r\n}", "\r\n    void a() { hatKnopf1.verstecke(); }\r\n}", NoButton, "void a() { hatKnopf1.verstecke(); }", "",
     "new Knopf", "gemeldet: hatKnopf1 gibt es nicht mehr: void a() { hatKnopf1.verstecke(); }"},
    {"        hat", "        /* auf */ /* offen\r\n        hat", NoButton,
     "        /* auf */ /* offen\r\n        hatTon1", "", "new Knopf", "entfernt: Knopf hatKnopf1"},
    {"Geklickt\");", "Geklickt\"); // Start", NoButton, "        // Start\r\n", "", "hatKnopf1",
     "entfernt: Knopf hatKnopf1"},
    {"Knopf hatKnopf1;", "Knopf hatKnopf1;\r\n    Knopf eigener;", NoButton, "    Knopf eigener;\r\n", "", "hatKnopf1",
     ""},
    {"", "", OddName, "        mein Knopf = new Knopf(10", "", "hatKnopf1", "neu: mein Knopf = new Knopf(10"},
    {"\"Knopf\");",
     "\""
     "ßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßß"
     "ßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßß"
     "ßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßß"
     "ßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßßß"
     "\");",
     Nothing, "\"Knopf\");", "", "ß", "ß ...\n"},
    // Blocks and their import.
    {"", "", NoDatabase, "", "", "sum.sql", "entfernt: Datenbank hatDatenbank"},
    {"            hatErgebnisliste =", "            if (x) { tue(7); }\r\n            hatErgebnisliste =", NoDatabase,
     "            if (x) { tue(7); }\r\n    }", "", "hatDatenbank", "entfernt: }"},
    {"            hatDatenbank.sendeSQL(\"SELECT * FROM \");\r\n", "", Nothing, "=", "", "",
     "behalten: Die Anweisungen für die Datenbank sind verändert"},
    {"\r\n}", "\r\n    Datenbank meine;\r\n}", NoDatabase, "import sum.sql.*;", "", "hatDatenbank",
     "behalten: import sum.sql.*; wird noch gebraucht"},
    // New names reach his lines, but neither texts nor comments.
    {stub,
     "        hatKnopf1.a(\"hatKnopf1\"); // hatKnopf1\r\n        hatTon1.b();\r\n        "
     "x.setzeBearbeiterGeklickt(\"hatKnopf1\");\r\n        "
     "hatKnopf1.setzeBearbeiterGeklickt(\"hatKnopf1Geklickt\");\r\n",
     NewName,
     "public void hatStartGeklickt()\r\n    {\r\n        hatStart.a(\"hatKnopf1\"); // hatKnopf1\r\n        "
     "hatKnopf1.b();\r\n        x.setzeBearbeiterGeklickt(\"hatKnopf1\");\r\n        "
     "hatStart.setzeBearbeiterGeklickt(\"hatStartGeklickt\");",
     "//hatKnopf1.spieleTon();", "hatTon1", "umbenannt: hatKnopf1 heißt jetzt hatStart"},
    // What a project file does not hold stays as the source has it.
    {"", "", OtherArea, "hatZeilenbereich1 = new Zeichenbereich(10, 99", "    Zeichenbereich hatZeilenbereich1;",
     "new Zeilenbereich", ""},
    {"", "", JustLoaded, "new Schalter(11, 20, 80, 30, \"Schalter 1\");\r\n        hatSchalter1.schalteAn();",
     "    Zeilenbereich hatZeilenbereich1;", "Zeichenbereich", "geändert: hatZeilenbereich1: 10, 20"},
};

TEST(JavaUpdate, KeepsWhatIsThePupilsAndBringsTheRestUpToDate) {
    for (const Case& test : cases) {
        ProjectModel model = Design();
        std::string source = GenerateCode(model, {.menu = false, .database = true});
        source = test.what.empty() ? source : ReplaceAll(source, test.what, test.with);
        UpdateOptions options;
        test.edit(model, options);
        const JavaUpdate update = UpdateJava(source, model, options);
        std::string report;
        for (const UpdateEntry& entry : update.entries)
            Append(report, WordOf(entry.action), ": ", entry.text, "\n");
        if (test.there == "=")
            EXPECT_TRUE(update.source == source) << test.with << "\n" << update.source << report;
        else
            EXPECT_NE(update.source.find(test.there), std::string::npos) << test.there << update.source << report;
        EXPECT_NE(update.source.find(test.alsoThere), std::string::npos) << test.alsoThere << update.source;
        EXPECT_TRUE(test.notThere.empty() || update.source.find(test.notThere) == std::string::npos)
            << test.notThere << update.source;
        EXPECT_NE(report.find(test.report), std::string::npos) << test.report << "\n" << report;
        options.renames.clear();
        EXPECT_EQ(UpdateJava(update.source, model, options).source, update.source);
    }
}

struct RefusalRow {
    std::string_view what, with, message;
};

constexpr RefusalRow refusals[] = {
    {"extends EBAnwendung", "", "Zeile 1: Es gibt keine Klasse, die EBAnwendung erweitert."},
    {"\r\n}", "\r\n}\r\nclass B extends EBAnwendung { }", "Mehr als eine Klasse erweitert EBAnwendung."},
    {"public SuMAnwendung()", "public SuMAnwendung(int a)",
     "Zeile 7: Die Klasse SuMAnwendung hat keinen Konstruktor ohne Parameter."},
    {"    Knopf hatKnopf1;", "    Knopf hatKnopf1;\r\n    Knopf hatKnopf1;",
     "Zeile 11: Das Feld hatKnopf1 ist zweimal deklariert, zuerst in Zeile 10."},
    {"Knopf hatKnopf1;", "int hatKnopf1;",
     "Zeile 10: Hier ist hatKnopf1 ein eigenes Feld der Klasse int; im Entwurf heißt so ein Objekt der Klasse Knopf."},
    {"Knopf hatKnopf1;", "java.util.Map<String, java.util.List<Knopf>> hatKnopf1;",
     "Hier ist hatKnopf1 ein eigenes Feld der Klasse Map;"},
    {"Knopf hatKnopf1;", "int a = f(g(1), 2), b[] = {3, 4}, hatKnopf1;",
     "Hier ist hatKnopf1 ein eigenes Feld der Klasse int;"},
    {"\r\n}", "\r\n    void hatKnopf1Geklickt() { }\r\n}",
     "Die Methode hatKnopf1Geklickt() steht zweimal da, zuerst in Zeile"},
};

TEST(JavaUpdate, RefusesWhatItCannotTellApart) {
    for (const RefusalRow& row : refusals) {
        const ProjectModel model = Design();
        try {
            UpdateJava(ReplaceAll(GenerateCode(model, {}), row.what, row.with), model, {});
            ADD_FAILURE() << row.message;
        } catch (const UpdateRefusal& refusal) {
            EXPECT_NE(std::string_view(refusal.what()).find(row.message), std::string_view::npos) << refusal.what();
        }
    }
}

} // namespace
} // namespace pirol
