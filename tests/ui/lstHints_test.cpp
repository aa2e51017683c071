#include "app/Handbook.h"
#include "codegen/Hints.h"
#include "project/ProjectFile.h"
#include "ui/MainWindow.h"
#include "ui/parts/HelpAnchor.h"
#include "ui/properties/plProperties.h"
#include "ui/properties/PropertyListModel.h"

#include <QListWidget>
#include <QMenu>
#include <QScrollBar>
#include <QStatusBar>

namespace pirol::test {

/// The main window and what its list of hints shows once the design has come to rest.
struct HintedWindow : MainWindow {
    HintedWindow() : MainWindow({}, std::chrono::milliseconds(20)) {}

    bool Shows(int hints) {
        return QTest::qWaitFor(
            [&] { return heading->text() == QString("Hinweise (%1)").arg(hints) && list->count() == hints; });
    }
    std::string CurrentProperty() {
        const auto& rows = static_cast<const PropertyListModel&>(*properties->model());
        return std::string(rows.RowAt(properties->currentIndex()).key);
    }

    QListWidget* list = Find<QListWidget>("lstHints");
    QToolButton* heading = Find<QToolButton>("cmdHints");
    plProperties* properties = Find<plProperties>("plProperties");
};

class LstHintsTest : public QObject {
    Q_OBJECT

  private slots:
    void ComeWithAFlawAndGoWhenItIsMended() {
        HintedWindow main;
        const QRect canvas = main.canvas->geometry();
        main.Command("mnuObjectsObject1")->trigger();
        main.Drag(100, 100, 200, 140);
        main.Press(120, 120);
        main.MoveTo(640, 120);
        QTest::qWait(100);
        QVERIFY(main.Shows(0)); // not while the mouse holds it
        main.Release(640, 120);
        QVERIFY(main.Shows(1));
        QVERIFY(!main.list->isVisible());
        QCOMPARE(main.canvas->geometry(), canvas);
        QTest::mouseClick(main.heading, Qt::LeftButton);
        QTRY_VERIFY(main.canvas->y() < canvas.y());
        const QRect beside = main.canvas->geometry();

        ClickRow(*main.list, 0);
        QCOMPARE(main.CurrentProperty(), std::string("left"));
        QVERIFY(main.properties->hasFocus());
        Do(main.window, "300 Return");
        QCOMPARE(main.SelectedBox().left, 300);
        QVERIFY(main.Shows(0));
        QVERIFY(main.list->isVisible());
        QCOMPARE(main.canvas->geometry(), beside);
    }

    void LeadToComponentAndProperty() {
        HintedWindow main;
        main.window.ReadPRLFile(PIROL_TEST_DATA "/hints/unescaped-quote/design.prl");
        const std::vector<Hint> hints = FindHints(main.window.Model(), {}, {});
        QVERIFY(main.Shows(int(hints.size())) && hints.size() > 2);
        for (int row = 0; row < int(hints.size()); ++row) {
            const Hint& hint = hints[std::size_t(row)];
            QCOMPARE(main.list->item(row)->text().toStdString(), hint.text);
            main.window.CurrentDocument().Select(std::nullopt);
            Do(main.window, "F6");
            main.list->setCurrentRow(row);
            QCOMPARE(HelpAnchorOf(QApplication::focusWidget()), AnchorOf(*hint.rule));
            Do(main.window, "Return");
            QCOMPARE(main.Selected(), hint.component.value());
            QCOMPARE(main.CurrentProperty(), std::string(hint.property));
        }
        QCOMPARE(main.list->viewport()->height() % main.list->sizeHintForRow(0), 0);
    }

    void FollowTheMarksOfTheCodeMenu() {
        HintedWindow main;
        main.Edit([](ProjectModel& model) { model.EditMenus().Append("", "hatMenueLeer"); });
        main.Command("mnuCodeMenu")->trigger();
        QVERIFY(main.Shows(1));
        Do(main.window, "F6");
        ClickRow(*main.list, 0);
        QVERIFY(main.window.statusBar()->currentMessage().contains("Menü-Generator"));
        main.Command("mnuCodeMenu")->trigger();
        QVERIFY(main.Shows(0));
    }

    void LeaveTheScrolledCanvasWhereItIsAndFold() {
        HintedWindow main;
        main.Edit([](ProjectModel& model) { model.SetWindowSize(2000, 2000); });
        main.Find<QScrollBar>("vScroll")->setValue(20);
        main.Edit([](ProjectModel& model) { model.PlaceComponent(ComponentKind::Picture, {0, 0, 0, 0}); });
        QVERIFY(main.Shows(1));
        QCOMPARE(main.canvas->y(), -160);
        QTest::mouseClick(main.heading, Qt::LeftButton);
        QTRY_VERIFY(main.list->isVisible());
        QCOMPARE(main.canvas->y(), -160);
        QTest::mouseClick(main.heading, Qt::LeftButton);
        QVERIFY(!main.list->isVisible() && main.heading->isVisible());
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::LstHintsTest)
#include "lstHints_test.moc"
