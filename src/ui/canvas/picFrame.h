#pragma once

#include "designer/MainLayout.h"
#include "ui/canvas/CanvasSurround.h"

#include <QPoint>
#include <QTimer>
#include <QWidget>

class QMouseEvent;
class QScrollBar;
class QWheelEvent;

namespace pirol {

/// The frame around the canvas: its scroll bars and every way to look at another part of the design or at another
/// size. The wheel scrolls, with Shift sideways, with Ctrl it zooms around the pointer; Page Up and Page Down scroll a
/// page, with Shift sideways; the middle button, or any drag while Space is held, pulls the design along. What the
/// pointer tool drags past the edge scrolls along.
class picFrame : public QWidget {
    Q_OBJECT

  public:
    picFrame(DesignCanvas& canvas, const ProjectModel& model, QWidget* parent);

    picContainer* Canvas() const { return picContainer_; }
    CanvasSurround& Surround() const { return *viewport_; }
    /// The designed window's size on the screen, for which the main window is laid out.
    QSize ShownSize() const;
    /// Places bars and canvas and shows the design's beginning.
    void LayOut(const MainLayout& layout);
    /// How far the canvas is scrolled, in pixels of the screen; negative where it is centred.
    QPoint Scrolled() const;
    /// As far as the bars reach; a canvas that fits stays where it is.
    void ScrollTo(const QPoint& position);
    /// Scrolls no further than needed so that the box of the design is seen.
    void ScrollToShow(const Rectangle& box);
    /// In percent; what is in the middle of the frame stays there.
    void SetZoom(int percent);

  signals:
    /// The canvas has another size now; who lays out this frame does so at once.
    void ZoomChanged(int percent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ZoomAt(int percent, const QPoint& inViewport);
    void ShowScrolledCanvas();
    bool Wheel(const QWheelEvent& event);
    bool Key(const QEvent& event);
    bool Pan(const QEvent& event);
    void FollowDrag(const QEvent& event);
    void ScrollAtEdge();
    bool BeginPan(const QMouseEvent& event);
    void EndPan();
    void ShowHand();

    CanvasSurround* viewport_;
    picContainer* picContainer_;
    QScrollBar* vScroll_;
    QScrollBar* hScroll_;
    QPoint wheelRest_; ///< of a wheel that turns by less than a step at a time
    QTimer edgeTimer_; ///< runs while something is dragged past the edge
    QPoint dragged_;   ///< the pointer then, on the screen
    bool space_ = false;
    Qt::MouseButton panning_ = Qt::NoButton; ///< the button that pulls the design along
    QPoint panGrip_;                         ///< the pointer and the scrolled position when it began
    QPoint panBegin_;
};

} // namespace pirol
