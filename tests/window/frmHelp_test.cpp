#include "app/frmHelp.h"
#include "app/frmProjectSettings.h"
#include "window/Forms.h"
#include "window/MainWindow.h"

#include <QListWidget>
#include <QScrollBar>
#include <QTextBrowser>

namespace pirol {
namespace {

using test::Click;
using test::Part;

QString Chapter(const frmHelp& help) {
    return Part<QListWidget>(help, "lstChapters")->currentItem()->text();
}

class HelpTest : public QObject {
    Q_OBJECT

    HelpKey key_;

  private slots:
    void initTestCase() { QApplication::instance()->installEventFilter(&key_); }

    void F1ShowsTheChapterOfTheWindow() {
        test::MainWindow main;
        QTest::keyClick(&main.window, Qt::Key_F1);
        auto* const help = main.window.findChild<frmHelp*>();
        QVERIFY(help != nullptr && help->isVisible() && !help->isModal());
        QCOMPARE(Chapter(*help), QString("Das Hauptfenster"));
        // The same window again, not a second one.
        QTest::keyClick(&main.window, Qt::Key_F1);
        QCOMPARE(main.window.findChildren<frmHelp*>().size(), 1);
        main.Drag(20, 20, 130, 60);
        QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 2u);
        Click(*help, "cmdClose");
        QTRY_VERIFY(main.window.findChild<frmHelp*>() == nullptr);
    }

    void StaysUsableBesideAModalForm() {
        test::MainWindow main;
        QString chapter;
        test::WhenShown<frmProjectSettings>([&](frmProjectSettings& form) {
            QTest::keyClick(Part<QLineEdit>(form, "txtAuthor"), Qt::Key_F1);
            auto* const help = form.findChild<frmHelp*>();
            QVERIFY(help != nullptr);
            QVERIFY(QTest::qWaitForWindowActive(help));
            auto* const list = Part<QListWidget>(*help, "lstChapters");
            chapter = Chapter(*help);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(0)).center());
            QCOMPARE(list->currentRow(), 0);
            test::Type(form, "txtAuthor", "Anna");
            Click(form, "cmdAccept");
        });
        main.Command("mnuProjectSettings")->trigger();
        QCOMPARE(chapter, QString("Projekteinstellungen"));
        QCOMPARE(main.window.Model().Author(), std::string("Anna"));
    }

    void LinksLeadToChaptersAndPicturesAreShown() {
        QWidget owner;
        frmHelp::ShowFor(&owner);
        const auto* const help = owner.findChild<frmHelp*>();
        auto* const browser = Part<QTextBrowser>(*help, "txtHandbook");
        emit browser->anchorClicked(QUrl("#optionen"));
        QCOMPARE(Chapter(*help), QString("Optionen"));
        const int place = browser->verticalScrollBar()->value();
        emit browser->anchorClicked(QUrl("#der-menü-generator"));
        QCOMPARE(Chapter(*help), QString("Der Menü-Generator"));
        QVERIFY(browser->verticalScrollBar()->value() < place);
        emit browser->anchorClicked(QUrl("https://pirol.example/#gibt-es-nicht"));
        QCOMPARE(Chapter(*help), QString("Der Menü-Generator"));

        const auto widthOf = [browser](const char* name) {
            return browser->loadResource(QTextDocument::ImageResource, QUrl(name)).value<QPixmap>().width();
        };
        QVERIFY(widthOf("screenshots/frmMain.png") > 400);
        QVERIFY(widthOf("screenshots/frmMain.png") <= browser->viewport()->width());
        QCOMPARE(widthOf("screenshots/none.png"), 0);
        QCOMPARE(widthOf("/etc/hostname"), 0);
    }
};

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::HelpTest)
#include "frmHelp_test.moc"
