#include "ui/canvas/InPlaceEditor.h"
#include "ui/main/lstComponents.h"
#include "ui/MainWindow.h"
#include "ui/properties/plProperties.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>
#include <QWheelEvent>

namespace pirol::test {

/// Three buttons on whole pixels, and the pointer tool.
struct Looking : MainWindow {
    Looking() {
        Command("mnuObjectsGrid")->setChecked(false);
        window.Canvas().SetSnapsToGrid(false);
        Edit([](ProjectModel& model) {
            for (const int left : {100, 300, 500})
                model.PlaceComponent(ComponentKind::Button, {left, 100, 80, 40});
        });
        Tool(0);
    }

    void Tool(int kind) { QTest::mouseClick(tools[kind], Qt::LeftButton, {}, {8, 8}); }
    void Wheel(QPoint at, QPoint angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent wheel(at, canvas->mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(canvas, &wheel);
    }
    void Zoom(int percent) {
        auto* const zoom = Find<QComboBox>("cboZoom");
        zoom->setFocus();
        zoom->lineEdit()->selectAll();
        Do(window, QString::number(percent) + " Return");
    }
    InPlaceEditor* Editor() { return window.findChild<InPlaceEditor*>("txtInPlace"); }
    Rectangle Box(std::size_t button) { return window.Model().VisibleBox({ComponentKind::Button, button}); }
    std::string Caption(std::size_t button) {
        return FindRow(window.Model().Element({ComponentKind::Button, button}), "value")
            ->get(window.Model().Element({ComponentKind::Button, button}));
    }

    QList<QToolButton*> tools = window.findChildren<QToolButton*>(QRegularExpression("^tbComponents_"));
};

/// Looking at the design, and editing it where it stands.
class ViewTest : public QObject {
    Q_OBJECT

  private slots:
    void EveryWayToZoomKeepsTheDesign() {
        Looking main;
        const auto zoom = [&main] { return main.canvas->width() * 100 / main.window.Model().WindowWidth(); };
        const std::pair<const char*, int> keys[] = {{"Ctrl+2", 200}, {"Ctrl+-", 150}, {"Ctrl++", 200}, {"Ctrl+0", 100}};
        for (const auto& [key, percent] : keys) {
            Do(main.window, key);
            QCOMPARE(zoom(), percent);
            QCOMPARE(main.Find<QComboBox>("cboZoom")->currentText(), QString("%1 %").arg(percent));
        }
        main.Zoom(300);
        QCOMPARE(zoom(), 300);
        main.Zoom(7);
        QCOMPARE(zoom(), 25);
        main.Zoom(200);
        // The mouse is where it points to: a drag by 40 pixels of the screen moves by 20.
        main.Drag(2 * 110, 2 * 110, 2 * 110 + 40, 2 * 110);
        QCOMPARE(main.Box(1), (Rectangle{120, 100, 80, 40}));
        main.Find<QComboBox>("cboZoom")->lineEdit()->setFocus();
        Do(main.window, "x Return");
        QCOMPARE(zoom(), 200);
    }

    void TheWheelZoomsWhereThePointerIsAndScrolls() {
        Looking main;
        const QPoint at(300, 200);
        Do(main.window, "Ctrl+2"); // from here on it scrolls in both directions
        const QPoint onScreen = main.canvas->mapToGlobal(2 * at);
        for (int step = 0; step < 3; ++step)
            main.Wheel(main.canvas->mapFromGlobal(onScreen), {0, 120}, Qt::ControlModifier);
        QCOMPARE(main.canvas->width(), 4 * 640);
        const QPoint now = main.canvas->mapFromGlobal(onScreen) / 4;
        QVERIFY2((now - at).manhattanLength() <= 2, qPrintable(QString("%1 %2").arg(now.x()).arg(now.y())));

        const QPoint before = main.canvas->pos();
        main.Wheel({500, 500}, {0, -120}, Qt::NoModifier);
        QCOMPARE(main.canvas->pos(), before - QPoint(0, 48));
        main.Wheel({500, 500}, {0, -120}, Qt::ShiftModifier);
        QCOMPARE(main.canvas->pos(), before - QPoint(48, 48));
        QTest::mousePress(main.canvas, Qt::MiddleButton, {}, {900, 900});
        main.MoveTo(890, 895, Qt::MiddleButton);
        QTest::mouseRelease(main.canvas, Qt::MiddleButton, {}, {900, 900});
        QCOMPARE(main.canvas->pos(), before - QPoint(58, 53));
        main.canvas->setFocus();
        QTest::keyPress(main.canvas, Qt::Key_Space);
        main.Press(900, 900);
        main.MoveTo(910, 905);
        main.Release(900, 900);
        QTest::keyRelease(main.canvas, Qt::Key_Space);
        QCOMPARE(main.canvas->pos(), before - QPoint(48, 48));
        QCOMPARE(main.window.Canvas().Selected(), std::nullopt);
        QCOMPARE(main.Find<QScrollBar>("hScroll")->value(), (48 - before.x() + 4) / 8);
    }

