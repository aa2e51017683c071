#pragma once

#include <QAbstractButton>
#include <QImage>

namespace pirol {

/// A button of the start page: a picture, below it what it begins with and a line that says more. Texts that are too
/// long are shortened.
class StartCard : public QAbstractButton {
    Q_OBJECT

  public:
    StartCard(const QString& name, const QSize& pictureSize, const QString& caption, const QString& note,
              QWidget* parent);

    /// The most pixels that a picture needs on this screen.
    QSize PicturePixels() const;
    void ShowPicture(const QImage& picture);
    void ShowNote(const QString& note);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QSize pictureSize_;
    QString note_;
    QImage picture_;
};

} // namespace pirol
