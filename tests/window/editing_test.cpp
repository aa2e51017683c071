#include "app/frmError.h"
#include "codegen/frmCode.h"
#include "designer/view/plProperties.h"
#include "window/Forms.h"
#include "window/MainWindow.h"

namespace pirol {

using test::MainWindow;
using test::WhenShown;

/// The main window with a button on its canvas.
struct Editing : MainWindow {
    Editing() {
        Command("mnuObjectsGrid")->trigger(); // whole pixels
        Command("mnuObjectsObject1")->trigger();
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
        for (const QChar character : text)
            QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
    }

    const Control& Held() { return window.Model().Element(button); }

    const ComponentRef button{ComponentKind::Button, 1};
    plProperties* list = Find<plProperties>("plProperties");
};

class EditingTest : public QObject {
    Q_OBJECT

  private slots:
    void TheListFollowsTheCanvas() {
        Editing main;
        const auto shown = [&main](int row) {
            return main.list->model()->index(row, 1, main.list->model()->index(1, 0)).data().toString();
        };
        QCOMPARE(shown(2), "100");
        main.Drag(110, 110, 125, 118);
        QCOMPARE(shown(2) + "," + shown(3), "115,108");
        main.Key(Qt::Key_Right);
        QCOMPARE(shown(2), "116");
        main.Drag(600, 470, 600, 470);
        QCOMPARE(main.list->model()->index(0, 0).data().toString(), "Kein Objekt gewählt");
    }

    void EnterLeadsToTheListAndEscapeBack() {
        Editing main;
        main.canvas->setFocus();
        main.Key(Qt::Key_Return);
        QVERIFY(main.list->hasFocus());
        main.Key(Qt::Key_Escape);
        QVERIFY(main.canvas->hasFocus());
        QCOMPARE(main.Selected(), main.button);
    }

    void EditsReachCanvasAndStatusBar() {
        Editing main;
        main.TypeInto("Name", "hatStart");
        main.Key(Qt::Key_Down);
        QTest::qWait(0);
        QCOMPARE(main.Held().ObjectName, "hatStart");
        QVERIFY(main.Status(2).startsWith("hatStart"));
        main.TypeInto("Breite", "55");
        main.Key(Qt::Key_Return);
        QTRY_COMPARE(main.SelectedBox().width, 55);
        QVERIFY(main.window.isWindowModified());
    }

    /// What is being typed counts for a command that does not move the focus.
    void CommandsTakeOverWhatIsTyped() {
        Editing main;
        main.TypeInto("Beschriftung", "Los");
        QString source;
        WhenShown<frmCode>([&source](frmCode& viewer) {
            source = viewer.findChild<CodeBox*>()->Source();
            viewer.reject();
        });
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
        QVERIFY(source.contains("new Knopf(100, 100, 100, 40, \"Los\")"));
    }

    /// A click on another component ends the edit of the first one, and then selects the other.
    void ClicksOnTheCanvasEndTheEdit() {
        Editing main;
        main.canvas->setFocus();
        main.Drag(300, 200, 380, 260);
        main.Drag(110, 110, 110, 110);
        QCOMPARE(main.Selected(), main.button);
        main.TypeInto("Breite", "66");
        main.Drag(310, 210, 310, 210);
        QCOMPARE(main.Held().Width, 66);
        QCOMPARE(main.Selected(), (ComponentRef{ComponentKind::Button, 2}));
        QCOMPARE(main.SelectedBox(), (Rectangle{300, 200, 80, 60}));
    }

    /// A bad value is reported after the click that ended it; the click itself does what it should.
    void BadValuesDoNotDisturbTheClick() {
        Editing main;
        main.TypeInto("Breite", "breit");
        QString report;
        WhenShown<frmError>([&report](frmError& form) {
            report = form.findChild<QPlainTextEdit*>("txtError")->toPlainText();
            form.reject();
        });
        main.Press(600, 470);
        QTRY_VERIFY(report.endsWith("Main.File.Properties.PropertyChanged"));
        QVERIFY(report.startsWith("Fehlernummer: 13"));
        QCOMPARE(main.Held().Width, 100);

        // The report swallowed the release; the pointer moves on without drawing anything.
        QMouseEvent move(QEvent::MouseMove, QPointF(500, 300), main.canvas->mapToGlobal(QPointF(500, 300)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(main.canvas, &move);
        QVERIFY(!main.window.Canvas().IsDrawing());
        QCOMPARE(main.window.Canvas().Selected(), std::nullopt);
        QCOMPARE(main.window.Model().ElementCount(ComponentKind::Button), 2U);
    }

    /// Whichever button's release another window got, the next click is one of its own.
    void ALostReleaseDoesNotLeadTheNextClick() {
        Editing main;
        main.Drag(300, 200, 380, 260);
        QTest::mousePress(main.canvas, Qt::RightButton, {}, {120, 120});
        QTest::mouseRelease(main.list, Qt::RightButton);
        main.Drag(310, 210, 330, 220);
        QCOMPARE(main.SelectedBox(), (Rectangle{320, 210, 80, 60}));
        QCOMPARE(main.Held().Left, 100);
    }

    void RefusedNamesAreExplained() {
        Editing main;
        main.canvas->setFocus();
        main.Drag(300, 200, 380, 260);
        main.TypeInto("Name", "hatKnopf1");
        main.Key(Qt::Key_Return);
        std::string seen;
        QTRY_COMPARE(seen += main.dialogs.TakeSeen(), "information Dieser Name ist bereits vergeben.\n");
        QCOMPARE(main.window.Model().Element({ComponentKind::Button, 2}).ObjectName, "hatKnopf2");
        const QModelIndex shown = main.list->model()->index(0, 1, main.list->model()->index(0, 0));
        QCOMPARE(shown.data().toString(), "hatKnopf2");
    }

    void FilesComeFromTheDialog() {
        Editing main;
        main.Command("mnuObjectsObject12")->trigger();
        main.Drag(300, 200, 380, 260);
        main.TypeInto("Bilddatei", "");
        main.dialogs.paths = {"C:\\haus.bmp"};
        main.Key(Qt::Key_F4);
        QVERIFY(main.dialogs.TakeSeen().starts_with("open <Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg>"));
        QCOMPARE(main.list->currentIndex().siblingAtColumn(1).data().toString(), "C:\\haus.bmp");
    }
};

} // namespace pirol

QTEST_MAIN(pirol::EditingTest)
#include "editing_test.moc"
