#pragma once

#include "controls/ComponentKind.h"
#include "controls/cRadioButton.h"
#include "controls/Oddities.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

struct Control;

/// How the property list edits a value.
enum class EditorKind { Text, Number, Flag, Choice, Character, File, List };

/// A row of the property list: what it is called and how it is edited.
struct PropertyKey {
    std::string_view key;
    std::string_view label;
    std::string_view property; ///< the control's property, by its name in the code
    EditorKind editor;
    std::string_view detail; ///< choices, file filter or row descriptor, as the editor kind needs it
};

namespace keys {
// clang-format off
inline constexpr PropertyKey name            {"name",             "Name",                "ObjectName",            EditorKind::Text,   {}};
inline constexpr PropertyKey width           {"width",            "Breite",              "Width",                 EditorKind::Number, {}};
inline constexpr PropertyKey height          {"height",           "Höhe",                "Height",                EditorKind::Number, {}};
inline constexpr PropertyKey left            {"left",             "Links",               "Left",                  EditorKind::Number, {}};
inline constexpr PropertyKey top             {"top",              "Oben",                "Top",                   EditorKind::Number, {}};
inline constexpr PropertyKey value           {"value",            "Beschriftung",        "Caption",               EditorKind::Text,   {}};
inline constexpr PropertyKey align           {"align",            "Ausrichtung",         "Align",                 EditorKind::Choice, "0|Links|1|Mitte|2|Rechts"};
inline constexpr PropertyKey fontsize        {"fontsize",         "Schriftgröße",        "FontSize",              EditorKind::Number, {}};
inline constexpr PropertyKey gotfocus        {"gotfocus",         "Fokus erhalten",      "EventGotFocus",         EditorKind::Flag,   {}};
inline constexpr PropertyKey lostfocus       {"lostfocus",        "Fokus verloren",      "EventLostFocus",        EditorKind::Flag,   {}};
inline constexpr PropertyKey click           {"click",            "Geklickt",            "EventClick",            EditorKind::Flag,   {}};
inline constexpr PropertyKey changed         {"changed",          "Geändert",            "EventChanged",          EditorKind::Flag,   {}};
inline constexpr PropertyKey validate        {"validate",         "Eingabe bestätigt",   "EventValidate",         EditorKind::Flag,   {}};
inline constexpr PropertyKey selectionchanged{"selectionchanged", "Markierung geändert", "EventSelectionChanged", EditorKind::Flag,   {}};
inline constexpr PropertyKey passchar        {"passchar",         "Passwortzeichen",     "PassChar",              EditorKind::Character, {}};
inline constexpr PropertyKey checked         {"checked",          "Angeschaltet",        "Checked",               EditorKind::Flag,   {}};
inline constexpr PropertyKey optionbuttons   {"optionbuttons",    "Radioknöpfe",         "OptionButtons",         EditorKind::List,
    "Radioknopf|Name|tString|hatRadioKnopf|Beschriftung|tString||Breite|tNumber|150|Höhe|tNumber|20|Links|tNumber|0|Oben|tNumber|0|Aktiviert|tBoolean|False"};
inline constexpr PropertyKey combovalues     {"combovalues",      "Einträge",            "Entries",               EditorKind::List,   "Listeneintrag|Beschriftung|tString|"};
inline constexpr PropertyKey currentvalue    {"currentvalue",     "Anfangswert",         "value",                 EditorKind::Number, {}};
inline constexpr PropertyKey min             {"min",              "Minimum",             "Min",                   EditorKind::Number, {}};
inline constexpr PropertyKey max             {"max",              "Maximum",             "Max",                   EditorKind::Number, {}};
inline constexpr PropertyKey rows            {"rows",             "Zeilen",              "Rows",                  EditorKind::Number, {}};
inline constexpr PropertyKey columns         {"columns",          "Spalten",             "Columns",               EditorKind::List,   "Spalte|Beschriftung|tString|"};
inline constexpr PropertyKey pictureFile     {"file",             "Bilddatei",           "File",                  EditorKind::File,   "Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg"};
inline constexpr PropertyKey soundFile       {"file",             "Sounddatei",          "File",                  EditorKind::File,   "Sounddateien (*.wav)|*.wav"};
inline constexpr PropertyKey movieFile       {"file",             "Videodatei",          "File",                  EditorKind::File,   oddities::movieFilter};
// clang-format on
} // namespace keys

