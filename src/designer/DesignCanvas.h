#pragma once

#include "designer/ComponentIndex.h"
#include "designer/Document.h"
#include "designer/Guides.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

enum class MouseButton { Left, Other };

/// The keys that are held while the mouse is pressed.
struct Modifiers {
    bool control = false;
    bool shift = false;
    bool alt = false;
};

/// What lies under the pointer.
struct CanvasHit {
    enum class Area {
        Canvas,  ///< the empty canvas
        Border,  ///< a component's face
        Resizer, ///< the handle at a component's lower right corner
        Handle,  ///< one of those around the selected component
    };

    Area area = Area::Canvas;
    ComponentRef component = {}; ///< unless it is the empty canvas
    MovingSides sides = {};      ///< that a handle around a component drags
};

/// A handle outside a component, and the sides that it drags.
struct CanvasHandle {
    Rectangle box;
    MovingSides sides;
};

/// The gestures on the designed window: drawing, selecting, moving, resizing and deleting components with mouse or
/// keyboard. Holds what the gestures need to know and changes the design through its document only; from press to
/// release is one step of its history. Pointer positions are pixels of the canvas.
///
/// Several components are selected with Control or Shift and with a rectangle: the pointer tool draws one, Shift does
/// so with any tool, Control adds what it meets. A press on one of several keeps them: a drag moves all, a click
/// selects that one. While they are dragged the design stays as it is, and all move at the release or none.
///
/// Every operation that computes a position or size raises RuntimeError::Overflow when it leaves the 16-bit range. The
/// gesture is over then, and the component stays as the last completed step left it. When another design takes the
/// place of this one, the gesture ends.
class DesignCanvas : private DocumentListener {
  public:
    static constexpr int twipsPerPixel = 15;
    /// The side of the square in a component's lower right corner that is its resize handle, in pixels.
    static constexpr int resizerSize = 17;
    /// The current kind's number while no kind is chosen: the mouse selects, and draws rectangles that select.
    static constexpr int pointerTool = 0;

    explicit DesignCanvas(Document& document);
    DesignCanvas(const DesignCanvas&) = delete;
    DesignCanvas& operator=(const DesignCanvas&) = delete;
    ~DesignCanvas();

    /// The number of the kind that the next drawn rectangle places; a number that belongs to no kind places nothing.
    int CurrentKind() const { return currentKind_; }
    void ChooseKind(int number) { currentKind_ = number; }

    bool SnapsToGrid() const { return snapsToGrid_; }
    void SetSnapsToGrid(bool on) { snapsToGrid_ = on; }
    bool ShowsGrid() const { return showsGrid_; }
    void SetShowsGrid(bool on) { showsGrid_ = on; }
    /// Whether guides pull what is dragged; they do only while positions are not snapped to the grid, too.
    bool AlignsToGuides() const { return alignsToGuides_; }
    void SetAlignsToGuides(bool on) { alignsToGuides_ = on; }
    /// For the moves to come, until it is taken back: guides show, but do not pull.
    void SuspendGuides(bool on) { guidesAreSuspended_ = on; }
    /// What lines up with what is being dragged.
    const std::vector<GuideLine>& GuideLines() const { return guideLines_; }
    /// The value on the grid when snapping is on, else on whole pixels.
    std::int16_t SnapToGrid(double pixels) const;

    /// Whether a press has had no release yet.
    bool IsPressed() const { return target_ != Target::None; }
    bool IsInGesture() const { return IsDrawing() || IsMoving() || IsResizing() || IsSelecting() || IsMovingSeveral(); }
    bool IsDrawing() const { return drawing_; }
    bool IsMoving() const { return moving_; } ///< one component
    bool IsResizing() const { return resizing_; }
    bool IsSelecting() const { return selecting_; } ///< with a rectangle
    bool IsMovingSeveral() const { return group_ && group_->started; }
    /// Where the component lies while several are dragged; otherwise where the design has it.
    Rectangle ShownBox(ComponentRef component) const;
    /// How far several have been dragged, in pixels.
    int DraggedX() const { return group_ ? group_->x : 0; }
    int DraggedY() const { return group_ ? group_->y : 0; }
    /// The rectangle being drawn, and whether it is shown.
    const Rectangle& Frame() const { return frame_; }
    bool IsFrameVisible() const { return frameVisible_; }
    /// The pointer's position or the size being drawn, German; for the status bar's third panel.
    const std::string& StatusText() const { return statusText_; }

