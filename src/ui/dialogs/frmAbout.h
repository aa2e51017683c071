#pragma once

#include <QDialog>

namespace pirol {

/// Says what this program is: its version, its licence, and the libraries it stands on.
class frmAbout : public QDialog {
    Q_OBJECT

  public:
    explicit frmAbout(QWidget* owner);
};

} // namespace pirol
