#pragma once

#include "app/cCommonDialog.h"
#include "app/Preferences.h"

#include <QDialog>

class QButtonGroup;
class QLineEdit;

namespace pirol {

class ColorBox;
class GridPreview;

/// The dialog for what a user prefers in all projects. Accepting stores the preferences.
class frmPreferences : public QDialog {
    Q_OBJECT

  public:
    /// Edits the preferences given; they change only when the user accepts.
    frmPreferences(Preferences& preferences, cCommonDialog& dialogs, QWidget* owner);

    void accept() override;

  private:
    QWidget* NewGeneralPage();
    QWidget* NewGridGroup();
    QWidget* NewBlueJGroup();
    /// The preferences as the controls show them.
    Preferences Entered() const;
    void ShowPreview();
    void BrowseGridColor();
    void BrowseBlueJ();

    Preferences& preferences_;
    cCommonDialog& dialogs_;
    QButtonGroup* optGridStyle_;
    ColorBox* picGridColor_;
    GridPreview* picPreview_;
    QLineEdit* txtBlueJPath_;
};

} // namespace pirol
