#pragma once

#include "ui/canvas/picContainer.h"

#include <QString>
#include <QWidget>

namespace pirol {

/// What lies around the canvas: a calm ground, and on it what makes a window of the designed area, outside of it: a
/// soft shadow, a title with the project's name and, as long as they are generated, the menus.
class CanvasSurround : public QWidget {
    Q_OBJECT

  public:
    explicit CanvasSurround(QWidget* parent);

    /// The canvas lies on this ground and is its child; given once.
    void SetCanvas(picContainer* canvas);
    void ShowTitle(const QString& title);
    void ShowMenus(bool shown);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    int MenuHeight() const;
    QRect Window() const;
    void PaintTitle(QPainter& painter, const QRect& bar) const;
    void PaintMenus(QPainter& painter, const QRect& bar) const;
    void UpdateAll();

    picContainer* canvas_ = nullptr;
    QString title_;
    bool showsMenus_ = false;
};

} // namespace pirol
