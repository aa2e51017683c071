#pragma once

#include <QComboBox>

namespace pirol {

/// The field of the status bar that shows and takes the zoom of the canvas: a usual one is chosen, any other is typed.
/// What is no zoom is replaced by the present one.
class cboZoom : public QComboBox {
    Q_OBJECT

  public:
    explicit cboZoom(QWidget* parent = nullptr);

    /// In percent.
    void ShowZoom(int percent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    /// In percent, as it was typed.
    void ZoomChosen(int percent);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Choose(const QString& text);

    int shown_ = 0;
};

} // namespace pirol
