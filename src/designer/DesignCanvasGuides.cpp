// The guides of what is dragged.

#include "designer/ComponentLook.h"
#include "designer/DesignCanvas.h"

namespace pirol {
namespace {

/// What is drawn or sized stays larger than this, in pixels, as without guides.
constexpr int leastPulledSize = 20;
/// In a larger crowd everything lines up with something, and looking for it would hold up the drag's first move.
constexpr std::size_t mostGuided = 20'000;

} // namespace

/// Positions on the grid and positions at others exclude each other.
bool DesignCanvas::GuidesPull() const {
    const bool wanted = alignsToGuides_ || !KindByNumber(currentKind_);
    return wanted && !snapsToGrid_ && !guidesAreSuspended_;
}

/// The sides that follow the pointer while a rectangle is drawn.
MovingSides DesignCanvas::DrawnSides() const {
    const bool rightwards = frame_.left == static_cast<int>(startX_);
    const bool downwards = frame_.top == static_cast<int>(startY_);
    return {.left = !rightwards, .top = !downwards, .right = rightwards, .bottom = downwards};
}

/// The box as guides pull it; notes what they show.
Rectangle DesignCanvas::Guided(const Rectangle& box, MovingSides sides) {
    if (document_.Model().CreationOrder().size() > mostGuided)
        return box;
    const bool isDrawing = target_ == Target::Canvas;
    if (!guides_)
        guides_ = GuidesIn(document_.Model(), [this, isDrawing](ComponentRef component) {
            return !isDrawing &&
                   (component == targetComponent_ || (target_ == Target::Group && AllSelected().Contains(component)));
        });
    GuideBox moved = {box, std::nullopt};
    if (!isDrawing && targetComponent_.index < document_.Model().ElementCount(targetComponent_.kind)) {
        const Control& control = document_.Model().Element(targetComponent_);
        if (const std::optional<int> baseline = BaselineOf(control))
            moved.baseline = *baseline - control.Top + box.top;
    }
    Guides::Found found = guides_->Find(moved, sides, GuidesPull());
    Rectangle pulled = box;
    pulled.left += sides.left ? found.x : 0;
    pulled.top += sides.top ? found.y : 0;
    pulled.width += (sides.right ? found.x : 0) - (sides.left ? found.x : 0);
    pulled.height += (sides.bottom ? found.y : 0) - (sides.top ? found.y : 0);
    const bool isTooSmall = (pulled.width < box.width && pulled.width <= leastPulledSize) ||
                            (pulled.height < box.height && pulled.height <= leastPulledSize);
    if (isTooSmall) {
        guideLines_.clear();
        return box;
    }
    guideLines_ = std::move(found.lines);
    return pulled;
}

void DesignCanvas::EndGuides() {
    guides_.reset();
    guideLines_.clear();
}

} // namespace pirol
