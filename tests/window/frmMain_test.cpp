#include "designer/MainLayout.h"
#include "window/MainWindow.h"

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QScrollBar>
#include <QSet>
#include <QTreeView>

namespace pirol {

using test::MainWindow;

/// Counts the windows that the system is asked for.
class WindowCounter : public QObject {
  public:
    WindowCounter() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override {
        if (object->isWindowType() && event->type() == QEvent::PlatformSurface)
            ++count;
        return false;
    }

    int count = 0;
};

class FrmMainTest : public QObject {
    Q_OBJECT

  private slots:
    void BringsUpNoWindowButItself() {
        const WindowCounter windows;
        const MainWindow main;
        QCOMPARE(windows.count, 1);
    }

    void HasEveryCommandWithTextsOfItsOwn() {
        MainWindow main;
        QStringList names = {"mnuFileNew",
                             "mnuFileOpen",
                             "mnuFileSave",
                             "mnuFileImportJava",
                             "mnuFileStartBlueJ",
                             "mnuFileOptions",
                             "mnuFileEnd",
                             "mnuViewShowGrid",
                             "mnuObjectsGrid",
                             "mnuProjectSettings",
                             "mnuProjectExportBlueJ",
                             "mnuProjectExportJava",
                             "mnuProjectExportText",
                             "mnuFunctionsMenuGenerator",
                             "mnuFunctionsSQLGenerator",
                             "mnuCodeMenu",
                             "mnuCodeSQL",
                             "mnuCodeGenerate",
                             "mnuWindowSize0",
                             "mnuWindowSize1",
                             "mnuWindowSize2",
                             "mnuHelpHandbook",
                             "mnuHelpDonation",
                             "mnuHelpAbout"};
        for (int entry = 0; entry < 15; ++entry)
            names << QString("mnuObjectsObject%1").arg(entry);
        QSet<QKeySequence> shortcuts;
        for (const QString& name : names) {
            const QAction* command = main.Command(name);
            QVERIFY2(command != nullptr, qPrintable(name));
            QVERIFY2(!command->statusTip().isEmpty(), qPrintable(name));
            if (!command->shortcut().isEmpty()) {
                QVERIFY2(!shortcuts.contains(command->shortcut()), qPrintable(name));
                shortcuts << command->shortcut();
            }
        }
    }

    void SaysFromTheStartThatNothingIsSelected() {
        MainWindow main;
        const QAbstractItemModel* rows = main.Find<QTreeView>("plProperties")->model();
        QCOMPARE(rows->index(0, 0).data().toString(), QString("Kein Objekt gewählt"));
    }

    void MnemonicsAreUniqueInEachMenu() {
        MainWindow main;
        QList<QList<QAction*>> levels = {main.window.menuBar()->actions()};
        for (const QAction* menu : levels.front())
            levels << menu->menu()->actions();
        for (const QList<QAction*>& level : levels) {
            QSet<QString> seen;
            for (const QAction* action : level)
                if (!action->isSeparator()) {
                    const QString mnemonic = QKeySequence::mnemonic(action->text()).toString();
                    QVERIFY2(!mnemonic.isEmpty() && !seen.contains(mnemonic), qPrintable(action->text()));
                    seen << mnemonic;
                }
        }
    }

    void CommandsHaveIconsWhenTheirMenuIsOpen() {
        MainWindow main;
        for (const char* name : {"mnuFile", "mnuObjects", "mnuProject", "mnuHelp"}) {
            auto* menu = main.Find<QMenu>(name);
            emit menu->aboutToShow();
            for (const QAction* action : menu->actions())
                QVERIFY2(action->isSeparator() || !action->icon().isNull(), qPrintable(action->text()));
        }
    }

    void MenuAndToolbarChooseTheSameKind() {
        MainWindow main;
        const auto check = [&main](int entry) {
            for (int other = 0; other < 15; ++other) {
                QCOMPARE(main.Command(QString("mnuObjectsObject%1").arg(other))->isChecked(), other == entry);
                QCOMPARE(ToolbarButton(main, other)->isChecked(), other == entry);
            }
            QCOMPARE(main.window.Canvas().CurrentKind(), entry + 1);
        };
        check(0);
        for (int entry = 0; entry < 15; ++entry) {
            main.Command(QString("mnuObjectsObject%1").arg(14 - entry))->trigger();
            check(14 - entry);
            QTest::mouseClick(ToolbarButton(main, entry), Qt::LeftButton);
            check(entry);
            main.Command(QString("mnuObjectsObject%1").arg(entry))->trigger(); // the one that is checked already
            check(entry);
        }
    }

    void LaysItselfOutAtEverySize_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("large") << QSize(1400, 900);
        QTest::newRow("usual") << QSize(1080, 680);
        QTest::newRow("narrow") << QSize(700, 680);
        QTest::newRow("low") << QSize(1080, 300);
        QTest::newRow("tiny") << QSize(328, 328);
    }