/// The suffixes of handler methods.
namespace suffixes {
inline constexpr std::string_view clicked = "Geklickt";
inline constexpr std::string_view focusGot = "FokusErhalten";
inline constexpr std::string_view focusLost = "FokusVerloren";
inline constexpr std::string_view contentChanged = "InhaltGeaendert";
inline constexpr std::string_view inputConfirmed = "EingabeBestaetigt";
inline constexpr std::string_view selectionChanged = "MarkierungGeaendert";
inline constexpr std::string_view changed = "Geaendert";
} // namespace suffixes

/// Stands for a property that the project file does not hold.
constexpr int notStored = 0;

/// One property of a control. Every value is read and written as text, as the property list and the project file hold
/// it: numbers in decimal, flags as FlagText, lists with their items separated by code 0. `set` raises what ToInt16
/// raises for a value that the property cannot take, and leaves the property as it was.
struct PropertyRow {
    const PropertyKey* key;
    std::string (*get)(const Control&);
    void (*set)(Control&, std::string_view);
    int fileField;                            ///< place among the fields after the object name, from 1, or notStored
    bool (*isOn)(const Control&);             ///< of an event: whether its handler is wanted; otherwise null
    std::string_view handlerSuffix;           ///< of an event
    std::size_t (*heapBytes)(const Control&); ///< what the value takes beside the control itself, in bytes
};

/// What one kind of control holds besides name, position and size.
class ControlTable {
  public:
    /// The rows in the order of the property list: first the specific properties, then the events.
    ControlTable(ComponentKind kind, std::vector<PropertyRow> rows);
    ControlTable(const ControlTable&) = delete;
    ControlTable& operator=(const ControlTable&) = delete;
    ~ControlTable() = default;

    ComponentKind Kind() const { return kind_; }
    const std::vector<PropertyRow>& Rows() const { return rows_; }
    /// The rows that the project file holds, in its order.
    const std::vector<const PropertyRow*>& StoredRows() const { return storedRows_; }

  private:
    ComponentKind kind_;
    std::vector<PropertyRow> rows_;
    std::vector<const PropertyRow*> storedRows_;
};

/// Name, width, height, left and top, which every control has; in the order of the property list.
const std::vector<PropertyRow>& CommonRows();

/// What the values of all properties take beside the control itself, in bytes.
std::size_t HeapBytesOf(const Control& control);

/// The row of a key among the common rows and the control's own, or null.
const PropertyRow* FindRow(const Control& control, std::string_view key);

// The texts of a property's value, by its type.
std::string PropertyText(const std::string& value);
std::string PropertyText(std::int16_t value);
std::string PropertyText(bool value);
std::string PropertyText(const std::vector<std::string>& value);
std::string PropertyText(const std::vector<cRadioButton>& value);
void SetFromText(std::string& value, std::string_view text);
void SetFromText(std::int16_t& value, std::string_view text);
void SetFromText(bool& value, std::string_view text);
void SetFromText(std::vector<std::string>& value, std::string_view text);
void SetFromText(std::vector<cRadioButton>& value, std::string_view text);

// The memory that a property's value takes beside the control, by its type.
constexpr std::size_t HeapBytes(std::int16_t) {
    return 0;
}
constexpr std::size_t HeapBytes(bool) {
    return 0;
}
std::size_t HeapBytes(const std::string& value);
std::size_t HeapBytes(const std::vector<std::string>& value);
std::size_t HeapBytes(const std::vector<cRadioButton>& value);

template <class>
struct MemberPointer;
template <class Class, class Value>
struct MemberPointer<Value Class::*> {
    using Owner = Class;
};

/// The row of a property that is held by a member of the control, e.g. Property<&dEtikett::Caption>(keys::value, 1).
template <auto member>
constexpr PropertyRow Property(const PropertyKey& key, int fileField = notStored) {
    using Owner = typename MemberPointer<decltype(member)>::Owner;
    return {&key,
            [](const Control& control) { return PropertyText(static_cast<const Owner&>(control).*member); },
            [](Control& control, std::string_view text) { SetFromText(static_cast<Owner&>(control).*member, text); },
            fileField,
            nullptr,
            {},
            [](const Control& control) { return HeapBytes(static_cast<const Owner&>(control).*member); }};
}

/// The row of an event whose flag is held by a member of the control.
template <auto member>
constexpr PropertyRow Event(const PropertyKey& key, std::string_view handlerSuffix, int fileField = notStored) {
    using Owner = typename MemberPointer<decltype(member)>::Owner;
    PropertyRow row = Property<member>(key, fileField);
    row.isOn = [](const Control& control) { return static_cast<const Owner&>(control).*member; };
    row.handlerSuffix = handlerSuffix;
    return row;
}

} // namespace pirol
