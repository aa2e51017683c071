#include "ui/canvas/picFrame.h"

#include "ui/parts/FormParts.h"
#include "ui/parts/frmError.h"
#include "ui/parts/Theme.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

constexpr int wheelStep = 120;   // of a usual wheel, as Qt counts
constexpr int edgeInterval = 40; // milliseconds
constexpr int mostAtEdge = 24;   // pixels at a time, however far outside the pointer is
constexpr int pixelsPerWheelStep = 6 * scrollStep;

/// A bar of the canvas. While there is nothing to scroll it is an empty strip: the style has many gradients for a bar
/// that does nothing, and Qt starts threads to fill each of them.
class CanvasBar final : public QScrollBar {
  public:
    using QScrollBar::QScrollBar;

  private:
    void paintEvent(QPaintEvent* event) override {
        if (isEnabled())
            QScrollBar::paintEvent(event);
    }
};

QScrollBar* NewBar(const char* name, const QString& accessibleName, Qt::Orientation orientation, QWidget* parent) {
    return Named(new CanvasBar(orientation, parent), name, accessibleName);
}

void SetUp(QScrollBar* scrollBar, const MainLayout::Bar& bar, int room) {
    const QSignalBlocker quiet(scrollBar);
    scrollBar->setGeometry(ToRect(bar.box));
    scrollBar->setEnabled(bar.enabled);
    scrollBar->setRange(0, bar.maximum);
    scrollBar->setPageStep(std::max(room / scrollStep, 1));
    scrollBar->setValue(0);
}

} // namespace

picFrame::picFrame(DesignCanvas& canvas, const ProjectModel& model, QWidget* parent)
    : QWidget(parent), viewport_(new CanvasSurround(this)), picContainer_(new picContainer(canvas, model, viewport_)),
      vScroll_(NewBar("vScroll", "Entwurfsfläche senkrecht rollen", Qt::Vertical, this)),
      hScroll_(NewBar("hScroll", "Entwurfsfläche waagerecht rollen", Qt::Horizontal, this)) {
    setObjectName("picFrame");
    setAccessibleName("Rahmen der Entwurfsfläche");
    setAutoFillBackground(true);
    setBackgroundRole(roles::surround);
    viewport_->SetCanvas(picContainer_);
    for (QScrollBar* bar : {vScroll_, hScroll_})
        connect(bar, &QScrollBar::valueChanged, this,
                [this] { ReportErrors(window(), [this] { ShowScrolledCanvas(); }); });
    edgeTimer_.setInterval(edgeInterval);
    connect(&edgeTimer_, &QTimer::timeout, this, &picFrame::ScrollAtEdge);
    viewport_->installEventFilter(this);
    picContainer_->installEventFilter(this);
}

QSize picFrame::ShownSize() const {
    const CanvasView& view = picContainer_->View();
    const ProjectModel& model = picContainer_->Model();
    return {view.ToScreen(model.WindowWidth()), view.ToScreen(model.WindowHeight())};
}

void picFrame::LayOut(const MainLayout& layout) {
    setGeometry(ToRect(layout.frame));
    viewport_->setGeometry(0, 0, layout.vertical.box.left, layout.horizontal.box.top);
    SetUp(vScroll_, layout.vertical, viewport_->height());
    SetUp(hScroll_, layout.horizontal, viewport_->width());
    picContainer_->setGeometry(ToRect(layout.canvas));
}

// --- Scrolling --------------------------------------------------------------------------------------------------

/// At its own size the design can lie no further away than 16 bits tell.
void picFrame::ShowScrolledCanvas() {
    const bool isActualSize = picContainer_->View().Zoom() == CanvasView::usualZoom;
    const auto position = [isActualSize](const QScrollBar& bar, int centred) -> int {
        if (!bar.isEnabled())
            return centred;
        return isActualSize ? ScrolledPosition(bar.value()) : -bar.value() * scrollStep;
    };
    const int left = position(*hScroll_, picContainer_->x());
    picContainer_->move(left, position(*vScroll_, picContainer_->y()));
}

QPoint picFrame::Scrolled() const {
    return -picContainer_->pos();
}

/// The bars know steps only; between two of them the canvas lies where it was put.
void picFrame::ScrollTo(const QPoint& position) {
    const auto scroll = [](QScrollBar& bar, int wanted, int present) {
        if (!bar.isEnabled())
            return present;
        const int pixels = std::clamp(wanted, 0, bar.maximum() * scrollStep);
        const QSignalBlocker quiet(&bar);
        bar.setValue((pixels + scrollStep / 2) / scrollStep);
        return pixels;
    };
    const QPoint present = Scrolled();
    const int left = scroll(*hScroll_, position.x(), present.x());
    picContainer_->move(-left, -scroll(*vScroll_, position.y(), present.y()));
}

void picFrame::ScrollToShow(const Rectangle& box) {
    const Rectangle shown = picContainer_->View().ToScreen(box);
    const auto isSeen = [&] { return viewport_->rect().contains(ToRect(shown).translated(picContainer_->pos())); };
    if (isSeen())
        return;
    hScroll_->setValue(
        BarValueToShow(shown.left, shown.Right(), viewport_->width(), hScroll_->value(), hScroll_->maximum()));
    vScroll_->setValue(
        BarValueToShow(shown.top, shown.Bottom(), viewport_->height(), vScroll_->value(), vScroll_->maximum()));
    // Between two steps of the bars the canvas may lie a little beside where they say.
    if (!isSeen())
        ScrollTo(QPoint(hScroll_->value(), vScroll_->value()) * scrollStep);
}

// --- Zooming ----------------------------------------------------------------------------------------------------