    void LaysItselfOutAtEverySize() {
        QFETCH(QSize, size);
        MainWindow main;
        main.window.resize(size);
        const QSize inner = main.window.size() - QSize(0, main.window.menuBar()->height());
        QCOMPARE(main.window.size(), size);
        const auto* frame = main.Find<QWidget>("picFrame");
        const auto* toolbar = main.Find<QWidget>("tbComponents");
        const auto* list = main.Find<QWidget>("plProperties");
        QCOMPARE(frame->size(), QSize(qMax(0, inner.width() - 370), inner.height() - 40));
        QCOMPARE(toolbar->height(), inner.height() - 40);
        QCOMPARE(list->geometry(), QRect(inner.width() - 220, 20, 220, inner.height() - 40));
        QCOMPARE(main.canvas->size(), QSize(640, 480));
        auto* vertical = main.Find<QScrollBar>("vScroll");
        const bool scrolls = 480 > frame->height();
        QCOMPARE(vertical->isEnabled(), scrolls);
        QCOMPARE(main.canvas->y(), scrolls ? 0 : qRound((frame->height() - 20 - 480) / 2.0 - 0.01));
        if (scrolls && frame->width() > 0) {
            vertical->setValue(3);
            QCOMPARE(main.canvas->y(), -24);
            main.window.resize(size + QSize(0, 1));
            QCOMPARE(main.canvas->y(), 0);
            QCOMPARE(vertical->value(), 0);
        }
        for (int entry = 0; entry < 15; ++entry) {
            const QToolButton* button = ToolbarButton(main, entry);
            QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) + 16 + 8 <= button->width(),
                     qPrintable(button->text()));
        }
    }

    void PresetsSizeAndCentreTheMainWindow() {
        MainWindow main;
        const QSize outer[] = {{328, 328}, {648, 546}, {808, 666}};
        const QRect screen = main.window.screen()->geometry();
        for (int entry = 0; entry < 3; ++entry) {
            main.Command(QString("mnuWindowSize%1").arg(entry))->trigger();
            QCOMPARE(main.window.frameSize(), outer[entry]);
            QCOMPARE(main.window.pos(), QPoint((screen.width() - outer[entry].width()) / 2,
                                               (screen.height() - outer[entry].height()) / 2));
            QCOMPARE(main.window.Model().WindowWidth(), std::int16_t{640});
        }
    }

    void ScrollingPast16BitsIsReportedAndLosesNothing() {
        MainWindow main;
        main.window.Model().SetWindowSize(800, 32767);
        main.window.resize(600, 60);
        main.window.ShowDesign();
        auto* vertical = main.Find<QScrollBar>("vScroll");
        QVERIFY(vertical->maximum() > 4095);
        main.ExpectError();
        vertical->setValue(vertical->maximum());
        QVERIFY2(main.errorText.contains("Fehlernummer: 6"), qPrintable(main.errorText));
        QVERIFY(main.errorText.contains("|Keine Angaben|"));
        vertical->setValue(10);
        QCOMPARE(main.canvas->y(), -80);
    }

    void CodeMenuOffersWhatTheDesignHas() {
        MainWindow main;
        auto* menu = main.Find<QMenu>("mnuCode");
        const auto enabled = [&] {
            emit menu->aboutToShow();
            return std::pair(main.Command("mnuCodeMenu")->isEnabled(), main.Command("mnuCodeSQL")->isEnabled());
        };
        QCOMPARE(enabled(), std::pair(false, false));
        main.window.Model().EditMenus().Append("Datei", "hatDatei");
        main.window.Model().EditSql().Server = "localhost";
        QCOMPARE(enabled(), std::pair(true, true));
        QCOMPARE(main.window.GenerateCode().find("hatDatenbank"), std::string::npos);
        main.Command("mnuCodeSQL")->trigger();
        main.Command("mnuCodeMenu")->trigger();
        QVERIFY(main.window.Options().menu && main.window.Options().database);
        QVERIFY(main.window.GenerateCode().find("hatDatenbank") != std::string::npos);
    }

    void NewKeepsTheDatabaseAndForgetsTheRest() {
        MainWindow main;
        main.window.Model().EditSql().Server = "localhost";
        main.window.Model().SetWindowSize(300, 200);
        main.Command("mnuObjectsObject1")->trigger();
        main.Drag(10, 10, 100, 60);
        QVERIFY(main.window.isWindowModified());
        main.Command("mnuFileNew")->trigger();
        QCOMPARE(main.window.Model().Sql().Server, std::string("localhost"));
        QCOMPARE(main.canvas->size(), QSize(640, 480));
        QVERIFY(main.window.Model().CreationOrder().empty());
        QCOMPARE(main.Status(2), QString("Kein Objekt gewählt"));
        QVERIFY(!main.window.isWindowModified());
    }

    void OpensSavesAndRefuses() {
        MainWindow main;
        main.dialogs.paths = {PIROL_EXAMPLES "/Quiz.prl"};
        main.Command("mnuFileOpen")->trigger();
        QVERIFY(main.window.windowTitle().startsWith("Quiz.prl"));
        QVERIFY(!main.window.isWindowModified());
        QCOMPARE(main.canvas->size(), QSize(main.window.Model().WindowWidth(), main.window.Model().WindowHeight()));
        const ProjectModel opened = main.window.Model();

        main.dialogs.TakeSeen();
        main.Command("mnuFileOpen")->trigger(); // and cancels
        main.Command("mnuFileSave")->trigger();
        QCOMPARE(main.dialogs.TakeSeen().substr(0, 4), std::string("open"));
        QVERIFY(main.window.Model() == opened);

        main.dialogs.paths = {PIROL_EXAMPLES "/Quiz.java"};
        main.Command("mnuFileOpen")->trigger();
        QVERIFY(main.dialogs.TakeSeen().find("critical Fehler: Die .prl - Datei ist fehlerhaft") != std::string::npos);
        QVERIFY(main.window.Model() == ProjectModel());

        main.ExpectError();
        main.window.ReadPRLFile("/does/not/exist.prl");
        QVERIFY2(main.errorText.contains("Main.File.PRL.ReadPRLFile"), qPrintable(main.errorText));
    }

  private:
    static QToolButton* ToolbarButton(MainWindow& main, int entry) {
        const std::string_view key = KindRows()[static_cast<std::size_t>(entry)].key;
        return main.Find<QToolButton>("tbComponents_" + QString::fromLatin1(key.data(), qsizetype(key.size())));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::FrmMainTest)
#include "frmMain_test.moc"
