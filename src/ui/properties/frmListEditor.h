#pragma once

#include "designer/PropertyPanel.h"

#include <QDialog>

#include <string>

class QPushButton;
class QTableView;

namespace pirol {

class ListRowsModel;

/// Edits a list property: a table with a column per field, rows to add, remove and move. Nothing reaches the design
/// before the caller takes ListText() after OK.
///
/// Keys in the table: F2 or Enter edits, Insert adds, Delete removes, Alt+Up and Alt+Down move the row.
class frmListEditor : public QDialog {
    Q_OBJECT

  public:
    /// Takes a row of the property list that is edited as a list. Raises what ListEditorModel raises.
    frmListEditor(const PropertyPanelRow& property, QWidget* owner);

    std::string ListText() const;

    void accept() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddRow();
    void RemoveRow();
    void MoveRow(bool up);
    void EditCurrentCell();
    /// Takes over what is being typed into a cell.
    void FinishEditing();
    bool HandleTableKey(int key, bool alt);
    void SelectRow(int row);
    void UpdateButtons();
    void FitColumns();

    ListRowsModel* rows_;
    QTableView* lstRows_;
    QPushButton* cmdRemove_;
    QPushButton* cmdUp_;
    QPushButton* cmdDown_;
};

} // namespace pirol
