#pragma once

#include "base/Colour.h"
#include "menu/MenuBar.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// A row of the menu editor's list.
struct MenuRow {
    std::string text;             ///< the caption behind four blanks for each level
    std::optional<Colour> colour; ///< the text's colour; nothing: the list's own
    cMenu* node;
};

/// Where something that is dragged is let go, as seen from the row under the pointer.
enum class DropPlace { Before, Behind, Into };

/// The menu editor without its window: edits a menu bar in place and shows it as one indented list.
/// Rows count from 1, as the tags of their nodes do; row 0 stands for none. Row numbers outside the list are ignored.
/// The bar must outlive the editor and be changed only through it meanwhile.
class MenuEditor {
  public:
    /// Opens the editor at depth 0 with nothing selected.
    explicit MenuEditor(MenuBar& bar);

    const std::vector<MenuRow>& Rows() const { return rows_; }

    /// Rebuilds the rows and gives every node of the list its row number as tag. The operations below do so themselves.
    void RefreshList();

    /// The level at which the next node is placed: 0 in the menu bar, 1 in a menu, 2 in a submenu.
    int Depth() const;
    /// "Aktuelle Menütiefe: " and the depth.
    std::string StatusText() const;

    /// The name proposed for a caption while the option for menus is chosen; nothing while another one is.
    static std::optional<std::string> ProposeName(std::int32_t option, std::string_view caption);

    /// Adds a node of the type `option` (a cMenu::Type) where the selection is: a menu to the bar at depth 0; otherwise
    /// as the last child of the selected menu or submenu, or directly after the selected entry or separator. The
    /// selection stays. When that is not possible nothing changes and the message for the user is returned.
    std::optional<std::string_view> Add(std::int32_t option, std::string caption, std::string name);

    /// Selects the node of a row: new nodes go into it or, when it can hold none, behind it.
    void SelectRow(std::size_t row);
    /// The row of the selected node; 0 when nothing is selected.
    std::size_t SelectedRow() const;

    /// The option to choose where the next node goes: the given one where it fits, else a menu in the menu bar and an
    /// entry below.
    std::int32_t FittingOption(std::int32_t option) const;

    /// Goes one level up, to what holds the menu or submenu into which new nodes go. Nothing happens at depth 0.
    /// Takes the option chosen so far and gives the one to choose now: menus at depth 0 and only there; where menus
    /// are no longer possible, entries.
    std::int32_t LevelUp(std::int32_t option);

    /// Swap the row's node with its neighbour among its siblings, a top-level menu with the neighbouring menu. Give the
    /// row at which the node is now.
    std::size_t MoveUp(std::size_t row);
    std::size_t MoveDown(std::size_t row);

    /// Whether the row's node can be moved to that place. A menu goes beside the menu of the target's row; nothing else
    /// leaves the menus, submenus lie in menus only, and nothing goes into itself.
    bool CanDrop(std::size_t row, std::size_t target, DropPlace place) const;
    /// Moves it there, if it can be, and gives the row at which it is now. Behind a menu or submenu is its beginning,
    /// as its children's rows follow it; into an entry is behind it.
    std::size_t Drop(std::size_t row, std::size_t target, DropPlace place);

    /// Removes the row's node and all below it. If the selected node goes with it, what held the row's node is
    /// selected.
    void Delete(std::size_t row);

    /// Makes the menu bar what it was when the editor was opened. Nothing is selected then.
    void Cancel();

  private:
    bool IsRow(std::size_t row) const { return row >= 1 && row <= rows_.size(); }
    cMenu* Container() const;
    void AddRow(cMenu& node, std::size_t level);
    std::optional<std::string_view> Refusal(std::int32_t option, std::string_view caption, std::string_view name) const;
    std::size_t Move(std::size_t row, std::string_view direction);
    struct Slot {
        cMenu* container; ///< null for the menu bar
        const cMenu* before;
    };
    std::optional<Slot> SlotFor(const cMenu& node, cMenu& target, DropPlace place) const;
    std::size_t RowOf(const cMenu* node) const;

    MenuBar& bar_;
    MenuBar initial_;
    cMenu* selected_ = nullptr;
    std::vector<MenuRow> rows_;
};

} // namespace pirol
