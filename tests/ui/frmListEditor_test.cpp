#include "controls/PropertyTable.h"
#include "designer/ListText.h"
#include "ui/Forms.h"
#include "ui/properties/frmListEditor.h"
#include "ui/Rows.h"

#include <QHeaderView>
#include <QTableView>

namespace pirol::test {

constexpr const char* radioRow = "a/A/1/2/3/4/Wahr";

/// The form on the screen with its table, one of whose cells is current.
struct Bench {
    Bench(const PropertyKey& key, const QString& items, int row = 0, int column = 0)
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

    void RowsAreEdited_data() { AddRows("list-editor-steps"); }

    void RowsAreEdited() {
        const auto [before, row, steps, after] = CurrentRow<4>();
        Bench bench(keys::combovalues, before, row.toInt());
        Do(bench.form, steps);
        QCOMPARE(bench.Items(), after);
        QVERIFY(bench.form.isVisible());
        for (const char* button : {"cmdRemove", "cmdUp", "cmdDown"})
            QCOMPARE(Part<QWidget>(bench.form, button)->isEnabled(), !after.isEmpty());
    }

    void FieldsHaveTheirTypes() {
        Bench bench(keys::optionbuttons, "");
        Do(bench.form, "@cmdAdd");
        QCOMPARE(bench.Items(), "hatRadioKnopf//150/20/0/0/Falsch");
        Do(bench.form, "hatRot Tab Rot Tab 100 Return");
        const QRect flag = bench.table.visualRect(bench.table.model()->index(0, 6));
        QTest::mouseClick(bench.table.viewport(), Qt::LeftButton, {}, {flag.left() + 9, flag.center().y()});
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Wahr");
        Press(Qt::Key_Space);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Falsch");
        Press(Qt::Key_Return);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Wahr");
    }

    void NumbersTakeOnlyDigits_data() { AddRows("list-editor-numbers"); }

    void NumbersTakeOnlyDigits() {
        const auto [steps, number] = CurrentRow<2>();
        Bench bench(keys::optionbuttons, radioRow, 0, 2);
        Do(bench.form, steps);
        QCOMPARE(bench.table.model()->index(0, 2).data().toString(), number);
    }

    void ClosesAsTheUserSays_data() { AddRows("list-editor-endings"); }

    void ClosesAsTheUserSays() {
        const auto [steps, takesOver] = CurrentRow<2>();
        Bench bench(keys::columns, "a/b", 1);
        Do(bench.form, steps);
        QVERIFY(!bench.form.isVisible());
        QCOMPARE(bench.form.result() == QDialog::Accepted, takesOver == "yes");
        if (takesOver == "yes")
            QCOMPARE(bench.Items(), "a/neu");
    }

    void HugeListsAndCells() {
        const QString items = QString(100'000, 'w') + QString("/x").repeated(20'000);
        Bench bench(keys::columns, items);
        QCOMPARE(bench.table.model()->rowCount(), 20'001);
        QVERIFY(bench.table.model()->index(0, 0).data().toString().size() < 300);
        bench.form.grab();
        Do(bench.form, "F2 Return");
        QCOMPARE(bench.Items(), items);
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::frmListEditorTest)
#include "frmListEditor_test.moc"
