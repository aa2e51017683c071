#include "designer/MainLayout.h"
#include "Tables.h"
#include "ui/MainWindow.h"

#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QSet>
#include <QToolBar>

namespace pirol::test {

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
    void ComesUpAlone() {
        const WindowCounter windows;
        MainWindow main;
        QCOMPARE(windows.count, 1);
    }

    void EveryCommandHasTextsKeysAndAnIconOfItsOwn() {
        MainWindow main;
        QSet<QString> shortcuts, menuMnemonics;
        for (const TableRow& row : Table("main-menu")) {
            auto* const menu = main.Find<QMenu>(QString::fromStdString(row[0]));
            QVERIFY2(IsNew(QKeySequence::mnemonic(menu->title()), menuMnemonics), row.line.c_str());
            emit menu->aboutToShow();
            QSet<QString> mnemonics;
            QStringList names;
            for (const QAction* const command : menu->actions()) {
                if (command->isSeparator())
                    continue;
                const QString name = command->objectName();
                names << name.mid(menu->objectName().size()).remove(QRegularExpression("\\d+$"));
                QVERIFY2(!command->statusTip().isEmpty(), qPrintable(name));
                QVERIFY2(command->shortcut().isEmpty() || IsNew(command->shortcut(), shortcuts), qPrintable(name));
                QVERIFY2(IsNew(QKeySequence::mnemonic(command->text()), mnemonics), qPrintable(name));
                QVERIFY2(row[2] == "no" || !command->icon().isNull(), qPrintable(name));
            }
            QCOMPARE(names.join(' ').toStdString(), row[1]);
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
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::newRow("all fits") << 1400 << 900;
        QTest::newRow("scrolls across") << 700 << 680;
        QTest::newRow("scrolls down") << 1080 << 300;
        QTest::newRow("smallest") << 328 << 328;
    }

    void LaysItselfOutAtEverySize() {
        QFETCH(int, width);
        QFETCH(int, height);
        MainWindow main;
        main.window.resize(width, height);
        const MainLayout layout = LayOutMainWindow(
            width, height - main.window.menuBar()->height() - main.Find<QToolBar>("tbMain")->height() - rowHeight, 640,
            480);
        const std::pair<const char*, Rectangle> places[] = {
            {"tbComponents", layout.toolbar}, {"plProperties", layout.list},      {"picFrame", layout.frame},
            {"vScroll", layout.vertical.box}, {"hScroll", layout.horizontal.box}, {"picContainer", layout.canvas},
        };
        for (const auto& [name, box] : places)
            QCOMPARE(main.Find<QWidget>(name)->geometry(), QRect(box.left, box.top, box.width, box.height));
        for (int entry = 0; entry < 15; ++entry) {
            const QToolButton* button = ToolbarButton(main, entry);
            QVERIFY2(button->fontMetrics().horizontalAdvance(button->text()) + 16 + 8 <= button->width(),
                     qPrintable(button->text()));
        }
    }

    void PresetsSizeAndCentreTheMainWindow() {
        MainWindow main;
        const QSize screen = main.window.screen()->size();
        for (int entry = 0; entry < 3; ++entry) {
            main.Command(QString("mnuWindowSize%1").arg(entry))->trigger();
            const Rectangle box = WindowPreset(entry, screen.width(), screen.height()).value();
            QCOMPARE(main.window.frameGeometry(), QRect(box.left, box.top, box.width, box.height));
        }
    }

    void ScrollsAndReportsWhatIsPast16Bits() {
        MainWindow main;
        main.Edit([](ProjectModel& model) { model.SetWindowSize(800, 32767); });
        const int lowest = 60 + main.Find<QToolBar>("tbMain")->height();
        main.window.resize(600, lowest);
        auto* vertical = main.Find<QScrollBar>("vScroll");
        main.ExpectError();
        vertical->setValue(vertical->maximum());
        QVERIFY2(main.errorText.contains("Fehlernummer: 6"), qPrintable(main.errorText));
        QVERIFY(main.errorText.contains("|Keine Angaben|"));
        vertical->setValue(10);
        QCOMPARE(main.canvas->y(), -80);
        main.window.resize(600, lowest + 1); // shows the beginning again
        QCOMPARE(main.canvas->y(), 0);
        QCOMPARE(vertical->value(), 0);
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

} // namespace pirol::test

QTEST_MAIN(pirol::test::FrmMainTest)
#include "frmMain_test.moc"
