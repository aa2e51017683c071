#include "menu/MenuEditor.h"

#include "base/Conversions.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// The levels that the editor makes: menus, their children, and those of submenus. A project file may hold deeper
/// trees; their rows stand at the last level, so that a list of deep nodes does not consist of blanks.
constexpr std::size_t lastLevel = 2;
constexpr std::size_t blanksPerLevel = 4;

constexpr Colour subMenuColour = {100, 100, 100};
constexpr Colour entryColour = {50, 50, 50};

constexpr std::string_view onlyMenusHere = "In der 1. Ebene können nur Menüs erzeugt werden!";
constexpr std::string_view noMenusHere = "Menüs können nur in der 1. Ebene erzeugt werden!";
constexpr std::string_view tooDeep = "Max. Menütiefe erreicht!";
constexpr std::string_view captionMissing = "Bitte geben Sie eine Beschriftung an!";
constexpr std::string_view nameMissing = "Bitte geben Sie einen Menünamen an!";

std::optional<Colour> ColourOf(const cMenu& node, std::size_t level) {
    if (level != 1)
        return std::nullopt;
    return node.EntryType == cMenu::SubMenu ? subMenuColour : entryColour;
}

bool HoldsChildren(const cMenu& node) {
    return node.EntryType == cMenu::Menu || node.EntryType == cMenu::SubMenu;
}

/// True when the node is the ancestor itself or anywhere below it.
bool IsWithin(const cMenu* node, const cMenu* ancestor) {
    while (node != nullptr && node != ancestor)
        node = node->Parent();
    return node == ancestor;
}

} // namespace

MenuEditor::MenuEditor(MenuBar& bar) : bar_(bar), initial_(bar) {
    RefreshList();
}

void MenuEditor::RefreshList() {
    rows_.clear();
    for (cMenu& menu : bar_.Menus())
        AddRow(menu, 0);
}

void MenuEditor::AddRow(cMenu& node, std::size_t level) {
    const std::size_t indentation = blanksPerLevel * std::min(level, lastLevel);
    rows_.push_back({std::string(indentation, ' ') + node.Caption, ColourOf(node, level), &node});
    node.Tag = std::to_string(rows_.size());
    // The tag operations reach what is below menus and submenus; what a file has put below an entry is not listed.
    if (level == 0 || node.EntryType == cMenu::SubMenu)
        for (cMenu& child : node.Children())
            AddRow(child, level + 1);
}

cMenu* MenuEditor::Container() const {
    return selected_ == nullptr || HoldsChildren(*selected_) ? selected_ : selected_->Parent();
}

int MenuEditor::Depth() const {
    const cMenu* container = Container();
    if (container == nullptr)
        return 0;
    return container->EntryType == cMenu::SubMenu ? 2 : 1;
}

std::string MenuEditor::StatusText() const {
    return "Aktuelle Menütiefe: " + std::to_string(Depth());
}

std::optional<std::string> MenuEditor::ProposeName(std::int32_t option, std::string_view caption) {
    if (option != cMenu::Menu)
        return std::nullopt;
    // Capital umlauts and "ß" stay: unlike what CleanString makes, the user sees this name and can still change it.
    std::string name = ReplaceAll(caption, " ", "");
    name = ReplaceAll(name, "ä", "ae");
    name = ReplaceAll(name, "ö", "oe");
    return "hatMenue" + ReplaceAll(name, "ü", "ue");
}

std::optional<std::string_view> MenuEditor::Refusal(std::int32_t option, std::string_view caption,
                                                    std::string_view name) const {
    const int depth = Depth();
    if (depth == 0 && option != cMenu::Menu)
        return onlyMenusHere;
    if (depth > 0 && option == cMenu::Menu)
        return noMenusHere;
    if (depth >= 2 && option == cMenu::SubMenu)
        return tooDeep;
    if (caption.empty() && option != cMenu::Separator)
        return captionMissing;
    if (depth == 0 && name.empty())
        return nameMissing;
    return std::nullopt;
}

std::optional<std::string_view> MenuEditor::Add(std::int32_t option, std::string caption, std::string name) {
    if (const auto refusal = Refusal(option, caption, name))
        return refusal;
    if (cMenu* container = Container(); container == nullptr)
        bar_.Append(std::move(caption), std::move(name));
    else
        container->AddChild(std::move(caption), option, container == selected_ ? nullptr : selected_);
    RefreshList();
    return std::nullopt;
}

