#include "model/Conversions.h"
#include "window/MainWindow.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QLabel>
#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>

namespace pirol {

using test::MainWindow;

/// Adds up what a widget is asked to paint.
class PaintCounter : public QObject {
  public:
    explicit PaintCounter(QWidget* watched) { watched->installEventFilter(this); }

    int TakePixels() {
        QApplication::processEvents();
        return std::exchange(pixels_, 0);
    }

  protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            for (const QRect& rect : static_cast<QPaintEvent*>(event)->region())
                pixels_ += rect.width() * rect.height();
        return false;
    }

  private:
    int pixels_ = 0;
};

class PicContainerTest : public QObject {
    Q_OBJECT

  private slots:
    void EveryKindGoesThroughEveryGesture_data() {
        QTest::addColumn<int>("number");
        for (const KindRow& row : KindRows())
            QTest::newRow(row.key.data()) << static_cast<int>(row.kind);
    }

    void EveryKindGoesThroughEveryGesture() {
        QFETCH(int, number);
        MainWindow main;
        const ComponentKind kind = oddities::CrossTextAreas(static_cast<ComponentKind>(number));
        const bool fixedSize = IsMultimedia(kind);
        main.Command(QString("mnuObjectsObject%1").arg(number - 1))->trigger();

        main.Press(103, 98);
        main.MoveTo(206, 157);
        QCOMPARE(main.Status(3), QString("B = 103 / H = 59"));
        main.Release(206, 157);
        QCOMPARE(main.Selected(), (ComponentRef{kind, 1}));
        Rectangle box = main.SelectedBox();
        QCOMPARE(box.left, 100);
        QCOMPARE(box.top, 100);
        if (!fixedSize)
            QCOMPARE(box, (Rectangle{100, 100, 100, 60}));
        QVERIFY(main.Status(2).startsWith(ToQString(main.window.Model().Element(main.Selected()).ObjectName)));
        QCOMPARE(main.Status(3), QString());

        main.Drag(600, 470, 600, 470);
        QCOMPARE(main.window.Canvas().Selected(), std::nullopt);

        main.Press(box.left + 4, box.top + 4);
        main.MoveTo(box.left + 4 + 37, box.top + 4 - 3);
        QCOMPARE(main.SelectedBox().left, box.left + 37);
        main.Release(0, 0);
        QCOMPARE(main.SelectedBox(), (Rectangle{140, 100, box.width, box.height}));

        box = main.SelectedBox();
        main.Press(box.Right() - 5, box.Bottom() - 5);
        main.MoveTo(box.Right() + 18, box.Bottom() + 25);
        if (!fixedSize)
            QCOMPARE(main.Status(3), QString("B = 123 / H = 90"));
        main.Release(box.Right() + 18, box.Bottom() + 25);
        const Rectangle dragged = fixedSize ? Rectangle{160, 130, box.width, box.height} : Rectangle{140, 100, 120, 90};
        QCOMPARE(main.SelectedBox(), dragged);

        main.Key(Qt::Key_Delete);
        QCOMPARE(main.window.Canvas().Selected(), std::nullopt);
        main.Drag(10, 10, 60, 60);
        const std::size_t expected = oddities::DeleteKeyEmptiesKind(kind) ? 1 : 2;
        QCOMPARE(main.Selected(), (ComponentRef{kind, expected}));
    }

    void KeyboardAloneIsEnough() {
        MainWindow main;
        auto& canvas = main.window.Canvas();
        main.Command("mnuObjectsObject1")->trigger();
        QCOMPARE(QApplication::focusWidget(), main.canvas);
        main.Key(Qt::Key_Insert);
        main.Key(Qt::Key_Insert);
        const ComponentRef first{ComponentKind::Button, 1};
        const ComponentRef second{ComponentKind::Button, 2};
        QCOMPARE(canvas.Selected(), second);

        main.Key(Qt::Key_Backtab, Qt::ShiftModifier);
        QCOMPARE(canvas.Selected(), first);
        const Rectangle before = main.SelectedBox();
        const struct {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            bool snap;
            Rectangle change;
        } steps[] = {
            {Qt::Key_Right, Qt::NoModifier, true, {10, 0, 0, 0}},
            {Qt::Key_Down, Qt::NoModifier, true, {0, 10, 0, 0}},
            {Qt::Key_Left, Qt::NoModifier, false, {-1, 0, 0, 0}},
            {Qt::Key_Up, Qt::NoModifier, false, {0, -1, 0, 0}},
            {Qt::Key_Right, Qt::ShiftModifier, false, {0, 0, 1, 0}},
            {Qt::Key_Up, Qt::ShiftModifier, false, {0, 0, 0, -1}},
        };
        Rectangle expected = before;
        for (const auto& [key, modifiers, snap, change] : steps) {
            if (main.Command("mnuObjectsGrid")->isChecked() != snap)
                main.Command("mnuObjectsGrid")->trigger();
            main.Key(key, modifiers);
            expected = {expected.left + change.left, expected.top + change.top, expected.width + change.width,
                        expected.height + change.height};
            QCOMPARE(main.SelectedBox(), expected);
        }

        main.Key(Qt::Key_Tab);
        QCOMPARE(canvas.Selected(), second);
        QCOMPARE(QApplication::focusWidget(), main.canvas);
        main.Key(Qt::Key_Tab);
        QVERIFY2(QApplication::focusWidget() != main.canvas, "after the last component the focus goes on");
        QCOMPARE(canvas.Selected(), second);
        main.canvas->setFocus();
        main.Key(Qt::Key_Escape);
        QCOMPARE(canvas.Selected(), std::nullopt);
        main.Key(Qt::Key_Tab);
        QCOMPARE(canvas.Selected(), first);
        main.Key(Qt::Key_Delete);
        QCOMPARE(main.window.Model().VisibleBox(first), Rectangle{});
    }

