#include "base/FileAccess.h"
#include "Cases.h"
#include "controls/dBild.h"
#include "ui/MainWindow.h"
#include "ui/properties/plProperties.h"

#include <QAccessible>
#include <QScreen>

namespace pirol::test {

/// The main window on whole pixels, with two buttons on its canvas, the second one selected.
struct Editing : MainWindow {
    Editing() {
        Command("mnuObjectsGrid")->trigger();
        Command("mnuObjectsObject1")->trigger();
        Drag(300, 200, 380, 260);
        Drag(100, 100, 200, 140);
    }

    /// Goes to a row of the property list and types over its value.
    void TypeInto(const QString& caption, const QString& steps) {
        Show(window); // a report may have had the keyboard
        list->setFocus();
        list->setCurrentIndex(FindRow(*list, caption));
        Do(window, steps);
    }
    QString Shown(const QString& caption) { return FindRow(*list, caption).siblingAtColumn(1).data().toString(); }

    const Control& Held() { return window.Model().Element(button); }

    const ComponentRef other{ComponentKind::Button, 1};
    const ComponentRef button{ComponentKind::Button, 2};
    plProperties* list = Find<plProperties>("plProperties");
};

/// The canvas with mouse and keyboard, and how it goes together with the property list.
class PicContainerTest : public QObject {
    Q_OBJECT

  private slots:
    void TheMouseDrawsMovesAndResizes() {
        MainWindow main;
        main.Command("mnuObjectsObject1")->trigger();
        main.Press(103, 98);
        main.MoveTo(206, 157);
        QCOMPARE(main.Status(3), QString("B = 103 / H = 59"));
        main.Release(206, 157);
        QCOMPARE(main.Selected(), (ComponentRef{ComponentKind::Button, 1}));
        QCOMPARE(main.SelectedBox(), (Rectangle{100, 100, 100, 60}));
        QVERIFY(main.Status(2).startsWith("hatKnopf1"));
        QCOMPARE(main.Status(3), QString());

        main.Drag(104, 104, 141, 101);
        QCOMPARE(main.SelectedBox(), (Rectangle{140, 100, 100, 60}));
        main.Drag(235, 155, 258, 185);
        QCOMPARE(main.SelectedBox(), (Rectangle{140, 100, 120, 90}));
    }

    void KeyboardAloneIsEnough() {
        MainWindow main;
        auto& canvas = main.window.Canvas();
        const ComponentRef first{ComponentKind::Button, 1};
        const ComponentRef second{ComponentKind::Button, 2};
        main.Command("mnuObjectsObject1")->trigger();
        main.Command("mnuObjectsGrid")->trigger();
        Do(main.window, "Ins Ins");
        QCOMPARE(canvas.Selected(), second);
        Do(main.window, "Shift+Backtab");
        QCOMPARE(canvas.Selected(), first);

        const std::pair<const char*, Rectangle> arrows[] = {
            {"Right", {1, 0, 0, 0}},       {"Down", {0, 1, 0, 0}},        {"Left", {-1, 0, 0, 0}},
            {"Up", {0, -1, 0, 0}},         {"Shift+Right", {0, 0, 1, 0}}, {"Shift+Down", {0, 0, 0, 1}},
            {"Shift+Left", {0, 0, -1, 0}}, {"Shift+Up", {0, 0, 0, -1}},
        };
        for (const auto& [key, change] : arrows) {
            const Rectangle before = main.SelectedBox();
            Do(main.window, key);
            QCOMPARE(main.SelectedBox(), (Rectangle{before.left + change.left, before.top + change.top,
                                                    before.width + change.width, before.height + change.height}));
        }

        Do(main.window, "Tab");
        QCOMPARE(canvas.Selected(), second);
        QCOMPARE(QApplication::focusWidget(), main.canvas);
        Do(main.window, "Tab");
        QVERIFY2(QApplication::focusWidget() != main.canvas, "after the last component the focus goes on");
        QCOMPARE(canvas.Selected(), second);
        main.canvas->setFocus();
        Do(main.window, "Esc");
        QCOMPARE(canvas.Selected(), std::nullopt);
        Do(main.window, "Tab Del");
        QCOMPARE(main.window.Model().VisibleBox(first), Rectangle{});
    }

    void EnterLeadsToThePropertiesAndEscapeBack() {
        Editing main;
        Do(main.window, "Return");
        QVERIFY(main.list->hasFocus());
        Do(main.window, "Return");
        QVERIFY2(main.list->isAncestorOf(QApplication::focusWidget()), "the name is being edited");
        Do(main.window, "xy Home Del");
        QCOMPARE(main.SelectedBox(), (Rectangle{100, 100, 100, 40})); // only a letter was deleted
        main.Command("mnuViewShowGrid")->trigger();
        QCOMPARE(main.Held().ObjectName, "y"); // a command takes over what is being typed
        Do(main.window, "Esc");
        QCOMPARE(QApplication::focusWidget(), main.canvas);
        QCOMPARE(main.Selected(), main.button);

        main.list->setFocus();
        Do(main.window, "Del");
        QCOMPARE(main.window.Model().VisibleBox(main.button), Rectangle{}); // the window sees the key before the list
    }

