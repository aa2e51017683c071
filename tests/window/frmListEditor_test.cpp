#include "app/frmError.h"
#include "designer/controls/PropertyTable.h"
#include "designer/ListText.h"
#include "designer/view/frmListEditor.h"
#include "window/Forms.h"
#include "window/Keys.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace pirol {
namespace {

/// The form on the screen with its table.
class Bench {
  public:
    Bench(const PropertyKey& key, std::string_view items)
        : form({key.key, key.label, false, pirol::ListText(items), key.editor, key.detail}, nullptr),
          table(*form.findChild<QTableView*>("lstRows")) {
        form.show();
        if (!QTest::qWaitForWindowActive(&form))
            QTest::qFail("the form was not activated", __FILE__, __LINE__);
    }

    void Click(const char* button) { QTest::mouseClick(form.findChild<QPushButton*>(button), Qt::LeftButton); }

    void ClickCell(int row, int column, int fromLeft = 20) {
        const QRect box = table.visualRect(table.model()->index(row, column));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(box.left() + fromLeft, box.center().y()));
    }

    QString Items() const {
        return QString::fromStdString(ReplaceAll(form.ListText(), std::string_view(&fieldSeparator, 1), "/"));
    }

    frmListEditor form;
    QTableView& table;
};

} // namespace

class frmListEditorTest : public QObject {
    Q_OBJECT

  private slots:
    void HasAColumnPerField() {
        Bench bench(keys::optionbuttons, "a/A/1/2/3/4/Wahr");
        QStringList titles;
        for (int column = 0; column < bench.table.model()->columnCount(); ++column)
            titles.append(bench.table.model()->headerData(column, Qt::Horizontal).toString());
        QCOMPARE(titles.join(" "), "Name Beschriftung Breite Höhe Links Oben Aktiviert");
        QCOMPARE(bench.form.windowTitle(), "Pirol - Radioknöpfe bearbeiten");
        QCOMPARE(bench.table.model()->index(0, 6).data().toString(), "wahr");
        QCOMPARE(bench.table.accessibleName(), "Radioknöpfe");
        for (int column = 0; column < bench.table.model()->columnCount(); ++column)
            QVERIFY(bench.table.columnWidth(column) >= bench.table.horizontalHeader()->sectionSizeHint(column));
    }

    /// The rows after some work with mouse or keyboard; "@" stands for a click on a button of the form.
    void RowsAreEdited_data() {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("after");
        QTest::newRow("add by button") << "a/b" << 0 << "@cmdAdd neu Enter"
                                       << "a/b/neu";
        QTest::newRow("add by key") << "a/b" << 0 << "Ins neu Enter Ins Enter"
                                    << "a/b/neu/";
        QTest::newRow("add to nothing") << "" << 0 << "@cmdAdd x Enter"
                                        << "x";
        QTest::newRow("add while typing") << "a" << 0 << "F2 x @cmdAdd y Enter"
                                          << "x/y";
        QTest::newRow("remove by button") << "a/b/c" << 1 << "@cmdRemove"
                                          << "a/c";
        QTest::newRow("remove by key") << "a/b/c" << 2 << "Del Del"
                                       << "a";
        QTest::newRow("remove all") << "a" << 0 << "Del Del Del"
                                    << "";
        QTest::newRow("up by button") << "a/b/c" << 2 << "@cmdUp @cmdUp @cmdUp"
                                      << "c/a/b";
        QTest::newRow("up by keys") << "a/b/c" << 2 << "Alt+Up"
                                    << "a/c/b";
        QTest::newRow("down by button") << "a/b/c" << 0 << "@cmdDown"
                                        << "b/a/c";
        QTest::newRow("down by keys") << "a/b/c" << 0 << "Alt+Down Alt+Down Alt+Down"
                                      << "b/c/a";
        QTest::newRow("move while typing") << "a/b" << 1 << "F2 x @cmdUp"
                                           << "x/a";
        QTest::newRow("type over") << "a/b" << 1 << "neu Enter"
                                   << "a/neu";
        QTest::newRow("Enter edits") << "a/b" << 1 << "Enter neu Enter"
                                     << "a/neu";
        QTest::newRow("Escape gives up") << "a/b" << 1 << "F2 neu Esc"
                                         << "a/b";
        QTest::newRow("arrows walk") << "a/b" << 0 << "Down z Enter"
                                     << "a/z";
    }

    void RowsAreEdited() {
        QFETCH(QString, before);
        QFETCH(int, row);
        QFETCH(QString, steps);
        QFETCH(QString, after);
        Bench bench(keys::combovalues, before.toStdString());
        bench.table.setCurrentIndex(bench.table.model()->index(row, 0));
        const QHash<QString, QKeyCombination> pressed = {
            {"Enter", Qt::Key_Return},
            {"Ins", Qt::Key_Insert},
            {"Del", Qt::Key_Delete},
            {"F2", Qt::Key_F2},
            {"Esc", Qt::Key_Escape},
            {"Down", Qt::Key_Down},
            {"Alt+Up", Qt::AltModifier | Qt::Key_Up},
            {"Alt+Down", Qt::AltModifier | Qt::Key_Down},
        };
        for (const QString& step : steps.split(' ')) {
            if (step.startsWith('@'))
                bench.Click(step.mid(1).toLatin1());
            else if (pressed.contains(step))
                Press(pressed[step].key(), pressed[step].keyboardModifiers());
            else
                Type(step);
        }
        QCOMPARE(bench.Items(), after);
        QVERIFY(bench.form.isVisible());
        const bool hasRows = !after.isEmpty();
        for (const char* button : {"cmdRemove", "cmdUp", "cmdDown"})
            QCOMPARE(bench.form.findChild<QPushButton*>(button)->isEnabled(), hasRows);
    }

