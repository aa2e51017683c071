#include "ui/canvas/picContainer.h"

#include "designer/Grid.h"
#include "ui/canvas/CanvasAccessible.h"
#include "ui/canvas/PaintingFunctions.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPaintEvent>

#include <algorithm>
#include <cmath>

namespace pirol {
namespace {

/// Borders and handles may reach this far out of what they belong to.
constexpr int borderReach = 2;
/// More components than this are not painted anew for every mouse move.
constexpr std::size_t mostPaintedEachMove = 16;

constexpr int inPlaceTextSize = 13;
constexpr int largestInPlaceTextSize = 30;
constexpr int leastInPlaceWidth = 110;
constexpr int leastInPlaceLines = 5;
constexpr int inPlaceFrame = 10; // with the margins

/// Smaller distances of the grid's points on the screen would only make it grey.
constexpr int leastGridDistance = 5;
constexpr int noGridStyle = -1;

/// The parts of the design that must be painted so that the region is right: on a scaled screen the region's edges are
/// rounded, so a pixel more.
std::vector<Rectangle> AreasOf(const QRegion& region, const CanvasView& view) {
    std::vector<Rectangle> areas;
    for (const QRect& rect : region)
        areas.push_back(view.ToDesign(Rectangle{rect.left() - 1, rect.top() - 1, rect.width() + 2, rect.height() + 2}));
    return areas;
}

/// Of those around a component, on the screen.
constexpr int handleSize = 8;
constexpr QColor guideColor(200, 0, 110);
constexpr int numberMargin = 3;

/// Where the distance stands that a guide tells, on the screen.
QRect NumberBox(const GuideLine& guide, const CanvasView& view, const QFontMetrics& metrics) {
    const QSize size(metrics.horizontalAdvance(QString::number(guide.distance)) + 2 * numberMargin, metrics.height());
    const QPoint at = guide.isUpright ? QPoint(guide.position, guide.numberAt) : QPoint(guide.numberAt, guide.position);
    QRect box({}, size);
    box.moveCenter({view.ToScreen(at.x()), view.ToScreen(at.y())});
    return box;
}

Qt::CursorShape CursorOf(MovingSides sides) {
    const bool across = sides.left || sides.right;
    const bool down = sides.top || sides.bottom;
    if (across && down)
        return sides.left == sides.top ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    return across ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

MouseButton ButtonOf(const QMouseEvent& event) {
    return event.button() == Qt::LeftButton ? MouseButton::Left : MouseButton::Other;
}

Modifiers ModifiersOf(const QMouseEvent& event) {
    return {.control = event.modifiers().testFlag(Qt::ControlModifier),
            .shift = event.modifiers().testFlag(Qt::ShiftModifier),
            .alt = event.modifiers().testFlag(Qt::AltModifier)};
}

/// What a user types, other than a command.
bool IsText(const QKeyEvent& event) {
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isCommand && !event.text().isEmpty() && event.text().front().isPrint();
}

} // namespace

picContainer::picContainer(DesignCanvas& canvas, const ProjectModel& model, QWidget* parent)
    : QWidget(parent), canvas_(canvas), model_(model), painted_(canvas, model, pictureLoader_),
      layers_(painted_, model,
              [this](QPainter& painter, std::span<const Rectangle> areas) { PaintBelow(painter, areas); }),
      groupLayers_(canvas, painted_, model,
                   [this](QPainter& painter, std::span<const Rectangle> areas) { PaintBelow(painter, areas); }) {
    setObjectName("picContainer");
    dragTimer_.setSingleShot(true);
    connect(&dragTimer_, &QTimer::timeout, this, [this] { update(std::exchange(dragged_, {})); });
    connect(&pictureLoader_, &PictureLoader::Loaded, this, [this] {
        painted_.Forget();
        Repaint();
    });
    setAccessibleName("Entwurfsfläche");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    InstallCanvasAccessibility();
}

void picContainer::SetZoom(int percent) {
    view_.SetZoom(percent);
    canvas_.SetHandleSize(std::max(handleSize * CanvasView::usualZoom / view_.Zoom(), 1));
    shownSelection_ = SelectionArea();
    Repaint();
}

void picContainer::SetGrid(int style, const QColor& color) {
    gridStyle_ = style;
    gridColor_ = color;
    Repaint();
}

void picContainer::Repaint() {
    layers_.Drop();
    groupLayers_.Drop();
    update();
}

void picContainer::SetLostStrip(int height) {
    if (std::exchange(lostStrip_, height) != height)
        update();
}

void picContainer::Run(const std::function<void()>& gesture) {
    ReportErrors(window(), gesture);
    ShowFrame();
    ShowGuides();
    ShowSelection();
    emit Handled();
}

void picContainer::RunKey(const std::function<void()>& gesture) {
    Run(gesture);
    emit SelectionMovedByKey();
}

// --- Mouse and keyboard -----------------------------------------------------------------------------------------

/// A dialog that opened while a button was held got the release that ends the gesture.
void picContainer::EndLostGesture() {
    if (canvas_.IsPressed())
        Run([&] { canvas_.Release(); });
}

QPoint picContainer::InDesign(const QPoint& position) const {
    return {view_.ToDesign(position.x()), view_.ToDesign(position.y())};
}

/// Where a part of the design is painted, with what rounding may add.
QRect picContainer::OnScreen(const Rectangle& box) const {
    const QRect area = ToRect(view_.ToScreen(box));
    return view_.Zoom() == CanvasView::usualZoom || area.isEmpty() ? area : area.adjusted(-1, -1, 1, 1);
}

void picContainer::mousePressEvent(QMouseEvent* event) {
    if (event->buttons() == event->button())
        EndLostGesture();
    const QPoint at = InDesign(event->pos());
    pressedWithControl_ = event->modifiers().testFlag(Qt::ControlModifier);
    Run([&] { canvas_.Press(at.x(), at.y(), ButtonOf(*event), ModifiersOf(*event)); });
}

void picContainer::mouseMoveEvent(QMouseEvent* event) {
    isDoubleClick_ = false;
    if (event->buttons() == Qt::NoButton)
        EndLostGesture();
    canvas_.SuspendGuides(event->modifiers().testFlag(Qt::ControlModifier) && !pressedWithControl_);
    PointerMoved(event->pos());
    if (event->buttons() == Qt::NoButton)
        ShowCursor(InDesign(event->pos()));
}

void picContainer::PointerMoved(const QPoint& position) {
    const QPoint at = InDesign(position);
    Run([&] { canvas_.Move(at.x(), at.y()); });
}

/// The two presses of a double click do what any press does; then the text is edited.
void picContainer::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
    const QPoint at = InDesign(event->pos());
    isDoubleClick_ = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier &&
                     canvas_.HitTest(at.x(), at.y()).area == CanvasHit::Area::Border;
}

void picContainer::mouseReleaseEvent(QMouseEvent* event) {
    Run([&] { canvas_.Release(); });
    if (std::exchange(isDoubleClick_, false))
        emit EditWanted({});
    ShowCursor(InDesign(event->pos()));
}

void picContainer::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    canvas_.Leave();
    emit Handled();
}

