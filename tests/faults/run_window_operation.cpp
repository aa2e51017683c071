// Loads FOLDER/design.prl and does one of the main window's commands: run_window_operation FOLDER [COMMAND [FILE]],
// where FILE is what is answered to its file dialog. The error report is closed as soon as it is shown and its content
// goes to standard error; then the window must still do what it is told. Ends with 0, with 1 after an error report,
// with 3 when the window is of no use any more.

#include "FakeDialogs.h"
#include "ui/dialogs/frmPreferences.h"
#include "ui/main/frmMain.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTimer>

#include <cstdio>

namespace {

using namespace pirol;

/// Answers a form that is open: accepts the preferences, closes what an import says about the source, and closes an
/// error report, whose first two lines it prints. Says whether it was an error report.
bool AnswerForm() {
    QWidget* const form = QApplication::activeModalWidget();
    if (form == nullptr)
        return false;
    if (form->objectName() == "frmImportReport")
        form->close();
    if (form->objectName() == "frmPreferences") {
        form->findChild<QAbstractButton*>("optGridStyle2")->click();
        form->findChild<QAbstractButton*>("cmdAccept")->click();
    }
    if (form->objectName() != "frmError")
        return false;
    static const QRegularExpression lines("Fehlernummer: (\\d+)\\s+Fehlerbeschreibung: ([^\\r\\n]*)");
    const auto text = lines.match(form->findChild<QPlainTextEdit*>("txtError")->toPlainText());
    std::fprintf(stderr, "Fehler %s: %s\n", qPrintable(text.captured(1)), qPrintable(text.captured(2)));
    form->close();
    return true;
}

bool StillWorks(frmMain& window) {
    const std::size_t before = window.Model().CreationOrder().size();
    QKeyEvent insert(QEvent::KeyPress, Qt::Key_Insert, Qt::NoModifier);
    QApplication::sendEvent(window.findChild<QWidget*>("picContainer"), &insert);
    return window.isVisible() && window.Model().CreationOrder().size() == before + 1;
}

} // namespace

int main(int argumentCount, char* arguments[]) {
    QApplication application(argumentCount, arguments);
    test::FakeDialogs dialogs;
    test::FakeStarter starter;
    frmMain window(dialogs, starter, {"/alt", 0, 0});
    window.show();
    bool reported = false;
    QTimer answers;
    answers.callOnTimeout([&] { reported |= AnswerForm(); });
    answers.start(5);
    window.ReadPRLFile(std::string(arguments[1]) + "/design.prl");
    if (argumentCount > 2 && !reported) {
        dialogs.paths.assign(arguments + 3, arguments + argumentCount);
        dialogs.yes = {true};
        window.findChild<QAction*>(arguments[2])->trigger();
    }
    if (!StillWorks(window))
        return 3;
    return reported ? 1 : 0;
}
