#pragma once

#include "codegen/Hints.h"

#include <QWidget>

#include <vector>

class QListWidget;
class QToolButton;

namespace pirol {

/// The list of hints under the canvas: a heading with their number, and below it one line per hint once the user opens
/// the list. It comes and goes by the user's hand alone, so that nothing moves under the pointer.
class lstHints : public QWidget {
    Q_OBJECT

  public:
    explicit lstHints(QWidget* parent = nullptr);

    /// Shows these hints instead of the present ones; the current line stays where it was.
    void ShowHints(std::vector<Hint> hints);
    /// Opens the list and gives it the keyboard.
    void Open();

  signals:
    /// A click on a hint, or Enter.
    void HintChosen(const Hint& hint);

  private:
    void Choose(int row);
    void Fold(bool open);
    void ShowCount();

    QToolButton* heading_;
    QListWidget* list_;
    std::vector<Hint> hints_;
};

} // namespace pirol