void picContainer::ShowCursor(const QPoint& position) {
    using enum CanvasHit::Area;
    const CanvasHit hit = canvas_.HitTest(position.x(), position.y());
    const Qt::CursorShape empty =
        canvas_.CurrentKind() == DesignCanvas::pointerTool ? Qt::ArrowCursor : Qt::CrossCursor;
    const Qt::CursorShape shape = hit.area == Canvas   ? empty
                                  : hit.area == Border ? Qt::SizeAllCursor
                                  : hit.area == Handle ? CursorOf(hit.sides)
                                                       : Qt::SizeFDiagCursor;
    if (cursor().shape() != shape)
        setCursor(shape);
}

void picContainer::keyPressEvent(QKeyEvent* event) {
    const struct {
        Qt::Key key;
        int x;
        int y;
    } arrows[] = {{Qt::Key_Left, -1, 0}, {Qt::Key_Right, 1, 0}, {Qt::Key_Up, 0, -1}, {Qt::Key_Down, 0, 1}};
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    for (const auto& arrow : arrows)
        if (event->key() == arrow.key && !control) {
            const bool byPixel = event->modifiers().testFlag(Qt::AltModifier);
            const bool resize = event->modifiers().testFlag(Qt::ShiftModifier);
            const bool goesOn = event->isAutoRepeat();
            RunKey([&] {
                resize ? canvas_.ResizeSelected(arrow.x, arrow.y, goesOn, byPixel)
                       : canvas_.MoveSelected(arrow.x, arrow.y, goesOn, byPixel);
            });
            return;
        }
    switch (event->key()) {
    case Qt::Key_Escape:
        Run([&] { canvas_.Escape(); });
        break;
    case Qt::Key_Insert:
        RunKey([&] { canvas_.PlaceByKeyboard(); });
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit EnterPressed();
        break;
    case Qt::Key_Space:
        if (control)
            RunKey([&] { canvas_.ToggleReached(); });
        else
            QWidget::keyPressEvent(event);
        break;
    case Qt::Key_F2:
        emit EditWanted({});
        break;
    default:
        if (IsText(*event) && canvas_.IsJustPlaced())
            emit EditWanted(event->text());
        else if (IsText(*event) && canvas_.Selected() && !canvas_.IsPressed())
            emit TextTyped(event);
        else
            QWidget::keyPressEvent(event);
    }
}

