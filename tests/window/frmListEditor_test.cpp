#include "designer/controls/PropertyTable.h"
#include "designer/ListText.h"
#include "designer/view/frmListEditor.h"
#include "window/Keys.h"
#include "window/Rows.h"

#include <QHeaderView>
#include <QTableView>

namespace pirol {
namespace {

constexpr const char* radioRow = "a/A/1/2/3/4/Wahr";

/// The form on the screen with its table.
class Bench {
  public:
    Bench(const PropertyKey& key, std::string_view items)
        : form({key.key, key.label, false, pirol::ListText(items), key.editor, key.detail}, nullptr),
          table(*form.findChild<QTableView*>("lstRows")) {
        test::Show(form);
    }

    void Select(int row, int column = 0) { table.setCurrentIndex(table.model()->index(row, column)); }

    QString Items() const {
        return QString::fromStdString(ReplaceAll(form.ListText(), std::string_view(&fieldSeparator, 1), "/"));
    }

    frmListEditor form;
    QTableView& table;
};

/// The rows before and after some work with mouse or keyboard, which begins in one of them.
constexpr struct {
    const char* name;
    const char* before;
    int row;
    const char* steps;
    const char* after;
} edits[] = {
    {"add by button", "a/b", 0, "@cmdAdd neu Return", "a/b/neu"},
    {"add by key", "a/b", 0, "Ins neu Return Ins Return", "a/b/neu/"},
    {"add to nothing", "", 0, "@cmdAdd x Return", "x"},
    {"add while typing", "a", 0, "F2 x @cmdAdd y Return", "x/y"},
    {"remove by button", "a/b/c", 1, "@cmdRemove", "a/c"},
    {"remove by key", "a/b/c", 2, "Del Del", "a"},
    {"remove all", "a", 0, "Del Del Del", ""},
    {"remove by the focused button", "a/b", 0, "Tab Tab Return Return Return", ""},
    {"up by button", "a/b/c", 2, "@cmdUp @cmdUp @cmdUp", "c/a/b"},
    {"up by keys", "a/b/c", 2, "Alt+Up", "a/c/b"},
    {"down by button", "a/b/c", 0, "@cmdDown", "b/a/c"},
    {"down by keys", "a/b/c", 0, "Alt+Down Alt+Down Alt+Down", "b/c/a"},
    {"move while typing", "a/b", 1, "F2 x @cmdUp", "x/a"},
    {"type over", "a/b", 1, "neu Return", "a/neu"},
    {"Enter edits", "a/b", 1, "Return neu Return", "a/neu"},
    {"Escape gives up", "a/b", 1, "F2 neu Esc", "a/b"},
    {"arrows walk", "a/b", 0, "Down z Return", "a/z"},
};

/// The second cell is being typed into, or has been, when the form is closed.
constexpr struct {
    const char* name;
    const char* steps;
    int result;
} endings[] = {
    {"OK takes over", "neu @cmdAccept", QDialog::Accepted},
    {"Abbrechen", "neu @cmdCancel", QDialog::Rejected},
    {"Escape", "neu Esc Esc", QDialog::Rejected},
    {"Enter on the focused button", "Tab Tab Tab Tab Tab Tab Return", QDialog::Rejected},
};

constexpr struct {
    const char* name;
    const char* steps;
    const char* report;
} badNumbers[] = {
    {"no number", "breit Return", "Fehlernummer: 13\n"},
    {"too big", "40000 Return", "Fehlernummer: 6\n"},
    {"click on OK", "breit @cmdAccept", "Fehlernummer: 13\n"},
};

} // namespace

class frmListEditorTest : public QObject {
    Q_OBJECT

  private slots:
    void HasAColumnPerField() {
        Bench bench(keys::optionbuttons, radioRow);
        QStringList titles;
        for (int column = 0; column < bench.table.model()->columnCount(); ++column) {
            titles.append(bench.table.model()->headerData(column, Qt::Horizontal).toString());
            QVERIFY(bench.table.columnWidth(column) >= bench.table.horizontalHeader()->sectionSizeHint(column));
        }
        QCOMPARE(titles.join(" "), "Name Beschriftung Breite Höhe Links Oben Aktiviert");
        QCOMPARE(bench.form.windowTitle(), "Pirol - Radioknöpfe bearbeiten");
        QCOMPARE(bench.table.accessibleName(), "Radioknöpfe");
        QCOMPARE(bench.table.model()->index(0, 6).data().toString(), "wahr");
    }

    void RowsAreEdited_data() { test::AddRows(edits); }

    void RowsAreEdited() {
        const auto& row = test::CurrentRow(edits);
        Bench bench(keys::combovalues, row.before);
        bench.Select(row.row);
        Do(bench.form, row.steps);
        QCOMPARE(bench.Items(), QString(row.after));
        QVERIFY(bench.form.isVisible());
        const bool hasRows = !bench.Items().isEmpty();
        for (const char* button : {"cmdRemove", "cmdUp", "cmdDown"})
            QCOMPARE(test::Part<QAbstractButton>(bench.form, button)->isEnabled(), hasRows);
    }

    void FieldsHaveTheirTypes() {
        Bench bench(keys::optionbuttons, "");
        Do(bench.form, "@cmdAdd");
        QCOMPARE(bench.Items(), "hatRadioKnopf//150/20/0/0/Falsch");
        Do(bench.form, "hatRot Tab Rot Tab 99,5 Return");
        const QRect flag = bench.table.visualRect(bench.table.model()->index(0, 6));
        QTest::mouseClick(bench.table.viewport(), Qt::LeftButton, {}, {flag.left() + 9, flag.center().y()});
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Wahr");
        Press(Qt::Key_Space);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Falsch");
        Press(Qt::Key_Return);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Wahr");
    }

    void BadNumbersAreReported_data() { test::AddRows(badNumbers); }

    /// A number that is none is reported under its label and the cell keeps its value; OK waits for the report.
    void BadNumbersAreReported() {
        const auto& row = test::CurrentRow(badNumbers);
        Bench bench(keys::optionbuttons, radioRow);
        bench.Select(0, 2);
        QString text;
        test::ExpectError(text);
        Do(bench.form, row.steps);
        QTRY_VERIFY2(text.startsWith(row.report), qPrintable(text));
        QVERIFY(text.endsWith("Main.File.Properties.PropertyChanged"));
        QCOMPARE(bench.Items(), radioRow);
        QVERIFY(bench.form.isVisible());
        // The report is closed; the form can be.
        QCoreApplication::processEvents();
        Do(bench.form, "@cmdAccept");
        QCOMPARE(bench.form.result(), int(QDialog::Accepted));
    }

    void ClosesAsTheUserSays_data() { test::AddRows(endings); }

    void ClosesAsTheUserSays() {
        const auto& row = test::CurrentRow(endings);
        Bench bench(keys::columns, "a/b");
        bench.Select(1);
        Do(bench.form, row.steps);
        QVERIFY(!bench.form.isVisible());
        QCOMPARE(bench.form.result(), row.result);
        if (row.result == QDialog::Accepted)
            QCOMPARE(bench.Items(), "a/neu");
    }

    void HugeListsAndCells() {
        const std::string items = std::string(100'000, 'w') + QString("/x").repeated(20'000).toStdString();
        Bench bench(keys::columns, items);
        QCOMPARE(bench.table.model()->rowCount(), 20'001);
        QVERIFY(bench.table.model()->index(0, 0).data().toString().size() < 300);
        bench.form.grab();
        Do(bench.form, "F2 Return");
        QCOMPARE(bench.Items(), QString::fromStdString(items));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::frmListEditorTest)
#include "frmListEditor_test.moc"