    void GesturesLeaveNoTracesAtAnyZoom_data() {
        QTest::addColumn<int>("percent");
        for (const int percent : {25, 67, 125, 150, 400})
            QTest::newRow(qPrintable(QString::number(percent))) << percent;
    }

    void GesturesLeaveNoTracesAtAnyZoom() {
        QFETCH(int, percent);
        Looking main;
        main.Edit([](ProjectModel& model) {
            for (int i = 0; i < 60; ++i) // enough for layers
                model.PlaceComponent(KindRows()[static_cast<std::size_t>(i) % kindCount].kind,
                                     {100 + i % 7 * 9, 90 + i / 7 * 9, 90, 50});
        });
        main.Zoom(percent);
        const auto onScreen = [&main] { return main.CanvasOnScreen(); };
        const auto checkScreen = [&](const char* when) {
            const QImage pieceByPiece = onScreen();
            main.canvas->update();
            QVERIFY2(pieceByPiece == onScreen(), when);
        };
        const auto seen = [percent](int design) { return design * percent / 100; };
        main.Press(seen(510), seen(110));
        for (int step = 1; step < 12; ++step) {
            main.MoveTo(seen(510 - 33 * step), seen(110 + 3 * step));
            QApplication::processEvents();
        }
        checkScreen("while moving");
        main.Release(0, 0);
        checkScreen("after moving");
        main.Press(seen(10), seen(10));
        for (int step = 1; step < 12; ++step) {
            main.MoveTo(seen(10 + 37 * step), seen(10 + 23 * step));
            QApplication::processEvents();
        }
        checkScreen("while choosing");
        main.Release(seen(400), seen(300));
        checkScreen("with several chosen");
    }

    void GuidesPullOnlyWhenTheyShould() {
        Looking main;
        const struct {
            const char* name;
            int tool;
            bool grid;
            bool ticked;
            Qt::KeyboardModifiers held;
            int left;
        } cases[] = {
            {"the pointer tool", 0, false, false, Qt::NoModifier, 300},
            {"with Ctrl", 0, false, false, Qt::ControlModifier, 303},
            {"a kind chosen", 2, false, false, Qt::NoModifier, 303},
            {"a kind chosen and the mark", 2, false, true, Qt::NoModifier, 300},
            {"the grid", 0, true, true, Qt::NoModifier, 303},
        };
        for (const auto& row : cases) {
            main.Tool(row.tool);
            main.window.Canvas().SetSnapsToGrid(row.grid);
            main.window.Canvas().SetAlignsToGuides(row.ticked);
            main.Press(110, 110);
            QMouseEvent move(QEvent::MouseMove, QPointF(313, 310), main.canvas->mapToGlobal(QPointF(313, 310)),
                             Qt::NoButton, Qt::LeftButton, row.held);
            QApplication::sendEvent(main.canvas, &move);
            QVERIFY2(main.Box(1).left == row.left, row.name);
            QCOMPARE(main.window.Canvas().GuideLines().empty(), row.left != 300);
            QVERIFY(main.Find<QLabel>("lblPosition")->text().startsWith(QString("%1 / ").arg(row.left)));
            Do(main.window, "Esc");
            main.Release(110, 110);
            QVERIFY(main.window.Canvas().GuideLines().empty());
            QCOMPARE(main.Box(1).left, 100);
        }
    }