void MenuEditor::SelectRow(std::size_t row) {
    if (IsRow(row))
        selected_ = rows_[row - 1].node;
}

std::size_t MenuEditor::SelectedRow() const {
    return RowOf(selected_);
}

std::int32_t MenuEditor::LevelUp(std::int32_t option) {
    cMenu* container = Container();
    if (container == nullptr)
        return option;
    // An entry leads out of the menu that holds it, too; otherwise the depth shown would be too small.
    selected_ = container->Parent();
    return FittingOption(option);
}

std::int32_t MenuEditor::FittingOption(std::int32_t option) const {
    const int depth = Depth();
    if (depth == 0)
        return cMenu::Menu;
    const bool fits = option != cMenu::Menu && (option != cMenu::SubMenu || depth == 1);
    return fits ? option : cMenu::Entry;
}

std::size_t MenuEditor::MoveUp(std::size_t row) {
    return Move(row, cMenu::up);
}

std::size_t MenuEditor::MoveDown(std::size_t row) {
    return Move(row, cMenu::down);
}

std::size_t MenuEditor::Move(std::size_t row, std::string_view direction) {
    if (!IsRow(row))
        return row;
    cMenu* node = rows_[row - 1].node;
    bar_.Move(*node, direction);
    RefreshList();
    return RowOf(node);
}

/// A menu's place in the bar, or that of any other node in a menu or submenu.
std::optional<MenuEditor::Slot> MenuEditor::SlotFor(const cMenu& node, cMenu& target, DropPlace place) const {
    const auto next = [](const std::list<cMenu>& siblings, const cMenu& sibling) {
        const auto found = std::find_if(siblings.begin(), siblings.end(),
                                        [&sibling](const cMenu& other) { return &other == &sibling; });
        return std::next(found) == siblings.end() ? nullptr : &*std::next(found);
    };
    if (node.Parent() == nullptr) {
        const cMenu* menu = &target;
        while (menu->Parent() != nullptr)
            menu = menu->Parent();
        return Slot{nullptr, place == DropPlace::Before ? menu : next(std::as_const(bar_).Menus(), *menu)};
    }
    Slot slot = {target.Parent(), &target};
    if (HoldsChildren(target) && place != DropPlace::Before) {
        const std::list<cMenu>& children = std::as_const(target).Children();
        slot = {&target, place == DropPlace::Behind && !children.empty() ? &children.front() : nullptr};
    } else if (place != DropPlace::Before) {
        slot.before = next(std::as_const(*target.Parent()).Children(), target);
    }
    const bool isAllowed = slot.container != nullptr && !IsWithin(slot.container, &node) &&
                           (node.EntryType != cMenu::SubMenu || slot.container->Parent() == nullptr);
    return isAllowed ? std::optional(slot) : std::nullopt;
}

bool MenuEditor::CanDrop(std::size_t row, std::size_t target, DropPlace place) const {
    return IsRow(row) && IsRow(target) && SlotFor(*rows_[row - 1].node, *rows_[target - 1].node, place).has_value();
}

std::size_t MenuEditor::Drop(std::size_t row, std::size_t target, DropPlace place) {
    if (!CanDrop(row, target, place))
        return row;
    cMenu* const node = rows_[row - 1].node;
    const Slot slot = *SlotFor(*node, *rows_[target - 1].node, place);
    if (slot.before != node && slot.container == nullptr)
        bar_.MoveBefore(*node, slot.before);
    else if (slot.before != node)
        slot.container->AdoptChild(*node, slot.before);
    RefreshList();
    return RowOf(node);
}

void MenuEditor::Delete(std::size_t row) {
    if (!IsRow(row))
        return;
    cMenu* node = rows_[row - 1].node;
    if (IsWithin(selected_, node))
        selected_ = node->Parent();
    bar_.Remove(*node);
    RefreshList();
}

void MenuEditor::Cancel() {
    bar_ = initial_;
    selected_ = nullptr;
    RefreshList();
}

std::size_t MenuEditor::RowOf(const cMenu* node) const {
    const auto row = std::find_if(rows_.begin(), rows_.end(), [node](const MenuRow& r) { return r.node == node; });
    return row == rows_.end() ? 0 : static_cast<std::size_t>(row - rows_.begin()) + 1;
}

} // namespace pirol
