#include "designer/ListText.h"
#include "designer/PropertyPanel.h"
#include "model/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace pirol {
namespace {

ComponentRef Place(ProjectModel& model, ComponentKind kind) {
    return model.PlaceComponent(kind, {30, 40, 120, 25});
}

/// The list as text: categories in brackets, every other row as key=shown text.
std::string Outline(const std::vector<PropertyPanelRow>& rows) {
    std::string text;
    for (const PropertyPanelRow& row : rows) {
        const std::string shown = row.isCategory ? "[" + std::string(row.key) + "]" : std::string(row.key);
        text += (text.empty() ? "" : " ") + shown + (row.isCategory ? "" : "=" + ShownText(row));
    }
    return text;
}

const PropertyPanelRow& RowWithKey(const std::vector<PropertyPanelRow>& rows, std::string_view key) {
    const auto row = std::find_if(rows.begin(), rows.end(), [key](const auto& other) { return other.key == key; });
    if (row == rows.end())
        throw std::runtime_error("no row " + std::string(key));
    return *row;
}

/// What the list holds for a key after an edit.
std::string ValueAfter(ProjectModel& model, ComponentRef component, std::string_view key, std::string_view value) {
    EXPECT_EQ(PropertyChanged(model, component, key, value), "") << key;
    return RowWithKey(LoadProperties(model, component), key).value;
}

TEST(PropertyPanel, RowsOfEveryKind) {
    constexpr std::string_view focus = " gotfocus=falsch lostfocus=falsch";
    const struct {
        ComponentKind kind;
        std::string name;
        std::string size;
        std::string own;
    } cases[] = {
        {ComponentKind::Label, "hatEtikett1", "120x25", "value=Etikett 1 align=Links fontsize=8"},
        {ComponentKind::Button, "hatKnopf1", "120x25", std::string("value=Knopf [events] click=falsch").append(focus)},
        {ComponentKind::TextField, "hatTextfeld1", "120x25",
         std::string("value=Textfeld 1 align=Links [events] changed=falsch validate=falsch").append(focus)},
        {ComponentKind::CharField, "hatZeichenbereich1", "120x25",
         std::string("value= [events] changed=falsch selectionchanged=falsch").append(focus)},
        {ComponentKind::RowField, "hatZeilenbereich1", "120x25",
         std::string("value= [events] changed=falsch selectionchanged=falsch").append(focus)},
        {ComponentKind::Password, "hatPasswortfeld1", "120x25",
         std::string("value= passchar=* align=Links [events] changed=falsch validate=falsch").append(focus)},
        {ComponentKind::CheckBox, "hatSchalter1", "120x25",
         std::string("value=Schalter 1 checked=falsch [events] click=falsch").append(focus)},
        {ComponentKind::OptionGroup, "hatOptionsgruppe1", "120x25", "optionbuttons=(leer) [events] click=wahr"},
        {ComponentKind::ComboBox, "hatAuswahl1", "120x25",
         std::string("combovalues=(leer) [events] changed=falsch").append(focus)},
        {ComponentKind::Slider, "hatRegler1", "120x25",
         std::string("currentvalue=0 min=0 max=100 [events] changed=falsch").append(focus)},
        {ComponentKind::ProgressBar, "hatFortschrittsbalken1", "120x25", "min=0 max=100 currentvalue=0"},
        {ComponentKind::Table, "hatTabelle1", "120x25",
         std::string("rows=5 columns=Spalte 1, Spalte 2, Spalte 3 [events] changed=falsch selectionchanged=falsch")
             .append(focus)},
        {ComponentKind::Picture, "hatBild1", "160x120", "file="},
        {ComponentKind::Sound, "hatTon1", "32x32", "file="},
        {ComponentKind::Movie, "hatFilm1", "160x120", "file="},
    };
    ASSERT_EQ(std::size(cases), kindCount);
    for (const auto& row : cases) {
        ProjectModel model;
        const auto size = Split(row.size, 'x');
        const std::string expected = "[general] name=" + row.name + " [position] width=" + std::string(size[0]) +
                                     " height=" + std::string(size[1]) + " left=30 top=40 [specific] " + row.own;
        EXPECT_EQ(Outline(LoadProperties(model, Place(model, row.kind))), expected);
    }
}

TEST(PropertyPanel, LabelsAndEditors) {
    ProjectModel model;
    const struct {
        ComponentKind kind;
        std::string_view key;
        std::string_view caption;
        EditorKind editor;
        std::string_view detail;
    } cases[] = {
        {ComponentKind::Label, "name", "Name", EditorKind::Text, ""},
        {ComponentKind::Label, "height", "Höhe", EditorKind::Number, ""},
        {ComponentKind::Label, "align", "Ausrichtung", EditorKind::Choice, "0|Links|1|Mitte|2|Rechts"},
        {ComponentKind::Label, "fontsize", "Schriftgröße", EditorKind::Number, ""},
        {ComponentKind::Password, "passchar", "Passwortzeichen", EditorKind::Character, ""},
        {ComponentKind::Password, "validate", "Eingabe bestätigt", EditorKind::Flag, ""},
        {ComponentKind::Slider, "changed", "Geändert", EditorKind::Flag, ""},
        {ComponentKind::Slider, "currentvalue", "Anfangswert", EditorKind::Number, ""},
        {ComponentKind::Table, "selectionchanged", "Markierung geändert", EditorKind::Flag, ""},
        {ComponentKind::Table, "columns", "Spalten", EditorKind::List, "Spalte|Beschriftung|tString|"},
        {ComponentKind::Picture, "file", "Bilddatei", EditorKind::File,
         "Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg"},
        {ComponentKind::Sound, "file", "Sounddatei", EditorKind::File, "Sounddateien (*.wav)|*.wav"},
        {ComponentKind::Movie, "file", "Videodatei", EditorKind::File,
         "Bilder (*.mov, *.aif, *.mpg)|*.mov; *.aif; *.mpg"},
    };
    for (const auto& expected : cases) {
        const auto rows = LoadProperties(model, Place(model, expected.kind));
        const PropertyPanelRow& row = RowWithKey(rows, expected.key);
        EXPECT_EQ(row.caption, expected.caption);
        EXPECT_EQ(row.editor, expected.editor) << expected.caption;
        EXPECT_EQ(row.detail, expected.detail);
    }
    const auto rows = LoadProperties(model, Place(model, ComponentKind::Table));
    EXPECT_EQ(RowWithKey(rows, "general").caption, "Allgemein");
    EXPECT_EQ(RowWithKey(rows, "position").caption, "Position");
    EXPECT_EQ(RowWithKey(rows, "specific").caption, "Objektspezifisch");
    EXPECT_EQ(RowWithKey(rows, "events").caption, "Ereignisse");
}

TEST(PropertyPanel, NothingSelected) {
    ProjectModel model;
    const auto rows = LoadProperties(model, std::nullopt);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].key, "noobject");
    EXPECT_EQ(rows[0].caption, "Kein Objekt gewählt");
    EXPECT_EQ(PropertyChanged(model, std::nullopt, "width", "no number"), "");
    EXPECT_FALSE(model.IsChanged());
}

