#include "model/Differences.h"

#include <algorithm>

namespace pirol {
namespace {

/// Following so many components one by one costs a view as much as beginning anew.
constexpr std::size_t mostListed = 64;

/// Gathers the components of one kind after the other, until there are too many to list.
class ComponentChanges {
  public:
    ComponentChanges(const ProjectModel& before, const ProjectModel& after, DesignChange& change)
        : before_(before), after_(after), change_(change) {}

    template <class Array>
    void AddKind(ComponentKind kind, const Array& before, const Array& after) {
        const std::size_t end = std::max(before.size(), after.size());
        for (std::size_t index = before.FirstDifference(after); index < end && !change_.allComponents;
             index = before.FirstDifference(after, index + 1))
            Add({kind, index});
    }

  private:
    void Add(ComponentRef component) {
        change_.components.push_back({component, before_.VisibleBox(component), after_.VisibleBox(component)});
        if (change_.components.size() > mostListed) {
            change_.components.clear();
            change_.allComponents = true;
        }
    }

    const ProjectModel& before_;
    const ProjectModel& after_;
    DesignChange& change_;
};

} // namespace

DesignChange Differences(const ProjectModel& before, const ProjectModel& after) {
    DesignChange change;
    change.window = !(before.window_ == after.window_);
    change.menus = !(before.menus_ == after.menus_);
    change.sql = !(before.sql_ == after.sql_);
    ComponentChanges components(before, after, change);
    [&]<std::size_t... position>(std::index_sequence<position...>) {
        (components.AddKind(KindRows()[position].kind, std::get<position>(before.elements_),
                            std::get<position>(after.elements_)),
         ...);
    }
    (std::make_index_sequence<kindCount>{});
    return change;
}

} // namespace pirol
