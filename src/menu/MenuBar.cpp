#include "menu/MenuBar.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"

#include <utility>

namespace pirol {
namespace {

/// What a section begins with and what every menu adds to it; in the order of MenuSection.
struct SectionRow {
    std::string_view start;
    std::string (cMenu::*generate)() const;
};

constexpr SectionRow sections[] = {
    {"    Menue hatMenueTemp;\r\n", &cMenu::GenerateMenuInitCode},
    {{}, &cMenu::GenerateMenuCode},
    {{}, &cMenu::GenerateMenuEventCode},
};

std::string_view FieldAt(std::span<const std::string_view> fields, std::size_t index) {
    if (index >= fields.size())
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    return fields[index];
}

} // namespace

cMenu& MenuBar::Append(std::string caption, std::string name) {
    cMenu& menu = menus_.emplace_back();
    menu.Caption = std::move(caption);
    menu.Name = std::move(name);
    return menu;
}

void MenuBar::Remove(cMenu& node) {
    if (cMenu* parent = node.Parent())
        parent->RemoveChild(node);
    else
        menus_.erase(PlaceOf(menus_, node));
}

void MenuBar::Move(cMenu& node, std::string_view direction) {
    if (cMenu* parent = node.Parent())
        parent->MoveChild(node, direction);
    else
        MoveAmongSiblings(menus_, node, direction);
}

void MenuBar::MoveBefore(const cMenu& menu, const cMenu* before) {
    menus_.splice(before == nullptr ? menus_.end() : PlaceOf(menus_, *before), menus_, PlaceOf(menus_, menu));
}

cMenu* MenuBar::ReturnMenuPerTag(std::string_view tag) {
    for (cMenu& menu : menus_)
        if (cMenu* found = menu.ReturnMenuPerTag(tag))
            return found;
    return nullptr;
}

void MenuBar::DeletePerTag(std::string_view tag) {
    if (cMenu* found = ReturnMenuPerTag(tag))
        Remove(*found);
}

void MenuBar::MoveItemPerTag(std::string_view tag, std::string_view direction) {
    if (cMenu* found = ReturnMenuPerTag(tag))
        Move(*found, direction);
}

std::string MenuBar::GenerateCode(MenuSection section) const {
    const SectionRow& row = sections[static_cast<std::size_t>(section)];
    std::string code(row.start);
    for (const cMenu& menu : menus_) {
        code += (menu.*row.generate)();
        if (code.size() > cMenu::largestCode)
            throw RuntimeError(RuntimeError::OutOfMemory);
    }
    return code;
}

std::string MenuBar::CreatePRLString() const {
    std::string lines;
    for (const cMenu& menu : menus_)
        lines += menu.CreatePRLString(0);
    return lines;
}

void MenuBarReader::AddLine(std::span<const std::string_view> fields) {
    const int depth = ToInt16(FieldAt(fields, 0));
    const int type = ToInt16(FieldAt(fields, 1));
    if (type == cMenu::Menu) {
        const std::string_view name = FieldAt(fields, 2);
        path_ = {&bar_.Append(std::string(FieldAt(fields, 3)), std::string(name))};
        return;
    }
    if (type < cMenu::Menu || type > cMenu::Separator || depth < 1 || static_cast<std::size_t>(depth) > path_.size())
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    if (depth > maxDepth)
        throw RuntimeError(RuntimeError::OutOfMemory);
    const std::string_view caption = type == cMenu::Separator ? std::string_view() : FieldAt(fields, 2);
    path_.resize(static_cast<std::size_t>(depth));
    path_.push_back(path_.back()->AddEntry(std::string(caption), type));
}

} // namespace pirol
