#pragma once

#include "project/LoadingProgress.h"

#include <QDialog>

#include <chrono>

class QLabel;
class QProgressBar;

namespace pirol {

/// Shows how far loading a project has come, beside the form that loads it. It does not block that form's code and lets
/// no input through meanwhile. Opening a window costs more than reading a usual project, so the form appears only when
/// loading takes long enough to be noticed. It is renewed at a bounded rate, however many lines there are.
class frmLoading : public QDialog, public LoadingProgress {
    Q_OBJECT

  public:
    explicit frmLoading(QWidget* owner);

    void SetMaximum(int maximum) override;
    void SetValue(int value) override;
    void SetCaption(std::string_view caption) override;

    /// Loading is not cancelled: closing the form does nothing.
    void reject() override {}

  private:
    void Renew();

    QLabel* lblProcess_;
    QProgressBar* process_;
    int value_ = 0;
    std::chrono::steady_clock::time_point begun_;
    std::chrono::steady_clock::time_point renewed_;
};

} // namespace pirol
