#include "FakeDialogs.h"
#include "menu/frmMenuGenerator.h"
#include "model/Conversions.h"
#include "window/Forms.h"

#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

namespace pirol {

using test::Click;
using test::Part;
using test::Type;

/// The form on a bar of one menu with an entry and a submenu with an entry.
struct Generator {
    Generator() {
        cMenu& menu = bar.Append("A", "hatMenueA");
        menu.AddEntry("x", cMenu::Entry);
        menu.AddEntry("B", cMenu::SubMenu)->AddEntry("y", cMenu::Entry);
        form.emplace(bar, dialogs, nullptr);
        form->show();
        list = Part<QListWidget>(*form, "lstEntries");
    }

    /// Clicks a row, counted from 1.
    void Select(int row) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                          list->visualItemRect(list->item(row - 1)).center());
    }

    /// The bar with "|" between fields and "/" between lines.
    QString Lines() const {
        const std::string lines = ReplaceAll(bar.CreatePRLString(), lineEnd, "/");
        return QString::fromStdString(ReplaceAll(lines, std::string_view(&fieldSeparator, 1), "|"));
    }

    QString Rows() const {
        QStringList rows;
        for (int row = 0; row < list->count(); ++row)
            rows << list->item(row)->text();
        return rows.join('/');
    }

    QString Depth() const { return Part<QLabel>(*form, "lblDepth")->text(); }

    MenuBar bar;
    test::FakeDialogs dialogs;
    std::optional<frmMenuGenerator> form;
    QListWidget* list = nullptr;
};

class MenuGeneratorTest : public QObject {
    Q_OBJECT

  private slots:
    void RefusesAndAdds() {
        const struct {
            int row; // 0: nothing is selected
            const char* option;
            QString caption;
            QString name; // null: the proposed one
            std::string message;
            QString added; // behind which row, and what
        } rows[] = {
            {0, "optType1", "C", {}, "In der 1. Ebene können nur Menüs erzeugt werden!", ""},
            {0, "optType0", "C", "", "Bitte geben Sie einen Menünamen an!", ""},
            {2, "optType0", "C", {}, "Menüs können nur in der 1. Ebene erzeugt werden!", ""},
            {0, "optType0", "Größe", {}, "", "0|0|hatMenueGroeße|Größe/"},
            {0, "optType0", "C", "m", "", "0|0|m|C/"},
            {1, "optType2", "\"Ä\"", {}, "", "1|2|\"Ä\"/"},
            {3, "optType3", "", {}, "", "2|3/"},
            {1, "optType1", "C", {}, "", "1|1|C/"},
        };
        for (const auto& row : rows) {
            Generator menus;
            if (row.row > 0)
                menus.Select(row.row);
            Type(*menus.form, "txtCaption", row.caption);
            if (!row.name.isNull())
                Type(*menus.form, "txtName", row.name);
            Click(*menus.form, row.option);
            QTest::keyClick(Part<QLineEdit>(*menus.form, "txtCaption"), Qt::Key_Return);
            QCOMPARE(menus.dialogs.TakeSeen(), row.message.empty() ? "" : "information " + row.message + "\n");
            QCOMPARE(menus.Lines(), "0|0|hatMenueA|A/1|2|x/1|1|B/2|2|y/" + row.added);
            QVERIFY(menus.form->isVisible());
        }
    }

    /// Each button on a row, what the list shows then, and what Escape makes of it.
    void ButtonsActOnTheSelectedRow() {
        const struct {
            int row;
            const char* button;
            QString rows, depth;
        } cases[] = {
            {1, "cmdDel", "", "0"},
            {4, "cmdDel", "A/    x/    B", "2"},
            {1, "cmdMoveUp", "A/    x/    B/        y", "1"},
            {3, "cmdMoveUp", "A/    B/        y/    x", "2"},
            {2, "cmdMoveDown", "A/    B/        y/    x", "1"},
            {4, "cmdLevelUp", "A/    x/    B/        y", "1"},
            {1, "cmdLevelUp", "A/    x/    B/        y", "0"},
        };
        for (const auto& row : cases) {
            Generator menus;
            const QString before = menus.Lines();
            menus.Select(row.row);
            Click(*menus.form, row.button);
            const QString what = QString("%1 on row %2").arg(row.button).arg(row.row);
            QVERIFY2(menus.Rows() == row.rows, qPrintable(what + ": " + menus.Rows()));
            QVERIFY2(menus.Depth() == "Aktuelle Menütiefe: " + row.depth, qPrintable(what + ": " + menus.Depth()));
            QTest::keyClick(&*menus.form, Qt::Key_Escape);
            QVERIFY(!menus.form->isVisible());
            QCOMPARE(menus.Lines(), before);
        }
    }

    void ShowsColoursAndDepthAndTheWayUp() {
        Generator menus;
        const QWidget& form = *menus.form;
        const QColor own = QListWidgetItem().foreground().color();
        const struct {
            QColor color;
            QString depth;
        } rows[] = {{own, "1"}, {QColor(50, 50, 50), "1"}, {QColor(100, 100, 100), "2"}, {own, "2"}};
        QCOMPARE(menus.Depth(), "Aktuelle Menütiefe: 0");
        QVERIFY(!Part<QWidget>(form, "cmdDel")->isEnabled());
        for (int row = 0; row < menus.list->count(); ++row) {
            QCOMPARE(menus.list->item(row)->foreground().color(), rows[row].color);
            menus.Select(row + 1);
            QCOMPARE(menus.Depth(), "Aktuelle Menütiefe: " + rows[row].depth);
        }
        // The way up ends in the bar, where only menus can be made. Nothing else has a name.
        Click(form, "optType2");
        Type(form, "txtCaption", "C");
        QVERIFY(!Part<QLineEdit>(form, "txtName")->isEnabled());
        QCOMPARE(Part<QLineEdit>(form, "txtName")->text(), "");
        Click(form, "cmdLevelUp");
        QVERIFY(Part<QRadioButton>(form, "optType2")->isChecked());
        Click(form, "cmdLevelUp");
        QVERIFY(Part<QRadioButton>(form, "optType0")->isChecked());
        QVERIFY(Part<QLineEdit>(form, "txtName")->isEnabled());
        QVERIFY(!Part<QWidget>(form, "cmdLevelUp")->isEnabled());
    }
};

} // namespace pirol

QTEST_MAIN(pirol::MenuGeneratorTest)
#include "frmMenuGenerator_test.moc"