bool picContainer::focusNextPrevChild(bool next) {
    bool selected = false;
    RunKey([&] { selected = canvas_.SelectNext(next); });
    return selected || QWidget::focusNextPrevChild(next);
}

// --- Editing in place, menu and dropping ------------------------------------------------------------------------

void picContainer::EditInPlace(ComponentRef component, const InPlaceText& text, const QString& typed) {
    FinishEditing();
    editor_ = new InPlaceEditor(ToText(text.text), text.hasLines, this);
    QFont font = editor_->font();
    font.setPixelSize(
        std::clamp(inPlaceTextSize * view_.Zoom() / CanvasView::usualZoom, inPlaceTextSize, largestInPlaceTextSize));
    editor_->setFont(font);
    QRect place = ToRect(view_.ToScreen(model_.VisibleBox(component)));
    const int lines = text.hasLines ? leastInPlaceLines : 1;
    const int height = lines * editor_->fontMetrics().height() + inPlaceFrame;
    const QPoint middle = place.center();
    place.setSize(
        {std::max(place.width(), leastInPlaceWidth), text.hasLines ? std::max(place.height(), height) : height});
    if (!text.hasLines)
        place.moveTop(std::max(middle.y() - height / 2, 0));
    editor_->setGeometry(place);
    connect(editor_, &InPlaceEditor::Accepted, this, [this, component](const QString& accepted) {
        if (canvas_.Selected() == component)
            emit TextEdited(accepted.toStdString());
    });
    editor_->show();
    editor_->setFocus(Qt::OtherFocusReason);
    if (!typed.isEmpty())
        editor_->insertPlainText(typed);
}

void picContainer::FinishEditing() {
    if (editor_)
        editor_->Accept();
}

/// On a button's press it comes before the release, which no one will get.
void picContainer::contextMenuEvent(QContextMenuEvent* event) {
    EndLostGesture();
    QPoint at = event->pos();
    if (const std::optional<ComponentRef> leader = canvas_.Selected();
        leader && event->reason() == QContextMenuEvent::Keyboard)
        at = OnScreen(model_.VisibleBox(*leader)).center();
    emit ContextMenuWanted(mapToGlobal(at));
}

void picContainer::DragOver(int kind, const QPoint& global) {
    const QPoint position = mapFromGlobal(global);
    const QPoint at = InDesign(position);
    const bool isHere = visibleRegion().contains(position);
    Run([&] { isHere ? canvas_.ShowPlacement(kind, at.x(), at.y()) : canvas_.HidePlacement(); });
}

