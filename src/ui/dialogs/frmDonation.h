#pragma once

#include <QDialog>

namespace pirol {

/// Tells how the program can be supported, as plain text without links.
class frmDonation : public QDialog {
    Q_OBJECT

  public:
    explicit frmDonation(QWidget* owner);
};

} // namespace pirol
