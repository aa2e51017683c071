// An empty main window: what Qt itself costs at start. The yardstick for an empty start of the designer.

#include <QApplication>
#include <QMainWindow>

int main(int argumentCount, char* arguments[]) {
    QApplication::setStyle("Fusion");
    QApplication application(argumentCount, arguments);
    QMainWindow window;
    window.resize(1080, 680);
    window.show();
    return QApplication::exec();
}
