#pragma once

#include "model/ProjectModel.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// The selected components. One of them is the leader: the one that was selected last, by which others are arranged. An
/// ordinary value; copies share their list, and one of a single component takes no memory beside itself.
class Selection {
  public:
    Selection() = default;
    Selection(std::nullopt_t) {}
    Selection(ComponentRef component) : leader_(component) {}
    Selection(std::optional<ComponentRef> component) : leader_(component) {}
    /// Each of them once; the last one leads. Raises std::bad_alloc.
    explicit Selection(std::vector<ComponentRef> components);

    bool IsEmpty() const { return !leader_; }
    bool IsSeveral() const { return several_ != nullptr; }
    std::size_t Count() const { return static_cast<std::size_t>(end() - begin()); }
    std::optional<ComponentRef> Leader() const { return leader_; }
    /// Takes logarithmic time.
    bool Contains(ComponentRef component) const;

    /// The same with a component taken in, which leads then, or taken out. When the leader goes, the last of those that
    /// stay leads.
    Selection Toggled(ComponentRef component) const;
    /// The same with more components; the leader of those leads.
    Selection With(const Selection& more) const;
    /// The components that can be seen in the design; without memory for the list, the leader alone.
    Selection VisibleIn(const ProjectModel& model) const;

    /// Kind by kind, each in the order of creation.
    const ComponentRef* begin() const { return several_ ? several_->data() : leader_ ? &*leader_ : nullptr; }
    const ComponentRef* end() const {
        return several_ ? several_->data() + several_->size() : begin() + (leader_ ? 1 : 0);
    }

    bool operator==(const Selection& other) const;

  private:
    Selection(std::vector<ComponentRef> sorted, ComponentRef leader);

    std::optional<ComponentRef> leader_;
    std::shared_ptr<const std::vector<ComponentRef>> several_; ///< sorted; null for fewer than two
};

/// Whether there is such a component and it is not deleted.
bool IsVisible(const ProjectModel& model, ComponentRef component);

/// All components that can be seen; the one that was created last leads.
Selection AllComponents(const ProjectModel& model);

/// What the user calls the components and what is done with them, German: "Knopf verschieben", "3 Komponenten
/// verschieben".
std::string StepLabel(const Selection& components, std::string_view deed);

} // namespace pirol