    std::optional<ComponentRef> Selected() const { return document_.Selected(); }
    const Selection& AllSelected() const { return document_.AllSelected(); }
    /// The component that the keyboard has reached while it chooses several, otherwise the selected one.
    std::optional<ComponentRef> Reached() const;

    /// The mouse anywhere on the canvas. What is pressed receives the moves and the release, wherever they happen.
    void Press(int x, int y, MouseButton button, Modifiers modifiers = {});
    void Move(int x, int y);
    void Release();
    /// The pointer has left the canvas; its position is shown no longer.
    void Leave();
    CanvasHit HitTest(int x, int y);
    /// The resize handle of a visible component; nothing for multimedia kinds, which are not resized on the canvas, and
    /// with the pointer tool, which has handles outside.
    std::optional<Rectangle> ResizerOf(ComponentRef component) const;

    /// The handles around a component; only the pointer tool has them, and has no other ones then.
    std::vector<CanvasHandle> HandlesOf(ComponentRef component) const;
    /// The side of such a handle, in pixels of the design.
    void SetHandleSize(int size) { handleSize_ = size; }

    /// Selects the component that was placed after (or before) the selected one, the first (or last) when none is.
    /// While several are chosen it only reaches it. False, with nothing changed, when there is no further one.
    bool SelectNext(bool forward);
    /// Takes the component that SelectNext has reached in or out. Where one is selected it stays, and from then on
    /// several are chosen.
    void ToggleReached();
    void SelectAll();
    /// Moves the selected components, or their lower right corners, by that many steps; a step is a pixel, or reaches
    /// the next grid position when snapping is on. Several move by what their leader moves. A side can grow always and
    /// shrinks no further than the mouse shrinks it.
    /// `goesOn`: the key is still held, and what it does belongs to the step before. `byPixel`: whatever the grid says.
    void MoveSelected(int stepsX, int stepsY, bool goesOn = false, bool byPixel = false);
    void ResizeSelected(int stepsX, int stepsY, bool goesOn = false, bool byPixel = false);
    /// Places a component of the current kind in a usual size beside the last one placed so, and selects it. In a
    /// design that takes the place of another it begins again at the upper left.
    void PlaceByKeyboard();
    /// Places a component of that kind in its usual size around a point, or beside what lies there exactly, and selects
    /// it. Nothing happens for another number, or while the mouse is pressed.
    void PlaceUsual(int number, int middleX, int middleY);
    /// Shows where it would lie, until it is placed or hidden.
    void ShowPlacement(int number, int middleX, int middleY);
    void HidePlacement();
    /// Whether placing the selected component was the last thing that happened.
    bool IsJustPlaced() const { return justPlaced_; }
    /// `deed`: what the user calls it, German.
    void DeleteSelected(std::string_view deed = "löschen");
    /// Gives up the gesture that is going on, and what was dragged is where it was; without a gesture, deselects; with
    /// nothing selected, takes the pointer tool.
    void Escape();

    /// The visible components that have a pixel in common with one of the areas, in the order in which they are
    /// painted.
    std::vector<ComponentRef> Intersecting(std::span<const Rectangle> areas);

  private:
    enum class Target { None, Canvas, Component, Resizer, Handle, Group, Rectangle };

