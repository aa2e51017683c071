#include "ui/canvas/picContainer.h"

#include "designer/Grid.h"
#include "ui/canvas/CanvasAccessible.h"
#include "ui/canvas/PaintingFunctions.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"

#include <QAccessible>
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

/// What must be painted so that the region is right: on a scaled screen the region's edges are rounded, so a pixel
/// more.
std::vector<Rectangle> AreasOf(const QRegion& region) {
    std::vector<Rectangle> areas;
    for (const QRect& rect : region)
        areas.push_back({rect.left() - 1, rect.top() - 1, rect.width() + 2, rect.height() + 2});
    return areas;
}

MouseButton ButtonOf(const QMouseEvent& event) {
    return event.button() == Qt::LeftButton ? MouseButton::Left : MouseButton::Other;
}

} // namespace

picContainer::picContainer(DesignCanvas& canvas, const ProjectModel& model, QWidget* parent)
    : QWidget(parent), canvas_(canvas), model_(model),
      layers_(canvas, model,
              [this](QPainter& painter, std::span<const Rectangle> areas) { PaintBackground(painter, areas); }) {
    setObjectName("picContainer");
    setAccessibleName("Entwurfsfläche");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    InstallCanvasAccessibility();
}

void picContainer::SetGrid(int style, const QColor& color) {
    gridStyle_ = style;
    gridColor_ = color;
    Repaint();
}

void picContainer::Repaint() {
    layers_.Drop();
    update();
}

void picContainer::SetLostStrip(int height) {
    if (std::exchange(lostStrip_, height) != height)
        update();
}

void picContainer::Run(const std::function<void()>& gesture) {
    ReportErrors(window(), gesture);
    ShowFrame();
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

void picContainer::mousePressEvent(QMouseEvent* event) {
    if (event->buttons() == event->button())
        EndLostGesture();
    Run([&] { canvas_.Press(event->pos().x(), event->pos().y(), ButtonOf(*event)); });
}

void picContainer::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton)
        EndLostGesture();
    Run([&] { canvas_.Move(event->pos().x(), event->pos().y()); });
    if (event->buttons() == Qt::NoButton)
        ShowCursor(event->pos());
}

void picContainer::mouseReleaseEvent(QMouseEvent* event) {
    Run([&] { canvas_.Release(); });
    ShowCursor(event->pos());
}

void picContainer::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    canvas_.Leave();
    emit Handled();
}

