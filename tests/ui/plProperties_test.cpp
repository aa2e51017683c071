#include "app/ErrorReport.h"
#include "base/Text.h"
#include "model/ProjectModel.h"
#include "ui/Forms.h"
#include "ui/properties/frmListEditor.h"
#include "ui/properties/plProperties.h"
#include "ui/Rows.h"

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>

namespace pirol::test {

/// The property list beside a field that can take the focus, connected to a design as the main window does it. The
/// design has two components of a kind; the first one is shown.
class Bench : public QWidget {
  public:
    explicit Bench(ComponentKind kind) : list(this), other(this) {
        list.setGeometry(0, 0, 320, 500);
        other.setGeometry(330, 0, 100, 30);
        connect(&list, &plProperties::PropertyEdited, this, [this](const std::string& key, const std::string& value) {
            ++edits;
            ErrorOf([&] { PropertyChanged(document, key, value); });
            Reload();
        });
        component = Add(kind, {30, 40, 120, 25});
        Add(kind, {30, 80, 120, 25});
        document.Select(component);
        Show(*this);
        Reload();
        list.setFocus();
    }

    ComponentRef Add(ComponentKind kind, const Rectangle& box) {
        ComponentRef added{};
        document.Edit("", [&](ProjectModel& changed) { added = changed.PlaceComponent(kind, box); });
        return added;
    }
    void Reload() { list.ShowRows(LoadProperties(model, component)); }
    void Hold(std::string_view key, const std::string& value) {
        PropertyChanged(document, key, value);
        Reload();
    }

    /// The value cell of a property, by its caption.
    QModelIndex Cell(const QString& caption) const { return FindRow(list, caption).siblingAtColumn(1); }
    QString Shown(const QString& caption) const { return Cell(caption).data().toString(); }

    /// What a user does with a property: the steps of Forms.h and, with the mouse, "@value", its "@box" or "@button",
    /// the
    /// "@caption", "@double" there and "@away" on the other field.
    void Do(const QString& caption, const QString& steps) {
        if (!steps.startsWith('@'))
            list.setCurrentIndex(Cell(caption));
        for (const QString& step : steps.split(' ')) {
            const QRect box = list.visualRect(Cell(caption));
            if (step == "@value")
                ClickAt({box.left() + 35, box.center().y()});
            else if (step == "@box")
                ClickAt({box.left() + 9, box.center().y()});
            else if (step == "@button")
                ClickAt({box.right() - 5, box.center().y()});
            else if (step == "@caption")
                ClickAt({20, box.center().y()});
            else if (step == "@double")
                QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, {20, box.center().y()});
            else if (step == "@away")
                other.setFocus();
            else
                test::Do(list, step);
        }
    }
    void ClickAt(const QPoint& place) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place); }

    Document document;
    const ProjectModel& model = document.Model();
    ComponentRef component = {};
    plProperties list;
    QLineEdit other;
    int edits = 0;
};

class plPropertiesTest : public QObject {
    Q_OBJECT

