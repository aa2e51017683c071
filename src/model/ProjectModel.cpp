#include "model/ProjectModel.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "controls/Oddities.h"

#include <algorithm>
#include <numeric>

namespace pirol {
namespace {

/// More announcements than this are not worth listing one by one.
constexpr std::size_t mostChangesListed = 64;

/// Calls the function with the array of a kind.
template <class Elements, class Function>
void WithArray(Elements& elements, ComponentKind kind, Function&& function) {
    [&]<std::size_t... position>(std::index_sequence<position...>) {
        ((Position(kind) == position ? function(std::get<position>(elements)) : void()), ...);
    }
    (std::make_index_sequence<kindCount>{});
}

/// The element as what all controls have in common, or null.
template <class Result, class Elements>
Result* FindElement(Elements& elements, ComponentRef component) {
    Result* found = nullptr;
    WithArray(elements, component.kind, [&](auto& array) {
        if (component.index < array.size())
            found = &array[component.index];
    });
    return found;
}

template <class Result, class Elements>
Result& ElementOf(Elements& elements, ComponentRef component) {
    Result* element = FindElement<Result>(elements, component);
    if (element == nullptr)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    return *element;
}

/// Some controls remember the number that they were placed with.
template <class Element>
void StoreNumber(Element& element, int number) {
    if constexpr (requires { element.Number; })
        element.Number = number;
}

template <class Element>
void StoreCaption(Element& element, const std::string& caption) {
    if constexpr (requires { element.Caption; })
        element.Caption = caption;
}

} // namespace

ProjectModel::ProjectModel() {
    std::apply([](auto&... arrays) { (arrays.resize(1), ...); }, elements_);
}

void ProjectModel::SetWindowSize(std::int16_t width, std::int16_t height) {
    windowWidth_ = width;
    windowHeight_ = height;
    Announce({Change::What::Window});
}

void ProjectModel::SetAuthor(std::string_view author) {
    author_ = author;
    Announce({Change::What::Window});
}

std::size_t ProjectModel::ElementCount(ComponentKind kind) const {
    std::size_t count = 0;
    WithArray(elements_, kind, [&count](const auto& array) { count = array.size(); });
    return count;
}

const Control& ProjectModel::Element(ComponentRef component) const {
    return ElementOf<const Control>(elements_, component);
}

Rectangle ProjectModel::VisibleBox(ComponentRef component) const {
    const auto* element = FindElement<const Control>(elements_, component);
    if (element == nullptr || !element->Visible)
        return {};
    return {element->Left, element->Top, element->Width, element->Height};
}

ComponentRef ProjectModel::AddElement(ComponentKind kind) {
    ComponentRef component{kind, ElementCount(kind)};
    WithArray(elements_, kind, [](auto& array) { array.emplace_back().Visible = true; });
    creationOrder_.push_back(component);
    Announce({Change::What::Component, component});
    return component;
}

void ProjectModel::ReserveElements(const std::array<std::size_t, kindCount>& counts) {
    for (const KindRow& row : KindRows())
        WithArray(elements_, row.kind,
                  [count = counts[Position(row.kind)]](auto& array) { array.reserve(array.size() + count); });
    creationOrder_.reserve(creationOrder_.size() + std::accumulate(counts.begin(), counts.end(), std::size_t{0}));
}

ComponentRef ProjectModel::PlaceComponent(ComponentKind kind, const Rectangle& box) {
    const std::int16_t left = ToInt16(box.left);
    const std::int16_t top = ToInt16(box.top);
    const std::int16_t width = ToInt16(box.width);
    const std::int16_t height = ToInt16(box.height);
    const ComponentRef component = AddElement(kind);
    WithArray(elements_, kind, [&](auto& array) {
        auto& element = array[component.index];
        const KindRow& row = RowOf(kind);
        element.Left = left;
        element.Top = top;
        if (!IsMultimedia(kind)) {
            element.Width = width;
            element.Height = height;
        }
        const std::string number = std::to_string(component.index);
        element.ObjectName = std::string(row.namePrefix) + number;
        if (!row.captionPrefix.empty())
            StoreCaption(element, std::string(row.captionPrefix) + number);
        StoreNumber(element, static_cast<int>(component.index));
    });
    return component;
}

Control& ProjectModel::EditElement(ComponentRef component) {
    Control& element = ElementOf<Control>(elements_, component);
    Announce({Change::What::Component, component, VisibleBox(component)});
    return element;
}

int ProjectModel::PlacementNumber(ComponentRef component) const {
    int number = 0;
    WithArray(elements_, component.kind, [&](const auto& array) {
        if constexpr (requires { array.front().Number; })
            if (component.index < array.size())
                number = array[component.index].Number;
    });
    return number;
}

void ProjectModel::SetPlacementNumber(ComponentRef component, int number) {
    EditElement(component);
    WithArray(elements_, component.kind, [&](auto& array) { StoreNumber(array[component.index], number); });
}

void ProjectModel::DeleteComponent(ComponentRef component) {
    EditElement(component).Visible = false;
    if (!oddities::DeleteKeyEmptiesKind(component.kind))
        return;
    bool emptied = false;
    WithArray(elements_, component.kind, [&emptied](auto& array) {
        if (std::any_of(array.begin() + 1, array.end(), [](const Control& element) { return element.Visible; }))
            return;
        array.resize(1);
        emptied = true;
    });
    if (emptied)
        std::erase_if(creationOrder_, [component](ComponentRef other) { return other.kind == component.kind; });
}

MenuBar& ProjectModel::EditMenus() {
    Announce({Change::What::Menus});
    return menus_;
}

SQLSettings& ProjectModel::EditSql() {
    Announce({Change::What::Sql});
    return sql_;
}

void ProjectModel::Reset() {
    SQLSettings kept = std::move(sql_);
    *this = ProjectModel();
    sql_ = std::move(kept);
    Announce({Change::What::Everything});
    changed_ = false;
}

void ProjectModel::MarkUnchanged(std::string_view filePath) {
    changed_ = false;
    filePath_ = filePath;
}

bool ProjectModel::operator==(const ProjectModel& other) const {
    return windowWidth_ == other.windowWidth_ && windowHeight_ == other.windowHeight_ && author_ == other.author_ &&
           elements_ == other.elements_ && menus_ == other.menus_ && sql_ == other.sql_;
}

void ProjectModel::Announce(const Change& change) {
    changed_ = true;
    const bool everythingListed = !changes_.empty() && changes_.back().what == Change::What::Everything;
    if (everythingListed)
        return;
    if (change.what == Change::What::Everything || changes_.size() == mostChangesListed)
        changes_.assign(1, {Change::What::Everything});
    else
        changes_.push_back(change);
}

} // namespace pirol
