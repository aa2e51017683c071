#pragma once

#include "codegen/JavaRemarks.h"

#include <QDialog>

#include <vector>

class QPlainTextEdit;

namespace pirol {

/// What of a Java source is not in the design, or not as it stands there: a line for each remark, to be read and
/// copied.
class frmImportReport : public QDialog {
    Q_OBJECT

  public:
    frmImportReport(const std::vector<ReadRemark>& remarks, QWidget* owner);

  private:
    void Copy();

    QPlainTextEdit* txtRemarks_;
};

} // namespace pirol
