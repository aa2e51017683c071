#pragma once

#include <QPlainTextEdit>

namespace pirol {

/// The field in which a text is edited where it stands on the canvas. Enter takes one line over, Ctrl+Enter several;
/// leaving the field does so, too, and Escape gives up. It closes itself.
class InPlaceEditor : public QPlainTextEdit {
    Q_OBJECT

  public:
    InPlaceEditor(const QString& text, bool hasLines, QWidget* parent);

    /// Takes over what has been typed and closes.
    void Accept();
    /// Closes without a word.
    void Reject();

  signals:
    void Accepted(const QString& text);

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void Close();

    bool hasLines_;
    bool isOpen_ = true;
};

} // namespace pirol
