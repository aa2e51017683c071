#include "app/frmError.h"
#include "window/Forms.h"

#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>

#include <memory>

namespace pirol {

using test::Part;
using test::WhenShown;

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
            auto* const close = Part<QWidget>(form, "cmdClose");
            QVERIFY(close->hasFocus());
            QTest::keyClick(close, Qt::Key_Backtab, Qt::ShiftModifier);
            auto* const copy = Part<QWidget>(form, "cmdCopy");
            QVERIFY(copy->hasFocus());
            QTest::keyClick(copy, Qt::Key_Space);
            QCOMPARE(QApplication::clipboard()->text(), shown);
            QTest::keyClick(copy, Qt::Key_Tab);
            QTest::keyClick(close, Qt::Key_Return);
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
        bool seen = false;
        WhenShown<frmError>([&seen](frmError& form) {
            seen = true;
            form.reject();
        });
        QVERIFY(!ReportErrorsLater(owner.get(), FailWithLabel));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        owner.reset();
        QTRY_VERIFY(seen);
    }

    /// Nothing is cut off, however the window is narrowed.
    void AdviceFitsIntoTheSmallestForm() {
        frmError form(RuntimeError(RuntimeError::DiskFull), nullptr);
        form.show();
        form.resize(form.minimumSize());
        QCoreApplication::processEvents();
        const auto* const advice = Part<QLabel>(form, "lblHandling");
        QVERIFY(advice->height() >= advice->heightForWidth(advice->width()));
    }

  private:
    static void FailWithLabel() {
        UnderLabel("Main.File.PRL.ReadPRLFile", [] { throw RuntimeError(RuntimeError::FileNotFound); });
    }
};

} // namespace pirol

QTEST_MAIN(pirol::frmErrorTest)
#include "frmError_test.moc"
