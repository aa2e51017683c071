#include "model/ProjectModel.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "controls/Oddities.h"

#include <algorithm>
#include <atomic>
#include <list>

namespace pirol {
namespace {

/// Calls the function with the array of a kind.
template <class Elements, class Function>
void WithArray(Elements& elements, ComponentKind kind, Function&& function) {
    [&]<std::size_t... position>(std::index_sequence<position...>) {
        ((Position(kind) == position ? function(std::get<position>(elements)) : void()), ...);
    }
    (std::make_index_sequence<kindCount>{});
}

/// The element as what all controls have in common, or null.
template <class Elements>
const Control* FindElement(const Elements& elements, ComponentRef component) {
    const Control* found = nullptr;
    WithArray(elements, component.kind, [&](const auto& array) {
        if (component.index < array.size())
            found = &array[component.index];
    });
    return found;
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

std::size_t HeapBytes(const std::list<cMenu>& menus) {
    std::size_t bytes = 0;
    for (const cMenu& menu : menus)
        bytes += sizeof menu + menu.Caption.capacity() + menu.Name.capacity() + HeapBytes(menu.Children());
    return bytes;
}

/// Counts on while the program runs, so that no two components ever have the same number, in whatever designs.
std::atomic<std::uint64_t> lastSerial = 0;

} // namespace

ProjectModel::ProjectModel() {
    std::apply([](auto&... arrays) { (arrays.Append(), ...); }, elements_);
}

void ProjectModel::SetWindowSize(std::int16_t width, std::int16_t height) {
    window_.Edit().width = width;
    window_.Edit().height = height;
}

void ProjectModel::SetAuthor(std::string_view author) {
    window_.Edit().author = std::string(author); // takes no more memory than the text
}

std::size_t ProjectModel::ElementCount(ComponentKind kind) const {
    std::size_t count = 0;
    WithArray(elements_, kind, [&count](const auto& array) { count = array.size(); });
    return count;
}

const Control& ProjectModel::Element(ComponentRef component) const {
    const Control* element = FindElement(elements_, component);
    if (element == nullptr)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    return *element;
}

Rectangle ProjectModel::VisibleBox(ComponentRef component) const {
    const Control* element = FindElement(elements_, component);
    if (element == nullptr || !element->Visible)
        return {};
    return {element->Left, element->Top, element->Width, element->Height};
}

ComponentRef ProjectModel::AddElement(ComponentKind kind) {
    const ComponentRef component{kind, ElementCount(kind)};
    WithArray(elements_, kind, [](auto& array) {
        Control& element = array.Append();
        element.Visible = true;
        element.Serial.value = ++lastSerial;
    });
    creationOrder_.Append(component);
    return component;
}

ComponentRef ProjectModel::PlaceComponent(ComponentKind kind, const Rectangle& box) {
    const std::int16_t left = ToInt16(box.left);
    const std::int16_t top = ToInt16(box.top);
    const std::int16_t width = ToInt16(box.width);
    const std::int16_t height = ToInt16(box.height);
    const ComponentRef component = AddElement(kind);
    WithArray(elements_, kind, [&](auto& array) {
        auto& element = array.Edit(component.index);
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
    Control* element = nullptr;
    WithArray(elements_, component.kind, [&](auto& array) {
        if (component.index < array.size())
            element = &array.Edit(component.index);
    });
    if (element == nullptr)
        throw RuntimeError(RuntimeError::IndexOutOfRange);
    return *element;
}

int ProjectModel::PlacementNumber(ComponentRef component) const {
    int number = 0;
    WithArray(elements_, component.kind, [&](const auto& array) {
        if constexpr (requires { array[0].Number; })
            if (component.index < array.size())
                number = array[component.index].Number;
    });
    return number;
}

void ProjectModel::SetPlacementNumber(ComponentRef component, int number) {
    EditElement(component);
    WithArray(elements_, component.kind, [&](auto& array) { StoreNumber(array.Edit(component.index), number); });
}

void ProjectModel::DeleteComponent(ComponentRef component) {
    EditElement(component).Visible = false;
    if (!oddities::DeleteKeyEmptiesKind(component.kind))
        return;
    bool emptied = false;
    WithArray(elements_, component.kind, [&emptied](auto& array) {
        // The template is never visible.
        if (std::none_of(array.begin(), array.end(), [](const Control& element) { return element.Visible; })) {
            array.Truncate(1);
            emptied = true;
        }
    });
    if (!emptied)
        return;
    PagedArray<ComponentRef> others;
    for (const ComponentRef other : creationOrder_)
        if (other.kind != component.kind)
            others.Append(other);
    creationOrder_ = std::move(others);
}

void ProjectModel::Reset() {
    ProjectModel empty;
    empty.sql_ = sql_;
    *this = std::move(empty);
}

std::size_t ProjectModel::UnsharedBytes(const ProjectModel& other) const {
    std::size_t bytes = sizeof *this;
    if (!window_.SharesWith(other.window_))
        bytes += window_->author.capacity();
    if (!menus_.SharesWith(other.menus_))
        bytes += HeapBytes(menus_->Menus());
    if (!sql_.SharesWith(other.sql_))
        for (const SQLField& field : sqlFields)
            bytes += ((*sql_).*field.text).capacity();
    bytes += creationOrder_.UnsharedBytes(other.creationOrder_, [](ComponentRef) { return std::size_t{0}; });
    [&]<std::size_t... position>(std::index_sequence<position...>) {
        ((bytes += std::get<position>(elements_).UnsharedBytes(
              std::get<position>(other.elements_), [](const Control& control) { return HeapBytesOf(control); })),
         ...);
    }
    (std::make_index_sequence<kindCount>{});
    return bytes;
}

bool ProjectModel::operator==(const ProjectModel& other) const {
    return window_ == other.window_ && elements_ == other.elements_ && menus_ == other.menus_ && sql_ == other.sql_;
}

} // namespace pirol
