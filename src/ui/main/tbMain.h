#pragma once

#include <QToolBar>

namespace pirol {

/// The row of buttons above everything, for the commands that are used most. Where there is no room for all, the last
/// ones unfold from a button at the end; the menus have them, too.
class tbMain : public QToolBar {
    Q_OBJECT

  public:
    explicit tbMain(QWidget* parent);

    /// Adds a command, or a line when it is null. Its tip says what it does and its keys.
    void Add(QAction* command);
    /// Shows a word beside a command's picture.
    void ShowCaption(QAction* command, const QString& caption);
};

} // namespace pirol
