#include "app/UnheldValues.h"

#include "codegen/JavaUpdate.h"
#include "controls/PropertyTable.h"

#include <algorithm>
#include <set>
#include <utility>

namespace pirol {
namespace {

struct UnheldRow {
    ComponentKind kind;
    std::string_view property;
};

/// What a project file does not hold and Java does: one value of each of these kinds.
constexpr UnheldRow unheldRows[] = {
    {ComponentKind::CheckBox, keys::checked.key},
    {ComponentKind::Password, keys::value.key},
    {ComponentKind::ProgressBar, keys::currentvalue.key},
    {ComponentKind::OptionGroup, keys::click.key},
    {ComponentKind::CharField, textAreaKind},
    {ComponentKind::RowField, textAreaKind},
};

const UnheldRow* RowFor(ComponentKind kind) {
    const auto* const row = std::find_if(std::begin(unheldRows), std::end(unheldRows),
                                         [kind](const UnheldRow& candidate) { return candidate.kind == kind; });
    return row == std::end(unheldRows) ? nullptr : row;
}

/// Empty for what is no property: it never changes.
std::string ValueOf(const Control& control, std::string_view property) {
    for (const PropertyRow& row : control.Table().Rows())
        if (row.key->key == property)
            return row.get(control);
    return {};
}

template <class Look>
void ForEachChanged(const ProjectModel& model, const DesignChange& design, Look look) {
    if (design.allComponents) {
        model.ForEachVisible([&look](const Control& control) {
            if (RowFor(control.Kind()) != nullptr)
                look(control);
        });
        return;
    }
    for (const ComponentChange& change : design.components)
        if (RowFor(change.component.kind) != nullptr &&
            change.component.index < model.ElementCount(change.component.kind))
            look(model.Element(change.component));
}

} // namespace

UnheldValues::UnheldValues(Document& document)
    : document_(document), state_(document.StateNumber()), newestState_(state_) {
    ForEachChanged(document.Model(), {.components = {}, .allComponents = true},
                   [this](const Control& control) { Look(control, true); });
    document_.AddListener(*this);
}

UnheldValues::~UnheldValues() {
    document_.RemoveListener(*this);
}

void UnheldValues::DocumentChanged(const DocumentChange& change) {
    if (document_.StateNumber() > newestState_)
        ForgetStatesUndone();
    ForEachChanged(document_.Model(), change.design,
                   [this, &change](const Control& control) { Look(control, change.replaced); });
    state_ = document_.StateNumber();
    newestState_ = std::max(newestState_, state_);
}

/// The document goes on from a state behind which others were: they will not come back.
void UnheldValues::ForgetStatesUndone() {
    if (state_ == newestState_)
        return;
    for (auto& [serial, value] : values_)
        if (value.knownSince > state_)
            value.knownSince = never;
}

void UnheldValues::Look(const Control& control, bool cameWithDesign) {
    std::string now = ValueOf(control, RowFor(control.Kind())->property);
    const auto [place, isNew] = values_.try_emplace(control.Serial.value);
    Value& value = place->second;
    const bool isSet = !isNew && value.last != now && document_.StateNumber() > newestState_;
    if (isNew)
        value.knownSince = cameWithDesign ? never : always;
    else if (isSet && !IsKnown(control))
        value.knownSince = document_.StateNumber();
    value.last = std::move(now);
}

bool UnheldValues::IsKnown(const Control& control) const {
    const auto value = values_.find(control.Serial.value);
    return value == values_.end() || value->second.knownSince <= document_.StateNumber();
}

std::function<bool(std::string_view, std::string_view)> UnheldValues::Now() const {
    std::set<std::pair<std::string, std::string_view>, std::less<>> unknown;
    document_.Model().ForEachVisible([&](const Control& control) {
        const UnheldRow* const row = RowFor(control.Kind());
        if (row != nullptr && !IsKnown(control))
            unknown.emplace(control.ObjectName, row->property);
    });
    return [unknown = std::move(unknown)](std::string_view component, std::string_view property) {
        return unknown.contains(std::pair(std::string(component), property));
    };
}

} // namespace pirol
