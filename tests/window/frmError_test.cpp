#include "app/frmError.h"
#include "window/Forms.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <memory>
#include <new>

namespace pirol {
namespace {

/// Runs a failing operation and gives the report to `look` while it is on the screen; closes it with the given key.
void WhileReported(QWidget& owner, const std::function<void()>& operation, const std::function<void(QDialog&)>& look,
                   Qt::Key key = Qt::Key_Return) {
    bool closed = false;
    test::WhenShown<frmError>([&](frmError& form) {
        look(form);
        QTest::keyClick(form.focusWidget(), key);
        closed = !form.isVisible();
    });
    QVERIFY(!ReportErrors(&owner, operation));
    QVERIFY(closed);
}

void FailWithLabel() {
    UnderLabel("Main.File.PRL.ReadPRLFile", [] { throw RuntimeError(RuntimeError::FileNotFound); });
}

} // namespace

class frmErrorTest : public QObject {
    Q_OBJECT

  private slots:
    /// The report waits for the event that is being handled and comes even when its owner is gone by then.
    void ReportsLater() {
        auto owner = std::make_unique<QWidget>();
        QVERIFY(ReportErrorsLater(owner.get(), [] {}));
        bool seen = false;
        test::WhenShown<frmError>([&seen](frmError& form) {
            seen = true;
            form.reject();
        });
        QVERIFY(!ReportErrorsLater(owner.get(), FailWithLabel));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        owner.reset();
        QTRY_VERIFY(seen);
    }

    void SuccessShowsNothing() {
        QWidget owner;
        QTimer::singleShot(0, &owner, [] { QVERIFY(QApplication::activeModalWidget() == nullptr); });
        bool ran = false;
        QVERIFY(ReportErrors(&owner, [&ran] { ran = true; }));
        QVERIFY(ran);
        QCoreApplication::processEvents();
    }

    void ShowsWhatHappened_data() {
        QTest::addColumn<int>("which");
        QTest::addColumn<QString>("lines");
        QTest::newRow("labelled")
            << 0 << "Fehlernummer: 53|Fehlerbeschreibung: Datei nicht gefunden|Main.File.PRL.ReadPRLFile";
        QTest::newRow("without a label") << 1 << "Fehlernummer: 6|Fehlerbeschreibung: Überlauf|Keine Angaben";
        QTest::newRow("out of memory") << 2
                                       << "Fehlernummer: 7|Fehlerbeschreibung: Nicht genügend Speicher|Keine Angaben";
    }

    void ShowsWhatHappened() {
        QFETCH(int, which);
        QFETCH(QString, lines);
        const std::function<void()> operations[] = {FailWithLabel, [] { throw RuntimeError(RuntimeError::Overflow); },
                                                    [] { throw std::bad_alloc(); }};
        QWidget owner;
        owner.show();
        WhileReported(owner, operations[which], [&](QDialog& form) {
            QCOMPARE(form.windowTitle(), "Pirol - Fehlermeldung");
            const auto* report = form.findChild<QPlainTextEdit*>("txtError");
            QVERIFY(report->isReadOnly() && report->toPlainText().count('\n') == 4);
            for (const QString& line : lines.split('|'))
                QVERIFY2(report->toPlainText().contains(line), qPrintable(line));
            QCOMPARE(form.findChild<QLabel*>("lblHandling")->text().count("\n\n"), 3);
        });
    }

    void EscapeClosesToo() {
        QWidget owner;
        WhileReported(
            owner, FailWithLabel, [](QDialog&) {}, Qt::Key_Escape);
    }

    void StandsInTheMiddleOfItsOwner() {
        QWidget owner;
        owner.setGeometry(40, 30, 700, 520);
        if (!owner.screen()->availableGeometry().contains(owner.geometry()))
            QSKIP("the owner does not fit on this screen");
        owner.show();
        WhileReported(owner, FailWithLabel, [&owner](QDialog& form) {
            const QPoint off = form.frameGeometry().center() - owner.frameGeometry().center();
            QVERIFY2(off.manhattanLength() < 20, qPrintable(QString("%1, %2").arg(off.x()).arg(off.y())));
        });
    }

    /// With the keyboard alone: all buttons are reached, and the report lands in the clipboard.
    void CopiesTheReport() {
        QWidget owner;
        WhileReported(
            owner, FailWithLabel,
            [](QDialog& form) {
                QApplication::clipboard()->clear();
                auto* close = form.findChild<QPushButton*>("cmdClose");
                QVERIFY(close->hasFocus());
                QTest::keyClick(close, Qt::Key_Backtab, Qt::ShiftModifier);
                auto* copy = form.findChild<QPushButton*>("cmdCopy");
                QVERIFY(copy->hasFocus());
                QTest::keyClick(copy, Qt::Key_Space);
                QCOMPARE(QApplication::clipboard()->text(), form.findChild<QPlainTextEdit*>("txtError")->toPlainText());
            },
            Qt::Key_Escape);
    }

    /// Nothing is cut off, however the window is narrowed.
    void AdviceFitsIntoTheSmallestForm() {
        QWidget owner;
        WhileReported(owner, FailWithLabel, [](QDialog& form) {
            form.resize(form.minimumSize());
            QCoreApplication::processEvents();
            const auto* advice = form.findChild<QLabel*>("lblHandling");
            QVERIFY(advice->height() >= advice->heightForWidth(advice->width()));
        });
    }
};

} // namespace pirol

QTEST_MAIN(pirol::frmErrorTest)
#include "frmError_test.moc"
