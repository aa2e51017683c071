#include "app/DownloadFolder.h"
#include "app/FileCommands.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmHelp.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/DesignKeeper.h"
#include "ui/main/EndWatch.h"
#include "ui/main/frmMain.h"
#include "ui/main/OnlineUpdate.h"
#include "ui/main/pnlStart.h"
#include "ui/main/RecentMenu.h"
#include "ui/parts/Bitmaps.h"
#include "ui/parts/FlatStyle.h"
#include "ui/parts/LateModules.h"
#include "ui/parts/Theme.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <QWindow>

#include <algorithm>
#include <string>
#include <vector>

namespace {

/// The words of the command line but those that Qt has taken. Not by Qt where file names are bytes: it would change
/// those that are no UTF-8.
std::vector<std::string> Words([[maybe_unused]] int count, [[maybe_unused]] char* arguments[]) {
#ifdef _WIN32
    std::vector<std::string> words;
    for (const QString& argument : QApplication::arguments().mid(1))
        words.push_back(argument.toStdString());
    return words;
#else
    return {arguments + std::min(count, 1), arguments + count};
#endif
}

/// A window that opens before the system has placed the main window would stand in the screen's corner.
void WaitUntilShown(const QWidget& window) {
    constexpr int longestWait = 1000;
    for (QDeadlineTimer wait(longestWait); !window.windowHandle()->isExposed() && !wait.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    // The menus stand in the window on every system; looking for a desktop's own bar would delay the start.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QApplication::setStyle(new pirol::FlatStyle); // the application owns it
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName("Pirol");
    QApplication::setApplicationVersion(PIROL_VERSION);
    QApplication::setWindowIcon(pirol::ProgramIcon());
    pirol::SpeakGerman(application);
    pirol::HelpKey helpKey;
    application.installEventFilter(&helpKey);

    pirol::frmCommonDialog dialogs;
    pirol::frmProgramStarter starter;
    const pirol::Preferences preferences = pirol::Preferences::Load();
    pirol::Theme theme(preferences.Look);
    pirol::frmMain mainWindow(dialogs, starter, preferences);
    QObject::connect(&mainWindow, &pirol::frmMain::AppearanceChosen, &theme, &pirol::Theme::Choose);
    pirol::DesignKeeper keeper(mainWindow, dialogs, pirol::RecoveryFolder());
    pirol::RecentMenu recentMenu(mainWindow, dialogs);
    const pirol::EndWatch endWatch([&keeper](const std::string& reason) { keeper.KeepForNextStart(reason); });
    const pirol::UpdateSource source =
        pirol::ReadUpdateSource(PIROL_UPDATE_ADDRESS, PIROL_UPDATE_KEYS, PIROL_UPDATE_AUTHORITY);
    pirol::OnlineUpdate update(mainWindow, dialogs, starter,
                               {.source = source,
                                .folder = pirol::UpdateFolder(),
                                .newTransport = [&] { return pirol::NewNetworkTransport(source.authority); },
                                .keepDesign = [&] { keeper.KeepForNextStart("Neue Version installiert"); }});
    mainWindow.KeepPlace();
    QPointer<pirol::pnlStart> start;
    mainWindow.show();
    if (const std::string path = pirol::ProjectOnCommandLine(Words(argumentCount, arguments)); !path.empty()) {
        WaitUntilShown(mainWindow); // only where a report may come; an empty start waits for nothing
        mainWindow.ReadPRLFile(path);
    } else {
        start = new pirol::pnlStart(mainWindow, pirol::KeptFolder(pirol::RecoveryFolder()));
        QObject::connect(start, &pirol::pnlStart::ProjectWanted, &recentMenu, &pirol::RecentMenu::Open);
        QObject::connect(start, &pirol::pnlStart::KeptDesignWanted, &keeper, &pirol::DesignKeeper::Restore);
    }
    keeper.OfferLeftDesigns();
    update.LookWeekly();
    const int status = QApplication::exec();
    delete start; // it listens to the main window's design
    return status;
}
