#pragma once

#include "app/cCommonDialog.h"
#include "menu/MenuEditor.h"

#include <QDialog>

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace pirol {

class MenuRowList;

/// The dialog in which the user builds the menu bar of the designed window. It edits the bar in place; cancelling makes
/// it what it was.
class frmMenuGenerator : public QDialog {
    Q_OBJECT

  public:
    frmMenuGenerator(MenuBar& bar, cCommonDialog& dialogs, QWidget* owner);

    void reject() override;

  private:
    QLayout* NewList();
    QGroupBox* NewEntryGroup();
    QGroupBox* NewSelectionGroup();
    QLayout* NewClosingButtons();

    std::int32_t Option() const;
    void ShowOption(std::int32_t option);
    void ProposeName();
    void ShowNameOfOption();
    void Add();
    void SelectRow(int row);
    void LevelUp();
    void Move(std::size_t (MenuEditor::*move)(std::size_t));
    void Delete();
    /// Fills the list from the editor.
    void RefreshList();
    /// Shows what is selected and how deep the next entry goes.
    void ShowSelection();

    MenuEditor editor_;
    cCommonDialog& dialogs_;
    MenuRowList* lstEntries_;
    QLineEdit* txtCaption_;
    QLineEdit* txtName_;
    QButtonGroup* optType_;
    QLabel* lblDepth_;
    QPushButton* cmdDel_;
    QPushButton* cmdMoveUp_;
    QPushButton* cmdMoveDown_;
    QPushButton* cmdLevelUp_;
    bool isAdded_ = false; ///< the line as it stands there has been added already
};

} // namespace pirol
