#include "app/FileCommands.h"
#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmHelp.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/DesignKeeper.h"
#include "ui/main/frmMain.h"
#include "ui/parts/Bitmaps.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QWindow>

#include <string>
#include <vector>

namespace {

std::string ProjectOf(const QStringList& arguments) {
    std::vector<std::string> words;
    for (const QString& argument : arguments.mid(1))
        words.push_back(argument.toStdString());
    return pirol::ProjectOnCommandLine(words);
}

/// A window that opens before the system has placed the main window would stand in the screen's corner.
void WaitUntilShown(const QWidget& window) {
    constexpr int longestWait = 1000;
    for (QDeadlineTimer wait(longestWait); !window.windowHandle()->isExposed() && !wait.hasExpired();)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName("Pirol");
    QApplication::setApplicationVersion(PIROL_VERSION);
    QApplication::setWindowIcon(pirol::ProgramIcon());
    pirol::SpeakGerman(application);
    pirol::HelpKey helpKey;
    application.installEventFilter(&helpKey);

    pirol::frmCommonDialog dialogs;
    pirol::frmProgramStarter starter;
    pirol::frmMain mainWindow(dialogs, starter, pirol::Preferences::Load());
    pirol::DesignKeeper keeper(mainWindow, dialogs, pirol::RecoveryFolder());
    mainWindow.show();
    WaitUntilShown(mainWindow);
    if (const std::string path = ProjectOf(QApplication::arguments()); !path.empty())
        mainWindow.ReadPRLFile(path);
    keeper.OfferLeftDesigns();
    return QApplication::exec();
}
