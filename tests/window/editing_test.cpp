#include "designer/view/plProperties.h"
#include "window/Keys.h"
#include "window/MainWindow.h"

namespace pirol {

using test::MainWindow;

/// The main window with two buttons on its canvas, the first of them selected.
struct Editing : MainWindow {
    Editing() {
        Command("mnuObjectsGrid")->trigger(); // whole pixels
        Command("mnuObjectsObject1")->trigger();
        Drag(300, 200, 380, 260);
        Drag(100, 100, 200, 140);
        QCOMPARE(Selected(), button);
    }

    /// Goes to a row of the property list and types over its value, without ending that.
    void TypeInto(const QString& caption, const QString& text) {
        list->setFocus();
        const QModelIndexList rows =
            list->model()->match(list->model()->index(0, 0), Qt::DisplayRole, caption, 1, Qt::MatchRecursive);
        QCOMPARE(rows.size(), 1);
        list->setCurrentIndex(rows.front());
        Type(text);
    }
    /// What the list shows of a category's property.
    QString Shown(int category, int row) {
        return list->model()->index(row, 1, list->model()->index(category, 0)).data().toString();
    }

    const Control& Held() { return window.Model().Element(button); }

    const ComponentRef other{ComponentKind::Button, 1};
    const ComponentRef button{ComponentKind::Button, 2};
    plProperties* list = Find<plProperties>("plProperties");
};

class EditingTest : public QObject {
    Q_OBJECT

  private slots:
    void ListAndCanvasFollowEachOther() {
        Editing main;
        main.Drag(110, 110, 125, 118);
        QCOMPARE(main.Shown(1, 2) + "," + main.Shown(1, 3), "115,108");
        main.Key(Qt::Key_Right);
        QCOMPARE(main.Shown(1, 2), "116");
        main.TypeInto("Name", "hatStart");
        Press(Qt::Key_Down);
        QCOMPARE(main.Held().ObjectName, "hatStart");
        QVERIFY(main.Status(2).startsWith("hatStart"));
        main.TypeInto("Breite", "55");
        Press(Qt::Key_Return);
        QCOMPARE(main.SelectedBox().width, 55);
        main.Drag(600, 470, 600, 470);
        QCOMPARE(main.list->model()->index(0, 0).data().toString(), "Kein Objekt gewählt");
    }

    /// A click on another component ends the edit of the first one, and then selects the other.
    void ClicksOnTheCanvasEndTheEdit() {
        Editing main;
        main.TypeInto("Breite", "66");
        main.Drag(310, 210, 310, 210);
        QCOMPARE(main.Held().Width, 66);
        QCOMPARE(main.Selected(), main.other);
        QCOMPARE(main.SelectedBox(), (Rectangle{300, 200, 80, 60}));
    }

    /// A bad value is reported after the click that ended it; the click itself does what it should.
    void BadValuesDoNotDisturbTheClick() {
        Editing main;
        main.TypeInto("Breite", "breit");
        main.ExpectError();
        main.Press(600, 470);
        QTRY_VERIFY(main.errorText.endsWith("Main.File.Properties.PropertyChanged"));
        QVERIFY(main.errorText.startsWith("Fehlernummer: 13"));
        QCOMPARE(main.Held().Width, 100);

        // The report swallowed the release; the pointer moves on without drawing anything.
        QMouseEvent move(QEvent::MouseMove, QPointF(500, 300), main.canvas->mapToGlobal(QPointF(500, 300)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(main.canvas, &move);
        QVERIFY(!main.window.Canvas().IsDrawing());
        QCOMPARE(main.window.Canvas().Selected(), std::nullopt);
        QCOMPARE(main.window.Model().ElementCount(ComponentKind::Button), 3U);
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

    void RefusedNamesAreExplained() {
        Editing main;
        main.TypeInto("Name", "hatKnopf1");
        Press(Qt::Key_Return);
        std::string seen;
        QTRY_COMPARE(seen += main.dialogs.TakeSeen(), "information Dieser Name ist bereits vergeben.\n");
        QCOMPARE(main.Held().ObjectName, "hatKnopf2");
        QCOMPARE(main.Shown(0, 0), "hatKnopf2");
    }

    void FilesComeFromTheDialog() {
        Editing main;
        main.Command("mnuObjectsObject12")->trigger();
        main.Drag(400, 300, 480, 360);
        main.TypeInto("Bilddatei", "");
        main.dialogs.paths = {"C:\\haus.bmp"};
        Press(Qt::Key_F4);
        QVERIFY(main.dialogs.TakeSeen().starts_with("open <Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg>"));
        QCOMPARE(main.list->currentIndex().siblingAtColumn(1).data().toString(), "C:\\haus.bmp");
    }
};

} // namespace pirol

QTEST_MAIN(pirol::EditingTest)
#include "editing_test.moc"