void picContainer::Drop(int kind, const QPoint& global) {
    const QPoint position = mapFromGlobal(global);
    const QPoint at = InDesign(position);
    const bool isHere = visibleRegion().contains(position);
    Run([&] { isHere ? canvas_.PlaceUsual(kind, at.x(), at.y()) : canvas_.HidePlacement(); });
    if (isHere)
        setFocus(Qt::OtherFocusReason);
}

void picContainer::PlaceInMiddle(int kind) {
    const QPoint at = InDesign(visibleRegion().boundingRect().center());
    RunKey([&] { canvas_.PlaceUsual(kind, at.x(), at.y()); });
    setFocus(Qt::OtherFocusReason);
}

// --- Painting ---------------------------------------------------------------------------------------------------

void picContainer::ShowChange(const DocumentChange& change) {
    if (change.design.allComponents || (change.design.Any() && canvas_.AllSelected().IsSeveral()))
        update();
    for (const ComponentChange& component : change.design.components)
        UpdateChanged(component);
    if (change.design.Any())
        visibleComponentsAreCurrent_ = false;
    const auto isPicture = [](const ComponentChange& changed) {
        return changed.component.kind == ComponentKind::Picture;
    };
    if (change.design.allComponents || std::ranges::any_of(change.design.components, isPicture))
        painted_.Forget();
    const auto isOfGesture = [selected = canvas_.Selected()](const ComponentChange& component) {
        return component.component == selected;
    };
    const bool onlyGesture = !change.design.allComponents && !change.design.window &&
                             std::all_of(change.design.components.begin(), change.design.components.end(), isOfGesture);
    if (!canvas_.IsInGesture() || !onlyGesture)
        layers_.Drop();
    ShowSelection();
}

/// A picture may have covered more than it does now; only while it is dragged it is surely the same.
void picContainer::UpdateChanged(const ComponentChange& change) {
    if (change.component.kind == ComponentKind::Picture && !canvas_.IsInGesture())
        return update();
    update(OnScreen(painted_.Covered(change.component, change.before)));
    update(OnScreen(painted_.Covered(change.component, change.after)));
}

void picContainer::ShowFrame() {
    const Rectangle frame = canvas_.IsFrameVisible() ? canvas_.Frame() : Rectangle{};
    if (frame == shownFrame_)
        return;
    // Between pixels, bitmaps are drawn a little otherwise within many small areas than within a single one.
    if (view_.Zoom() != CanvasView::usualZoom) {
        update((OnScreen(shownFrame_) | OnScreen(frame)).adjusted(-1, -1, 1, 1));
    } else {
        UpdateFrame(shownFrame_);
        UpdateFrame(frame);
    }
    shownFrame_ = frame;
}

void picContainer::ShowGuides() {
    if (canvas_.GuideLines() == shownGuides_)
        return;
    const auto updateAll = [this] {
        for (const GuideLine& guide : shownGuides_)
            update(AreaOf(guide));
    };
    updateAll();
    shownGuides_ = canvas_.GuideLines();
    updateAll();
}

void picContainer::ShowSelection() {
    const Shown now = {canvas_.AllSelected(), canvas_.Reached(), {canvas_.DraggedX(), canvas_.DraggedY()}};
    const Shown before = std::exchange(shown_, now);
    if (canvas_.IsMovingSeveral() && now.components == before.components)
        return ShowDrag(before.dragged);
    groupLayers_.Drop();
    if (const QRect selection = SelectionArea(); selection != shownSelection_) {
        update(shownSelection_);
        update(selection);
        shownSelection_ = selection;
    }
    if (now == before)
        return;
    if (now.components.IsSeveral() || before.components.IsSeveral() || now.reached != now.components.Leader() ||
        before.reached != before.components.Leader() || now.dragged != before.dragged)
        update();
    if (now.components != before.components || now.reached != before.reached)
        AnnounceSelection();
}

/// The mouse reports more often than the screen shows pictures, and nobody sees those between.
void picContainer::ShowDrag(const QPoint& draggedBefore) {
    if (shown_.dragged == draggedBefore)
        return;
    if (!groupLayers_.AreFilled())
        return update();
    dragged_ += groupLayers_.Area();
    dragged_ += groupLayers_.AreaNow(view_);
    constexpr int pictureTime = 16;
    if (!dragTimer_.isActive())
        dragTimer_.start(pictureTime);
}

