#pragma once

#include "base/RuntimeError.h"

#include <QDialog>

#include <functional>

class QPlainTextEdit;

namespace pirol {

/// The error report: what happened, and what the user can do about it. Sounds the system's beep when it is made.
class frmError : public QDialog {
    Q_OBJECT

  public:
    frmError(const RuntimeError& error, QWidget* owner);

  private:
    void CopyReport();

    QPlainTextEdit* txtError_;
};

/// Runs an operation; when it fails, shows the error report modally in the middle of its owner and returns false.
bool ReportErrors(QWidget* owner, const std::function<void()>& operation);

/// The same, but the report appears only when the event that is being handled is done. For edits that end because a
/// click moves the focus: a window opening in the middle of that would swallow the rest of the click.
bool ReportErrorsLater(QWidget* owner, const std::function<void()>& operation);

} // namespace pirol
