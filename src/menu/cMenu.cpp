#include "menu/cMenu.h"

#include "base/Conversions.h"
#include "base/JavaText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace pirol {
namespace {

/// The one variable through which the generated program builds all its submenus.
constexpr std::string_view subMenuVariable = "hatMenueTemp";
constexpr std::string_view indent = "        ";

struct Spelling {
    std::string_view text;
    std::string_view inJava;
};

constexpr Spelling spellings[] = {
    {"Ä", "Ae"}, {"ä", "ae"}, {"Ö", "Oe"}, {"ö", "oe"}, {"Ü", "Ue"}, {"ü", "ue"},
    {"ß", "ss"}, {" ", ""},   {"-", ""},   {".", ""},   {"\\", ""},  {"#", ""},
};

void CheckCodeSize(const std::string& code) {
    if (code.size() > cMenu::largestCode)
        throw RuntimeError(RuntimeError::OutOfMemory);
}

} // namespace

cMenu::cMenu(const cMenu& other)
    : Caption(other.Caption), Name(other.Name), Tag(other.Tag), EntryType(other.EntryType), children_(other.children_) {
    AdoptChildren();
}

cMenu::cMenu(cMenu&& other) noexcept
    : Caption(std::move(other.Caption)), Name(std::move(other.Name)), Tag(std::move(other.Tag)),
      EntryType(other.EntryType), children_(std::move(other.children_)) {
    AdoptChildren();
}

cMenu& cMenu::operator=(const cMenu& other) {
    if (this != &other)
        *this = cMenu(other);
    return *this;
}

// A node stays where it is in its tree, so its parent_ stays.
// cppcheck-suppress operatorEqVarError
cMenu& cMenu::operator=(cMenu&& other) noexcept {
    if (this == &other)
        return *this;
    // The other node may be below this one, so the old children must live until everything has been moved out of it.
    std::list<cMenu> children = std::move(other.children_);
    Caption = std::move(other.Caption);
    Name = std::move(other.Name);
    Tag = std::move(other.Tag);
    EntryType = other.EntryType;
    children_.swap(children);
    AdoptChildren();
    return *this;
}

bool operator==(const cMenu& a, const cMenu& b) {
    return a.EntryType == b.EntryType && a.Caption == b.Caption && a.Name == b.Name && a.children_ == b.children_;
}

void cMenu::AdoptChildren() noexcept {
    for (cMenu& child : children_)
        child.parent_ = this;
}

cMenu* cMenu::AddEntry(std::string caption, std::int32_t entryType, std::string_view afterTag) {
    const cMenu* after = nullptr;
    if (afterTag != atEnd) {
        after = ReturnMenuPerTag(afterTag);
        if (after == nullptr || after->parent_ != this)
            return nullptr;
    }
    return &AddChild(std::move(caption), entryType, after);
}

cMenu& cMenu::AddChild(std::string caption, std::int32_t entryType, const cMenu* after) {
    cMenu& child = *children_.emplace(after == nullptr ? children_.end() : std::next(PlaceOf(children_, *after)));
    child.Caption = entryType == Separator ? std::string(separatorCaption) : std::move(caption);
    child.EntryType = entryType;
    child.parent_ = this;
    return child;
}

void cMenu::RemoveChild(const cMenu& child) {
    children_.erase(PlaceOf(children_, child));
}

void cMenu::MoveChild(const cMenu& child, std::string_view direction) {
    MoveAmongSiblings(children_, child, direction);
}

void cMenu::AdoptChild(cMenu& node, const cMenu* before) {
    std::list<cMenu>& from = node.parent_->children_;
    children_.splice(before == nullptr ? children_.end() : PlaceOf(children_, *before), from, PlaceOf(from, node));
    node.parent_ = this;
}

std::string cMenu::GenerateMenuInitCode() const {
    return FieldDeclaration("Menue", Name);
}

std::string cMenu::GenerateMenuCode() const {
    std::string code;
    AppendMenuCode(code);
    return code;
}

std::string cMenu::GenerateMenuEventCode() const {
    std::string code;
    AppendMenuEventCode(code);
    return code;
}

