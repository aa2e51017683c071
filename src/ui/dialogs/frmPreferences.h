#pragma once

#include "app/cCommonDialog.h"
#include "app/Preferences.h"

#include <QDialog>

class QButtonGroup;
class QLabel;
class QCheckBox;
class QLineEdit;

namespace pirol {

class ColorBox;
class GridPreview;
class JavaSearch;

/// The dialog for what a user prefers in all projects. Accepting stores the preferences.
class frmPreferences : public QDialog {
    Q_OBJECT

  public:
    /// Edits the preferences given; they change only when the user accepts.
    frmPreferences(Preferences& preferences, cCommonDialog& dialogs, QWidget* owner);

    /// Whether the option of looking for new versions can be chosen; it cannot until this says so.
    void OfferUpdates(bool offer);

    void accept() override;
    void reject() override;

  signals:
    /// Another one is to be seen: the one chosen, and the one before when nothing is accepted.
    void AppearanceChosen(pirol::Appearance appearance);

  private:
    QWidget* NewGeneralPage();
    QWidget* NewAppearanceGroup();
    QWidget* NewGridGroup();
    QWidget* NewBlueJGroup();
    QWidget* NewJavaGroup();
    QWidget* NewUpdateGroup();
    /// The preferences as the controls show them.
    Preferences Entered() const;
    void ShowPreview();
    void BrowseGridColor();
    void BrowseBlueJ();
    void BrowseJdk();
    void BrowseSum();
    void ShowJava();

    Preferences& preferences_;
    cCommonDialog& dialogs_;
    QButtonGroup* optAppearance_;
    QButtonGroup* optGridStyle_;
    ColorBox* picGridColor_;
    GridPreview* picPreview_;
    QLineEdit* txtBlueJPath_;
    QLineEdit* txtJdkPath_;
    QLineEdit* txtSumPath_;
    QLabel* lblJdk_;
    QLabel* lblSum_;
    JavaSearch* javaSearch_;
    QCheckBox* chkUpdate_;
};

} // namespace pirol