void picContainer::ShowCursor(const QPoint& position) {
    using enum CanvasHit::Area;
    const CanvasHit::Area area = canvas_.HitTest(position.x(), position.y()).area;
    const Qt::CursorShape shape = area == Canvas   ? Qt::CrossCursor
                                  : area == Border ? Qt::SizeAllCursor
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
    for (const auto& arrow : arrows)
        if (event->key() == arrow.key) {
            const bool resize = event->modifiers().testFlag(Qt::ShiftModifier);
            const bool goesOn = event->isAutoRepeat();
            RunKey([&] {
                resize ? canvas_.ResizeSelected(arrow.x, arrow.y, goesOn)
                       : canvas_.MoveSelected(arrow.x, arrow.y, goesOn);
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
    default:
        QWidget::keyPressEvent(event);
    }
}

bool picContainer::focusNextPrevChild(bool next) {
    bool selected = false;
    RunKey([&] { selected = canvas_.SelectNext(next); });
    return selected || QWidget::focusNextPrevChild(next);
}

// --- Painting ---------------------------------------------------------------------------------------------------

void picContainer::ShowChange(const DocumentChange& change) {
    if (change.design.allComponents)
        update();
    for (const ComponentChange& component : change.design.components) {
        update(ToRect(component.before));
        update(ToRect(component.after));
    }
    if (change.design.Any())
        visibleComponentsAreCurrent_ = false;
    const auto isOfGesture = [selected = canvas_.Selected()](const ComponentChange& component) {
        return component.component == selected;
    };
    const bool onlyGesture = !change.design.allComponents && !change.design.window &&
                             std::all_of(change.design.components.begin(), change.design.components.end(), isOfGesture);
    if (!canvas_.IsInGesture() || !onlyGesture)
        layers_.Drop();
    ShowSelection();
}

void picContainer::ShowFrame() {
    const Rectangle frame = canvas_.IsFrameVisible() ? canvas_.Frame() : Rectangle{};
    if (frame == shownFrame_)
        return;
    UpdateFrame(shownFrame_);
    UpdateFrame(frame);
    shownFrame_ = frame;
}

void picContainer::ShowSelection() {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    if (const QRect selection = SelectionArea(); selection != shownSelection_) {
        update(shownSelection_);
        update(selection);
        shownSelection_ = selection;
    }
    if (selected != shownComponent_) {
        shownComponent_ = selected;
        AnnounceSelection();
    }
}

/// The handle of a small component lies partly outside it.
QRect picContainer::SelectionArea() const {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    if (!selected)
        return {};
    QRect area = ToRect(model_.VisibleBox(*selected));
    if (const std::optional<Rectangle> handle = canvas_.ResizerOf(*selected))
        area |= ToRect(*handle);
    return area.adjusted(-borderReach, -borderReach, borderReach, borderReach);
}

/// Screen readers say the component that has been selected.
void picContainer::AnnounceSelection() {
    if (!QAccessible::isActive() || !shownComponent_)
        return;
    const std::vector<ComponentRef>& components = VisibleComponents();
    const auto place = std::find(components.begin(), components.end(), *shownComponent_);
    QAccessibleEvent focus(this, QAccessible::Focus);
    focus.setChild(static_cast<int>(place - components.begin()));
    QAccessible::updateAccessibility(&focus);
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
    const QRect outline = ToRect(frame);
    if (!outline.isEmpty())
        update(QRegion(outline.adjusted(-1, -1, 1, 1)) - QRegion(outline.adjusted(2, 2, -2, -2)));
}

void picContainer::paintEvent(QPaintEvent* event) {
    const std::vector<Rectangle> areas = AreasOf(event->region());
    QPainter painter(this);
    if (FillLayersFor(areas)) {
        layers_.Paint(painter, event->region());
    } else {
        PaintBackground(painter, areas);
        for (const ComponentRef component : canvas_.Intersecting(areas))
            PaintControl(painter, model_.Element(component));
    }
    PaintLostStrip(painter);
    PaintSelection(painter);
    PaintFrame(painter);
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
    if (canvas_.Intersecting(areas).size() <= mostPaintedEachMove)
        return false;
    layers_.Fill(visible, moving, pixelRatio);
    return true;
}

void picContainer::PaintBackground(QPainter& painter, std::span<const Rectangle> areas) const {
    for (const Rectangle& area : areas)
        painter.fillRect(ToRect(area), Qt::white);
    if (!canvas_.ShowsGrid())
        return;
    for (const Rectangle& area : areas)
        for (const Rectangle& mark : GridMarks(gridStyle_, width(), height(), area))
            painter.fillRect(ToRect(mark), gridColor_);
}

/// What lies in the strip can be seen through the hatching.
void picContainer::PaintLostStrip(QPainter& painter) const {
    if (lostStrip_ == 0)
        return;
    constexpr QColor hatching(200, 60, 40, 140);
    const QRect strip(0, height() - lostStrip_, width(), lostStrip_);
    painter.fillRect(strip, QBrush(hatching, Qt::BDiagPattern));
    painter.fillRect(strip.x(), strip.y(), strip.width(), 1, hatching);
}

void picContainer::PaintSelection(QPainter& painter) {
    const std::optional<ComponentRef> selected = canvas_.Selected();
    if (!selected)
        return;
    PaintSelectionBorder(painter, model_.VisibleBox(*selected));
    if (const std::optional<Rectangle> handle = canvas_.ResizerOf(*selected))
        PaintResizeHandle(painter, *handle);
}

void picContainer::PaintFrame(QPainter& painter) {
    if (!canvas_.IsFrameVisible())
        return;
    const QRect frame = ToRect(canvas_.Frame());
    for (const QRect& side : QRegion(frame) - QRegion(frame.adjusted(1, 1, -1, -1)))
        painter.fillRect(side, palette().color(QPalette::Highlight));
}

} // namespace pirol