std::string_view cMenu::ParentName() const {
    return parent_ != nullptr ? std::string_view(parent_->Name) : std::string_view();
}

std::string cMenu::EventMethod() const {
    if (parent_ == nullptr)
        return CleanString(Caption);
    const std::string_view prefix = parent_->EntryType == SubMenu ? parent_->ParentName() : parent_->Name;
    return std::string(prefix).append(CleanString(Caption));
}

void cMenu::AppendMenuCode(std::string& code) const {
    const std::string_view target = EntryType == SubMenu ? subMenuVariable : std::string_view(Name);
    if (EntryType == Menu)
        Append(code, indent, Name, " = new Menue(", Quoted(Caption), ");\r\n");
    else if (EntryType == SubMenu)
        Append(code, indent, subMenuVariable, " = ", ParentName(), ".neuesUntermenue(", Quoted(Caption), ");\r\n");

    for (const cMenu& child : children_) {
        if (child.EntryType == Entry)
            Append(code, indent, target, ".haengeZeileAn(", Quoted(child.Caption), ", ", Quoted(child.EventMethod()),
                   ");\r\n");
        else if (child.EntryType == Separator)
            Append(code, indent, target, ".haengeTrennungAn();\r\n");
        else if (child.EntryType == SubMenu)
            child.AppendMenuCode(code);
        CheckCodeSize(code);
    }
}

void cMenu::AppendMenuEventCode(std::string& code) const {
    for (const cMenu& child : children_) {
        if (child.EntryType == Entry)
            Append(code, "    public void ", child.EventMethod(), "()\r\n    {\r\n\r\n    }\r\n\r\n");
        else if (child.EntryType == SubMenu)
            child.AppendMenuEventCode(code);
        CheckCodeSize(code);
    }
}

std::string cMenu::CleanString(std::string_view text) {
    std::string clean(text);
    for (const Spelling& spelling : spellings)
        clean = ReplaceAll(clean, spelling.text, spelling.inJava);
    return clean;
}

cMenu* cMenu::ReturnMenuPerTag(std::string_view tag) {
    if ((EntryType == Menu || EntryType == SubMenu) && Tag == tag)
        return this;
    for (cMenu& child : children_) {
        if (child.Tag == tag)
            return &child;
        if (child.EntryType != SubMenu)
            continue;
        if (cMenu* found = child.ReturnMenuPerTag(tag))
            return found;
    }
    return nullptr;
}

void cMenu::DeletePerTag(std::string_view tag) {
    const cMenu* found = ReturnMenuPerTag(tag);
    if (found != nullptr && found != this)
        found->parent_->RemoveChild(*found);
}

void cMenu::MoveItemPerTag(std::string_view tag, std::string_view direction) {
    const cMenu* found = ReturnMenuPerTag(tag);
    if (found != nullptr && found != this)
        found->parent_->MoveChild(*found, direction);
}

std::string cMenu::CreatePRLString(std::int32_t level) const {
    std::string lines;
    AppendPRLString(lines, level);
    return lines;
}

void cMenu::AppendPRLString(std::string& lines, std::int32_t level) const {
    constexpr std::string_view separator(&fieldSeparator, 1);
    Append(lines, EntryType == Menu ? 0 : level, separator, EntryType);
    if (EntryType == Menu)
        Append(lines, separator, Name);
    if (EntryType != Separator)
        Append(lines, separator, Caption);
    lines += lineEnd;
    for (const cMenu& child : children_)
        if (child.EntryType != Menu)
            child.AppendPRLString(lines, level + 1);
}

std::list<cMenu>::iterator PlaceOf(std::list<cMenu>& siblings, const cMenu& node) {
    return std::find_if(siblings.begin(), siblings.end(), [&node](const cMenu& sibling) { return &sibling == &node; });
}

void MoveAmongSiblings(std::list<cMenu>& siblings, const cMenu& node, std::string_view direction) {
    const auto place = PlaceOf(siblings, node);
    if (place == siblings.end())
        return;
    if (direction == cMenu::up && place != siblings.begin())
        siblings.splice(std::prev(place), siblings, place);
    else if (direction == cMenu::down && std::next(place) != siblings.end())
        siblings.splice(place, siblings, std::next(place));
}

} // namespace pirol
