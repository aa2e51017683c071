#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace pirol {

/// The kinds of component. The number is the toolbar button's and the project file's kind code; files and generated
/// code list the kinds in this order.
enum class ComponentKind {
    Label = 1,
    Button,
    TextField,
    CharField,
    RowField,
    Password,
    CheckBox,
    OptionGroup,
    ComboBox,
    Slider,
    ProgressBar,
    Table,
    Picture,
    Sound,
    Movie,
    EndOfKinds, ///< no kind; behind the last one, so that the kinds can be counted
};

/// The kind's place among all kinds, from 0.
constexpr std::size_t Position(ComponentKind kind) {
    return static_cast<std::size_t>(kind) - 1;
}

inline constexpr std::size_t kindCount = Position(ComponentKind::EndOfKinds);

/// What a screen reader calls a component.
enum class AccessibleRole {
    StaticText = 1,
    Button,
    EditableText,
    CheckBox,
    Grouping,
    ComboBox,
    Slider,
    ProgressBar,
    Table,
    Graphic,
    Sound,
    Animation,
};

/// What a kind is called wherever it appears, and how it differs from the others.
struct KindRow {
    ComponentKind kind;
    std::string_view key;
    std::string_view imageKey;      ///< the toolbar bitmap's name is this in upper case
    std::string_view control;       ///< the design-time control
    std::string_view javaClass;     ///< the class of the SuM library
    std::string_view toolbarLabel;  ///< caption of the toolbar button
    std::string_view menuLabel;     ///< what the user calls a component; caption of the menu entry
    std::string_view menuCaption;   ///< the same with "&" before its mnemonic
    std::string_view namePrefix;    ///< object name without its running number
    std::string_view captionPrefix; ///< caption at placement without its number; empty: the control's own default
    AccessibleRole role;
    bool isMultimedia; ///< keeps the size that its control gives it and is not resized on the canvas
};

// The toolbar's caption of the picture kind is misspelt and stays so; the menu spells it right.
// clang-format off
inline constexpr std::array<KindRow, kindCount> kindRows = {{
    // kind                      key            image       control            Java class            toolbar               menu                  menu with mnemonic     name prefix              caption       role                          multimedia
    {ComponentKind::Label,       "label",       "label",    "dEtikett",        "Etikett",            "Etikett",            "Etikett",            "&Etikett",            "hatEtikett",            "Etikett ",   AccessibleRole::StaticText,   false},
    {ComponentKind::Button,      "button",      "button",   "dButton",         "Knopf",              "Knopf",              "Knopf",              "&Knopf",              "hatKnopf",              "",           AccessibleRole::Button,       false},
    {ComponentKind::TextField,   "textfield",   "text",     "dText",           "Textfeld",           "Textfeld",           "Textfeld",           "&Textfeld",           "hatTextfeld",           "Textfeld ",  AccessibleRole::EditableText, false},
    {ComponentKind::CharField,   "charfield",   "field",    "dZeichenbereich", "Zeichenbereich",     "Zeichenbereich",     "Zeichenbereich",     "&Zeichenbereich",     "hatZeichenbereich",     "",           AccessibleRole::EditableText, false},
    {ComponentKind::RowField,    "rowfield",    "rowfield", "dZeilenbereich",  "Zeilenbereich",      "Zeilenbereich",      "Zeilenbereich",      "Zeilen&bereich",      "hatZeilenbereich",      "",           AccessibleRole::EditableText, false},
    {ComponentKind::Password,    "password",    "password", "dPassword",       "Kennwortfeld",       "Kennwortfeld",       "Kennwortfeld",       "Kenn&wortfeld",       "hatPasswortfeld",       "",           AccessibleRole::EditableText, false},
    {ComponentKind::CheckBox,    "checkbox",    "check",    "dSchalter",       "Schalter",           "Schalter",           "Schalter",           "&Schalter",           "hatSchalter",           "Schalter ",  AccessibleRole::CheckBox,     false},
    {ComponentKind::OptionGroup, "optiongroup", "option",   "dOptionsgruppe",  "Radiogruppe",        "Radiogruppe",        "Radiogruppe",        "Ra&diogruppe",        "hatOptionsgruppe",      "",           AccessibleRole::Grouping,     false},
    {ComponentKind::ComboBox,    "combobox",    "combo",    "dAuswahl",        "Auswahl",            "Auswahl",            "Auswahl",            "&Auswahl",            "hatAuswahl",            "",           AccessibleRole::ComboBox,     false},
    {ComponentKind::Slider,      "slider",      "slider",   "dRegler",         "Regler",             "Regler",             "Regler",             "Re&gler",             "hatRegler",             "",           AccessibleRole::Slider,       false},
    {ComponentKind::ProgressBar, "progressbar", "progress", "dFortschritt",    "Fortschrittsbalken", "Fortschrittsbalken", "Fortschrittsbalken", "&Fortschrittsbalken", "hatFortschrittsbalken", "",           AccessibleRole::ProgressBar,  false},
    {ComponentKind::Table,       "table",       "table",    "dTabelle",        "Tabelle",            "Tabelle",            "Tabelle",            "Tabe&lle",            "hatTabelle",            "",           AccessibleRole::Table,        false},
    {ComponentKind::Picture,     "picture",     "picture",  "dBild",           "Bild",               "Mutlimedia: Bild",   "Multimedia: Bild",   "&Multimedia: Bild",   "hatBild",               "",           AccessibleRole::Graphic,      true},
    {ComponentKind::Sound,       "sound",       "sound",    "dMusik",          "Ton",                "Multimedia: Ton",    "Multimedia: Ton",    "Multimedia: To&n",    "hatTon",                "",           AccessibleRole::Sound,        true},
    {ComponentKind::Movie,       "movie",       "movie",    "dVideo",          "Film",               "Multimedia: Film",   "Multimedia: Film",   "Multimedia: F&ilm",   "hatFilm",               "",           AccessibleRole::Animation,    true},
}};
// clang-format on

