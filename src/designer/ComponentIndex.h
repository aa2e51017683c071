#pragma once

#include "model/ProjectModel.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace pirol {

/// Finds the visible components of a design by place. Asking and updating cost the same among ten components and among
/// ten thousand, as long as they do not lie on top of each other.
class ComponentIndex {
  public:
    /// Takes in the whole design.
    void Rebuild(const ProjectModel& model);
    /// Takes in what became of one component.
    void Update(const ProjectModel& model, ComponentRef component);

    /// The component that was placed last among those that cover the pixel.
    std::optional<ComponentRef> TopmostAt(int x, int y) const;
    /// The components that have a pixel in common with one of the areas, in the order in which they were placed.
    std::vector<ComponentRef> Intersecting(std::span<const Rectangle> areas) const;

  private:
    struct Entry {
        Rectangle box;
        std::uint64_t order = 0; ///< the component's serial number: later ones lie above
    };

    Entry& EntryOf(ComponentRef component);
    const Entry& EntryOf(ComponentRef component) const;
    void CollectIntersecting(const Rectangle& area, std::vector<ComponentRef>& found) const;
    void Add(ComponentRef component, const Rectangle& box);
    void Remove(ComponentRef component, const Rectangle& box);

    std::array<std::vector<Entry>, kindCount> entries_;
    std::unordered_map<std::uint32_t, std::vector<ComponentRef>> cells_;
    /// Components that cover more cells than is worth listing.
    std::vector<ComponentRef> large_;
};

} // namespace pirol
