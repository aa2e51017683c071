#include "window/Forms.h"

#include <QClipboard>
#include <QLabel>

#include <memory>

namespace pirol::test {

class frmErrorTest : public QObject {
    Q_OBJECT

  private slots:
    /// With the keyboard alone: all buttons are reached, and the report lands in the clipboard.
    void ShowsAndCopiesTheReport() {
        QWidget owner;
        owner.show();
        QString shown;
        WhenShown<frmError>([&shown](frmError& form) {
            QCOMPARE(form.windowTitle(), "Pirol - Fehlermeldung");
            const auto* const report = Part<QPlainTextEdit>(form, "txtError");
            QVERIFY(report->isReadOnly());
            shown = report->toPlainText();
            QCOMPARE(Part<QLabel>(form, "lblHandling")->text().count("\n\n"), 3);

            QApplication::clipboard()->clear();
            Do(form, "Shift+Backtab Space");
            QCOMPARE(QApplication::clipboard()->text(), shown);
            Do(form, "Tab Return");
            QVERIFY(!form.isVisible());
        });
        QVERIFY(!ReportErrors(&owner, FailWithLabel));
        QCOMPARE(shown, "Fehlernummer: 53\nFehlerbeschreibung: Datei nicht gefunden\n\n"
                        "Aufgetreten ist innerhalb folgender Funktion aufgetreten:\nMain.File.PRL.ReadPRLFile");
        QVERIFY(ReportErrors(&owner, [&shown] { shown.clear(); }));
        QCOMPARE(shown, "");
    }

    /// The report waits for the event that is being handled and comes even when its owner is gone by then.
    void ReportsLater() {
        auto owner = std::make_unique<QWidget>();
        QVERIFY(ReportErrorsLater(owner.get(), [] {}));
        QString report;
        ExpectError(report);
        QVERIFY(!ReportErrorsLater(owner.get(), FailWithLabel));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        owner.reset();
        QTRY_VERIFY(!report.isEmpty());
    }

  private:
    static void FailWithLabel() {
        UnderLabel("Main.File.PRL.ReadPRLFile", [] { throw RuntimeError(RuntimeError::FileNotFound); });
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::frmErrorTest)
#include "frmError_test.moc"
