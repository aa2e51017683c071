#include "designer/DesignCanvas.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "controls/Oddities.h"
#include "designer/Arranging.h"
#include "designer/Clipboard.h"
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

DesignCanvas::DesignCanvas(Document& document) : document_(document), index_(document.Model()) {
    document_.AddListener(*this);
}

DesignCanvas::~DesignCanvas() {
    document_.RemoveListener(*this);
}

std::int16_t DesignCanvas::SnapToGrid(double pixels) const {
    return pirol::SnapToGrid(pixels, snapsToGrid_);
}

// --- The mouse anywhere -----------------------------------------------------------------------------------------

void DesignCanvas::Press(int x, int y, MouseButton button, Modifiers modifiers) {
    justPlaced_ = false;
    if (target_ == Target::None) {
        CanvasHit hit = HitTest(x, y);
        if (modifiers.alt && hit.area != CanvasHit::Area::Canvas)
            hit.area = CanvasHit::Area::Border; // moves, wherever it is gripped
        targetComponent_ = hit.component;
        target_ = TargetOf(hit, button, modifiers);
        pressedBox_ = document_.Model().VisibleBox(targetComponent_);
        const bool selects = target_ == Target::Component || target_ == Target::Resizer;
        if (selects && !AllSelected().Contains(targetComponent_))
            document_.Select(targetComponent_);
        document_.BeginGesture();
        if (target_ == Target::Group)
            return GroupMouseDown(x, y, button, modifiers);
        if (target_ == Target::Rectangle)
            return RectangleMouseDown(x, y, modifiers);
        if (target_ == Target::Handle && button == MouseButton::Left)
            return HandleMouseDown(x, y, hit.sides);
    }
    const Rectangle box = document_.Model().VisibleBox(targetComponent_);
    if (target_ == Target::Canvas)
        CanvasMouseDown(x, y, button);
    else if (target_ == Target::Component)
        MouseDown(button, (x - box.left) * twipsPerPixel, (y - box.top) * twipsPerPixel);
    else if (target_ == Target::Resizer)
        ResizerMouseDown(targetComponent_, button, x, y);
}

void DesignCanvas::Move(int x, int y) {
    const Rectangle box = document_.Model().VisibleBox(targetComponent_);
    if (target_ == Target::Component)
        MouseMove(targetComponent_, (x - box.left) * twipsPerPixel, (y - box.top) * twipsPerPixel);
    else if (target_ == Target::Resizer)
        ResizerMouseMove(targetComponent_, x, y);
    else if (target_ == Target::Handle)
        HandleMouseMove(x, y);
    else if (target_ == Target::Group)
        GroupMouseMove(x, y);
    else if (target_ == Target::Rectangle)
        RectangleMouseMove(x, y);
    else if (target_ == Target::Canvas || HitTest(x, y).area == CanvasHit::Area::Canvas)
        CanvasMouseMove(x, y);
}

void DesignCanvas::Release() {
    const Target target = std::exchange(target_, Target::None);
    EndGuides();
    if (target == Target::Component)
        MouseUp(targetComponent_);
    else if (target == Target::Resizer)
        ResizerMouseUp();
    else if (target == Target::Handle)
        HandleMouseUp();
    else if (target == Target::Group)
        GroupMouseUp();
    else if (target == Target::Rectangle)
        RectangleMouseUp();
    else if (target == Target::Canvas)
        CanvasMouseUp();
    document_.EndGesture();
}

void DesignCanvas::Leave() {
    if (!IsInGesture())
        statusText_.clear();
}

CanvasHit DesignCanvas::HitTest(int x, int y) {
    if (const std::optional<CanvasHit> handle = HitHandle(x, y))
        return *handle;
    const std::optional<ComponentRef> component = Index().TopmostAt(x, y);
    if (!component)
        return {};
    const std::optional<Rectangle> resizer = ResizerOf(*component);
    // Of several only the leader shows its handle.
    const bool hasHandle = component == Selected() || !AllSelected().IsSeveral() || !AllSelected().Contains(*component);
    const bool onResizer = hasHandle && resizer && resizer->Contains(x, y);
    return {onResizer ? CanvasHit::Area::Resizer : CanvasHit::Area::Border, *component};
}

