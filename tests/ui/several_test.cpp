#include "designer/Clipboard.h"
#include "ui/MainWindow.h"
#include "ui/properties/plProperties.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QMimeData>

namespace pirol::test {

/// The main window with a user who counts steps: clicks, drags, and keys that are no typed text.
struct Several : MainWindow {
    void DragWith(Qt::KeyboardModifiers modifiers, const QPoint& from, const QPoint& to) {
        ++steps;
        QTest::mousePress(canvas, Qt::LeftButton, modifiers, from);
        MoveTo((from.x() + to.x()) / 2, (from.y() + to.y()) / 2);
        MoveTo(to.x(), to.y());
        QTest::mouseRelease(canvas, Qt::LeftButton, modifiers, to);
    }
    void ClickWith(Qt::KeyboardModifiers modifiers, const QPoint& at) {
        ++steps;
        QTest::mouseClick(canvas, Qt::LeftButton, modifiers, at);
    }
    void Keys(const QString& keys) {
        steps += static_cast<int>(keys.split(' ').size());
        Do(window, keys);
    }
    void Type(const QString& text) { Do(window, text); }
    void Tool(const char* key) {
        ++steps;
        QTest::mouseClick(Find<QToolButton>(QString("tbComponents_") + key), Qt::LeftButton);
    }
    void ClickRow(const QString& caption, int column) {
        ++steps;
        const QModelIndex row = FindRow(*list, caption).siblingAtColumn(column);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(row).center());
    }
    /// Says what the task took. False when that is too much.
    bool Took(const char* task, int most) const {
        qInfo("%s: %d steps, at most %d", task, steps, most);
        return steps <= most;
    }
    QString Shown(const QString& caption) { return FindRow(*list, caption).siblingAtColumn(1).data().toString(); }

    void Place(int count, ComponentKind kind, const QPoint& first, const QPoint& step) {
        Edit([&](ProjectModel& model) {
            for (int i = 0; i < count; ++i)
                model.PlaceComponent(kind, {first.x() + i * step.x(), first.y() + i * step.y(), 60 + i, 30});
        });
    }
    /// The boxes of all components that can be seen.
    std::vector<Rectangle> Boxes() {
        std::vector<Rectangle> boxes;
        for (const ComponentRef component : AllComponents(window.Model()))
            boxes.push_back(window.Model().VisibleBox(component));
        return boxes;
    }
    std::size_t Count() { return window.Canvas().AllSelected().Count(); }

    int steps = 0;
    plProperties* list = Find<plProperties>("plProperties");
};

using ComponentKind::Button;
using ComponentKind::Label;
using ComponentKind::Sound;

/// Several components with mouse, keyboard and clipboard.
class SeveralTest : public QObject {
    Q_OBJECT

  private slots:
    void CalculatorTakes38StepsAtMost() {
        Several main;
        // What is typed right after placing is the caption; the next press takes it over.
        const auto place = [&](const QStringList& captions, int top) {
            for (int i = 0; i < captions.size(); ++i) {
                main.DragWith({}, {20 + i * 120, top}, {100 + i * 120, top + 40});
                main.Type(captions[i]);
            }
        };
        place({"Zahl", "Noch"}, 20);
        main.Tool("textfield");
        place({"0", "1"}, 80);
        main.Tool("button");
        place({"durch", "plus", "minus", "mal"}, 140);
        main.Keys("Return");
        // From then on it goes to the current row, which is the name at first; Tab walks through the components.
        for (const char* name : {"kMal", "kMinus", "kPlus", "kDurch", "tZwei", "tEins", "eZwei"}) {
            main.Type(name);
            main.Keys("Shift+Backtab");
        }
        main.Type("eEins");
        main.Keys("Return");
        main.DragWith(Qt::ShiftModifier, {5, 130}, {560, 190});
        main.ClickRow("Geklickt", 1);
        QVERIFY(main.Took("a calculator", 38));
        QStringList seen;
        for (const ComponentRef component : main.window.Model().CreationOrder()) {
            const Control& control = main.window.Model().Element(component);
            QStringList parts = {QString::fromStdString(control.ObjectName)};
            for (const char* key : {"value", "click"})
                if (const PropertyRow* row = FindRow(control, key))
                    parts << QString::fromStdString(row->get(control));
            seen << parts.join(' ');
        }
        QCOMPARE(seen.join(", "), "eEins Zahl, eZwei Noch, tEins 0, tZwei 1, kDurch durch Wahr, kPlus plus Wahr, "
                                  "kMinus minus Wahr, kMal mal Wahr");
    }

