#pragma once

#include <QLineEdit>

namespace pirol {

/// An input field for a text of the design or the preferences. Line breaks and control characters that come in become
/// blanks. A text of more than mostTextCharacters is refused with a message, and what stood there before stays; pasting
/// one costs next to nothing, however long it is.
class TextLine : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextLine(const QString& text = {}, QWidget* parent = nullptr);

    /// Shows a text. One that is too long to be edited is not shown: what is typed then takes its place.
    void ShowText(const QString& text);
};

/// An input field for a whole number: takes a sign and digits as long as they lie within 16 bits, and where steps are
/// taken "+=" and "-=" before them, too.
class NumberLine : public QLineEdit {
    Q_OBJECT

  public:
    explicit NumberLine(QWidget* parent = nullptr, bool takesSteps = false);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool takesSteps_;
};

} // namespace pirol