  private slots:
    void ShowsWhatTheDesignHolds() {
        Bench bench(ComponentKind::Password);
        bench.Hold("value", "<b>fett</b>");
        QCOMPARE(bench.list.model()->rowCount(), 4);
        const QModelIndex flag = bench.Cell("Eingabe bestätigt");
        QCOMPARE(flag.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        // A text is never taken for markup.
        QCOMPARE(bench.Cell("Beschriftung").data(Qt::ToolTipRole).toString(), "<qt>&lt;b&gt;fett&lt;/b&gt;</qt>");

        // A reader hears which property a value belongs to, and an editor says it too.
        QCOMPARE(flag.data(Qt::AccessibleTextRole).toString(), "Eingabe bestätigt: falsch");
        bench.Do("Breite", "F2");
        QCOMPARE(bench.list.findChild<QLineEdit*>()->accessibleName(), "Breite");
    }

    void EditsActAtOnce_data() { AddRows("property-steps"); }

    void EditsActAtOnce() {
        const auto [kind, caption, steps, shown, edits] = CurrentRow<5>();
        Bench bench(KindByKey(kind.toStdString()).value());
        bench.Do(caption, steps);
        QCOMPARE(bench.Shown(caption), shown);
        QCOMPARE(bench.edits, edits.toInt());
        for (const char* last : {"Return", "Enter", "Esc", "Space", "@box"})
            QVERIFY2(!steps.endsWith(last) || bench.list.hasFocus(), "the list has lost the focus");
    }

    void ChoicesDropDown() {
        Bench bench(ComponentKind::Label);
        bench.Do("Ausrichtung", "@value");
        auto* combo = bench.list.findChild<QComboBox*>();
        QVERIFY(combo != nullptr && combo->view()->isVisible());
        QTest::keyClick(combo->view(), Qt::Key_End);
        QTest::keyClick(combo->view(), Qt::Key_Return);
        QCOMPARE(bench.Shown("Ausrichtung"), "Rechts");

        // One that the list does not know stays as it is.
        bench.Hold("align", "7");
        bench.Do("Ausrichtung", "F2 Return");
        QCOMPARE(bench.Shown("Ausrichtung"), "7");
        QCOMPARE(bench.edits, 1);
    }

    /// The chooser gets the kind's filter; an empty answer means that the user gave up.
    void FilesAreChosen() {
        for (const QString way : {"@button", "Alt+Down", "F4", "getippt @button", "getippt F4"}) {
            Bench bench(ComponentKind::Sound);
            QString asked;
            std::string answer = "neu.wav";
            bench.list.SetFileChooser([&](const std::string& filter, const std::string& path) {
                asked = QString::fromStdString(Concatenate(filter, " ", path));
                return answer;
            });
            const QString typed = way.contains("getippt") ? "getippt" : "";
            bench.Do("Sounddatei", way);
            QCOMPARE(asked, "Sounddateien (*.wav)|*.wav " + typed);
            QCOMPARE(bench.Shown("Sounddatei"), "neu.wav");
            answer.clear();
            bench.Do("Sounddatei", way);
            QCOMPARE(bench.Shown("Sounddatei"), typed.isEmpty() ? "neu.wav" : typed);
        }
    }

    void ListsOpenTheirEditor() {
        for (const char* way : {"@button", "Return", "F2", "F4", "@caption @double"}) {
            Bench bench(ComponentKind::ComboBox);
            WhenShown<frmListEditor>([](frmListEditor& dialog) {
                QCOMPARE(dialog.windowTitle(), "Pirol - Einträge bearbeiten");
                Do(dialog, "@cmdAdd eins Return @cmdAdd zwei @cmdAccept");
            });
            bench.Do("Einträge", way);
            QCOMPARE(bench.Shown("Einträge"), "eins, zwei");
            QCOMPARE(bench.edits, 1);
            QCOMPARE(bench.focusWidget(), &bench.list);
        }
    }

    void CategoriesFold() {
        Bench bench(ComponentKind::Button);
        const auto isOpen = [&](const char* category) { return bench.list.isExpanded(FindRow(bench.list, category)); };
        QVERIFY(isOpen("Position"));
        bench.ClickAt(bench.list.visualRect(FindRow(bench.list, "Position")).center());
        QVERIFY(!isOpen("Position"));
        Press(Qt::Key_Return);
        QVERIFY(isOpen("Position"));
        Press(Qt::Key_Left);
        QVERIFY(!isOpen("Position"));

        // Folded is folded, whichever component is shown.
        bench.component = bench.Add(ComponentKind::Table, {0, 0, 50, 50});
        bench.Reload();
        QVERIFY(!isOpen("Position"));
        QVERIFY(isOpen("Ereignisse"));
    }

    /// While a component is dragged the list changes two cells and nothing else.
    void ReloadingRepaintsOnlyWhatChanged() {
        Bench bench(ComponentKind::Label);
        QSignalSpy resets(bench.list.model(), &QAbstractItemModel::modelReset);
        QSignalSpy changes(bench.list.model(), &QAbstractItemModel::dataChanged);
        bench.document.Edit("", [&](ProjectModel& model) {
            ++model.EditElement(bench.component).Left;
            ++model.EditElement(bench.component).Top;
        });
        bench.Reload();
        QCOMPARE(resets.count(), 0);
        QCOMPARE(changes.count(), 2);
        QCOMPARE(bench.Shown("Links"), "31");
    }

    void ReloadingLeavesTheTypistAlone() {
        Bench bench(ComponentKind::Label);
        bench.Do("Breite", "7");
        bench.Hold("width", "300");
        Do(bench, "5 Return");
        QCOMPARE(bench.Shown("Breite"), "75");
    }

    /// Row, scroll position and focus outlast the change to another kind of component, which ends an edit.
    void PlaceOutlastsAnotherComponent() {
        Bench bench(ComponentKind::TextField);
        bench.list.setFixedHeight(150);
        bench.Do("Breite", "7");
        QCoreApplication::processEvents();
        bench.list.verticalScrollBar()->setValue(60);
        QCOMPARE(bench.list.verticalScrollBar()->value(), 60);
        const ComponentRef table = bench.Add(ComponentKind::Table, {0, 0, 50, 50});
        const std::optional<ComponentRef> order[] = {table, std::nullopt, bench.component};
        for (const std::optional<ComponentRef>& component : order) {
            bench.list.ShowRows(LoadProperties(bench.model, component));
            QVERIFY(bench.list.hasFocus());
            if (!component)
                continue;
            QCOMPARE(bench.list.verticalScrollBar()->value(), 60);
            QCOMPARE(bench.list.currentIndex().siblingAtColumn(0).data().toString(), "Breite");
        }
        QCOMPARE(bench.edits, 0);
    }

    /// A caption as long as it may be is shown, walked over and edited; none of its characters is lost.
    void HugeCaptions() {
        Bench bench(ComponentKind::Label);
        const std::string huge(mostTextCharacters - 1, 'w');
        bench.Hold("value", huge);
        const QModelIndex cell = bench.Cell("Beschriftung");
        QVERIFY(cell.data().toString().size() < 300);
        QVERIFY(cell.data(Qt::AccessibleTextRole).toString().size() < 300);
        bench.Do("Beschriftung", "F2 End ! Return");
        QCOMPARE(cell.data(Qt::EditRole).toString(), QString::fromStdString(huge + "!"));
    }

    void NothingIsCutOff() {
        for (const KindRow& kind : KindRows()) {
            Bench bench(kind.kind);
            const QFontMetrics font = bench.list.fontMetrics();
            for (const PropertyPanelRow& row : LoadProperties(bench.model, bench.component)) {
                const QString caption = QString::fromUtf8(row.caption.data(), qsizetype(row.caption.size()));
                const QRect cell = bench.list.visualRect(FindRow(bench.list, caption));
                QVERIFY2(cell.width() >= font.horizontalAdvance(caption) + cell.height() / 2, qPrintable(caption));
                QVERIFY2(cell.height() >= font.height(), qPrintable(caption));
            }
        }
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::plPropertiesTest)
#include "plProperties_test.moc"
