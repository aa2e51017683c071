// Does one of the main window's commands once: run_window_operation NAME FOLDER. The error report is closed as soon as
// it is shown and its content goes to standard error; then the window must still do what it is told. Ends with 0, with
// 1 after an error report, with 3 when the window is of no use any more.

#include "app/frmPreferences.h"
#include "designer/view/frmMain.h"
#include "FakeDialogs.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTimer>

#include <cstdio>
#include <map>

namespace {

using namespace pirol;

struct Command {
    const char* action;
    const char* file; ///< what is answered to the file dialog
};

const std::map<std::string, Command> commands = {
    {"load", {nullptr, nullptr}},
    {"save", {"mnuFileSave", "/old.prl"}},
    {"import", {"mnuFileImportJava", "/SuMAnwendung.java"}},
    {"export-file", {"mnuProjectExportJava", "/old.java"}},
    {"export-folder", {"mnuProjectExportBlueJ", "/BlueJ"}},
    {"keep-preferences", {"mnuFileOptions", nullptr}},
};

/// Answers the forms that open: accepts the preferences and closes error reports, whose first two lines it prints.
class Answers : public QTimer {
  public:
    Answers() {
        callOnTimeout(this, &Answers::Answer);
        start(5);
    }
    bool reported = false;

  private:
    void Answer() {
        QWidget* const form = QApplication::activeModalWidget();
        if (form == nullptr)
            return;
        if (form->objectName() == "frmPreferences") {
            form->findChild<QAbstractButton*>("optGridStyle2")->click();
            form->findChild<QAbstractButton*>("cmdAccept")->click();
        } else if (form->objectName() == "frmError") {
            static const QRegularExpression lines("Fehlernummer: (\\d+)\\s+Fehlerbeschreibung: ([^\\r\\n]*)");
            const auto text = lines.match(form->findChild<QPlainTextEdit*>("txtError")->toPlainText());
            std::fprintf(stderr, "Fehler %s: %s\n", qPrintable(text.captured(1)), qPrintable(text.captured(2)));
            reported = true;
            form->close();
        }
    }
};

bool StillWorks(frmMain& window) {
    const std::size_t before = window.Model().CreationOrder().size();
    QKeyEvent insert(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
    QApplication::sendEvent(window.findChild<QWidget*>("picContainer"), &insert);
    return window.isVisible() && window.Model().CreationOrder().size() == before + 1;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication application(argumentCount, arguments);
    const std::string folder = arguments[2];
    test::FakeDialogs dialogs;
    test::FakeStarter starter;
    frmMain window(dialogs, starter, {"/alt", 0, 0});
    window.show();
    Answers answers;
    window.ReadPRLFile(folder + "/design.prl");
    const Command& command = commands.at(arguments[1]);
    if (command.action != nullptr && !answers.reported) {
        if (command.file != nullptr)
            dialogs.paths = {folder + command.file};
        dialogs.yes = {true};
        window.findChild<QAction*>(command.action)->trigger();
    }
    if (!StillWorks(window))
        return 3;
    return answers.reported ? 1 : 0;
}