    void FieldsHaveTheirTypes() {
        Bench bench(keys::optionbuttons, "");
        bench.Click("cmdAdd");
        QCOMPARE(bench.Items(), "hatRadioKnopf//150/20/0/0/Falsch");
        Type("hatRot");
        Press(Qt::Key_Tab);
        Type("Rot");
        Press(Qt::Key_Tab);
        Type("99,5");
        Press(Qt::Key_Return);
        bench.ClickCell(0, 6, 9);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Wahr");
        Press(Qt::Key_Space);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Falsch");
        Press(Qt::Key_Return);
        QCOMPARE(bench.Items(), "hatRot/Rot/100/20/0/0/Wahr");
    }

    /// A number that is none is reported under its label and the cell keeps its value; OK waits for the report.
    void BadNumbersAreReported_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("report");
        QTest::addColumn<bool>("byOk");
        QTest::newRow("no number") << "breit"
                                   << "Fehlernummer: 13" << false;
        QTest::newRow("too big") << "40000"
                                 << "Fehlernummer: 6" << false;
        QTest::newRow("click on OK") << "breit"
                                     << "Fehlernummer: 13" << true;
    }

    void BadNumbersAreReported() {
        QFETCH(QString, typed);
        QFETCH(QString, report);
        QFETCH(bool, byOk);
        Bench bench(keys::optionbuttons, "a/A/1/2/3/4/Wahr");
        bench.table.setCurrentIndex(bench.table.model()->index(0, 2));
        Type(typed);
        QString text;
        test::WhenShown<frmError>([&text](frmError& form) {
            text = form.findChild<QPlainTextEdit*>("txtError")->toPlainText();
            form.reject();
        });
        if (byOk)
            bench.Click("cmdAccept");
        else
            Press(Qt::Key_Return);
        QTRY_VERIFY2(text.contains(report), qPrintable(text));
        QVERIFY(text.endsWith("Main.File.Properties.PropertyChanged"));
        QCOMPARE(bench.Items(), "a/A/1/2/3/4/Wahr");
        QVERIFY(bench.form.isVisible());
        // The report is closed; the form can be.
        QCoreApplication::processEvents();
        bench.Click("cmdAccept");
        QCOMPARE(bench.form.result(), int(QDialog::Accepted));
    }

    void ClosesAsTheUserSays_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("result");
        QTest::newRow("OK") << "cmdAccept" << int(QDialog::Accepted);
        QTest::newRow("Abbrechen") << "cmdCancel" << int(QDialog::Rejected);
    }

    void ClosesAsTheUserSays() {
        QFETCH(QString, button);
        QFETCH(int, result);
        Bench bench(keys::columns, "a/b");
        bench.table.setCurrentIndex(bench.table.model()->index(1, 0));
        Type("neu"); // and not yet Enter: OK takes it over
        bench.Click(button.toLatin1());
        QVERIFY(!bench.form.isVisible());
        QCOMPARE(bench.form.result(), result);
        if (result == QDialog::Accepted)
            QCOMPARE(bench.Items(), "a/neu");
    }

    /// Enter presses the button that has the focus, not always OK.
    void EnterPressesTheFocusedButton() {
        Bench bench(keys::columns, "a");
        bench.form.findChild<QPushButton*>("cmdRemove")->setFocus();
        Press(Qt::Key_Return);
        QVERIFY(bench.form.isVisible());
        QCOMPARE(bench.Items(), "");
        bench.form.findChild<QPushButton*>("cmdCancel")->setFocus();
        Press(Qt::Key_Return);
        QVERIFY(!bench.form.isVisible());
        QCOMPARE(bench.form.result(), int(QDialog::Rejected));
    }

    void EscapeClosesTheForm() {
        Bench bench(keys::columns, "a/b");
        Press(Qt::Key_Escape);
        QVERIFY(!bench.form.isVisible());
        QCOMPARE(bench.form.result(), int(QDialog::Rejected));
    }

    void EverythingIsReachedByTab() {
        Bench bench(keys::columns, "a");
        QSet<QString> reached;
        for (int step = 0; step < 10; ++step) {
            reached.insert(QApplication::focusWidget()->objectName());
            Press(Qt::Key_Tab);
        }
        for (const char* name : {"lstRows", "cmdAdd", "cmdRemove", "cmdUp", "cmdDown", "cmdAccept", "cmdCancel"})
            QVERIFY2(reached.contains(name), name);
    }

    void HugeListsAndCells() {
        const std::string huge(100'000, 'w');
        std::string items = huge;
        for (int row = 0; row < 20'000; ++row)
            items += "/x";
        Bench bench(keys::columns, items);
        QCOMPARE(bench.table.model()->rowCount(), 20'001);
        QVERIFY(bench.table.model()->index(0, 0).data().toString().size() < 300);
        bench.form.grab();
        Press(Qt::Key_F2);
        Press(Qt::Key_Return);
        QCOMPARE(bench.Items().size(), qsizetype(items.size()));
    }
};

} // namespace pirol

QTEST_MAIN(pirol::frmListEditorTest)
#include "frmListEditor_test.moc"