TEST(PropertyPanel, EditsReachTheControl) {
    const std::string buttons = ListText("a/A/10/20/3/4/Wahr/b//1/2/3/4/Falsch");
    const struct {
        ComponentKind kind;
        std::string_view key;
        std::string value;
        std::string shown;
    } cases[] = {
        {ComponentKind::Label, "name", "hatTitel", "hatTitel"},
        {ComponentKind::Label, "left", "-32768", "-32768"},
        {ComponentKind::Label, "top", " 32767 ", "32767"},
        {ComponentKind::Label, "width", "12,5", "12"},
        {ComponentKind::Label, "height", "13.5", "14"},
        {ComponentKind::Label, "value", "Größe", "Größe"},
        {ComponentKind::Label, "value", "a\r\nb\1c", "a  b c"},
        {ComponentKind::Label, "align", "2", "2"},
        {ComponentKind::Label, "fontsize", "24", "24"},
        {ComponentKind::Slider, "currentvalue", "7", "7"},
        {ComponentKind::Slider, "min", "-5", "-5"},
        {ComponentKind::ProgressBar, "max", "55", "55"},
        {ComponentKind::Table, "rows", "12", "12"},
        {ComponentKind::Table, "columns", ListText("A/B\nC"), ListText("A/B C")},
        {ComponentKind::Table, "selectionchanged", "wahr", "wahr"},
        {ComponentKind::ComboBox, "combovalues", ListText("eins/zwei"), ListText("eins/zwei")},
        {ComponentKind::OptionGroup, "optionbuttons", buttons, buttons},
        {ComponentKind::OptionGroup, "click", "falsch", "falsch"},
        {ComponentKind::Picture, "file", "C:\\Bilder\\Haus.bmp", "C:\\Bilder\\Haus.bmp"},
        {ComponentKind::Password, "passchar", "•", "•"},
        {ComponentKind::Password, "validate", "TRUE", "wahr"},
        {ComponentKind::CheckBox, "checked", "-1", "wahr"},
        {ComponentKind::Button, "gotfocus", "wahr", "wahr"},
        {ComponentKind::Button, "lostfocus", "Wahr", "wahr"},
        {ComponentKind::TextField, "changed", "ja", "falsch"},
    };
    for (const auto& row : cases) {
        ProjectModel model;
        const ComponentRef component = Place(model, row.kind);
        EXPECT_EQ(ValueAfter(model, component, row.key, row.value), row.shown) << row.key;
    }
}

