#pragma once

#include <QWidget>

namespace pirol {

/// The edge between the canvas and a panel beside it, which the mouse can take along.
class PanelEdge : public QWidget {
    Q_OBJECT

  public:
    PanelEdge(const char* name, QWidget* parent);

    /// Lies over a line that begins at that point and is so long.
    void PlaceAt(const QPoint& top, int length);

  signals:
    /// The pointer has taken it to this horizontal position in its parent.
    void Dragged(int position);
    /// A double click: the usual place is wanted.
    void UsualWanted();

  protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

} // namespace pirol
