#include "ui/main/RecentMenu.h"

#include "app/cCommonDialog.h"
#include "app/RecentProjects.h"
#include "base/FileAccess.h"
#include "base/Text.h"
#include "ui/main/frmMain.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FormParts.h"
#include "ui/parts/RunBeside.h"

#include <QAction>
#include <QFileInfo>
#include <QFontMetrics>
#include <QMenu>

#include <system_error>

namespace pirol {
namespace {

constexpr int folderWidth = 260; // pixels of the menu for a project's folder

QString EntryText(int number, const QString& path, const QFontMetrics& letters) {
    const QFileInfo file(path);
    const QString folder = letters.elidedText(file.path(), Qt::ElideMiddle, folderWidth);
    const QString mnemonic = QString(number < 10 ? "&%1" : "1&0").arg(number);
    return mnemonic + "  " + QString(file.fileName() + "  –  " + folder).replace('&', "&&");
}

} // namespace

RecentMenu::RecentMenu(frmMain& window, cCommonDialog& dialogs)
    : window_(window), dialogs_(dialogs), menu_(new QMenu("&Zuletzt benutzt", &window)) {
    menu_->setObjectName("mnuFileRecent");
    menu_->menuAction()->setStatusTip("Öffnet ein Projekt, das vor kurzem geöffnet oder gespeichert wurde");
    auto* const fileMenu = window.findChild<QMenu*>("mnuFile");
    fileMenu->insertMenu(window.findChild<QAction*>("mnuFileSave"), menu_);
    connect(fileMenu, &QMenu::aboutToShow, this, &RecentMenu::Show);
    connect(menu_, &QMenu::aboutToShow, this, &RecentMenu::Fill);
    window_.CurrentDocument().AddListener(*this);
}

RecentMenu::~RecentMenu() {
    window_.CurrentDocument().RemoveListener(*this);
}

void RecentMenu::DocumentChanged(const DocumentChange& change) {
    const Document& document = window_.CurrentDocument();
    if (!change.file || document.FilePath().empty() || document.IsChanged() || document.FilePath() == remembered_)
        return;
    remembered_ = document.FilePath();
    if (storing_.valid())
        storing_.get(); // one after the other
    try {
        storing_ = std::async(std::launch::async, recentprojects::Add, remembered_);
    } catch (const std::system_error&) {
        recentprojects::Add(remembered_); // there is no thread to be had
    }
}

void RecentMenu::Show() {
    if (storing_.valid())
        storing_.get();
    if (menu_->icon().isNull())
        menu_->setIcon(CommandIcon("open"));
    menu_->setEnabled(!recentprojects::Load().empty());
}

void RecentMenu::Fill() {
    menu_->clear();
    int number = 0;
    for (const std::string& path : recentprojects::Load()) {
        QAction* const entry = menu_->addAction(EntryText(++number, ToText(path), menu_->fontMetrics()), this,
                                                [this, path] { Open(path); });
        entry->setObjectName(QString("mnuFileRecent%1").arg(number));
        entry->setStatusTip(ToText(path));
    }
    menu_->addSeparator();
    menu_->addAction("Liste &leeren", this, [this] {
        recentprojects::ForgetAll();
        remembered_.clear();
    });
}

void RecentMenu::Open(const std::string& path) {
    bool isThere = false;
    RunBeside([&] { isThere = IsExistingFile(PathOf(path)); });
    if (isThere)
        return window_.ReadPRLFile(path);
    recentprojects::Forget(path);
    dialogs_.Information(Concatenate("Das Projekt gibt es an seinem Ort nicht mehr:\r\n", path,
                                     "\r\nEs steht jetzt nicht mehr unter »Zuletzt benutzt«."));
}

} // namespace pirol