TEST(PropertyPanel, FlagsGoOnAndOff) {
    for (const KindRow& kind : KindRows()) {
        ProjectModel model;
        const ComponentRef component = Place(model, kind.kind);
        for (const PropertyPanelRow& row : LoadProperties(model, component)) {
            if (row.isCategory || row.editor != EditorKind::Flag)
                continue;
            EXPECT_EQ(ValueAfter(model, component, row.key, "wahr"), "wahr") << kind.key << row.key;
            EXPECT_EQ(ValueAfter(model, component, row.key, "falsch"), "falsch") << kind.key << row.key;
        }
    }
}

TEST(PropertyPanel, BadValuesLeaveTheDesignAsItWas) {
    const struct {
        ComponentKind kind;
        std::string_view key;
        std::string value;
        int error;
    } cases[] = {
        {ComponentKind::Label, "width", "breit", 13},
        {ComponentKind::Label, "width", "", 13},
        {ComponentKind::Label, "left", "1 000", 13},
        {ComponentKind::Label, "top", "1e3", 13},
        {ComponentKind::Label, "height", "32768", 6},
        {ComponentKind::Label, "left", "-32768,6", 6},
        {ComponentKind::Label, "align", "Mitte", 13},
        {ComponentKind::Label, "fontsize", "99999999999999999999", 6},
        {ComponentKind::Table, "rows", "0x10", 13},
        {ComponentKind::OptionGroup, "optionbuttons", "only a name", 9},
        {ComponentKind::OptionGroup, "optionbuttons", ListText("a/A/x/y/z/w/v"), 13},
    };
    for (const auto& row : cases) {
        ProjectModel model;
        const ComponentRef component = Place(model, row.kind);
        model.MarkUnchanged({});
        const ProjectModel before = model;
        try {
            PropertyChanged(model, component, row.key, row.value);
            ADD_FAILURE() << row.key << " took " << row.value;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.ErrorNumber(), row.error) << row.key << "=" << row.value;
            EXPECT_EQ(error.Label(), "Main.File.Properties.PropertyChanged");
        }
        EXPECT_TRUE(model == before) << row.key;
        EXPECT_FALSE(model.IsChanged()) << row.key;
    }
}

TEST(PropertyPanel, KeysThatAComponentDoesNotHaveChangeNothing) {
    const std::string_view keysTried[] = {"firstvalue", "Width",  "WIDTH", "width ", "",     "general",
                                          "noobject",   "events", "rows",  "align",  "file", "ObjectName"};
    ProjectModel model;
    const ComponentRef button = Place(model, ComponentKind::Button);
    model.MarkUnchanged({});
    const ProjectModel before = model;
    for (const std::string_view key : keysTried)
        EXPECT_EQ(PropertyChanged(model, button, key, "17"), "") << key;
    EXPECT_TRUE(model == before);
    EXPECT_FALSE(model.IsChanged());
}

