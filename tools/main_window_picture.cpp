// Draws the main window with a project into a picture, without a screen:
//   main-window-picture PROJECT PICTURE.png

#include "ui/dialogs/frmCommonDialog.h"
#include "ui/dialogs/frmProgramStarter.h"
#include "ui/main/frmMain.h"

#include <QApplication>
#include <QPixmap>

#include <cstdio>

int main(int argumentCount, char* arguments[]) {
    if (argumentCount != 3) {
        std::fputs("main-window-picture PROJECT PICTURE.png\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    pirol::SpeakGerman(application);
    pirol::frmCommonDialog dialogs;
    pirol::frmProgramStarter starter;
    pirol::frmMain window(dialogs, starter);
    window.resize(1240, 740); // the largest usual window is seen whole
    window.show();
    window.ReadPRLFile(arguments[1]);
    return window.grab().save(arguments[2]) ? 0 : 1;
}
