#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace pirol {

/// The fifteen kinds of component. The number is the toolbar button's, the project file's kind code, and the order in
/// which files and generated code list the kinds.
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
};

constexpr std::size_t kindCount = 15;

/// What a kind is called wherever it appears.
struct KindRow {
    ComponentKind kind;
    std::string_view key;
    std::string_view imageKey;      ///< the toolbar bitmap's name is this in upper case
    std::string_view control;       ///< the design-time control
    std::string_view javaClass;     ///< the class of the SuM library
    std::string_view toolbarLabel;  ///< caption of the toolbar button
    std::string_view menuLabel;     ///< caption of the menu entry
    std::string_view namePrefix;    ///< object name without its running number
    std::string_view captionPrefix; ///< caption at placement without its number; empty: the control's own default
};

/// The row of a kind; constant time.
const KindRow& RowOf(ComponentKind kind);

/// All rows in the order of the kinds.
const std::array<KindRow, kindCount>& KindRows();

/// Kinds by number (1 to 15), by kind key, by design-time control and by Java class; nothing when there is none.
std::optional<ComponentKind> KindByNumber(int number);
std::optional<ComponentKind> KindByKey(std::string_view key);
std::optional<ComponentKind> KindByControl(std::string_view control);
std::optional<ComponentKind> KindByJavaClass(std::string_view javaClass);

/// The kind's place among all kinds, from 0.
constexpr std::size_t Position(ComponentKind kind) {
    return static_cast<std::size_t>(kind) - 1;
}

/// Pictures, sounds and films keep the size their control gives them and are not resized on the canvas.
constexpr bool IsMultimedia(ComponentKind kind) {
    return kind >= ComponentKind::Picture;
}

} // namespace pirol
