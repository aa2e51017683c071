// The gestures with several components: dragging them and choosing them with a rectangle.

#include "base/Conversions.h"
#include "designer/Arranging.h"
#include "designer/Clipboard.h"
#include "designer/DesignCanvas.h"

#include <algorithm>
#include <cmath>

namespace pirol {
namespace {

/// So far, in pixels, the mouse may move in a click.
constexpr int largestMoveOfClick = 3;

bool IsSlip(int x, int y) {
    return std::abs(x) <= largestMoveOfClick && std::abs(y) <= largestMoveOfClick;
}

/// The rectangle that begins and ends with the outermost upper left corners.
Rectangle CornersOf(const std::vector<Rectangle>& boxes) {
    Rectangle corners = boxes.empty() ? Rectangle{} : Rectangle{boxes.front().left, boxes.front().top, 0, 0};
    for (const Rectangle& box : boxes) {
        const int right = std::max(corners.Right(), box.left);
        const int bottom = std::max(corners.Bottom(), box.top);
        corners.left = std::min(corners.left, box.left);
        corners.top = std::min(corners.top, box.top);
        corners.width = right - corners.left;
        corners.height = bottom - corners.top;
    }
    return corners;
}

} // namespace

DesignCanvas::Target DesignCanvas::TargetOf(const CanvasHit& hit, MouseButton button, Modifiers modifiers) const {
    const bool isLeft = button == MouseButton::Left;
    const bool withKey = isLeft && (modifiers.control || modifiers.shift);
    if (hit.area == CanvasHit::Area::Canvas)
        return withKey || (isLeft && currentKind_ == pointerTool) ? Target::Rectangle : Target::Canvas;
    if (withKey)
        return modifiers.shift ? Target::Rectangle : Target::Group;
    const bool isOneOfSeveral = AllSelected().IsSeveral() && AllSelected().Contains(hit.component);
    if (isOneOfSeveral && (hit.area == CanvasHit::Area::Border || !isLeft))
        return Target::Group;
    return hit.area == CanvasHit::Area::Border   ? Target::Component
           : hit.area == CanvasHit::Area::Handle ? Target::Handle
                                                 : Target::Resizer;
}

Rectangle DesignCanvas::ShownBox(ComponentRef component) const {
    Rectangle box = document_.Model().VisibleBox(component);
    if (IsMovingSeveral() && AllSelected().Contains(component)) {
        box.left += group_->x;
        box.top += group_->y;
    }
    return box;
}

/// Runs a part of a gesture. What throws takes the whole gesture back.
template <class Step>
void DesignCanvas::RunWholeGesture(Step&& step) {
    try {
        step();
    } catch (...) {
        document_.CancelGesture();
        EndGesture();
        throw;
    }
}

void DesignCanvas::GroupMouseDown(int x, int y, MouseButton button, Modifiers modifiers) {
    group_ = Group{.gripped = targetComponent_,
                   .box = pressedBox_,
                   .corners = CornersOf(BoxesOf(document_.Model(), AllSelected())),
                   .button = button,
                   .modifiers = modifiers,
                   .startX = x,
                   .startY = y};
}

void DesignCanvas::GroupMouseMove(int x, int y) {
    if (!group_ || group_->button != MouseButton::Left)
        return;
    int movedX = x - group_->startX;
    int movedY = y - group_->startY;
    const bool isClick = !group_->started && group_->modifiers.control && IsSlip(movedX, movedY);
    if (isClick || (movedX == group_->x && movedY == group_->y))
        return;
    RunWholeGesture([&] {
        if (!group_->started && group_->modifiers.control)
            DuplicateGroup();
        Rectangle gripped = group_->box;
        gripped.left += movedX;
        gripped.top += movedY;
        gripped = Guided(gripped, {});
        movedX = gripped.left - group_->box.left;
        movedY = gripped.top - group_->box.top;
        const Rectangle& corners = group_->corners;
        for (const int left : {corners.left, corners.Right()})
            ToInt16(static_cast<double>(left) + movedX);
        for (const int top : {corners.top, corners.Bottom()})
            ToInt16(static_cast<double>(top) + movedY);
        group_->x = movedX;
        group_->y = movedY;
        group_->started = true;
        group_->isSlip = group_->isSlip && IsSlip(movedX, movedY);
    });
}

/// The originals stay where they are, and the copies are dragged.
void DesignCanvas::DuplicateGroup() {
    Group group = *group_;
    if (!AllSelected().Contains(group.gripped))
        document_.Select(group.gripped);
    group.gripped = DuplicateInPlace(document_, group.gripped);
    group.corners = CornersOf(BoxesOf(document_.Model(), AllSelected()));
    group_ = group; // what happened meanwhile was no end of the drag
}

void DesignCanvas::GroupMouseUp() {
    if (!group_ || group_->button != MouseButton::Left)
        return group_.reset();
    const Group group = *std::exchange(group_, std::nullopt);
    if (!group.started)
        return document_.Select(group.modifiers.control ? AllSelected().Toggled(group.gripped) : group.gripped);
    RunWholeGesture([&] {
        const int x = SnapToGrid(group.box.left + group.x) - group.box.left;
        const int y = SnapToGrid(group.box.top + group.y) - group.box.top;
        if (group.isSlip && !group.modifiers.control && x == 0 && y == 0)
            document_.Select(group.gripped);
        else
            MoveAll(document_, AllSelected(), x, y);
    });
}

void DesignCanvas::RectangleMouseDown(int x, int y, Modifiers modifiers) {
    selecting_ = true;
    modifiers_ = modifiers;
    startX_ = x;
    startY_ = y;
    frame_ = {x, y, 1, 1};
}

void DesignCanvas::RectangleMouseMove(int x, int y) {
    if (!selecting_)
        return;
    if (frameVisible_ || !IsSlip(x - static_cast<int>(startX_), y - static_cast<int>(startY_)))
        CanvasMouseMove(x, y);
}

void DesignCanvas::RectangleMouseUp() {
    const Rectangle frame = std::exchange(frame_, {0, 0, 1, 1});
    const bool drawn = std::exchange(frameVisible_, false);
    if (!std::exchange(selecting_, false))
        return;
    statusText_.clear();
    const bool withKey = modifiers_.control || modifiers_.shift;
    if (drawn) {
        const Selection met(Intersecting({&frame, 1}));
        document_.Select(modifiers_.control ? AllSelected().With(met) : met);
    } else if (IsVisible(document_.Model(), targetComponent_) && withKey) {
        document_.Select(AllSelected().Toggled(targetComponent_));
    } else if (!withKey) {
        document_.Select(std::nullopt);
    }
}

} // namespace pirol
