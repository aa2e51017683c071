#include "designer/Selection.h"

#include "base/Text.h"

#include <algorithm>
#include <new>

namespace pirol {

Selection::Selection(std::vector<ComponentRef> components) {
    if (components.empty())
        return;
    const ComponentRef leader = components.back();
    std::sort(components.begin(), components.end());
    components.erase(std::unique(components.begin(), components.end()), components.end());
    *this = Selection(std::move(components), leader);
}

Selection::Selection(std::vector<ComponentRef> sorted, ComponentRef leader) : leader_(leader) {
    if (sorted.size() > 1)
        several_ = std::make_shared<const std::vector<ComponentRef>>(std::move(sorted));
}

bool Selection::Contains(ComponentRef component) const {
    return std::binary_search(begin(), end(), component);
}

Selection Selection::Toggled(ComponentRef component) const {
    std::vector<ComponentRef> components(begin(), end());
    const auto place = std::lower_bound(components.begin(), components.end(), component);
    if (!Contains(component)) {
        components.insert(place, component);
        return {std::move(components), component};
    }
    components.erase(place);
    if (components.empty())
        return {};
    const ComponentRef leader = component == *leader_ ? components.back() : *leader_;
    return {std::move(components), leader};
}

Selection Selection::With(const Selection& more) const {
    std::vector<ComponentRef> components(begin(), end());
    components.insert(components.end(), more.begin(), more.end());
    if (more.leader_)
        components.push_back(*more.leader_);
    else if (leader_)
        components.push_back(*leader_);
    return Selection(std::move(components));
}

Selection Selection::VisibleIn(const ProjectModel& model) const {
    const auto isVisible = [&model](ComponentRef component) { return IsVisible(model, component); };
    if (std::all_of(begin(), end(), isVisible))
        return *this;
    const std::optional<ComponentRef> leader = isVisible(*leader_) ? leader_ : std::nullopt;
    try {
        std::vector<ComponentRef> components;
        std::copy_if(begin(), end(), std::back_inserter(components), isVisible);
        if (components.empty())
            return {};
        const ComponentRef last = components.back();
        return {std::move(components), leader.value_or(last)};
    } catch (const std::bad_alloc&) {
        return leader;
    }
}

bool Selection::operator==(const Selection& other) const {
    return leader_ == other.leader_ &&
           (several_ == other.several_ || std::equal(begin(), end(), other.begin(), other.end()));
}

bool IsVisible(const ProjectModel& model, ComponentRef component) {
    return component.index < model.ElementCount(component.kind) && model.Element(component).Visible;
}

Selection AllComponents(const ProjectModel& model) {
    std::vector<ComponentRef> components;
    for (const ComponentRef component : model.CreationOrder())
        if (model.Element(component).Visible)
            components.push_back(component);
    return Selection(std::move(components));
}

std::string StepLabel(const Selection& components, std::string_view deed) {
    if (components.IsSeveral())
        return Concatenate(components.Count(), " Komponenten ", deed);
    return components.IsEmpty() ? std::string() : Concatenate(RowOf(components.Leader()->kind).javaClass, " ", deed);
}

} // namespace pirol
