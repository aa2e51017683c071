#pragma once

#include "designer/DesignCanvas.h"
#include "ui/canvas/CanvasLayers.h"

#include <QColor>
#include <QWidget>

#include <span>

namespace pirol {

/// The designed window on the screen: forwards mouse and keys to the canvas and paints what the canvas holds. It has
/// the designed window's size, one unit per pixel.
class picContainer : public QWidget {
    Q_OBJECT

  public:
    picContainer(DesignCanvas& canvas, const ProjectModel& model, QWidget* parent);

    /// Style (0 to 2, others show no marks) and colour of the grid.
    void SetGrid(int style, const QColor& color);
    /// Paints all anew, after what is shown beside the components has changed.
    void Repaint();
    /// How many pixels at the bottom the running window loses; they are hatched.
    void SetLostStrip(int height);

    DesignCanvas& Canvas() const { return canvas_; }
    const ProjectModel& Model() const { return model_; }
    /// All visible components in creation order.
    const std::vector<ComponentRef>& VisibleComponents();
    bool IsVisibleComponent(ComponentRef component) const;

    /// Repaints what differs from what the screen shows: changed components and selection.
    void ShowChange(const DocumentChange& change);

  signals:
    /// Mouse or key did something with the canvas.
    void Handled();
    /// A key selected, placed, moved or resized a component, which may lie outside what is seen.
    void SelectionMovedByKey();
    void EnterPressed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void Run(const std::function<void()>& gesture);
    void RunKey(const std::function<void()>& gesture);
    void EndLostGesture();
    void ShowCursor(const QPoint& position);
    bool FillLayersFor(std::span<const Rectangle> areas);
    void PaintBackground(QPainter& painter, std::span<const Rectangle> areas) const;
    void PaintLostStrip(QPainter& painter) const;
    void PaintSelection(QPainter& painter);
    QRect SelectionArea() const;
    void PaintFrame(QPainter& painter);
    void ShowSelection();
    void ShowFrame();
    void AnnounceSelection();
    void UpdateFrame(const Rectangle& frame);

    DesignCanvas& canvas_;
    const ProjectModel& model_;
    int gridStyle_ = 0;
    QColor gridColor_ = Qt::black;
    int lostStrip_ = 0;
    std::optional<ComponentRef> shownComponent_; ///< the selected one, as it was shown last
    QRect shownSelection_;                       ///< with border and handle
    Rectangle shownFrame_;
    CanvasLayers layers_;
    std::vector<ComponentRef> visibleComponents_;
    bool visibleComponentsAreCurrent_ = false;
};

} // namespace pirol