/// The handle of a small component lies partly outside it.
QRect picContainer::SelectionArea() const {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    if (!selected)
        return {};
    QRect area = OnScreen(canvas_.ShownBox(*selected));
    if (const std::optional<Rectangle> handle = canvas_.ResizerOf(*selected))
        area |= OnScreen(*handle);
    for (const CanvasHandle& handle : canvas_.HandlesOf(*selected))
        area |= OnScreen(handle.box);
    return area.adjusted(-borderReach, -borderReach, borderReach, borderReach);
}

/// Screen readers say the component that has been selected or reached, and how many are selected.
void picContainer::AnnounceSelection() {
    if (!QAccessible::isActive() || !shown_.reached)
        return;
    const std::vector<ComponentRef>& components = VisibleComponents();
    const auto place = std::find(components.begin(), components.end(), *shown_.reached);
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(static_cast<int>(place - components.begin()));
    QAccessible::updateAccessibility(&focus);
    QAccessibleEvent selection(this, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&selection);
}

const std::vector<ComponentRef>& picContainer::VisibleComponents() {
    if (!visibleComponentsAreCurrent_) {
        visibleComponents_.clear();
        for (const ComponentRef component : model_.CreationOrder())
            if (IsVisibleComponent(component))
                visibleComponents_.push_back(component);
        visibleComponentsAreCurrent_ = true;
    }
    return visibleComponents_;
}

bool picContainer::IsVisibleComponent(ComponentRef component) const {
    return component.index < model_.ElementCount(component.kind) && model_.Element(component).Visible;
}

/// Only the outline, and what a scaled screen rounds it to: what lies within the frame stays on the screen.
void picContainer::UpdateFrame(const Rectangle& frame) {
    const QRect outline = OnScreen(frame);
    if (!outline.isEmpty())
        update(QRegion(outline.adjusted(-1, -1, 1, 1)) - QRegion(outline.adjusted(2, 2, -2, -2)));
}

void picContainer::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    PaintDesign(painter, event->region());
    painter.scale(view_.Factor(), view_.Factor());
    PaintLostStrip(painter);
    if (!canvas_.IsMovingSeveral())
        PaintSelection(painter, event->rect());
    PaintFrame(painter);
    PaintGuides(painter);
}

/// Several that are dragged lie above the others until they are let go.
void picContainer::PaintDesign(QPainter& painter, const QRegion& region) {
    if (canvas_.IsMovingSeveral())
        return groupLayers_.Paint(painter, visibleRegion().boundingRect(), devicePixelRatioF(), view_);
    const std::vector<Rectangle> areas = AreasOf(region, view_);
    if (FillLayersFor(areas))
        return layers_.Paint(painter, region);
    painter.save();
    painter.scale(view_.Factor(), view_.Factor());
    PaintBackground(painter, areas);
    const std::vector<ComponentRef> components = painted_.On(areas); // looked up once: among thousands it takes a while
    for (const ComponentRef component : components)
        PaintDesignAid(painter, model_.Element(component));
    for (const ComponentRef component : components)
        painted_.Paint(painter, component);
    painter.restore();
}

/// True when a gesture is going on in a crowd. Layers cannot be cut along the pixels of a screen that is scaled by a
/// fraction; there everything is painted anew.
bool picContainer::FillLayersFor(std::span<const Rectangle> areas) {
    const bool changing = canvas_.IsMoving() || canvas_.IsResizing();
    const double pixelRatio = devicePixelRatioF();
    if (!(changing || canvas_.IsDrawing()) || pixelRatio != std::floor(pixelRatio))
        return false;
    const QRect visible = visibleRegion().boundingRect();
    const std::optional<ComponentRef> moving = changing ? canvas_.Selected() : std::nullopt;
    if (layers_.AreFilledFor(visible, moving))
        return true;
    if (painted_.On(areas).size() <= mostPaintedEachMove)
        return false;
    layers_.Fill(visible, moving, pixelRatio, view_);
    return true;
}