    /// Every handle of the pointer tool drags its sides, and the opposite ones stay; with Alt it moves.
    void TheHandlesDragTheirSides() {
        Looking main;
        main.window.Canvas().SetAlignsToGuides(false);
        main.Click(110, 110);
        const auto handles = main.window.Canvas().HandlesOf(main.Selected());
        QCOMPARE(handles.size(), std::size_t{8});
        for (const CanvasHandle& handle : handles) {
            const QPoint grip(handle.box.left + 4, handle.box.top + 4);
            const QPoint to = grip + QPoint(13, 17);
            const auto by = [](bool moves, int pixels) { return moves ? pixels : 0; };
            QTest::mousePress(main.canvas, Qt::LeftButton, {}, grip);
            QMouseEvent move(QEvent::MouseMove, to, main.canvas->mapToGlobal(QPointF(to)), Qt::NoButton, Qt::LeftButton,
                             Qt::ControlModifier); // no pull
            QApplication::sendEvent(main.canvas, &move);
            main.Release(to.x(), to.y());
            const int left = by(handle.sides.left, 13);
            const int top = by(handle.sides.top, 17);
            QCOMPARE(main.Box(1), (Rectangle{100 + left, 100 + top, 80 - left + by(handle.sides.right, 13),
                                             40 - top + by(handle.sides.bottom, 17)}));
            Do(main.window, "Ctrl+Z");
            QCOMPARE(main.Box(1), (Rectangle{100, 100, 80, 40}));
        }
        main.Tool(2);
        QTest::mousePress(main.canvas, Qt::LeftButton, Qt::AltModifier, {175, 135}); // where the handle is
        main.MoveTo(195, 150);
        main.Release(195, 150);
        QCOMPARE(main.Box(1), (Rectangle{120, 115, 80, 40}));
    }

    void TextsAreEditedInPlace() {
        Looking main;
        main.Click(110, 110);
        Do(main.window, "F2");
        Do(main.window, "Start Home Del Return");
        QCOMPARE(main.Caption(1), "tart"); // Del deleted a letter, and the component is still there
        QVERIFY(main.canvas->hasFocus());
        Do(main.window, "F2 Ende Esc");
        QCOMPARE(main.Caption(1), "tart");
        main.Tool(2); // a double click, as with every tool
        main.Click(310, 110);
        QTest::mouseDClick(main.canvas, Qt::LeftButton, {}, {310, 110});
        main.Release(310, 110);
        QVERIFY(main.Editor() != nullptr);
        Do(main.window, "neu");
        main.Click(510, 110); // leaving it takes it over, for the one it belongs to
        QCOMPARE(main.Caption(2), "neu");
        QVERIFY(main.Caption(3) != "neu");

        main.Tool(9);
        main.Drag(100, 300, 200, 340);
        Do(main.window, "Rot");
        Do(main.window, "Return Blau Ctrl+Return");
        const ComponentRef box{ComponentKind::ComboBox, 1};
        QCOMPARE(FindRow(main.window.Model().Element(box), "combovalues")->get(main.window.Model().Element(box)),
                 std::string("Rot\0Blau", 8));
    }

