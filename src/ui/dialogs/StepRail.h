#pragma once

#include <QStringList>
#include <QWidget>

namespace pirol {

/// The steps of a wizard, one below the other: which are done, which is the present one, which are to come. It only
/// shows.
class StepRail : public QWidget {
    Q_OBJECT

  public:
    explicit StepRail(const QStringList& steps);

    /// Counts from 0.
    void ShowStep(int step);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QStringList steps_;
    int present_ = 0;
};

} // namespace pirol
