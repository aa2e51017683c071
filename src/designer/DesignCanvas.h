#pragma once

#include "designer/ComponentIndex.h"
#include "designer/Document.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

enum class MouseButton { Left, Other };

/// What lies under the pointer.
struct CanvasHit {
    enum class Area {
        Canvas,  ///< the empty canvas
        Border,  ///< a component's face
        Resizer, ///< the handle at a component's lower right corner
    };

    Area area = Area::Canvas;
    ComponentRef component = {}; ///< unless it is the empty canvas
};

/// The gestures on the designed window: drawing, selecting, moving, resizing and deleting components with mouse or
/// keyboard. Holds what the gestures need to know and changes the design through its document only; from press to
/// release is one step of its history. Pointer positions are pixels of the canvas.
///
/// Every operation that computes a position or size raises RuntimeError::Overflow when it leaves the 16-bit range. The
/// gesture is over then, and the component stays as the last completed step left it. When another design takes the
/// place of this one, the gesture ends.
class DesignCanvas : private DocumentListener {
  public:
    static constexpr int twipsPerPixel = 15;
    /// The side of the square in a component's lower right corner that is its resize handle, in pixels.
    static constexpr int resizerSize = 17;

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
    /// The value on the grid when snapping is on, else on whole pixels.
    std::int16_t SnapToGrid(double pixels) const;

    /// Whether a press has had no release yet.
    bool IsPressed() const { return target_ != Target::None; }
    bool IsInGesture() const { return IsDrawing() || IsMoving() || IsResizing(); }
    bool IsDrawing() const { return drawing_; }
    bool IsMoving() const { return moving_; }
    bool IsResizing() const { return resizing_; }
    /// The rectangle being drawn, and whether it is shown.
    const Rectangle& Frame() const { return frame_; }
    bool IsFrameVisible() const { return frameVisible_; }
    /// The pointer's position or the size being drawn, German; for the status bar's third panel.
    const std::string& StatusText() const { return statusText_; }

    std::optional<ComponentRef> Selected() const { return document_.Selected(); }

    /// The mouse anywhere on the canvas. What is pressed receives the moves and the release, wherever they happen.
    void Press(int x, int y, MouseButton button);
    void Move(int x, int y);
    void Release();
    /// The pointer has left the canvas; its position is shown no longer.
    void Leave();
    CanvasHit HitTest(int x, int y);
    /// The resize handle of a visible component; nothing for multimedia kinds, which are not resized on the canvas.
    std::optional<Rectangle> ResizerOf(ComponentRef component) const;

    /// Selects the component that was placed after (or before) the selected one, the first (or last) when none is.
    /// False, with nothing changed, when there is no further one.
    bool SelectNext(bool forward);
    /// Moves the selected component, or its lower right corner, by that many steps; a step is a pixel, or reaches the
    /// next grid position when snapping is on. A side can grow always and shrinks no further than the mouse shrinks it.
    /// `goesOn`: the key is still held, and what it does belongs to the step before.
    void MoveSelected(int stepsX, int stepsY, bool goesOn = false);
    void ResizeSelected(int stepsX, int stepsY, bool goesOn = false);
    /// Places a component of the current kind in a usual size beside the last one placed so, and selects it. In a
    /// design that takes the place of another it begins again at the upper left.
    void PlaceByKeyboard();
    void DeleteSelected();
    /// Gives up the gesture that is going on, and what was dragged is where it was; without a gesture, deselects.
    void Escape();

    /// The visible components that have a pixel in common with one of the areas, in the order in which they are
    /// painted.
    std::vector<ComponentRef> Intersecting(std::span<const Rectangle> areas);

  private:
    enum class Target { None, Canvas, Component, Resizer };

    void CanvasMouseDown(int x, int y, MouseButton button);
    void CanvasMouseMove(int x, int y);
    void CanvasMouseUp();
    bool PlaceDrawnFrame();
    void Place(const Rectangle& box);
    void MouseDown(MouseButton button, double x, double y);
    void MouseMove(ComponentRef component, double x, double y);
    void MouseUp(ComponentRef component);
    void ResizerMouseDown(ComponentRef component, MouseButton button, int x, int y);
    void ResizerMouseMove(ComponentRef component, int x, int y);
    void ResizerMouseUp();
    void ObjectResize(int width, int height);
    void ObjectResized();
    template <class Step>
    void RunGestureStep(Step&& step);
    void EndGesture();
    void SetBox(ComponentRef component, const Rectangle& box, std::string_view mergeKey = {});
    int Stepped(int value, int steps) const;
    int SteppedSize(int size, int steps) const;
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

    Target target_ = Target::None; ///< what the mouse was pressed on
    ComponentRef targetComponent_ = {};
    int placedByKeyboard_ = 0;
    std::uint64_t keyPresses_ = 0; ///< tells the steps of one held key from those of the next
};

} // namespace pirol
