#include "app/frmHelp.h"
#include "app/frmProjectSettings.h"
#include "window/MainWindow.h"

#include <QListWidget>
#include <QScrollBar>
#include <QTextBrowser>

namespace pirol::test {

QString Chapter(const QWidget& help) {
    return Part<QListWidget>(help, "lstChapters")->currentItem()->text();
}

class HelpTest : public QObject {
    Q_OBJECT

    HelpKey key_;

  private slots:
    void initTestCase() { QApplication::instance()->installEventFilter(&key_); }

    void F1ShowsTheChapterOfTheWindow() {
        MainWindow main;
        Do(main.window, "F1");
        QTest::keyClick(&main.window, Qt::Key_F1);
        QCOMPARE(main.window.findChildren<frmHelp*>().size(), 1); // the same window again, not a second one
        const auto* const help = main.Find<frmHelp>("frmHelp");
        QVERIFY(help->isVisible() && !help->isModal());
        QCOMPARE(Chapter(*help), QString("Das Hauptfenster"));
        main.Drag(20, 20, 130, 60);
        QCOMPARE(main.window.Model().ElementCount(ComponentKind::Label), 2u);
        Click(*help, "cmdClose");
        QTRY_VERIFY(main.window.findChild<frmHelp*>() == nullptr);
    }

    void StaysUsableBesideAModalForm() {
        MainWindow main;
        QString chapter;
        WhenShown<frmProjectSettings>([&](frmProjectSettings& form) {
            Do(form, "@txtAuthor F1");
            auto* const help = Part<frmHelp>(form, "frmHelp");
            QVERIFY(QTest::qWaitForWindowActive(help));
            chapter = Chapter(*help);
            const auto* const list = Part<QListWidget>(*help, "lstChapters");
            ClickRow(*list, 0);
            QCOMPARE(list->currentRow(), 0);
            Do(form, "@txtAuthor Ctrl+A Anna @cmdAccept");
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
        QCOMPARE(widthOf("/etc/hostname"), 0);
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::HelpTest)
#include "frmHelp_test.moc"
