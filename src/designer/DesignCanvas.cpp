#include "designer/DesignCanvas.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "controls/Oddities.h"
#include "designer/Grid.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace pirol {
namespace {

/// A drawn rectangle must exceed this both ways, so that a slip of the mouse places nothing.
constexpr int largestSlip = 25;
/// A component is dragged no smaller than this, in twips.
constexpr int leastDraggedSize = 300;

/// Where the keyboard places components and how large, in pixels.
constexpr Rectangle keyboardBox = {20, 20, 120, 30};
constexpr int keyboardPlaces = 10;

std::string SizeText(int width, int height) {
    return Concatenate("B = ", width, " / H = ", height);
}

/// The rectangle between two points; nothing when they lie in one row or column.
std::optional<Rectangle> RectangleBetween(int x1, int y1, int x2, int y2) {
    if (x1 == x2 || y1 == y2)
        return std::nullopt;
    return Rectangle{std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1)};
}

Rectangle ResizerIn(const Rectangle& box) {
    return {box.Right() - DesignCanvas::resizerSize, box.Bottom() - DesignCanvas::resizerSize,
            DesignCanvas::resizerSize, DesignCanvas::resizerSize};
}

} // namespace

DesignCanvas::DesignCanvas(Document& document) : document_(document) {
    document_.AddListener(*this);
}

DesignCanvas::~DesignCanvas() {
    document_.RemoveListener(*this);
}

std::int16_t DesignCanvas::SnapToGrid(double pixels) const {
    return pirol::SnapToGrid(pixels, snapsToGrid_);
}

// --- The mouse anywhere -----------------------------------------------------------------------------------------

void DesignCanvas::Press(int x, int y, MouseButton button) {
    if (target_ == Target::None) {
        const CanvasHit hit = HitTest(x, y);
        targetComponent_ = hit.component;
        target_ = hit.area == CanvasHit::Area::Canvas   ? Target::Canvas
                  : hit.area == CanvasHit::Area::Border ? Target::Component
                                                        : Target::Resizer;
        if (target_ != Target::Canvas)
            document_.Select(targetComponent_);
        document_.BeginGesture();
    }
    const Rectangle box = document_.Model().VisibleBox(targetComponent_);
    if (target_ == Target::Canvas)
        CanvasMouseDown(x, y, button);
    else if (target_ == Target::Component)
        MouseDown(button, (x - box.left) * twipsPerPixel, (y - box.top) * twipsPerPixel);
    else
        ResizerMouseDown(targetComponent_, button, x, y);
}

void DesignCanvas::Move(int x, int y) {
    const Rectangle box = document_.Model().VisibleBox(targetComponent_);
    if (target_ == Target::Component)
        MouseMove(targetComponent_, (x - box.left) * twipsPerPixel, (y - box.top) * twipsPerPixel);
    else if (target_ == Target::Resizer)
        ResizerMouseMove(targetComponent_, x, y);
    else if (target_ == Target::Canvas || HitTest(x, y).area == CanvasHit::Area::Canvas)
        CanvasMouseMove(x, y);
}

void DesignCanvas::Release() {
    const Target target = std::exchange(target_, Target::None);
    if (target == Target::Component)
        MouseUp(targetComponent_);
    else if (target == Target::Resizer)
        ResizerMouseUp();
    else if (target == Target::Canvas)
        CanvasMouseUp();
    document_.EndGesture();
}

void DesignCanvas::Leave() {
    if (!IsInGesture())
        statusText_.clear();
}

CanvasHit DesignCanvas::HitTest(int x, int y) {
    const std::optional<ComponentRef> component = Index().TopmostAt(x, y);
    if (!component)
        return {};
    const std::optional<Rectangle> resizer = ResizerOf(*component);
    const bool onResizer = resizer && resizer->Contains(x, y);
    return {onResizer ? CanvasHit::Area::Resizer : CanvasHit::Area::Border, *component};
}

std::optional<Rectangle> DesignCanvas::ResizerOf(ComponentRef component) const {
    if (IsMultimedia(component.kind))
        return std::nullopt;
    return ResizerIn(document_.Model().VisibleBox(component));
}

template <class Step>
void DesignCanvas::RunGestureStep(Step&& step) {
    try {
        step();
    } catch (...) {
        EndGesture();
        throw;
    }
}

void DesignCanvas::SetBox(ComponentRef component, const Rectangle& box, std::string_view mergeKey) {
    const Rectangle before = document_.Model().VisibleBox(component);
    if (box == before)
        return; // a mere click does not even ask the history
    const bool moves = box.left != before.left || box.top != before.top;
    const std::string_view name = RowOf(component.kind).javaClass;
    document_.Edit(
        moves ? Concatenate(name, " verschieben") : Concatenate("Größe von ", name, " ändern"),
        [&](ProjectModel& model) {
            Control& control = model.EditElement(component);
            control.Left = ToInt16(box.left);
            control.Top = ToInt16(box.top);
            control.Width = ToInt16(box.width);
            control.Height = ToInt16(box.height);
        },
        mergeKey);
}