void picFrame::SetZoom(int percent) {
    ZoomAt(percent, viewport_->rect().center());
}

void picFrame::ZoomAt(int percent, const QPoint& inViewport) {
    const CanvasView& view = picContainer_->View();
    const int before = view.Zoom();
    const QPoint scrolled = Scrolled();
    picContainer_->SetZoom(percent);
    if (view.Zoom() != before) {
        emit ZoomChanged(view.Zoom());
        ScrollTo({view.ScrollFrom(before, scrolled.x(), inViewport.x()),
                  view.ScrollFrom(before, scrolled.y(), inViewport.y())});
    }
}

// --- Wheel, keys and hand ---------------------------------------------------------------------------------------

bool picFrame::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::Wheel:
        return Wheel(*static_cast<QWheelEvent*>(event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return Key(*event);
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        FollowDrag(*event);
        return Pan(*event);
    case QEvent::FocusOut:
        space_ = false;
        ShowHand();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool picFrame::Wheel(const QWheelEvent& event) {
    // Some systems turn the wheel sideways by themselves when Shift or Alt is held.
    const bool sideways = event.modifiers().testFlag(Qt::ShiftModifier) && event.angleDelta().x() == 0;
    const QPoint turned = sideways ? event.angleDelta().transposed() : event.angleDelta();
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        wheelRest_ += turned;
        for (; std::abs(wheelRest_.y()) >= wheelStep; wheelRest_ -= {0, wheelRest_.y() > 0 ? wheelStep : -wheelStep})
            ZoomAt(picContainer_->View().NextZoom(wheelRest_.y() > 0),
                   viewport_->mapFromGlobal(event.globalPosition().toPoint()));
        return true;
    }
    wheelRest_ = {};
    ScrollTo(Scrolled() - turned * pixelsPerWheelStep / wheelStep);
    return true;
}

bool picFrame::Key(const QEvent& event) {
    const auto& key = static_cast<const QKeyEvent&>(event);
    const bool isPress = event.type() == QEvent::KeyPress;
    if (key.key() == Qt::Key_Space && (!isPress || key.modifiers() == Qt::NoModifier)) {
        if (!key.isAutoRepeat())
            space_ = isPress;
        ShowHand();
        return isPress;
    }
    if (!isPress || (key.key() != Qt::Key_PageUp && key.key() != Qt::Key_PageDown))
        return false;
    const int direction = key.key() == Qt::Key_PageUp ? -1 : 1;
    const bool sideways = key.modifiers().testFlag(Qt::ShiftModifier);
    ScrollTo(Scrolled() + direction * (sideways ? QPoint(viewport_->width(), 0) : QPoint(0, viewport_->height())));
    return true;
}

bool picFrame::Pan(const QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const bool isHovering = event.type() == QEvent::MouseMove && mouse.buttons() == Qt::NoButton;
    if (panning_ == Qt::NoButton)
        return event.type() == QEvent::MouseButtonPress ? BeginPan(mouse) : space_ && isHovering;
    // Another window may have got the release.
    if (!mouse.buttons().testFlag(panning_)) {
        EndPan();
        return event.type() == QEvent::MouseButtonRelease;
    }
    if (event.type() == QEvent::MouseMove)
        ScrollTo(panBegin_ - (mouse.globalPosition().toPoint() - panGrip_));
    return true;
}

/// What a button has begun on the canvas goes on as it is.
bool picFrame::BeginPan(const QMouseEvent& event) {
    if ((event.button() != Qt::MiddleButton && !space_) || event.buttons() != event.button() ||
        picContainer_->Canvas().IsPressed())
        return false;
    panning_ = event.button();
    panGrip_ = event.globalPosition().toPoint();
    panBegin_ = Scrolled();
    ShowHand();
    return true;
}

void picFrame::EndPan() {
    panning_ = Qt::NoButton;
    ShowHand();
}

void picFrame::FollowDrag(const QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    const DesignCanvas& canvas = picContainer_->Canvas();
    dragged_ = mouse.globalPosition().toPoint();
    const bool isOutside = !viewport_->rect().contains(viewport_->mapFromGlobal(dragged_));
    const bool drags = event.type() == QEvent::MouseMove && mouse.buttons().testFlag(Qt::LeftButton) &&
                       canvas.CurrentKind() == DesignCanvas::pointerTool && canvas.IsInGesture();
    if (!drags || !isOutside)
        edgeTimer_.stop();
    else if (!edgeTimer_.isActive())
        edgeTimer_.start();
}

/// What is dragged goes on under a pointer that stands still.
void picFrame::ScrollAtEdge() {
    if (!picContainer_->Canvas().IsInGesture())
        return edgeTimer_.stop();
    const QPoint at = viewport_->mapFromGlobal(dragged_);
    const auto beyond = [](int position, int room) {
        return std::clamp(position < 0 ? position : std::max(position - room, 0), -mostAtEdge, mostAtEdge);
    };
    ScrollTo(Scrolled() + QPoint(beyond(at.x(), viewport_->width()), beyond(at.y(), viewport_->height())));
    picContainer_->PointerMoved(picContainer_->mapFromGlobal(dragged_));
}

/// Without the hand the canvas chooses its cursor by what the pointer meets.
void picFrame::ShowHand() {
    for (QWidget* const widget : {static_cast<QWidget*>(viewport_), static_cast<QWidget*>(picContainer_)})
        if (panning_ != Qt::NoButton)
            widget->setCursor(Qt::ClosedHandCursor);
        else if (space_)
            widget->setCursor(Qt::OpenHandCursor);
        else
            widget->unsetCursor();
}

} // namespace pirol