    void EnterLeadsToThePropertiesAndEscapeBack() {
        MainWindow main;
        main.Command("mnuObjectsObject1")->trigger();
        main.Drag(10, 10, 110, 60);
        const ComponentRef button = main.Selected();
        const auto name = [&] { return main.window.Model().Element(button).ObjectName; };
        main.Key(Qt::Key_Return);
        auto* list = main.Find<QAbstractItemView>("plProperties");
        QVERIFY(list->hasFocus());
        main.Key(Qt::Key_Return);
        QVERIFY2(list->isAncestorOf(QApplication::focusWidget()), "the name is being edited");
        QTest::keyClicks(QApplication::focusWidget(), "xy");
        main.Key(Qt::Key_Home);
        main.Key(Qt::Key_Delete);
        QCOMPARE(main.window.Model().VisibleBox(button), (Rectangle{10, 10, 100, 50})); // only a letter was deleted
        main.Command("mnuViewShowGrid")->trigger();
        QCOMPARE(name(), std::string("y")); // a command takes over what is being typed
        main.Key(Qt::Key_Escape);
        QCOMPARE(QApplication::focusWidget(), main.canvas);
        QCOMPARE(main.Selected(), button);

        list->setFocus();
        main.Key(Qt::Key_Delete);
        QCOMPARE(main.window.Model().VisibleBox(button), Rectangle{}); // the window sees the key before the list
    }

    void TheSelectionChosenByKeyboardIsScrolledIntoView() {
        MainWindow main;
        main.window.Model().SetWindowSize(3000, 2000);
        main.window.Model().PlaceComponent(ComponentKind::Button, {20, 20, 100, 30});
        main.window.Model().PlaceComponent(ComponentKind::Button, {2500, 1500, 100, 30});
        main.window.ShowDesign();
        for (const QRect& box : {QRect(20, 20, 100, 30), QRect(2500, 1500, 100, 30)}) {
            main.Key(Qt::Key_Tab);
            const QRect seen = main.canvas->visibleRegion().boundingRect();
            QVERIFY(seen.contains(box));
        }
    }

    void OnlyWhatChangedIsRepainted() {
        MainWindow main;
        ProjectModel& model = main.window.Model();
        for (int i = 0; i < 100; ++i)
            model.PlaceComponent(ComponentKind::Label, {i % 10 * 64, i / 10 * 48, 60, 40});
        main.window.ShowDesign();
        PaintCounter painted(main.canvas);
        painted.TakePixels();

        main.Press(70, 53);
        painted.TakePixels(); // the selection
        main.MoveTo(73, 54);
        const int moved = painted.TakePixels();
        QVERIFY2(moved > 60 * 40 && moved < 3 * 60 * 40, qPrintable(QString::number(moved)));
        main.MoveTo(73, 54);
        QCOMPARE(painted.TakePixels(), 0);
        main.Release(73, 54);
        painted.TakePixels();
        main.Drag(639, 479, 639, 479);
        painted.TakePixels();

        main.Press(638, 475);
        main.MoveTo(100, 100);
        painted.TakePixels();
        main.MoveTo(90, 90);
        const int framed = painted.TakePixels();
        QVERIFY2(framed > 0 && framed < 20000, qPrintable(QString::number(framed)));
    }

    void GesturesLeaveNoTracesOnTheScreen_data() {
        QTest::addColumn<int>("crowd");
        QTest::newRow("few components") << 0;
        QTest::newRow("a crowd") << 150; // painted in layers while a gesture lasts
    }

