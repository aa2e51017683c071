#pragma once

#include "sql/SQLWizard.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

namespace pirol {

class StepRail;

/// The wizard for the project's database access: three steps, and only the last one's "Fertig" changes the settings.
class frmSQLGenerator : public QDialog {
    Q_OBJECT

  public:
    frmSQLGenerator(SQLSettings& settings, QWidget* owner);

  private:
    QWidget* NewStep(const SQLWizardStep& step, bool withMethods);
    QWidget* NewMethodList();
    void Forward();
    void ShowStep();

    SQLSettings& settings_;
    SQLWizard wizard_;
    QLabel* lblStep_;
    StepRail* rail_;
    QStackedWidget* steps_;
    QPushButton* cmdStepBack_;
    QPushButton* cmdStepForward_;
};

} // namespace pirol
