#pragma once

#include "base/Rectangle.h"
#include "model/ProjectModel.h"

#include <vector>

namespace pirol {

/// A component that differs between two states of a design, and where it was in each: an empty rectangle when it was
/// hidden or not there.
struct ComponentChange {
    ComponentRef component;
    Rectangle before;
    Rectangle after;
};

/// What differs between two states of a design.
struct DesignChange {
    std::vector<ComponentChange> components;
    bool allComponents = false; ///< too many differ to list them; `components` is empty then
    bool window = false;        ///< size or author
    bool menus = false;
    bool sql = false;

    bool HasComponents() const { return allComponents || !components.empty(); }
    bool Any() const { return HasComponents() || window || menus || sql; }
};

/// Costs what differs, not what there is, when one state came from the other. Raises std::bad_alloc.
DesignChange Differences(const ProjectModel& before, const ProjectModel& after);

} // namespace pirol