    /// The selected components, pressed on one of them.
    struct Group {
        ComponentRef gripped;
        Rectangle box;     ///< of the gripped one, when it was pressed
        Rectangle corners; ///< encloses the upper left corners of all
        MouseButton button = MouseButton::Left;
        Modifiers modifiers;
        int startX = 0;
        int startY = 0;
        int x = 0; ///< how far they have been dragged
        int y = 0;
        bool started = false; ///< the pointer has moved
        bool isSlip = true;   ///< never farther than a hand slips
    };

    Target TargetOf(const CanvasHit& hit, MouseButton button, Modifiers modifiers) const;
    void GroupMouseDown(int x, int y, MouseButton button, Modifiers modifiers);
    void GroupMouseMove(int x, int y);
    void DuplicateGroup();
    void GroupMouseUp();
    void RectangleMouseDown(int x, int y, Modifiers modifiers);
    void RectangleMouseMove(int x, int y);
    void RectangleMouseUp();
    template <class Step>
    void RunWholeGesture(Step&& step);
    void CanvasMouseDown(int x, int y, MouseButton button);
    void CanvasMouseMove(int x, int y);
    void CanvasMouseUp();
    bool PlaceDrawnFrame();
    void Place(int number, const Rectangle& box);
    Rectangle UsualBox(ComponentKind kind, int middleX, int middleY) const;
    Rectangle FreePlace(Rectangle box);
    std::optional<CanvasHit> HitHandle(int x, int y) const;
    void HandleMouseDown(int x, int y, MovingSides sides);
    void HandleMouseMove(int x, int y);
    void HandleMouseUp();
    Rectangle OnGrid(const Rectangle& dragged) const;
    void MouseDown(MouseButton button, double x, double y);
    void MouseMove(ComponentRef component, double x, double y);
    void MouseUp(ComponentRef component);
    void ResizerMouseDown(ComponentRef component, MouseButton button, int x, int y);
    void ResizerMouseMove(ComponentRef component, int x, int y);
    void ResizerMouseUp();
    void ObjectResize(int width, int height);
    void ObjectResized();
    template <class Step>
    void RunGestureStep(Step&& step) {
        try {
            step();
        } catch (...) {
            EndGesture();
            throw;
        }
    }
    void EndGesture();
    void SetBox(ComponentRef component, const Rectangle& box, std::string_view mergeKey = {});
    bool GuidesPull() const;
    Rectangle Guided(const Rectangle& box, MovingSides sides);
    MovingSides DrawnSides() const;
    void EndGuides();
    int Stepped(int value, int steps, bool byPixel) const;
    int SteppedSize(int size, int steps, bool byPixel) const;
    std::string KeyOfKeyPress(bool goesOn);
    void DocumentChanged(const DocumentChange& change) override;
    const ComponentIndex& Index();

    Document& document_;
    ComponentIndex index_;
    bool indexIsCurrent_ = false;

    int currentKind_ = 1;
    bool snapsToGrid_ = true;
    bool showsGrid_ = true;

    bool drawing_ = false;
    bool moving_ = false;
    bool resizing_ = false;
    double startX_ = 0; ///< canvas pixels while drawing, twips of the component or of its handle otherwise
    double startY_ = 0;
    Rectangle frame_ = {0, 0, 1, 1};
    bool frameVisible_ = false;
    std::string statusText_;

    bool alignsToGuides_ = false;
    bool guidesAreSuspended_ = false;
    std::optional<Guides> guides_; ///< of the gesture, made when it first moves
    std::vector<GuideLine> guideLines_;

    bool selecting_ = false;
    Modifiers modifiers_; ///< of a rectangle that selects
    std::optional<Group> group_;
    std::optional<ComponentRef> reached_; ///< while the keyboard chooses several

    bool justPlaced_ = false;
    int handleSize_ = 8;
    MovingSides handleSides_; ///< of the handle that was pressed

    Target target_ = Target::None; ///< what the mouse was pressed on
    ComponentRef targetComponent_ = {};
    Rectangle pressedBox_; ///< where that component lay then
    int placedByKeyboard_ = 0;
    std::uint64_t keyPresses_ = 0; ///< tells the steps of one held key from those of the next
};

} // namespace pirol
