#pragma once

#include <QButtonGroup>
#include <QScrollArea>

namespace pirol {

/// The toolbar with the pointer and one button for each kind of component, of which one is pressed. The arrow keys go
/// from button to button. In a low window the buttons move closer together, their pictures become small, and they
/// scroll when even that is not enough.
class tbComponents : public QScrollArea {
    Q_OBJECT

  public:
    explicit tbComponents(QWidget* parent);

    /// Presses the button of an index (the kind's number, 0 for the pointer), as a click does.
    void PressButton(int index);
    int PressedButton() const;

  signals:
    void ButtonClicked(int index);
    /// A double click on a button, or Enter: one of its kind is wanted at once.
    void PlaceWanted(int index);
    /// A button is dragged across the screen, and let go there.
    void Dragged(int index, const QPoint& global);
    void Dropped(int index, const QPoint& global);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool Drag(int index, const QEvent& event);

    QButtonGroup buttons_;
    QPoint pressedAt_;
    bool isDragging_ = false;
};

} // namespace pirol
