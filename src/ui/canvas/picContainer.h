#pragma once

#include "designer/CanvasView.h"
#include "designer/DesignCanvas.h"
#include "designer/InPlaceText.h"
#include "ui/canvas/CanvasLayers.h"
#include "ui/canvas/GroupLayers.h"
#include "ui/canvas/InPlaceEditor.h"
#include "ui/canvas/PaintedComponents.h"
#include "ui/canvas/PictureLoader.h"

#include <QColor>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <span>

namespace pirol {

/// The designed window on the screen: forwards mouse and keys to the canvas and paints what the canvas holds. It has
/// the designed window's size at the present zoom.
class picContainer : public QWidget {
    Q_OBJECT

  public:
    picContainer(DesignCanvas& canvas, const ProjectModel& model, QWidget* parent);

    const CanvasView& View() const { return view_; }
    /// In percent. The owner gives the canvas its new size.
    void SetZoom(int percent);
    /// Style (0 to 2, others show no marks) and colour of the grid.
    void SetGrid(int style, const QColor& color);
    /// Paints all anew, after what is shown beside the components has changed.
    void Repaint();
    /// How many pixels at the bottom the running window loses; they are hatched.
    void SetLostStrip(int height);

    DesignCanvas& Canvas() const { return canvas_; }
    const ProjectModel& Model() const { return model_; }
    /// The pictures as far as they are known, for painting.
    PictureSource Pictures() { return pictureLoader_.Source(); }
    /// All visible components in creation order.
    const std::vector<ComponentRef>& VisibleComponents();
    bool IsVisibleComponent(ComponentRef component) const;

    /// Repaints what differs from what the screen shows: changed components and selection.
    void ShowChange(const DocumentChange& change);

    /// The pointer is over another part of the canvas now, because that was scrolled.
    void PointerMoved(const QPoint& position);

    /// Opens a field over the component for its text, which `typed` replaces unless it is empty.
    void EditInPlace(ComponentRef component, const InPlaceText& text, const QString& typed);
    /// Takes over what is being typed there.
    void FinishEditing();

    /// A kind (by its number) is dragged across the screen and dropped; outside what is seen nothing comes of it.
    void DragOver(int kind, const QPoint& global);
    void Drop(int kind, const QPoint& global);
    /// Places one of that kind in the middle of what is seen.
    void PlaceInMiddle(int kind);

  signals:
    /// The selected component's text shall be edited in place, beginning with what was typed.
    void EditWanted(const QString& typed);
    /// What the field in place holds shall be the selected component's text.
    void TextEdited(const std::string& text);
    void ContextMenuWanted(const QPoint& global);
    /// Mouse or key did something with the canvas.
    void Handled();
    /// A key selected, placed, moved or resized a component, which may lie outside what is seen.
    void SelectionMovedByKey();
    void EnterPressed();
    /// A letter, digit or the like that the canvas has no use for, while something is selected.
    void TextTyped(QKeyEvent* event);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void Run(const std::function<void()>& gesture);
    void RunKey(const std::function<void()>& gesture);
    void EndLostGesture();
    QPoint InDesign(const QPoint& position) const;
    QRect OnScreen(const Rectangle& box) const;
    void ShowCursor(const QPoint& position);
    bool FillLayersFor(std::span<const Rectangle> areas);
    void PaintBackground(QPainter& painter, std::span<const Rectangle> areas) const;
    void PaintBelow(QPainter& painter, std::span<const Rectangle> areas) const;
    void PaintDesign(QPainter& painter, const QRegion& region);
    void PaintLostStrip(QPainter& painter) const;
    void ShowDrag(const QPoint& draggedBefore);
    void UpdateChanged(const ComponentChange& change);
    void PaintSelection(QPainter& painter, const QRect& area);
    QRect SelectionArea() const;
    void PaintFrame(QPainter& painter);
    void PaintGuides(QPainter& painter);
    QRect AreaOf(const GuideLine& guide) const;
    void ShowGuides();
    void ShowSelection();
    void ShowFrame();
    void AnnounceSelection();
    void UpdateFrame(const Rectangle& frame);

    DesignCanvas& canvas_;
    const ProjectModel& model_;
    int gridStyle_ = 0;
    QColor gridColor_ = Qt::black;
    CanvasView view_;
    int lostStrip_ = 0;
    /// What was shown last of the selection.
    struct Shown {
        Selection components;
        std::optional<ComponentRef> reached;
        QPoint dragged;
        bool operator==(const Shown&) const = default;
    };
    Shown shown_;
    QRect shownSelection_; ///< the leader with border and handle, on the screen
    Rectangle shownFrame_;
    std::vector<GuideLine> shownGuides_;
    bool pressedWithControl_ = false;
    bool isDoubleClick_ = false; ///< until the button is let go
    QPointer<InPlaceEditor> editor_;
    PictureLoader pictureLoader_{nullptr};
    PaintedComponents painted_;
    CanvasLayers layers_;
    GroupLayers groupLayers_;
    QTimer dragTimer_; ///< runs out when the screen shows the next picture of a drag of several
    QRegion dragged_;  ///< to be painted then
    std::vector<ComponentRef> visibleComponents_;
    bool visibleComponentsAreCurrent_ = false;
};

} // namespace pirol
