#pragma once

#include <QDialog>

namespace pirol {

/// Tells how the program can be supported. Plain text: nothing in it opens anything.
class frmDonation : public QDialog {
    Q_OBJECT

  public:
    explicit frmDonation(QWidget* owner);
};

} // namespace pirol
