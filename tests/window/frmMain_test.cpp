#include "designer/MainLayout.h"
#include "window/MainWindow.h"

#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
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
    void ComesUpAloneWithNothingSelected() {
        const WindowCounter windows;
        MainWindow main;
        QCOMPARE(windows.count, 1);
        const QAbstractItemModel* rows = main.Find<QTreeView>("plProperties")->model();
        QCOMPARE(rows->index(0, 0).data().toString(), QString("Kein Objekt gewählt"));
    }

    void EveryCommandHasTextsKeysAndAnIconOfItsOwn() {
        const struct {
            QString menu, commands; // without the menu's name and the numbers of equal ones
            bool hasIcons;
        } menus[] = {
            {"mnuFile", "New Open Save ImportJava StartBlueJ Options End", true},
            {"mnuView", "ShowGrid", true},
            {"mnuObjects", QString("Object ").repeated(15) + "Grid", true},
            {"mnuProject", "Settings ExportBlueJ ExportJava ExportText", true},
            {"mnuFunctions", "MenuGenerator SQLGenerator", true},
            {"mnuCode", "Menu SQL Generate", false},
            {"mnuWindow", "Size Size Size", false},
            {"mnuHelp", "Handbook Donation About", true},
        };
        MainWindow main;
        QSet<QString> shortcuts, menuMnemonics;
        for (const auto& row : menus) {
            auto* const menu = main.Find<QMenu>(row.menu);
            QVERIFY2(IsNew(QKeySequence::mnemonic(menu->title()), menuMnemonics), qPrintable(row.menu));
            emit menu->aboutToShow();
            QSet<QString> mnemonics;
            QStringList names;
            for (const QAction* const command : menu->actions()) {
                if (command->isSeparator())
                    continue;
                const QString name = command->objectName();
                names << name.mid(row.menu.size()).remove(QRegularExpression("\\d+$"));
                QVERIFY2(!command->statusTip().isEmpty(), qPrintable(name));
                QVERIFY2(command->shortcut().isEmpty() || IsNew(command->shortcut(), shortcuts), qPrintable(name));
                QVERIFY2(IsNew(QKeySequence::mnemonic(command->text()), mnemonics), qPrintable(name));
                QVERIFY2(!row.hasIcons || !command->icon().isNull(), qPrintable(name));
            }
            QCOMPARE(names.join(' '), row.commands);
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
        for (const QSize size :
             {QSize(1400, 900), QSize(1080, 680), QSize(700, 680), QSize(1080, 300), QSize(328, 328)})
            QTest::addRow("%d x %d", size.width(), size.height()) << size;
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

  private:
    /// Whether it is a key at all that was not among these so far.
    static bool IsNew(const QKeySequence& key, QSet<QString>& seen) {
        const bool isNew = !key.isEmpty() && !seen.contains(key.toString());
        seen << key.toString();
        return isNew;
    }

    static QToolButton* ToolbarButton(MainWindow& main, int entry) {
        const std::string_view key = KindRows()[static_cast<std::size_t>(entry)].key;
        return main.Find<QToolButton>("tbComponents_" + QString::fromLatin1(key.data(), qsizetype(key.size())));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::FrmMainTest)
#include "frmMain_test.moc"
