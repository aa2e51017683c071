#include "app/frmCommonDialog.h"
#include "app/frmHelp.h"
#include "app/frmProgramStarter.h"
#include "designer/view/Bitmaps.h"
#include "designer/view/DesignKeeper.h"
#include "designer/view/frmMain.h"
#include "project/FileCommands.h"

#include <QApplication>

#ifdef PIROL_FONTCONFIG
#include <fontconfig/fontconfig.h>
#endif

#include <future>
#include <string>
#include <vector>

namespace {

std::string ProjectOf(const QStringList& arguments) {
    std::vector<std::string> words;
    for (const QString& argument : arguments.mid(1))
        words.push_back(argument.toStdString());
    return pirol::ProjectOnCommandLine(words);
}

/// Reads beside the start of Qt what Qt will ask for the first letter: which fonts the system has. That is a sixth of
/// the time until the window stands. Not valid where no other thread can do it.
std::future<void> BeginReadingFonts() {
#ifdef PIROL_FONTCONFIG
    return std::async(std::launch::async, [] { FcInit(); });
#else
    return {};
#endif
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    const std::future<void> fonts = BeginReadingFonts();
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    if (fonts.valid())
        fonts.wait();
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
    if (const std::string path = ProjectOf(QApplication::arguments()); !path.empty())
        mainWindow.ReadPRLFile(path);
    keeper.OfferLeftDesigns();
    return QApplication::exec();
}
