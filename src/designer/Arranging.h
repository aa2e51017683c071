#pragma once

#include "designer/Document.h"

#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace pirol {

/// The ways to arrange the selected components.
enum class Arrangement {
    Left,
    Center,
    Right,
    Top,
    Middle,
    Bottom,
    SameWidth,
    SameHeight,
    SameSize,
    DistributeAcross,
    DistributeDown,
    GapsAcross,
    GapsDown,
    WindowAcross,
    WindowDown,
    ToGrid,
    EndOfArrangements, ///< none; behind the last one, so that they can be counted
};

inline constexpr std::size_t arrangementCount = static_cast<std::size_t>(Arrangement::EndOfArrangements);

/// A box to be arranged.
struct ArrangedBox {
    Rectangle box;
    bool isLeader = false;
    bool canBeSized = true;
};

/// Sounds and films are never sized.
constexpr bool CanBeSized(ComponentKind kind) {
    return kind != ComponentKind::Sound && kind != ComponentKind::Movie;
}

/// Where the boxes lie when they are arranged, in their order. Aligned and sized by the leader; distributed by their
/// centres or with equal gaps between the outermost ones, which stay; centred in a window of that size as a whole.
/// Halves of pixels are rounded. n log n time.
std::vector<Rectangle> Arranged(Arrangement arrangement, std::span<const ArrangedBox> boxes, int windowWidth,
                                int windowHeight);

/// Whether it can do something with so many components of these kinds: aligning takes two, distributing three.
bool CanArrange(Arrangement arrangement, const Selection& components);

/// Arranges the selected components as one step, as SetBoxes does. Nothing happens when CanArrange says no.
void Arrange(Document& document, Arrangement arrangement);

/// Where the components lie, in the selection's order.
std::vector<Rectangle> BoxesOf(const ProjectModel& model, const Selection& components);

/// Puts each component into its box as one step, which nothing is when they all lie there already. Raises
/// RuntimeError::Overflow, with nothing changed, when one of the boxes leaves the 16-bit range.
void SetBoxes(Document& document, std::string_view label, const Selection& components,
              const std::vector<Rectangle>& boxes, std::string_view mergeKey = {});

/// Moves the components by so many pixels, all or none, as SetBoxes does.
void MoveAll(Document& document, const Selection& components, int x, int y, std::string_view mergeKey = {});

} // namespace pirol
