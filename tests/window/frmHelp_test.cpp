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

class HelpTest : public QObject {
    Q_OBJECT

  private slots:
    void F1ShowsTheChapterOfTheWindow();
    void StaysUsableBesideAModalForm();
    void LinksLeadToChapters();
    void ShowsItsPictures();
};

QString Chapter(const frmHelp& help) {
    return Part<QListWidget>(help, "lstChapters")->currentItem()->text();
}

void HelpTest::F1ShowsTheChapterOfTheWindow() {
    HelpKey key;
    QApplication::instance()->installEventFilter(&key);
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

void HelpTest::StaysUsableBesideAModalForm() {
    HelpKey key;
    QApplication::instance()->installEventFilter(&key);
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

void HelpTest::LinksLeadToChapters() {
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
}

void HelpTest::ShowsItsPictures() {
    QWidget owner;
    frmHelp::ShowFor(&owner);
    auto* const browser = Part<QTextBrowser>(*owner.findChild<frmHelp*>(), "txtHandbook");
    const auto picture = [browser](const char* name) {
        return browser->loadResource(QTextDocument::ImageResource, QUrl(name)).value<QPixmap>();
    };
    QVERIFY(picture("screenshots/frmMain.png").width() > 400);
    QVERIFY(picture("screenshots/frmMain.png").width() <= browser->viewport()->width());
    QVERIFY(picture("screenshots/none.png").isNull());
    QVERIFY(picture("/etc/hostname").isNull());
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::HelpTest)
#include "frmHelp_test.moc"