void DesignCanvas::EndGesture() {
    drawing_ = false;
    moving_ = false;
    resizing_ = false;
    frame_ = {0, 0, 1, 1};
    frameVisible_ = false;
    statusText_.clear();
    target_ = Target::None;
    document_.EndGesture();
}

// --- The empty canvas -------------------------------------------------------------------------------------------

void DesignCanvas::CanvasMouseDown(int x, int y, MouseButton button) {
    if (button != MouseButton::Left)
        return;
    drawing_ = true;
    startX_ = x;
    startY_ = y;
    frame_ = {x, y, 1, 1};
}

void DesignCanvas::CanvasMouseMove(int x, int y) {
    statusText_ = Concatenate(x, " / ", y);
    if (!drawing_)
        return;
    frame_ = RectangleBetween(static_cast<int>(startX_), static_cast<int>(startY_), x, y).value_or(frame_);
    frameVisible_ = true;
    statusText_ = SizeText(frame_.width, frame_.height);
}

void DesignCanvas::CanvasMouseUp() {
    drawing_ = false;
    frameVisible_ = false;
    statusText_.clear();
    // A release that places nothing ends a click.
    bool placed = false;
    RunGestureStep([&] { placed = PlaceDrawnFrame(); });
    if (!placed)
        document_.Select(std::nullopt);
}

bool DesignCanvas::PlaceDrawnFrame() {
    if (frame_.width <= largestSlip || frame_.height <= largestSlip)
        return false;
    frame_.left = SnapToGrid(frame_.left);
    frame_.top = SnapToGrid(frame_.top);
    frame_.height = SnapToGrid(frame_.height);
    frame_.width = SnapToGrid(frame_.width);
    const Rectangle drawn = std::exchange(frame_, {frame_.left, frame_.top, 1, 1});
    if (!KindByNumber(currentKind_))
        return false;
    Place(drawn);
    return true;
}

void DesignCanvas::Place(const Rectangle& box) {
    const std::optional<ComponentKind> chosen = KindByNumber(currentKind_);
    if (!chosen)
        return;
    const ComponentKind kind = oddities::CrossTextAreas(*chosen);
    document_.EditAndSelect(Concatenate(RowOf(kind).javaClass, " einfügen"),
                            [&](ProjectModel& model) { return model.PlaceComponent(kind, box); });
}

// --- A component ------------------------------------------------------------------------------------------------

void DesignCanvas::MouseDown(MouseButton button, double x, double y) {
    if (button != MouseButton::Left || moving_)
        return;
    startX_ = x;
    startY_ = y;
    moving_ = true;
}

void DesignCanvas::MouseMove(ComponentRef component, double x, double y) {
    if (!moving_ || (x == startX_ && y == startY_))
        return;
    RunGestureStep([&] {
        Rectangle box = document_.Model().VisibleBox(component);
        box.left = ToInt16(box.left + (x - startX_) / twipsPerPixel);
        box.top = ToInt16(box.top + (y - startY_) / twipsPerPixel);
        SetBox(component, box);
    });
}

void DesignCanvas::MouseUp(ComponentRef component) {
    RunGestureStep([&] {
        Rectangle box = document_.Model().VisibleBox(component);
        box.left = SnapToGrid(box.left);
        box.top = SnapToGrid(box.top);
        SetBox(component, box);
    });
    moving_ = false;
}

// --- A component's resize handle --------------------------------------------------------------------------------

void DesignCanvas::ResizerMouseDown(ComponentRef component, MouseButton button, int x, int y) {
    if (button != MouseButton::Left)
        return;
    const Rectangle resizer = ResizerIn(document_.Model().VisibleBox(component));
    resizing_ = true;
    startX_ = (x - resizer.left) * twipsPerPixel;
    startY_ = (y - resizer.top) * twipsPerPixel;
}

void DesignCanvas::ResizerMouseMove(ComponentRef component, int x, int y) {
    if (!resizing_)
        return;
    Rectangle box = document_.Model().VisibleBox(component);
    const Rectangle resizer = ResizerIn(box);
    const double growthX = (x - resizer.left) * twipsPerPixel - startX_;
    const double growthY = (y - resizer.top) * twipsPerPixel - startY_;
    RunGestureStep([&] {
        if (box.width * twipsPerPixel + growthX > leastDraggedSize)
            box.width = ToInt16(box.width + growthX / twipsPerPixel);
        if (box.height * twipsPerPixel + growthY > leastDraggedSize)
            box.height = ToInt16(box.height + growthY / twipsPerPixel);
        SetBox(component, box);
        // The handle looks at the candidates once more, with the sizes as they are now.
        if (box.width * twipsPerPixel + growthX > leastDraggedSize ||
            box.height * twipsPerPixel + growthY > leastDraggedSize)
            ObjectResize(box.width, box.height);
    });
}

