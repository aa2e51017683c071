#pragma once

#include "codegen/Hints.h"

#include <QWidget>

#include <vector>

class QListWidget;
class QToolButton;

namespace pirol {

/// The list of hints under the canvas: a heading with their number, which folds the list, and one line per hint. It
/// takes no room as long as there are none.
class lstHints : public QWidget {
    Q_OBJECT

  public:
    explicit lstHints(QWidget* parent = nullptr);

    /// Shows these hints instead of the present ones; the current line stays where it was.
    void ShowHints(std::vector<Hint> hints);

  signals:
    /// A click on a hint, or Enter.
    void HintChosen(const Hint& hint);

  private:
    void Choose(int row);
    void Fold(bool open);

    QToolButton* heading_;
    QListWidget* list_;
    std::vector<Hint> hints_;
};

} // namespace pirol
