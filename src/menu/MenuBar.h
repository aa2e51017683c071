#pragma once

#include "menu/cMenu.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// The three places of the generated class to which the menu bar contributes.
enum class MenuSection {
    Init,   ///< field declarations; begin with the helper variable of the submenus, even for an empty bar
    Main,   ///< statements of the constructor
    Events, ///< event methods
};

/// The menu bar of a project: the ordered list of its top-level menus.
/// An ordinary value; a menu stays at its address as long as the bar holds it.
class MenuBar {
  public:
    /// The pixels that the bar takes from the running window, whose designed area is cut by them at the bottom.
    static constexpr int runningHeight = 19;

    bool operator==(const MenuBar&) const = default;

    bool IsEmpty() const { return menus_.empty(); }

    /// The menus in order; the menus can be changed, their list only by the operations below.
    const std::list<cMenu>& Menus() const { return menus_; }
    MenuNodes Menus() { return MenuNodes(menus_); }

    /// Adds a top-level menu at the end and gives it.
    cMenu& Append(std::string caption, std::string name);

    /// Removes a node of this bar, a top-level menu or one below, or swaps it with a neighbour, as cMenu does.
    void Remove(cMenu& node);
    void Move(cMenu& node, std::string_view direction);
    /// Puts a top-level menu before another one, or at the end for null.
    void MoveBefore(const cMenu& menu, const cMenu* before);

    /// The tag operations of cMenu over all menus in order. A top-level menu is removed from the bar, or swapped with
    /// its neighbour, just as an entry is within its menu.
    cMenu* ReturnMenuPerTag(std::string_view tag);
    void DeletePerTag(std::string_view tag);
    void MoveItemPerTag(std::string_view tag, std::string_view direction);

    /// The Java text of all menus for one section, lines of CR LF.
    /// Raises RuntimeError::OutOfMemory beyond cMenu::largestCode.
    std::string GenerateCode(MenuSection section) const;

    /// All lines of the project file's menu section.
    std::string CreatePRLString() const;

  private:
    std::list<cMenu> menus_;
};

/// Rebuilds a menu bar from the lines of a project file, in constant time for each line.
/// The bar is used until the last line has been added and must not be changed by others meanwhile.
class MenuBarReader {
  public:
    /// The deepest level a line may have. Trees are copied, compared, written and destroyed level by level on the call
    /// stack; without a limit, a file made for it could exhaust the stack. The editor makes two levels.
    static constexpr int maxDepth = 1000;

    explicit MenuBarReader(MenuBar& bar) : bar_(bar) {}

    /// Adds the node of one line, given as its fields: depth, type, and caption; a menu has its name before the
    /// caption. A menu begins at the top whatever its depth says; any other node becomes the last child of the latest
    /// line whose depth is one less. Further fields are ignored.
    /// Raises RuntimeError::IndexOutOfRange when a field is missing, for a type other than 0 to 3, and for a line that
    /// fits nowhere: below no menu, at a depth below 1 or one that skips a level. Raises TypeMismatch or Overflow for a
    /// depth or type that is no 16-bit number, and OutOfMemory beyond maxDepth. A line that is refused adds nothing.
    void AddLine(std::span<const std::string_view> fields);

  private:
    MenuBar& bar_;
    std::vector<cMenu*> path_; // the latest line's node with all above it, top-level menu first
};

} // namespace pirol