void DesignCanvas::ResizerMouseUp() {
    resizing_ = false;
    ObjectResized();
}

void DesignCanvas::ObjectResize(int width, int height) {
    statusText_ = SizeText(width, height);
}

void DesignCanvas::ObjectResized() {
    statusText_.clear();
    if (const std::optional<ComponentRef> selected = Selected()) {
        Rectangle box = document_.Model().VisibleBox(*selected);
        box.width = SnapToGrid(box.width);
        box.height = SnapToGrid(box.height);
        SetBox(*selected, box);
    }
}

// --- The keyboard -----------------------------------------------------------------------------------------------

bool DesignCanvas::SelectNext(bool forward) {
    const PagedArray<ComponentRef>& order = document_.Model().CreationOrder();
    const std::optional<ComponentRef> selected = Selected();
    bool isBeyond = !selected; // whether the walk has passed the selected one
    for (std::size_t i = 0; i < order.size(); ++i) {
        const ComponentRef component = order[forward ? i : order.size() - 1 - i];
        if (isBeyond && document_.Model().Element(component).Visible) {
            document_.Select(component);
            return true;
        }
        isBeyond = isBeyond || component == selected;
    }
    return false;
}

int DesignCanvas::Stepped(int value, int steps) const {
    if (steps == 0)
        return value;
    return SnapToGrid(value + steps * (snapsToGrid_ ? gridSpacing : 1));
}

int DesignCanvas::SteppedSize(int size, int steps) const {
    const int stepped = Stepped(size, steps);
    return steps > 0 || stepped * twipsPerPixel > leastDraggedSize ? stepped : size;
}

/// A held key is one gesture, as a drag is.
std::string DesignCanvas::KeyOfKeyPress(bool goesOn) {
    if (!goesOn)
        ++keyPresses_;
    return Concatenate("key ", keyPresses_);
}

void DesignCanvas::MoveSelected(int stepsX, int stepsY, bool goesOn) {
    const std::optional<ComponentRef> selected = Selected();
    if (!selected)
        return;
    Rectangle box = document_.Model().VisibleBox(*selected);
    box.left = Stepped(box.left, stepsX);
    box.top = Stepped(box.top, stepsY);
    SetBox(*selected, box, KeyOfKeyPress(goesOn));
}

void DesignCanvas::ResizeSelected(int stepsX, int stepsY, bool goesOn) {
    const std::optional<ComponentRef> selected = Selected();
    if (!selected || IsMultimedia(selected->kind))
        return;
    Rectangle box = document_.Model().VisibleBox(*selected);
    box.width = SteppedSize(box.width, stepsX);
    box.height = SteppedSize(box.height, stepsY);
    SetBox(*selected, box, KeyOfKeyPress(goesOn));
}

void DesignCanvas::PlaceByKeyboard() {
    Rectangle box = keyboardBox;
    box.left += placedByKeyboard_ * gridSpacing;
    box.top += placedByKeyboard_ * gridSpacing;
    placedByKeyboard_ = (placedByKeyboard_ + 1) % keyboardPlaces;
    Place(box);
}

void DesignCanvas::DeleteSelected() {
    const std::optional<ComponentRef> selected = Selected();
    if (!selected)
        return;
    EndGesture();
    document_.EditAndSelect(Concatenate(RowOf(selected->kind).javaClass, " löschen"),
                            [component = *selected](ProjectModel& model) -> std::optional<ComponentRef> {
                                model.DeleteComponent(component);
                                return std::nullopt;
                            });
}

void DesignCanvas::Escape() {
    if (!IsInGesture())
        return document_.Select(std::nullopt);
    document_.CancelGesture();
    EndGesture();
}

// --- What the view needs ----------------------------------------------------------------------------------------

std::vector<ComponentRef> DesignCanvas::Intersecting(std::span<const Rectangle> areas) {
    return Index().Intersecting(areas);
}

void DesignCanvas::DocumentChanged(const DocumentChange& change) {
    // Not current until it has taken in all, should memory run out on the way.
    const bool follows = std::exchange(indexIsCurrent_, false) && !change.design.allComponents;
    if (change.replaced) {
        EndGesture();
        placedByKeyboard_ = 0;
    }
    for (const ComponentChange& component : change.design.components)
        if (follows)
            index_.Update(document_.Model(), component.component);
    indexIsCurrent_ = follows;
}

const ComponentIndex& DesignCanvas::Index() {
    if (!indexIsCurrent_)
        index_.Rebuild(document_.Model());
    indexIsCurrent_ = true;
    return index_;
}

} // namespace pirol