TEST(PropertyPanel, RefusesNamesAndCharactersWithAMessage) {
    ProjectModel model;
    const ComponentRef first = Place(model, ComponentKind::Button);
    const ComponentRef second = Place(model, ComponentKind::Label);
    const ComponentRef password = Place(model, ComponentKind::Password);
    model.MarkUnchanged({});
    const ProjectModel before = model;
    const struct {
        ComponentRef component;
        std::string_view key;
        std::string_view value;
        std::string_view message;
    } cases[] = {
        {first, "name", "", "Der Name darf nicht leer sein."},
        {first, "name", " \n ", "Der Name darf nicht leer sein."},
        {first, "name", "hatEtikett1", "Dieser Name ist bereits vergeben."},
        {second, "name", "hatKnopf1", "Dieser Name ist bereits vergeben."},
        {password, "passchar", "", "Das Passwortzeichen muss genau ein Zeichen sein."},
        {password, "passchar", "ab", "Das Passwortzeichen muss genau ein Zeichen sein."},
    };
    for (const auto& row : cases)
        EXPECT_EQ(PropertyChanged(model, row.component, row.key, row.value), row.message);
    EXPECT_TRUE(model == before);
    EXPECT_FALSE(model.IsChanged());

    // The name of a deleted component is free again, and a component may keep its own.
    model.DeleteComponent(second);
    EXPECT_EQ(ValueAfter(model, first, "name", "hatEtikett1"), "hatEtikett1");
    EXPECT_EQ(ValueAfter(model, first, "name", "hatEtikett1"), "hatEtikett1");
}

TEST(PropertyPanel, AnnouncesRealChangesOnly) {
    ProjectModel model;
    const ComponentRef label = Place(model, ComponentKind::Label);
    model.TakeChanges();
    PropertyChanged(model, label, "width", "120,4");
    EXPECT_TRUE(model.TakeChanges().empty());
    PropertyChanged(model, label, "width", "121");
    const std::vector<Change> changes = model.TakeChanges();
    ASSERT_EQ(changes.size(), 1U);
    EXPECT_EQ(changes[0].component, label);
    EXPECT_EQ(changes[0].before.width, 120);
}

TEST(PropertyPanel, AGoneComponentIsAnError) {
    ProjectModel model;
    const ComponentRef gone{ComponentKind::Table, 3};
    const struct {
        std::function<void()> operation;
        std::string_view label;
    } cases[] = {
        {[&] { LoadProperties(model, gone); }, "Main.File.Properties.LoadProperties"},
        {[&] { PropertyChanged(model, gone, "width", "1"); }, "Main.File.Properties.PropertyChanged"},
    };
    for (const auto& row : cases)
        try {
            row.operation();
            ADD_FAILURE() << row.label;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.ErrorNumber(), RuntimeError::IndexOutOfRange);
            EXPECT_EQ(error.Label(), row.label);
        }
}

TEST(PropertyPanel, ShownTextIsShort) {
    const std::string_view buttons = keys::optionbuttons.detail;
    const std::string rows = ListText("n/Rot/1/2/3/4/Falsch/m/Blau/1/2/3/4/Wahr");
    const struct {
        EditorKind editor;
        std::string_view detail;
        std::string value;
        std::string shown; ///< within 8 bytes
    } cases[] = {
        {EditorKind::Text, "", "12345678", "12345678"},
        {EditorKind::Text, "", "123456789", "12345678…"},
        {EditorKind::Text, "", "1234567ä9", "1234567…"},
        {EditorKind::Text, "", "ääää", "ääää"},
        {EditorKind::Choice, "0|Links|1|Mitte|2|Rechts", "1", "Mitte"},
        {EditorKind::Choice, "0|Links|1|Mitte|2|Rechts", "3", "3"},
        {EditorKind::List, "Spalte|Beschriftung|tString|", ListText("a//b"), "a, , b"},
        {EditorKind::List, "Spalte|Beschriftung|tString|", ListText("a/b/c/d"), "a, b, c,…"},
        {EditorKind::List, buttons, rows, "Rot, Bla…"},
        {EditorKind::List, buttons, "", "(leer)"},
    };
    for (const auto& row : cases)
        EXPECT_EQ(ShownText({"key", "caption", false, row.value, row.editor, row.detail}, 8), row.shown);
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
