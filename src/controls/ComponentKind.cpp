#include "controls/ComponentKind.h"

#include "controls/Oddities.h"

namespace pirol {
namespace {

using enum ComponentKind;

// clang-format off
constexpr std::array<KindRow, kindCount> rows = {{
    // kind       key            image       control            Java class            toolbar               menu                  name prefix              caption
    {Label,       "label",       "label",    "dEtikett",        "Etikett",            "Etikett",            "Etikett",            "hatEtikett",            "Etikett "},
    {Button,      "button",      "button",   "dButton",         "Knopf",              "Knopf",              "Knopf",              "hatKnopf",              ""},
    {TextField,   "textfield",   "text",     "dText",           "Textfeld",           "Textfeld",           "Textfeld",           "hatTextfeld",           "Textfeld "},
    {CharField,   "charfield",   "field",    "dZeichenbereich", "Zeichenbereich",     "Zeichenbereich",     "Zeichenbereich",     "hatZeichenbereich",     ""},
    {RowField,    "rowfield",    "rowfield", "dZeilenbereich",  "Zeilenbereich",      "Zeilenbereich",      "Zeilenbereich",      "hatZeilenbereich",      ""},
    {Password,    "password",    "password", "dPassword",       "Kennwortfeld",       "Kennwortfeld",       "Kennwortfeld",       "hatPasswortfeld",       ""},
    {CheckBox,    "checkbox",    "check",    "dSchalter",       "Schalter",           "Schalter",           "Schalter",           "hatSchalter",           "Schalter "},
    {OptionGroup, "optiongroup", "option",   "dOptionsgruppe",  "Radiogruppe",        "Radiogruppe",        "Radiogruppe",        "hatOptionsgruppe",      ""},
    {ComboBox,    "combobox",    "combo",    "dAuswahl",        "Auswahl",            "Auswahl",            "Auswahl",            "hatAuswahl",            ""},
    {Slider,      "slider",      "slider",   "dRegler",         "Regler",             "Regler",             "Regler",             "hatRegler",             ""},
    {ProgressBar, "progressbar", "progress", "dFortschritt",    "Fortschrittsbalken", "Fortschrittsbalken", "Fortschrittsbalken", "hatFortschrittsbalken", ""},
    {Table,       "table",       "table",    "dTabelle",        "Tabelle",            "Tabelle",            "Tabelle",            "hatTabelle",            ""},
    {Picture,     "picture",     "picture",  "dBild",           "Bild",               oddities::pictureToolbarLabel, "Multimedia: Bild", "hatBild",       ""},
    {Sound,       "sound",       "sound",    "dMusik",          "Ton",                "Multimedia: Ton",    "Multimedia: Ton",    "hatTon",                ""},
    {Movie,       "movie",       "movie",    "dVideo",          "Film",               "Multimedia: Film",   "Multimedia: Film",   "hatFilm",               ""},
}};
// clang-format on

std::optional<ComponentKind> Find(std::string_view KindRow::*column, std::string_view text) {
    for (const KindRow& row : rows)
        if (row.*column == text)
            return row.kind;
    return std::nullopt;
}

} // namespace

const KindRow& RowOf(ComponentKind kind) {
    return rows[Position(kind)];
}

const std::array<KindRow, kindCount>& KindRows() {
    return rows;
}

std::optional<ComponentKind> KindByNumber(int number) {
    if (number < 1 || number > static_cast<int>(kindCount))
        return std::nullopt;
    return static_cast<ComponentKind>(number);
}

std::optional<ComponentKind> KindByKey(std::string_view key) {
    return Find(&KindRow::key, key);
}

std::optional<ComponentKind> KindByControl(std::string_view control) {
    return Find(&KindRow::control, control);
}

std::optional<ComponentKind> KindByJavaClass(std::string_view javaClass) {
    return Find(&KindRow::javaClass, javaClass);
}

} // namespace pirol
