#pragma once

#include <QWidget>

class QAction;
class QHBoxLayout;

namespace pirol {

/// The row of small buttons above the canvas, one for each command that arranges. Where there is no room for all, the
/// last ones are left out: the menu has them, too.
class tbArrange : public QWidget {
    Q_OBJECT

  public:
    explicit tbArrange(QWidget* parent);

    /// Adds a command, or a little room between commands when it is null.
    void Add(QAction* command);

    /// Lies at the right end of the row, as wide as the buttons that have room in it beside the heading.
    void PlaceIn(const QRect& row, int headingWidth);

  private:
    QHBoxLayout* buttons_;
};

} // namespace pirol
