#pragma once

#include "app/UpdateCommands.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QListView;
class QPushButton;
class QStringListModel;

namespace pirol {

class cCommonDialog;
class DifferenceView;

/// Shows what an update will do to a Java file before anything is written: the list of what is new, changed, removed
/// and kept, and the two texts side by side. Writes it when the user says so. A file that was changed meanwhile is read
/// again and shown anew.
class frmJavaUpdate : public QDialog {
    Q_OBJECT

  public:
    /// Works an update out, with the menu bar or the database access taken out. Raises what PrepareUpdate raises.
    using Prepare = std::function<FileUpdate(bool withoutMenu, bool withoutDatabase)>;
    /// What exec gives besides Accepted, which means that the file is written, and Rejected.
    static constexpr int otherFile = 2;

    /// Raises what `prepare` raises.
    frmJavaUpdate(Prepare prepare, cCommonDialog& dialogs, QWidget* owner);

    /// What is shown, or was written.
    const FileUpdate& Update() const { return update_; }

  private:
    QLayout* NewTopRow();
    QWidget* NewTexts();
    QLayout* NewFootRow();
    void ShowUpdate();
    void PrepareAgain();
    void Write();
    void GoToEntry(int row);
    void GoOn(int differences);
    void ShowCurrent();

    Prepare prepare_;
    cCommonDialog& dialogs_;
    FileUpdate update_;
    QLabel* lblFile_;
    QLabel* lblSummary_;
    QStringListModel* entries_;
    QListView* lstEntries_;
    DifferenceView* texts_;
    QCheckBox* chkWithoutMenu_;
    QCheckBox* chkWithoutDatabase_;
    QLabel* lblCurrent_;
    QPushButton* cmdPrevious_;
    QPushButton* cmdNext_;
    QPushButton* cmdUpdate_;
    QPushButton* cmdCancel_;
};

} // namespace pirol
