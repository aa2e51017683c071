#pragma once

#include <QButtonGroup>
#include <QScrollArea>

namespace pirol {

/// The toolbar with one button for each kind of component, of which one at most is pressed. The arrow keys go from
/// button to button. In a low window the buttons move closer together, and scroll when even that is not enough.
class tbComponents : public QScrollArea {
    Q_OBJECT

  public:
    explicit tbComponents(QWidget* parent);

    /// Presses the button of an index (the kind's number), as a click does.
    void PressButton(int index);

  signals:
    void ButtonClicked(int index);

  private:
    QButtonGroup buttons_;
};

} // namespace pirol