    /// What is on the screen after many small repaints is what one large repaint shows.
    void GesturesLeaveNoTracesOnTheScreen() {
        QFETCH(int, crowd);
        MainWindow main;
        for (int i = 0; i < crowd; ++i)
            main.window.Model().PlaceComponent(KindRows()[static_cast<std::size_t>(i) % kindCount].kind,
                                               {100 + i % 10 * 11, i / 10 * 13, 120, 60});
        for (int number = 1; number <= 15; ++number) {
            main.Command(QString("mnuObjectsObject%1").arg(number - 1))->trigger();
            main.Drag(number % 4 * 150 + 7, number / 4 * 110 + 7, number % 4 * 150 + 130, number / 4 * 110 + 90);
        }
        main.window.ShowDesign();
        main.Command("mnuObjectsGrid")->trigger();
        const auto onScreen = [&main] {
            QApplication::processEvents();
            const QPoint corner = main.canvas->mapTo(&main.window, QPoint(0, 0));
            return main.window.screen()
                ->grabWindow(main.window.winId(), corner.x(), corner.y(), main.canvas->width(), main.canvas->height())
                .toImage();
        };
        const auto checkScreen = [&](const char* when) {
            const QImage pieceByPiece = onScreen();
            main.canvas->update();
            QVERIFY2(pieceByPiece == onScreen(), when);
        };
        for (const QPoint& grip : {QPoint(170, 20), QPoint(205, 75), QPoint(300, 200)}) {
            if (main.window.Canvas().HitTest(grip.x(), grip.y()).area != CanvasHit::Area::Border)
                continue;
            main.Press(grip.x(), grip.y());
            for (int step = 1; step < 20; ++step) {
                main.MoveTo(grip.x() + step * 7, grip.y() + step * 3);
                QApplication::processEvents();
            }
            checkScreen("while moving");
            const QImage whileMoving = onScreen();
            main.Release(0, 0);
            QVERIFY2(whileMoving == onScreen(), "the end of the gesture changes nothing");
            checkScreen("after moving");
        }
        main.Press(635, 470);
        for (const int step : {1, 5, 9, 14, 18, 19, 17, 12, 11, 10}) {
            main.MoveTo(635 - step * 31, 470 - step * 21);
            QApplication::processEvents();
        }
        checkScreen("while drawing");
        main.Release(0, 0);
        checkScreen("after drawing");
        main.Key(Qt::Key_Tab);
        main.Key(Qt::Key_Delete);
        checkScreen("after deleting");
        main.Command("mnuViewShowGrid")->trigger();
        checkScreen("without the grid");
    }

    void OverflowIsReportedAndLosesNothing() {
        MainWindow main;
        main.window.Model().SetWindowSize(32767, 480);
        const ComponentRef button = main.window.Model().PlaceComponent(ComponentKind::Button, {32700, 0, 60, 30});
        main.window.ShowDesign();
        main.Press(32705, 5);
        main.ExpectError();
        main.MoveTo(32790, 5);
        QVERIFY2(main.errorText.contains("Fehlernummer: 6"), qPrintable(main.errorText));
        main.MoveTo(32600, 5);
        main.Release(32600, 5);
        QCOMPARE(main.window.Model().VisibleBox(button), (Rectangle{32700, 0, 60, 30}));
    }

    void ScreenReadersFindTheComponents() {
        MainWindow main;
        ProjectModel& model = main.window.Model();
        model.PlaceComponent(ComponentKind::Table, {10, 20, 300, 200});
        const ComponentRef label = model.PlaceComponent(ComponentKind::Label, {100, 100, 80, 30});
        model.PlaceComponent(ComponentKind::Sound, {400, 20, 0, 0});
        main.window.ShowDesign();

        QAccessibleInterface* canvas = QAccessible::queryAccessibleInterface(main.canvas);
        QCOMPARE(canvas->childCount(), 3);
        QAccessibleInterface* child = canvas->child(1);
        QCOMPARE(child->text(QAccessible::Name), QString("hatEtikett1, Etikett"));
        QCOMPARE(child->text(QAccessible::Description), QString("Links 100, Oben 100, Breite 80, Höhe 30"));
        QCOMPARE(child->role(), QAccessible::StaticText);
        QCOMPARE(canvas->indexOfChild(child), 1);
        const QPoint inLabel = main.canvas->mapToGlobal(QPoint(110, 110));
        QCOMPARE(canvas->childAt(inLabel.x(), inLabel.y()), child);
        QVERIFY(child->rect().contains(inLabel));
        QVERIFY(!child->state().selected);

        main.window.Canvas().Select(label);
        main.window.ShowDesign();
        QVERIFY(child->state().selected);
        QCOMPARE(canvas->focusChild(), child);
        main.Key(Qt::Key_Delete);
        QVERIFY(!child->isValid());
        QCOMPARE(canvas->childCount(), 2);
        QCOMPARE(canvas->child(1)->role(), QAccessible::Sound);
        QCOMPARE(canvas->child(2), nullptr);
    }

  private:
    static QString ToQString(std::string_view text) {
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::PicContainerTest)
#include "picContainer_test.moc"