std::optional<Rectangle> DesignCanvas::ResizerOf(ComponentRef component) const {
    if (IsMultimedia(component.kind) || currentKind_ == pointerTool)
        return std::nullopt;
    return ResizerIn(ShownBox(component));
}

void DesignCanvas::SetBox(ComponentRef component, const Rectangle& box, std::string_view mergeKey) {
    const Rectangle before = document_.Model().VisibleBox(component);
    if (box == before)
        return; // a mere click does not even ask the history
    const bool moves = box.width == before.width && box.height == before.height;
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
    selecting_ = false;
    group_.reset();
    frame_ = {0, 0, 1, 1};
    frameVisible_ = false;
    statusText_.clear();
    target_ = Target::None;
    EndGuides();
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
    if (!drawing_ && !selecting_)
        return;
    frame_ = RectangleBetween(static_cast<int>(startX_), static_cast<int>(startY_), x, y).value_or(frame_);
    if (drawing_)
        frame_ = Guided(frame_, DrawnSides());
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
    Place(currentKind_, drawn);
    return true;
}

void DesignCanvas::Place(int number, const Rectangle& box) {
    const std::optional<ComponentKind> chosen = KindByNumber(number);
    if (!chosen)
        return;
    const ComponentKind kind = oddities::CrossTextAreas(*chosen);
    document_.EditAndSelect(Concatenate(RowOf(kind).javaClass, " einfügen"), [&](ProjectModel& model) {
        const ComponentRef placed = model.PlaceComponent(kind, box);
        NumberFreely(model, placed);
        return placed;
    });
    justPlaced_ = true;
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
        SetBox(component, Guided(box, {}));
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
        box = Guided(box, {.left = false, .top = false});
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
    const bool isClick = document_.Model().VisibleBox(targetComponent_) == pressedBox_;
    if (isClick && AllSelected().IsSeveral() && AllSelected().Contains(targetComponent_))
        document_.Select(targetComponent_);
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

std::optional<ComponentRef> DesignCanvas::Reached() const {
    return reached_ && IsVisible(document_.Model(), *reached_) ? reached_ : Selected();
}

bool DesignCanvas::SelectNext(bool forward) {
    const PagedArray<ComponentRef>& order = document_.Model().CreationOrder();
    const std::optional<ComponentRef> reached = Reached();
    bool isBeyond = !reached; // whether the walk has passed it
    for (std::size_t i = 0; i < order.size(); ++i) {
        const ComponentRef component = order[forward ? i : order.size() - 1 - i];
        if (isBeyond && document_.Model().Element(component).Visible) {
            if (reached_ || AllSelected().IsSeveral())
                reached_ = component;
            else
                document_.Select(component);
            return true;
        }
        isBeyond = isBeyond || component == reached;
    }
    return false;
}

void DesignCanvas::ToggleReached() {
    const std::optional<ComponentRef> reached = Reached();
    if (!reached)
        return;
    if (reached_ || AllSelected().IsSeveral())
        document_.Select(AllSelected().Toggled(*reached));
    reached_ = reached;
}

void DesignCanvas::SelectAll() {
    document_.Select(AllComponents(document_.Model()));
}

int DesignCanvas::Stepped(int value, int steps, bool byPixel) const {
    if (steps == 0)
        return value;
    return byPixel ? ToInt16(value + steps) : SnapToGrid(value + steps * (snapsToGrid_ ? gridSpacing : 1));
}

int DesignCanvas::SteppedSize(int size, int steps, bool byPixel) const {
    const int stepped = Stepped(size, steps, byPixel);
    return steps > 0 || stepped * twipsPerPixel > leastDraggedSize ? stepped : size;
}

/// A held key is one gesture, as a drag is.
std::string DesignCanvas::KeyOfKeyPress(bool goesOn) {
    if (!goesOn)
        ++keyPresses_;
    return Concatenate("key ", keyPresses_);
}

void DesignCanvas::MoveSelected(int stepsX, int stepsY, bool goesOn, bool byPixel) {
    const std::optional<ComponentRef> leader = Selected();
    if (!leader)
        return;
    const Rectangle box = document_.Model().VisibleBox(*leader);
    const int x = Stepped(box.left, stepsX, byPixel) - box.left;
    const int y = Stepped(box.top, stepsY, byPixel) - box.top;
    MoveAll(document_, AllSelected(), x, y, KeyOfKeyPress(goesOn));
}

void DesignCanvas::ResizeSelected(int stepsX, int stepsY, bool goesOn, bool byPixel) {
    const Selection components = AllSelected();
    std::vector<Rectangle> boxes = BoxesOf(document_.Model(), components);
    auto box = boxes.begin();
    for (const ComponentRef component : components) {
        if (!IsMultimedia(component.kind)) {
            box->width = SteppedSize(box->width, stepsX, byPixel);
            box->height = SteppedSize(box->height, stepsY, byPixel);
        }
        ++box;
    }
    const std::string label = components.IsSeveral() ? StepLabel(components, "in der Größe ändern")
                              : components.IsEmpty()
                                  ? std::string()
                                  : Concatenate("Größe von ", RowOf(components.Leader()->kind).javaClass, " ändern");
    SetBoxes(document_, label, components, boxes, KeyOfKeyPress(goesOn));
}

void DesignCanvas::PlaceByKeyboard() {
    Rectangle box = keyboardBox;
    box.left += placedByKeyboard_ * gridSpacing;
    box.top += placedByKeyboard_ * gridSpacing;
    placedByKeyboard_ = (placedByKeyboard_ + 1) % keyboardPlaces;
    Place(currentKind_, box);
}

void DesignCanvas::DeleteSelected(std::string_view deed) {
    const Selection components = AllSelected();
    if (components.IsEmpty())
        return;
    EndGesture();
    document_.EditAndSelect(StepLabel(components, deed), [&components](ProjectModel& model) {
        // From the end, where the first look finds one that is left of its kind.
        for (const ComponentRef* component = components.end(); component != components.begin();)
            model.DeleteComponent(*--component);
        return Selection();
    });
}

void DesignCanvas::Escape() {
    if (IsInGesture()) {
        document_.CancelGesture();
        EndGesture();
    } else if (AllSelected().IsEmpty() && !reached_) {
        currentKind_ = pointerTool;
    } else {
        reached_.reset();
        document_.Select(std::nullopt);
    }
}

// --- What the view needs ----------------------------------------------------------------------------------------

std::vector<ComponentRef> DesignCanvas::Intersecting(std::span<const Rectangle> areas) {
    return Index().Intersecting(areas);
}

void DesignCanvas::DocumentChanged(const DocumentChange& change) {
    // Not current until it has taken in all changes, should memory run out on the way.
    const bool follows = std::exchange(indexIsCurrent_, false) && !change.design.allComponents;
    if (change.replaced) {
        EndGesture();
        placedByKeyboard_ = 0;
    }
    if (change.replaced || change.selection || change.design.Any())
        justPlaced_ = false;
    // Whatever several were dragged or chosen for, it was for other ones.
    if (change.selection || change.replaced)
        reached_.reset();
    if (change.selection || change.design.Any())
        group_.reset();
    for (const ComponentChange& component : change.design.components)
        if (follows)
            index_.Update(component.component);
    indexIsCurrent_ = follows;
}

const ComponentIndex& DesignCanvas::Index() {
    if (!indexIsCurrent_)
        index_.Begin();
    indexIsCurrent_ = true;
    index_.TakeIn();
    return index_;
}

} // namespace pirol