void picContainer::PaintBackground(QPainter& painter, std::span<const Rectangle> areas) const {
    for (const Rectangle& area : areas)
        FillSharply(painter, ToRect(area), Qt::white);
    if (!canvas_.ShowsGrid())
        return;
    const bool isDense = view_.ToScreen(gridSpacing) < leastGridDistance;
    for (const Rectangle& area : areas)
        for (const Rectangle& mark :
             GridMarks(isDense ? noGridStyle : gridStyle_, model_.WindowWidth(), model_.WindowHeight(), area))
            FillSharply(painter, ToRect(mark), gridColor_);
}

/// What lies below all components for a whole gesture: what that takes along has nothing to leave there.
void picContainer::PaintBelow(QPainter& painter, std::span<const Rectangle> areas) const {
    PaintBackground(painter, areas);
    const bool takesAlong = !canvas_.IsDrawing();
    for (const ComponentRef component : canvas_.Intersecting(areas))
        if (!takesAlong || !canvas_.AllSelected().Contains(component))
            PaintDesignAid(painter, model_.Element(component));
}

/// What lies in the strip can be seen through the hatching.
void picContainer::PaintLostStrip(QPainter& painter) const {
    if (lostStrip_ == 0)
        return;
    constexpr QColor hatching(200, 60, 40, 140);
    const QRect strip(0, model_.WindowHeight() - lostStrip_, model_.WindowWidth(), lostStrip_);
    painter.fillRect(strip, QBrush(hatching, Qt::BDiagPattern));
    FillSharply(painter, {strip.x(), strip.y(), strip.width(), 1}, hatching);
}

void picContainer::PaintSelection(QPainter& painter, const QRect& area) {
    const std::optional<ComponentRef> leader = canvas_.Selected();
    for (const ComponentRef component : canvas_.AllSelected()) {
        const Rectangle box = model_.VisibleBox(component);
        if (component != leader && OnScreen(box).intersects(area))
            PaintMemberBorder(painter, box);
    }
    const std::optional<ComponentRef> reached = canvas_.Reached();
    if (reached && reached != leader)
        PaintReachedBorder(painter, model_.VisibleBox(*reached));
    if (!leader)
        return;
    PaintSelectionBorder(painter, model_.VisibleBox(*leader));
    if (const std::optional<Rectangle> handle = canvas_.ResizerOf(*leader))
        PaintResizeHandle(painter, *handle);
    for (const CanvasHandle& handle : canvas_.HandlesOf(*leader))
        PaintOuterHandle(painter, handle.box);
}

void picContainer::PaintFrame(QPainter& painter) {
    if (!canvas_.IsFrameVisible())
        return;
    FrameSharply(painter, ToRect(canvas_.Frame()), palette().color(QPalette::Highlight));
}

QRect picContainer::AreaOf(const GuideLine& guide) const {
    const int length = guide.end - guide.begin;
    const QRect line = OnScreen(guide.isUpright ? Rectangle{guide.position, guide.begin, 1, length}
                                                : Rectangle{guide.begin, guide.position, length, 1});
    return guide.distance == 0 ? line : line | NumberBox(guide, view_, fontMetrics());
}

/// The lines belong to the design and the numbers to the screen: those can be read at every zoom.
void picContainer::PaintGuides(QPainter& painter) {
    for (const GuideLine& guide : canvas_.GuideLines()) {
        const int length = guide.end - guide.begin;
        FillSharply(painter,
                    guide.isUpright ? QRect(guide.position, guide.begin, 1, length)
                                    : QRect(guide.begin, guide.position, length, 1),
                    guideColor);
    }
    painter.resetTransform();
    for (const GuideLine& guide : canvas_.GuideLines()) {
        if (guide.distance == 0)
            continue;
        const QRect box = NumberBox(guide, view_, fontMetrics());
        painter.fillRect(box, guideColor);
        painter.setPen(Qt::white);
        painter.drawText(box, Qt::AlignCenter, QString::number(guide.distance));
    }
}

} // namespace pirol