    void ListAndCanvasFollowEachOther() {
        Editing main;
        main.Drag(110, 110, 125, 118);
        QCOMPARE(main.Shown("Links") + "," + main.Shown("Oben"), "115,108");
        Do(main.window, "Right");
        QCOMPARE(main.Shown("Links"), "116");
        main.TypeInto("Name", "hatStart Down");
        QCOMPARE(main.Held().ObjectName, "hatStart");
        QVERIFY(main.Status(2).startsWith("hatStart"));
        // A click on another component ends the edit of the first one, and then selects the other.
        main.TypeInto("Breite", "66");
        main.Click(310, 210);
        QCOMPARE(main.Held().Width, 66);
        QCOMPARE(main.Selected(), main.other);
        QCOMPARE(main.SelectedBox(), (Rectangle{300, 200, 80, 60}));
        main.Click(600, 470);
        QCOMPARE(main.list->model()->index(0, 0).data().toString(), "Kein Objekt gewählt");
    }

    void StepsAreUndoneAndRedone() {
        Editing main;
        main.window.CurrentDocument().MarkSaved("a.prl");
        const Rectangle box = main.SelectedBox();
        const auto captions = [&main] {
            return main.Command("mnuEditUndo")->text() + "|" + main.Command("mnuEditRedo")->text();
        };
        main.Press(120, 115);
        main.MoveTo(140, 135);
        Do(main.window, "Ctrl+Z"); // not below the hand
        QVERIFY(main.window.Canvas().IsMoving() && !main.Command("mnuEditUndo")->isEnabled());
        main.Release(140, 135);
        QCOMPARE(captions(), "&Rückgängig: Knopf verschieben|&Wiederholen");
        QVERIFY(main.window.isWindowModified());
        Do(main.window, "Ctrl+Z");
        QCOMPARE(main.SelectedBox(), box);
        QCOMPARE(main.Shown("Links"), QString::number(box.left));
        QVERIFY(!main.window.isWindowModified());
        QVERIFY(captions().endsWith("|&Wiederholen: Knopf verschieben"));
        Do(main.window, "Ctrl+Y");
        QCOMPARE(main.SelectedBox().left, box.left + 20);
        Do(main.window, "Ctrl+Z Ctrl+Shift+Z");
        QCOMPARE(main.SelectedBox().left, box.left + 20);

        // An editor takes back what is typed first; then the key belongs to the design again.
        main.TypeInto("Breite", "77 Ctrl+Z");
        QVERIFY(main.list->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(main.SelectedBox().left, box.left + 20);
        Do(main.window, "Ctrl+Z");
        QCOMPARE(QApplication::focusWidget(), main.list);
        QCOMPARE(main.SelectedBox(), box);

        main.Command("mnuFileNew")->trigger();
        main.Command("mnuEditUndo")->trigger();
        QCOMPARE(main.SelectedBox(), box);
        QVERIFY(main.window.windowTitle().startsWith("a.prl") && !main.window.isWindowModified());
        Do(main.window, "Del");
        main.Command("mnuEditUndo")->trigger();
        QCOMPARE(main.Selected(), main.button); // and it is selected again
    }

    /// A bad value is reported after what ended its edit; a click does all the same what it should.
    void UnfinishedNumbersDoNotDisturbTheClick() {
        Editing main;
        main.TypeInto("Breite", "F2 Ctrl+A -");
        main.Click(600, 470);
        QCOMPARE(main.Held().Width, 100);
        QCOMPARE(main.window.Canvas().Selected(), std::nullopt);
    }

    /// Where nothing is said the screen shows it: what a small component leaves, and the grid below a drag in a crowd.
    void TheScreenShowsWhatIsThere() {
        Editing main;
        for (int button = 0; button < 40; ++button)
            main.Edit([](ProjectModel& model) { model.PlaceComponent(ComponentKind::Button, {300, 300, 60, 30}); });
        main.Edit([](ProjectModel& model) { model.PlaceComponent(ComponentKind::Button, {500, 300, 8, 8}); });
        const auto screen = [&main] { return main.CanvasOnScreen(); };
        main.Press(503, 303);
        main.MoveTo(330, 310);
        main.MoveTo(440, 410);
        main.Command("mnuViewShowGrid")->trigger();
        main.MoveTo(441, 411);
        const QImage shown = screen();
        main.canvas->update();
        QCOMPARE(shown, screen());
        Press(Qt::Key_Escape);
        QCOMPARE(main.SelectedBox(), (Rectangle{500, 300, 8, 8}));
        main.MoveTo(600, 470, Qt::NoButton);
        QVERIFY(!main.Status(3).isEmpty());
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(main.canvas, &leave);
        QCOMPARE(main.Status(3), "");
    }

    /// They are read beside the window's thread: the symbol comes first, and what the file holds later follows.
    void PicturesAppearWhenTheyAreRead() {
        const ScratchFolder folder;
        const std::filesystem::path file = folder / "bild.ppm";
        MainWindow main;
        main.Edit([&file](ProjectModel& model) {
            const ComponentRef picture = model.PlaceComponent(ComponentKind::Picture, {100, 100, 160, 120});
            static_cast<dBild&>(model.EditElement(picture)).File = TextOf(file);
        });
        const int place = qRound(102 * main.canvas->devicePixelRatioF());
        const auto pixel = [&main, place] { return main.canvas->grab().toImage().pixelColor(place, place); };
        const QColor symbol = pixel();
        const auto grey = [](char level) { return "P5 4 4 255\n" + std::string(16, level); };
        for (const auto& [bytes, expected] :
             {std::pair(grey(60), QColor(60, 60, 60)), std::pair(grey(120), QColor(120, 120, 120)),
              std::pair(std::string("kein Bild"), symbol)}) {
            ReplaceFileBytes(file, bytes);
            QTRY_COMPARE(pixel(), expected);
        }
    }

    /// The box of a picture says where it begins, and the file how far it goes.
    void PicturesLargerThanTheirBoxesAreShownWhole() {
        const ScratchFolder folder;
        const std::filesystem::path file = folder / "bild.ppm";
        ReplaceFileBytes(file, "P5 120 100 255\n" + std::string(120 * 100, 60));
        MainWindow main;
        main.Edit([&file](ProjectModel& model) {
            const ComponentRef picture = model.PlaceComponent(ComponentKind::Picture, {100, 100, 40, 40});
            static_cast<dBild&>(model.EditElement(picture)).File = TextOf(file);
            model.PlaceComponent(ComponentKind::Button, {180, 160, 60, 20});
        });
        const auto shows = [&main](int x, int y) {
            const QImage screen = main.CanvasOnScreen();
            return screen.pixelColor(QPoint(x, y) * screen.devicePixelRatio()) == QColor(60, 60, 60);
        };
        QTRY_VERIFY(shows(218, 198));
        QVERIFY(!shows(190, 170)); // the button lies above
        main.Press(104, 104);
        for (int step = 4; step <= 20; step += 4)
            main.MoveTo(104 + step, 104 + step);
        const QImage dragged = main.CanvasOnScreen();
        QVERIFY(shows(238, 218) && !shows(104, 190));
        main.canvas->update();
        QCOMPARE(dragged, main.CanvasOnScreen());
        main.Release(124, 124);
        Do(main.window, "Del");
        QVERIFY(!shows(238, 218));
    }

    /// Whichever button's release another window got, the next click is one of its own.
    void ALostReleaseDoesNotLeadTheNextClick() {
        Editing main;
        QTest::mousePress(main.canvas, Qt::RightButton, {}, {120, 120});
        QTest::mouseRelease(main.list, Qt::RightButton);
        main.Drag(310, 210, 330, 220);
        QCOMPARE(main.SelectedBox(), (Rectangle{320, 210, 80, 60}));
        QCOMPARE(main.Held().Left, 100);
    }

    void TheListFollowsADrag() {
        Editing main;
        main.Press(110, 110);
        main.MoveTo(130, 140);
        QTRY_COMPARE(main.Shown("Links"), "120");
        QCOMPARE(main.Shown("Oben"), "130");
        Press(Qt::Key_Escape);
        QCOMPARE(main.Shown("Links"), "100");
    }

    void TheListTellsAndAsksInDialogs() {
        Editing main;
        main.TypeInto("Name", "hatKnopf1 Return");
        std::string seen;
        QTRY_COMPARE(seen += main.dialogs.TakeSeen(), "information Dieser Name ist bereits vergeben.\n");
        QCOMPARE(main.Shown("Name"), "hatKnopf2");

        main.Command("mnuObjectsObject12")->trigger();
        main.Drag(400, 300, 480, 360);
        main.dialogs.paths = {"C:\\haus.bmp"};
        main.TypeInto("Bilddatei", "F4");
        QVERIFY(main.dialogs.TakeSeen().starts_with("open <Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg>"));
        QCOMPARE(main.Shown("Bilddatei"), "C:\\haus.bmp");
    }

    void TheSelectionChosenByKeyboardIsScrolledIntoView() {
        MainWindow main;
        const Rectangle boxes[] = {{20, 20, 100, 30}, {2500, 1500, 100, 30}};
        main.Edit([&](ProjectModel& model) {
            model.SetWindowSize(3000, 2000);
            for (const Rectangle& box : boxes)
                model.PlaceComponent(ComponentKind::Button, box);
        });
        for (const Rectangle& box : boxes) {
            Do(main.window, "Tab");
            QVERIFY(main.canvas->visibleRegion().contains(QRect(box.left, box.top, box.width, box.height)));
        }
    }

    void OnlyWhatChangedIsRepainted() {
        MainWindow main;
        main.Edit([](ProjectModel& model) {
            for (int i = 0; i < 100; ++i)
                model.PlaceComponent(ComponentKind::Label, {i % 10 * 64, i / 10 * 48, 60, 40});
        });
        PaintCounter painted(main.canvas);
        main.Press(70, 53);
        painted.TakePixels();
        main.MoveTo(73, 54);
        const int moved = painted.TakePixels();
        QVERIFY2(moved > 60 * 40 && moved < 3 * 60 * 40, qPrintable(QString::number(moved)));
        main.MoveTo(73, 54);
        QCOMPARE(painted.TakePixels(), 0);
        main.Release(73, 54);

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
        main.Edit([crowd](ProjectModel& model) {
            const auto place = [&model](int number, const Rectangle& box) {
                model.PlaceComponent(KindRows()[static_cast<std::size_t>(number) % kindCount].kind, box);
            };
            for (int i = 0; i < crowd; ++i)
                place(i, {100 + i % 10 * 11, i / 10 * 13, 120, 60});
            for (int i = 0; i < 16; ++i)
                place(i, {i % 4 * 150 + 10, i / 4 * 110 + 10, 120, 80});
        });
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
        for (const QPoint& grip : {QPoint(170, 20), QPoint(20, 130)}) {
            main.Press(grip.x(), grip.y());
            for (int step = 1; step < 20; ++step) {
                main.MoveTo(grip.x() + step * 7, grip.y() + step * 3);
                QApplication::processEvents();
            }
            QVERIFY(main.window.Canvas().IsMoving());
            checkScreen("while moving");
            const QImage whileMoving = onScreen();
            const bool showsGuides = !main.window.Canvas().GuideLines().empty();
            main.Release(0, 0);
            QVERIFY2(showsGuides || whileMoving == onScreen(), "the end of the gesture changes nothing");
        }
        for (const char* const frame : {"while drawing", "while drawing over the first one"}) {
            main.Press(635, 470);
            for (const int step : {1, 5, 9, 14, 18, 19, 17, 12, 11, 10}) {
                main.MoveTo(635 - step * 31, 470 - step * 21);
                QApplication::processEvents();
            }
            checkScreen(frame);
            main.Release(0, 0);
            checkScreen("after drawing");
        }
        Do(main.window, "Del");
        checkScreen("after deleting");
        Do(main.window, "Ctrl+Z");
        checkScreen("after undoing");
        main.Command("mnuViewShowGrid")->trigger();
        checkScreen("without the grid");
    }

    void OverflowIsReportedAndLosesNothing() {
        MainWindow main;
        const ComponentRef button = {ComponentKind::Button, 1};
        main.Edit([](ProjectModel& model) {
            model.SetWindowSize(32767, 480);
            model.PlaceComponent(ComponentKind::Button, {32700, 0, 60, 30});
        });
        main.Press(32705, 5);
        main.ExpectError();
        main.MoveTo(32790, 5);
        QVERIFY2(main.errorText.contains("Fehlernummer: 6"), qPrintable(main.errorText));
        main.MoveTo(32600, 5);
        QCOMPARE(main.window.Model().VisibleBox(button), (Rectangle{32700, 0, 60, 30}));
    }

    void ScreenReadersFindTheComponents() {
        MainWindow main;
        const ComponentRef label = {ComponentKind::Label, 1};
        main.Edit([](ProjectModel& model) {
            model.PlaceComponent(ComponentKind::Table, {10, 20, 300, 200});
            model.PlaceComponent(ComponentKind::Label, {100, 100, 80, 30});
            model.PlaceComponent(ComponentKind::Sound, {400, 20, 0, 0});
        });

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

        main.window.CurrentDocument().Select(label);
        QVERIFY(child->state().selected);
        QCOMPARE(canvas->focusChild(), child);
        Do(main.window, "Del");
        QVERIFY(!child->isValid());
        QCOMPARE(canvas->childCount(), 2);
        QCOMPARE(canvas->child(1)->role(), QAccessible::Sound);
        QCOMPARE(canvas->child(2), nullptr);
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::PicContainerTest)
#include "picContainer_test.moc"