    void FiveAreMovedIn3Steps() {
        Several main;
        main.Place(5, Button, {20, 20}, {100, 0});
        const std::vector<Rectangle> before = main.Boxes();
        main.DragWith(Qt::ShiftModifier, {5, 5}, {600, 100});
        main.DragWith({}, {130, 30}, {130, 60});
        QVERIFY(main.Took("five moved by 30 pixels", 3));
        for (std::size_t i = 0; i < before.size(); ++i)
            QCOMPARE(main.Boxes()[i], (Rectangle{before[i].left, 50, before[i].width, before[i].height}));
    }

    void FiveGetOneSizeIn2Steps() {
        Several main;
        main.Place(5, Button, {20, 20}, {100, 0});
        main.Keys("Ctrl+A Ctrl+Shift+G");
        QVERIFY(main.Took("five of one size", 2));
        for (const Rectangle& box : main.Boxes())
            QCOMPARE(box.width, 64);
    }

    void ARowIsDuplicatedIn2Steps() {
        Several main;
        main.Place(3, Label, {20, 20}, {100, 0});
        main.DragWith(Qt::ShiftModifier, {5, 5}, {600, 100});
        main.DragWith(Qt::ControlModifier, {30, 30}, {30, 90});
        QVERIFY(main.Took("a row duplicated", 2));
        QCOMPARE(main.Boxes().size(), std::size_t{6});
        QCOMPARE(main.Boxes()[4], (Rectangle{120, 80, 61, 30}));
        QCOMPARE(main.window.Model().Element({Label, 6}).ObjectName, "hatEtikett6");
    }

    void TenLabelsGetAFontSizeIn4Steps() {
        Several main;
        main.Place(10, Label, {20, 20}, {50, 40});
        main.Keys("Ctrl+A");
        main.ClickRow("Schriftgröße", 1);
        main.Type("14");
        main.Keys("Return");
        QVERIFY(main.Took("a font size for ten", 4));
        QCOMPARE(main.Shown("Schriftgröße"), "14");
        QCOMPARE(main.Command("mnuEditUndo")->text(), "&Rückgängig: Schriftgröße ändern");
    }

    void TheWrongOneIsBackIn2StepsAndTenIn20() {
        Several main;
        main.Place(3, Button, {20, 20}, {100, 0});
        const ProjectModel before = main.window.Model();
        main.Keys("Ctrl+A");
        main.steps = 0;
        main.Keys("Del Ctrl+Z");
        QVERIFY(main.Took("the wrong one deleted and back", 2));
        QVERIFY(main.window.Model() == before);
        QCOMPARE(main.Count(), std::size_t{3});
        for (int i = 0; i < 10; ++i)
            main.Keys("Alt+Right");
        const ProjectModel moved = main.window.Model();
        main.steps = 0;
        for (int i = 0; i < 10; ++i)
            main.Keys("Ctrl+Z");
        QVERIFY(main.window.Model() == before);
        for (int i = 0; i < 10; ++i)
            main.Keys("Ctrl+Y");
        QVERIFY(main.window.Model() == moved);
        QVERIFY(main.Took("ten undone, ten redone", 20));
    }

    void FourAreAlignedAndSpreadIn3Steps() {
        Several main;
        main.Place(4, Button, {20, 20}, {37, 51});
        main.Keys("Ctrl+A Ctrl+Left Ctrl+Shift+Down");
        QVERIFY(main.Took("four aligned and spread", 3));
        for (std::size_t i = 0; i < 4; ++i)
            QCOMPARE(main.Boxes()[i].left, 131);
    }

    void OneOf200IsFoundAndTheViewEnlargedIn1StepEach() {
        Several main;
        main.Place(200, Label, {20, 20}, {7, 9});
        main.Keys("Ctrl+F");
        main.Type("hatEtikett137");
        QVERIFY(main.Took("one of 200 found by its name", 1));
        QCOMPARE(main.Selected(), (ComponentRef{Label, 137}));
        main.steps = 0;
        main.Keys("Ctrl+2");
        QVERIFY(main.Took("a zoom of 200 percent", 1));
        QCOMPARE(main.canvas->View().Zoom(), 200);
    }

    void MouseAndKeyboardSelectSeveral() {
        Several main;
        main.Place(3, Button, {20, 20}, {100, 0});
        main.ClickWith({}, {30, 30});
        main.ClickWith(Qt::ControlModifier, {130, 30});
        QCOMPARE(main.Count(), std::size_t{2});
        QVERIFY(main.Status(2).startsWith("2 gewählt, zuletzt hatKnopf2"));
        QVERIFY(!main.Command("mnuArrangeGapsAcross")->isEnabled() && main.Command("mnuArrangeLeft")->isEnabled());
        main.Keys("Tab Ctrl+Space");
        QCOMPARE(main.Count(), std::size_t{3});
        main.Keys("Esc");
        QVERIFY(!main.Command("mnuEditCopy")->isEnabled() && !main.Command("mnuArrangeGrid")->isEnabled());
        QCOMPARE(main.window.Canvas().CurrentKind(), 1);
        main.Keys("Esc");
        QCOMPARE(main.window.Canvas().CurrentKind(), 0);
        QVERIFY(main.Find<QToolButton>("tbComponents_pointer")->isChecked());
        main.DragWith({}, {600, 200}, {110, 10});
        QCOMPARE(main.Count(), std::size_t{2});
        QCOMPARE(main.Boxes().size(), std::size_t{3});
    }