/// Whether a table has a row for every kind, each at its kind's position. Tables by kind check this when they are
/// compiled.
template <class Row, std::size_t count>
constexpr bool HasEveryKind(const std::array<Row, count>& rows) {
    for (std::size_t position = 0; position < count; ++position)
        if (Position(rows[position].kind) != position)
            return false;
    return count == kindCount;
}

/// Whether no column is empty that every kind needs, and the menu's two captions agree.
constexpr bool IsComplete(const KindRow& row) {
    for (const auto column : {&KindRow::key, &KindRow::imageKey, &KindRow::control, &KindRow::javaClass,
                              &KindRow::toolbarLabel, &KindRow::namePrefix})
        if ((row.*column).empty())
            return false;
    const std::size_t mnemonic = row.menuCaption.find('&');
    return row.role != AccessibleRole{} && !row.menuLabel.empty() && mnemonic < row.menuLabel.size() &&
           row.menuCaption.substr(0, mnemonic) == row.menuLabel.substr(0, mnemonic) &&
           row.menuCaption.substr(mnemonic + 1) == row.menuLabel.substr(mnemonic);
}

static_assert(HasEveryKind(kindRows), "every kind needs its row, in the order of the kinds");
static_assert(std::all_of(kindRows.begin(), kindRows.end(), IsComplete), "a kind's row lacks a column");

/// The row of a kind; constant time.
constexpr const KindRow& RowOf(ComponentKind kind) {
    return kindRows[Position(kind)];
}

/// All rows in the order of the kinds.
constexpr const std::array<KindRow, kindCount>& KindRows() {
    return kindRows;
}

/// Pictures, sounds and films keep the size their control gives them and are not resized on the canvas.
constexpr bool IsMultimedia(ComponentKind kind) {
    return RowOf(kind).isMultimedia;
}

/// Kinds by number (from 1), by kind key, by design-time control and by Java class; nothing when there is none.
std::optional<ComponentKind> KindByNumber(int number);
std::optional<ComponentKind> KindByKey(std::string_view key);
std::optional<ComponentKind> KindByControl(std::string_view control);
std::optional<ComponentKind> KindByJavaClass(std::string_view javaClass);

} // namespace pirol
