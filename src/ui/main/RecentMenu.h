#pragma once

#include "designer/Document.h"

#include <QObject>

#include <future>
#include <string>

class QMenu;

namespace pirol {

class cCommonDialog;
class frmMain;

/// The menu "Zuletzt benutzt" of the main window. Remembers each project that is opened or saved; it is stored beside
/// the window's thread.
class RecentMenu : public QObject, private DocumentListener {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RecentMenu)

  public:
    RecentMenu(frmMain& window, cCommonDialog& dialogs);
    ~RecentMenu() override;

    /// Opens a project of the list. One that is gone is reported and leaves the list.
    void Open(const std::string& path);

  private:
    void DocumentChanged(const DocumentChange& change) override;
    void Show();
    void Fill();

    frmMain& window_;
    cCommonDialog& dialogs_;
    QMenu* menu_;
    std::string remembered_; ///< the path that was stored last
    std::future<void> storing_;
};

} // namespace pirol
