#pragma once

#include "designer/DesignCanvas.h"

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

    /// Repaints what differs from what the screen shows: the changed components, selection and drawing frame.
    void ShowChanges(std::span<const Change> changes);

  signals:
    /// Mouse or key did something with the canvas.
    void Handled();
    void EnterPressed();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void Run(const std::function<void()>& gesture);
    void ShowCursor(const QPoint& position);
    void PaintGrid(QPainter& painter, std::span<const Rectangle> areas);
    void PaintSelection(QPainter& painter);
    void PaintFrame(QPainter& painter);
    void UpdateFrame(const Rectangle& frame);

    DesignCanvas& canvas_;
    const ProjectModel& model_;
    int gridStyle_ = 0;
    QColor gridColor_ = Qt::black;
    Rectangle shownSelection_;
    Rectangle shownFrame_;
};

} // namespace pirol
