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
/// ten thousand, as long as they do not lie on top of each other. A large design is taken in bit by bit, so that no
/// single question takes long; what has not been taken in yet is looked through one by one.
class ComponentIndex {
  public:
    /// Of a design that must outlive the index.
    explicit ComponentIndex(const ProjectModel& model) : model_(model) {}

    /// Another design is in the model's place.
    void Begin();
    /// Takes in the next part of the design, when something is left. A few milliseconds.
    void TakeIn();
    /// Takes in what became of one component.
    void Update(ComponentRef component);

    /// The component that was placed last among those that cover the pixel.
    std::optional<ComponentRef> TopmostAt(int x, int y) const;
    /// The components that have a pixel in common with one of the areas, in the order in which they were placed.
    std::vector<ComponentRef> Intersecting(std::span<const Rectangle> areas) const;

  private:
    Rectangle& BoxOf(ComponentRef component);
    template <class Function>
    void ForEachLeft(Function&& function) const;
    /// The component's serial number: later ones lie above.
    std::uint64_t OrderOf(ComponentRef component) const { return model_.Element(component).Serial.value; }
    const Rectangle& BoxOf(ComponentRef component) const;
    void CollectIntersecting(const Rectangle& area, std::vector<ComponentRef>& found) const;
    void Add(ComponentRef component, const Rectangle& box);
    void Remove(ComponentRef component, const Rectangle& box);

    const ProjectModel& model_;
    std::size_t taken_ = 0; ///< of the order in which the components were created
    std::array<std::vector<Rectangle>, kindCount> boxes_;
    std::unordered_map<std::uint32_t, std::vector<ComponentRef>> cells_;
    /// Components that cover more cells than is worth listing.
    std::vector<ComponentRef> large_;
};

} // namespace pirol
