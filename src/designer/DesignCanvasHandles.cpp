// The eight handles that the pointer tool gives the selected component.

#include "designer/DesignCanvas.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// No side is dragged to this length or below, in pixels, as with the handle inside a component.
constexpr int leastSide = 20;

struct HandlePlace {
    int x; ///< -1 before the box, 0 in its middle, 1 behind it
    int y;
};

/// Corners first: where a box is too small for all they are the ones that stay.
constexpr HandlePlace handlePlaces[] = {{-1, -1}, {1, -1}, {-1, 1}, {1, 1}, {0, -1}, {0, 1}, {-1, 0}, {1, 0}};

int PlaceOf(int side, int begin, int length, int handle) {
    return side < 0 ? begin - handle : side > 0 ? begin + length : begin + (length - handle) / 2;
}

/// Moves one side; a small box stays as small as it is, but gets no smaller.
void DragSide(bool first, bool last, int by, int& begin, int& length) {
    const int least = std::min(length, leastSide + 1);
    if (first) {
        const int shift = std::min(by, length - least);
        begin += shift;
        length -= shift;
    } else if (last) {
        length = std::max(length + by, least);
    }
}

} // namespace

std::vector<CanvasHandle> DesignCanvas::HandlesOf(ComponentRef component) const {
    std::vector<CanvasHandle> handles;
    if (currentKind_ != pointerTool || IsMultimedia(component.kind))
        return handles;
    const Rectangle box = ShownBox(component);
    for (const HandlePlace& place : handlePlaces) {
        const bool hasRoom = (place.x != 0 || box.width >= handleSize_) && (place.y != 0 || box.height >= handleSize_);
        if (!hasRoom)
            continue;
        handles.push_back({{PlaceOf(place.x, box.left, box.width, handleSize_),
                            PlaceOf(place.y, box.top, box.height, handleSize_), handleSize_, handleSize_},
                           {.left = place.x<0, .top = place.y<0, .right = place.x> 0, .bottom = place.y> 0}});
    }
    return handles;
}

std::optional<CanvasHit> DesignCanvas::HitHandle(int x, int y) const {
    const std::optional<ComponentRef> leader = Selected();
    if (!leader)
        return std::nullopt;
    for (const CanvasHandle& handle : HandlesOf(*leader))
        if (handle.box.Contains(x, y))
            return CanvasHit{CanvasHit::Area::Handle, *leader, handle.sides};
    return std::nullopt;
}

void DesignCanvas::HandleMouseDown(int x, int y, MovingSides sides) {
    handleSides_ = sides;
    startX_ = x;
    startY_ = y;
    resizing_ = true;
}

void DesignCanvas::HandleMouseMove(int x, int y) {
    if (!resizing_)
        return;
    Rectangle box = pressedBox_;
    DragSide(handleSides_.left, handleSides_.right, x - static_cast<int>(startX_), box.left, box.width);
    DragSide(handleSides_.top, handleSides_.bottom, y - static_cast<int>(startY_), box.top, box.height);
    RunGestureStep([&] {
        box = Guided(box, handleSides_);
        SetBox(targetComponent_, box);
        ObjectResize(box.width, box.height);
    });
}

/// The sides that were dragged lie on the grid, and the others stay where they are.
void DesignCanvas::HandleMouseUp() {
    if (!std::exchange(resizing_, false))
        return;
    statusText_.clear();
    const Rectangle dragged = document_.Model().VisibleBox(targetComponent_);
    if (dragged == pressedBox_ || dragged.width <= 0)
        return;
    RunGestureStep([&] { SetBox(targetComponent_, OnGrid(dragged)); });
}

Rectangle DesignCanvas::OnGrid(const Rectangle& dragged) const {
    const auto snap = [this](bool moves, int position, int least) {
        return moves ? std::max<int>(SnapToGrid(position), least) : position;
    };
    Rectangle box = dragged;
    box.left = handleSides_.left ? std::min<int>(SnapToGrid(dragged.left), dragged.Right() - 1) : dragged.left;
    box.top = handleSides_.top ? std::min<int>(SnapToGrid(dragged.top), dragged.Bottom() - 1) : dragged.top;
    box.width = snap(handleSides_.right, dragged.Right(), box.left + 1) - box.left;
    box.height = snap(handleSides_.bottom, dragged.Bottom(), box.top + 1) - box.top;
    return box;
}

} // namespace pirol