    void TheToolBoxPlacesByDoubleClickEnterAndDrag() {
        Looking main;
        const auto count = [&main] { return main.window.Model().ElementCount(ComponentKind::Slider) - 1; };
        QToolButton* const slider = main.tools[10];
        QTest::mouseClick(slider, Qt::LeftButton, {}, {8, 8});
        QTest::mouseDClick(slider, Qt::LeftButton, {}, {8, 8});
        QCOMPARE(count(), std::size_t{1});
        const Rectangle middle = main.SelectedBox();
        QVERIFY(std::abs(middle.left + middle.width / 2 - 320) < 30 && std::abs(middle.top - 240) < 60);
        slider->setFocus();
        Do(main.window, "Return");
        QCOMPARE(count(), std::size_t{2});
        QVERIFY(main.SelectedBox() != middle);

        const auto drag = [&](const QPoint& to) {
            QTest::mousePress(slider, Qt::LeftButton, {}, {8, 8});
            const QPoint global = main.canvas->mapToGlobal(to);
            QMouseEvent move(QEvent::MouseMove, slider->mapFromGlobal(QPointF(global)), global, Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(slider, &move);
            const bool shown = main.window.Canvas().IsFrameVisible();
            QTest::mouseRelease(slider, Qt::LeftButton, {}, slider->mapFromGlobal(global));
            return shown;
        };
        QVERIFY(drag({200, 400}));
        QCOMPARE(main.SelectedBox(), (Rectangle{120, 385, 160, 30}));
        QVERIFY(!drag({-500, 100}) && !main.window.Canvas().IsFrameVisible());
        QCOMPARE(count(), std::size_t{3});
    }

    void TheContextMenuOffersWhatApplies() {
        Looking main;
        const auto texts = [&main] {
            auto* const menu = main.window.findChild<QMenu*>("mnuContext");
            QStringList shown;
            for (const QAction* const action : menu->actions())
                shown << action->text();
            menu->close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return shown.join('|');
        };
        QContextMenuEvent onCanvas(QContextMenuEvent::Mouse, {600, 400}, main.canvas->mapToGlobal(QPoint(600, 400)));
        QApplication::sendEvent(main.canvas, &onCanvas);
        const QString empty = texts();
        QVERIFY2(!empty.contains("Löschen") && empty.contains("Raster"), qPrintable(empty));
        main.Click(110, 110);
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, {0, 0}, {});
        QApplication::sendEvent(main.canvas, &byKey);
        const QString component = texts();
        QVERIFY2(component.contains("Löschen") && !component.contains("Raster"), qPrintable(component));
    }

    void WhatIsDraggedPastTheEdgeScrolls() {
        Looking main;
        Do(main.window, "Ctrl+2 Ctrl++ Ctrl++");
        main.Find<QScrollBar>("hScroll")->setValue(0);
        main.Find<QScrollBar>("vScroll")->setValue(0);
        const QPoint begin = main.canvas->pos();
        main.Press(4 * 110, 4 * 110);
        main.MoveTo(5000, 4 * 110);
        QTRY_VERIFY(main.canvas->pos().x() < begin.x() - 100);
        QVERIFY(main.Box(1).left > 1000);
        main.Release(5000, 4 * 110);
        const QPoint end = main.canvas->pos();
        QTest::qWait(100);
        QCOMPARE(main.canvas->pos(), end);
    }

    void TheComponentListFindsAndFollows() {
        MainWindow main;
        main.Edit([](ProjectModel& model) {
            for (int i = 0; i < 200; ++i)
                model.PlaceComponent(ComponentKind::Label, {i % 20 * 100, i / 20 * 200, 80, 30});
            model.SetWindowSize(2000, 2000);
        });
        Do(main.window, "Ctrl+F");
        Do(main.window, "hatEtikett137");
        QCOMPARE(main.Selected(), (ComponentRef{ComponentKind::Label, 137}));
        const Rectangle box = main.SelectedBox();
        QVERIFY(main.canvas->visibleRegion().contains(QRect(box.left, box.top, box.width, box.height)));
        Do(main.window, "Return");
        QVERIFY(main.canvas->hasFocus());

        main.Find<QLineEdit>("txtFind")->clear();
        auto* const rows = main.Find<QTreeView>("trvComponents");
        main.window.CurrentDocument().Select(ComponentRef{ComponentKind::Label, 5});
        QCOMPARE(rows->currentIndex().data().toString(), QString("hatEtikett5"));
        main.window.CurrentDocument().Select(AllComponents(main.window.Model()));
        QCOMPARE(rows->selectionModel()->selectedRows().size(), 200);
        main.window.CurrentDocument().Select(ComponentRef{ComponentKind::Label, 5});
        rows->setFocus();
        Do(main.window, "Down Shift+Down");
        QCOMPARE(main.window.Canvas().AllSelected().Count(), std::size_t{2});
        QCOMPARE(main.Selected(), (ComponentRef{ComponentKind::Label, 7}));
        main.canvas->setFocus();
        Do(main.window, "Del");
        QVERIFY(!FindRow(*rows, "hatEtikett7").isValid() && FindRow(*rows, "hatEtikett8").isValid());
        Do(main.window, "Ctrl+Z");
        QVERIFY(FindRow(*rows, "hatEtikett7").isValid());
        rows->setFocus();
        Do(main.window, "Ctrl+L");
        QVERIFY(!rows->isVisible() && main.canvas->hasFocus());
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::ViewTest)
#include "view_test.moc"
