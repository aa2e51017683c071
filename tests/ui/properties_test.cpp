#include "app/ErrorReport.h"
#include "base/Text.h"
#include "designer/ListText.h"
#include "model/ProjectModel.h"
#include "ui/Forms.h"
#include "ui/properties/frmListEditor.h"
#include "ui/properties/plProperties.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableView>

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
            ErrorOf([&] { Hold(key, value); });
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
    /// the "@caption", "@double" there and "@away" on the other field.
    void Do(const QString& caption, const QString& steps) {
        if (!steps.startsWith('@'))
            list.setCurrentIndex(Cell(caption));
        for (const QString& step : steps.split(' ')) {
            const QRect box = list.visualRect(Cell(caption));
            const QMap<QString, int> places = {
                {"@value", box.left() + 35}, {"@box", box.left() + 9}, {"@button", box.right() - 5}, {"@caption", 20}};
            if (places.contains(step))
                ClickAt({places[step], box.center().y()});
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

constexpr const char* radioRow = "a/A/1/2/3/4/Wahr";

/// The list editor on the screen with its table, one of whose cells is current.
struct Rows {
    Rows(const PropertyKey& key, const QString& items, int row = 0, int column = 0)
        : form({key.key, key.label, false, pirol::ListText(items.toStdString()), key.editor, key.detail}, nullptr) {
        Show(form);
        table.setCurrentIndex(table.model()->index(row, column));
    }

    QString Items() const {
        return QString::fromStdString(ReplaceAll(form.ListText(), std::string_view(&fieldSeparator, 1), "/"));
    }

    frmListEditor form;
    QTableView& table = *Part<QTableView>(form, "lstRows");
};

class PropertiesTest : public QObject {
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
                return std::exchange(answer, "");
            });
            const QString typed = way.contains("getippt") ? "getippt" : "";
            bench.Do("Sounddatei", way);
            QCOMPARE(asked, "Sounddateien (*.wav)|*.wav " + typed);
            QCOMPARE(bench.Shown("Sounddatei"), "neu.wav");
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

    /// Folded is folded, whichever component is shown.
    void CategoriesFold() {
        Bench bench(ComponentKind::Button);
        const auto isOpen = [&](const char* category) { return bench.list.isExpanded(FindRow(bench.list, category)); };
        QVERIFY(isOpen("Position"));
        bench.ClickAt(bench.list.visualRect(FindRow(bench.list, "Position")).center());
        QVERIFY(!isOpen("Position"));
        Press(Qt::Key_Return);
        QVERIFY(isOpen("Position"));
        Press(Qt::Key_Left);
        bench.component = bench.Add(ComponentKind::Table, {0, 0, 50, 50});
        bench.Reload();
        QVERIFY(!isOpen("Position") && isOpen("Ereignisse"));
    }

    /// While a component is dragged the list changes two cells and nothing else, and leaves a typist alone.
    void ReloadingChangesNoMoreThanNeeded() {
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

    /// A caption as long as it may be, and a long list, are shown, walked over and edited; none of it is lost.
    void HugeTexts() {
        Bench bench(ComponentKind::Label);
        const std::string huge(mostTextCharacters - 1, 'w');
        bench.Hold("value", huge);
        const QModelIndex cell = bench.Cell("Beschriftung");
        for (const int role : {Qt::DisplayRole, Qt::AccessibleTextRole})
            QVERIFY(cell.data(role).toString().size() < 300);
        bench.Do("Beschriftung", "F2 End ! Return");
        QCOMPARE(cell.data(Qt::EditRole).toString(), QString::fromStdString(huge + "!"));

        const QString items = QString::fromStdString(huge) + QString("/x").repeated(20'000);
        Rows rows(keys::columns, items);
        QCOMPARE(rows.table.model()->rowCount(), 20'001);
        QVERIFY(rows.table.model()->index(0, 0).data().toString().size() < 300);
        rows.form.grab();
        Do(rows.form, "F2 Return");
        QCOMPARE(rows.Items(), items);
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

    // --- The list editor --------------------------------------------------------------------------------------------

    void HasAColumnPerField() {
        Rows rows(keys::optionbuttons, radioRow);
        QStringList titles;
        for (int column = 0; column < rows.table.model()->columnCount(); ++column) {
            titles.append(rows.table.model()->headerData(column, Qt::Horizontal).toString());
            QVERIFY(rows.table.columnWidth(column) >= rows.table.horizontalHeader()->sectionSizeHint(column));
        }
        QCOMPARE(titles.join(" "), "Name Beschriftung Breite Höhe Links Oben Aktiviert");
        QCOMPARE(rows.form.windowTitle(), "Pirol - Radioknöpfe bearbeiten");
        QCOMPARE(rows.table.accessibleName(), "Radioknöpfe");
        QCOMPARE(rows.table.model()->index(0, 6).data().toString(), "wahr");
    }

    void RowsAreEdited_data() { AddRows("list-editor-steps"); }

    void RowsAreEdited() {
        const auto [before, row, steps, after] = CurrentRow<4>();
        Rows rows(keys::combovalues, before, row.toInt());
        Do(rows.form, steps);
        QCOMPARE(rows.Items(), after);
        QVERIFY(rows.form.isVisible());
        for (const char* button : {"cmdRemove", "cmdUp", "cmdDown"})
            QCOMPARE(Part<QWidget>(rows.form, button)->isEnabled(), !after.isEmpty());
    }

    void FieldsHaveTheirTypes() {
        Rows rows(keys::optionbuttons, "");
        Do(rows.form, "@cmdAdd");
        QCOMPARE(rows.Items(), "hatRadioKnopf//150/20/0/0/Falsch");
        Do(rows.form, "hatRot Tab Rot Tab 100 Return");
        const QRect flag = rows.table.visualRect(rows.table.model()->index(0, 6));
        QTest::mouseClick(rows.table.viewport(), Qt::LeftButton, {}, {flag.left() + 9, flag.center().y()});
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            QCOMPARE(rows.Items(), "hatRot/Rot/100/20/0/0/Wahr");
            Press(key);
            QCOMPARE(rows.Items(), "hatRot/Rot/100/20/0/0/Falsch");
            Press(key);
        }
    }

    void NumbersTakeOnlyDigits_data() { AddRows("list-editor-numbers"); }

    void NumbersTakeOnlyDigits() {
        const auto [steps, number] = CurrentRow<2>();
        Rows rows(keys::optionbuttons, radioRow, 0, 2);
        Do(rows.form, steps);
        QCOMPARE(rows.table.model()->index(0, 2).data().toString(), number);
    }

    void ClosesAsTheUserSays_data() { AddRows("list-editor-endings"); }

    void ClosesAsTheUserSays() {
        const auto [steps, takesOver] = CurrentRow<2>();
        Rows rows(keys::columns, "a/b", 1);
        Do(rows.form, steps);
        QVERIFY(!rows.form.isVisible());
        QCOMPARE(rows.form.result() == QDialog::Accepted, takesOver == "yes");
        if (takesOver == "yes")
            QCOMPARE(rows.Items(), "a/neu");
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::PropertiesTest)
#include "properties_test.moc"
