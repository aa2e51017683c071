#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <string>
#include <string_view>

namespace pirol {

class cMenu;

/// The nodes of a list of menus, each open to change while the list itself stays as it is.
class MenuNodes {
  public:
    explicit MenuNodes(std::list<cMenu>& list) : list_(list) {}

    auto begin() const { return list_.begin(); }
    auto end() const { return list_.end(); }

  private:
    std::list<cMenu>& list_;
};

/// One node of the menu bar's tree: a menu, a submenu, an entry or a separator line.
/// An ordinary value: copying copies the whole subtree, and copies and moved nodes keep their children's Parent right.
/// A child stays at its address as long as its parent holds it. All texts are UTF-8.
class cMenu {
  public:
    /// What a node is; EntryType holds one of these numbers.
    enum Type : std::int32_t {
        Menu = 0,      ///< top level of the menu bar; an object of the Java class Menue
        SubMenu = 1,   ///< made inside a menu by neuesUntermenue
        Entry = 2,     ///< a line to click on; gets an event method
        Separator = 3, ///< a line between entries
    };

    /// The tag that makes AddEntry append.
    static constexpr std::string_view atEnd = "-1";
    /// The caption of every separator that AddEntry makes.
    static constexpr std::string_view separatorCaption = "--------------";
    /// The directions MoveItemPerTag knows.
    static constexpr std::string_view up = "UP";
    static constexpr std::string_view down = "DOWN";

    /// The bytes of Java from which on no more is generated. Every line repeats the menu's name, so a file of a few
    /// megabytes can ask for more text than any memory holds; half a million ordinary entries stay below this.
    static constexpr std::size_t largestCode = std::size_t{1} << 26U;

    cMenu() = default;
    /// A copy has no Parent, whatever the original has.
    cMenu(const cMenu& other);
    cMenu(cMenu&& other) noexcept;
    /// The assigned node keeps its place: its own Parent does not change.
    cMenu& operator=(const cMenu& other);
    cMenu& operator=(cMenu&& other) noexcept;
    ~cMenu() = default;

    /// Equal in caption, name, type and all children. Tags and the place in a tree do not count.
    friend bool operator==(const cMenu& a, const cMenu& b);

    std::string Caption;           ///< what the user of the generated program sees
    std::string Name;              ///< the Java variable; only a top-level menu has one
    std::string Tag;               ///< by which an editor finds the node again; not stored, not invented here
    std::int32_t EntryType = Menu; ///< a Type; any number is taken

    /// The node whose child list holds this one; nothing for a top-level menu.
    const cMenu* Parent() const { return parent_; }
    cMenu* Parent() { return parent_; }

    /// The children in order; the children can be changed, their list only by the operations below.
    const std::list<cMenu>& Children() const { return children_; }
    MenuNodes Children() { return MenuNodes(children_); }

    /// Makes a child and gives it; its Name and Tag are left empty. A separator's caption is separatorCaption.
    /// With afterTag "-1" it becomes the last child, otherwise it comes directly after the child with that tag. When no
    /// direct child has the tag, nothing is added and nothing is returned.
    cMenu* AddEntry(std::string caption, std::int32_t entryType, std::string_view afterTag = atEnd);
    /// The same directly after a child of this node, or at the end for null.
    cMenu& AddChild(std::string caption, std::int32_t entryType, const cMenu* after);
    /// Removes a child and all below it, or swaps it with the one before it ("UP") or behind it ("DOWN"); nothing
    /// happens at the ends of the list.
    void RemoveChild(const cMenu& child);
    void MoveChild(const cMenu& child, std::string_view direction);
    /// Takes a node with all below it from the node that holds it, and puts it before a child of this one, or at the
    /// end for null. The node keeps its address; this one must not be below it.
    void AdoptChild(cMenu& node, const cMenu* before);

    /// Java, lines of CR LF: the declaration of this menu's field; the statements that build this menu and all below
    /// it; an empty method for every entry below it. Captions are written as they are, without escaping.
    /// The latter two raise RuntimeError::OutOfMemory beyond largestCode.
    std::string GenerateMenuInitCode() const;
    std::string GenerateMenuCode() const;
    std::string GenerateMenuEventCode() const;

    /// The event method of an entry: the name of the menu around it, or of the menu around its submenu, and the cleaned
    /// caption. Need not be a name that Java allows.
    std::string EventMethod() const;

    /// A caption as a part of a Java name: umlauts and "ß" spelled out; blanks, "-", ".", "\" and "#" left out.
    /// Everything else stays, even what Java does not allow in a name.
    static std::string CleanString(std::string_view text);

    /// This node, if it is a menu or submenu, or the first one below it whose tag is exactly the given one; nothing if
    /// there is none. Only submenus are searched for further nodes.
    cMenu* ReturnMenuPerTag(std::string_view tag);

    /// Removes the node with the tag and all below it, or moves it one place up ("UP") or down ("DOWN") among its
    /// siblings. Nothing happens at the ends of the list, for this node itself, or for an unknown tag or direction.
    void DeletePerTag(std::string_view tag);
    void MoveItemPerTag(std::string_view tag, std::string_view direction);

    /// The project-file lines of this node, which stands at the given level, and of all below it. Fields are separated
    /// by code 0, lines end in CR LF.
    std::string CreatePRLString(std::int32_t level) const;

  private:
    void AdoptChildren() noexcept;
    std::string_view ParentName() const;
    void AppendMenuCode(std::string& code) const;
    void AppendMenuEventCode(std::string& code) const;
    void AppendPRLString(std::string& lines, std::int32_t level) const;

    cMenu* parent_ = nullptr;
    std::list<cMenu> children_;
};

/// Where in the list a node stands; the list's end when it is not in it.
std::list<cMenu>::iterator PlaceOf(std::list<cMenu>& siblings, const cMenu& node);

/// Swaps the node with the one before it ("UP") or behind it ("DOWN"); nothing at the ends of the list.
void MoveAmongSiblings(std::list<cMenu>& siblings, const cMenu& node, std::string_view direction);

} // namespace pirol