    void PropertiesOfSeveralChangeTogether() {
        Several main;
        main.Place(2, Button, {20, 20}, {100, 0});
        main.Place(1, Label, {20, 120}, {100, 0});
        main.Keys("Ctrl+A");
        QVERIFY(!FindRow(*main.list, "Name").isValid() && !FindRow(*main.list, "Schriftgröße").isValid());
        QCOMPARE(main.Shown("Links") + main.Shown("Höhe"), "(verschieden)30");
        const auto change = [&main](const QString& caption, const QString& keys) {
            main.list->setFocus();
            main.list->setCurrentIndex(FindRow(*main.list, caption));
            Do(main.window, keys + " Return");
        };
        change("Links", "+=30");
        QCOMPARE(main.Boxes()[0].left + main.Boxes()[2].left, 50 + 150);
        change("Breite", "-=10");
        QCOMPARE(main.Boxes()[1].width, 50);
        change("Oben", "77");
        for (const Rectangle& box : main.Boxes())
            QCOMPARE(box.top, 77);
        const ProjectModel before = main.window.Model();
        main.ExpectError();
        change("Links", "+=32700");
        QTRY_VERIFY(main.errorText.contains("Fehlernummer: 6"));
        QVERIFY2(main.window.Model() == before, "none takes it when one cannot");
        Show(main.window); // the report has had the keyboard
        // A sound is never sized, so several with one have no sizes.
        main.Place(1, Sound, {20, 200}, {});
        main.canvas->setFocus();
        main.Keys("Ctrl+A");
        QVERIFY(!FindRow(*main.list, "Breite").isValid() && FindRow(*main.list, "Links").isValid());
    }

    void TheClipboardHoldsComponentsPictureAndJava() {
        Several main;
        Several other;
        main.Place(2, Button, {20, 20}, {100, 0});
        Show(main.window);
        main.Keys("Ctrl+A Ctrl+C");
        const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
        QCOMPARE(data->imageData().value<QImage>().size(), QSize(161, 30));
        QVERIFY(data->text().contains("hatKnopf1 = new Knopf(20, 20, 60, 30, \"Knopf\");"));
        Show(other.window);
        other.Keys("Ctrl+V Ctrl+V Ctrl+D");
        QCOMPARE(other.Boxes().size(), std::size_t{6});
        QCOMPARE(other.Count(), std::size_t{2});
        Show(main.window);
        main.Keys("Ctrl+X Ctrl+V");
        QCOMPARE(main.window.Model().Element({Button, 1}).ObjectName, "hatKnopf1");
        QCOMPARE(main.Boxes()[0], (Rectangle{20, 20, 60, 30}));
    }

    void ForeignAndBrokenClipboardsChangeNothing() {
        Several main;
        const auto paste = [&main](const QString& type, const QByteArray& bytes) {
            auto* data = new QMimeData;
            data->setData(type, bytes);
            QGuiApplication::clipboard()->setMimeData(data);
            main.Keys("Ctrl+V");
            return QString::fromStdString(main.dialogs.TakeSeen());
        };
        const QString own = "application/vnd.pirol.components";
        QCOMPARE(paste("text/plain", "Knopf"), "");
        QVERIFY(paste(own, "1:x").contains("beschädigt"));
        QElapsedTimer clock;
        clock.start();
        QVERIFY(paste(own, QByteArray(100 << 20, '1')).contains("mehr, als sich einfügen lässt"));
        QVERIFY(clock.elapsed() < 5000);
        QVERIFY(main.window.Model() == ProjectModel());
        QGuiApplication::clipboard()->clear();
    }

    void AGroupBeyond16BitsIsReportedAndStays() {
        Several main;
        main.Edit([](ProjectModel& model) {
            model.PlaceComponent(Button, {32700, 0, 60, 30});
            model.PlaceComponent(Button, {20, 20, 60, 30});
        });
        main.Keys("Ctrl+A");
        const ProjectModel before = main.window.Model();
        main.Press(30, 30);
        main.ExpectError();
        main.MoveTo(200, 30);
        QVERIFY(main.errorText.contains("Fehlernummer: 6"));
        QVERIFY(main.window.Model() == before && !main.window.Canvas().IsInGesture());
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::SeveralTest)
#include "several_test.moc"
