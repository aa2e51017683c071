// An empty main window: what Qt itself costs at start. The yardstick for an empty start of the designer. A word given
// to it stands in its status bar, as the first letter on a window costs the search for all fonts.

#include <QApplication>
#include <QMainWindow>
#include <QStatusBar>

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    QMainWindow window;
    window.resize(1200, 720);
    if (argumentCount > 1)
        window.statusBar()->showMessage(arguments[1]);
    window.show();
    return QApplication::exec();
}
