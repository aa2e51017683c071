#include "FakeDialogs.h"
#include "menu/frmMenuGenerator.h"
#include "model/Conversions.h"
#include "window/Keys.h"

#include <QLabel>
#include <QListWidget>
#include <QRadioButton>

namespace pirol {

using test::Click;
using test::Part;

/// The form on a bar of one menu with an entry and a submenu with an entry.
struct Generator {
    Generator() {
        cMenu& menu = bar.Append("A", "hatMenueA");
        menu.AddEntry("x", cMenu::Entry);
        menu.AddEntry("B", cMenu::SubMenu)->AddEntry("y", cMenu::Entry);
        form.emplace(bar, dialogs, nullptr);
        test::Show(*form);
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

    /// Whether the list shows the bar as it is.
    bool ShowsTheBar() const {
        MenuBar copy = bar;
        const MenuEditor editor(copy);
        int row = 0;
        for (const MenuRow& expected : editor.Rows())
            if (row == list->count() || list->item(row++)->text().toStdString() != expected.text)
                return false;
        return row == list->count();
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
    /// What the user does with a row, what he is told, what the bar is then, and that Escape undoes it.
    void ChangesTheBarUntilEscape() {
        const QString menu = "0|0|hatMenueA|A/", entry = "1|2|x/", sub = "1|1|B/", inner = "2|2|y/";
        const QString all = menu + entry + sub + inner;
        const struct {
            int row; // 0: nothing is selected
            const char* steps;
            std::string told;
            QString lines, depth;
        } cases[] = {
            {0, "@optType1 @cmdAdd", "In der 1. Ebene können nur Menüs erzeugt werden!", all, "0"},
            {0, "C Tab Del Return", "Bitte geben Sie einen Menünamen an!", all, "0"},
            {2, "Alt+B C Return", "Menüs können nur in der 1. Ebene erzeugt werden!", all, "1"},
            {0, "Größe Return", "", all + "0|0|hatMenueGroeße|Größe/", "0"},
            {0, "C Tab m Return", "", all + "0|0|m|C/", "0"},
            {1, "@optType2 Alt+B \"Ä\" Return", "", all + "1|2|\"Ä\"/", "1"},
            {3, "@optType3 @cmdAdd", "", all + "2|3/", "2"},
            {1, "@optType1 Alt+B C Return", "", all + "1|1|C/", "1"},
            {1, "@cmdDel", "", "", "0"},
            {4, "@cmdDel", "", menu + entry + sub, "2"},
            {1, "@cmdMoveUp", "", all, "1"},
            {3, "@cmdMoveUp", "", menu + sub + inner + entry, "2"},
            {2, "@cmdMoveDown", "", menu + sub + inner + entry, "1"},
            {4, "@cmdLevelUp", "", all, "1"},
            {1, "@cmdLevelUp", "", all, "0"},
        };
        for (const auto& row : cases) {
            Generator menus;
            if (row.row > 0)
                menus.Select(row.row);
            Do(*menus.form, row.steps);
            const QString what = QString("%1 on row %2").arg(row.steps).arg(row.row);
            QCOMPARE(what + ": " + menus.Lines(), what + ": " + row.lines);
            QCOMPARE(menus.dialogs.TakeSeen(), row.told.empty() ? "" : "information " + row.told + "\n");
            QVERIFY2(menus.ShowsTheBar(), qPrintable(what));
            QCOMPARE(menus.Depth(), "Aktuelle Menütiefe: " + row.depth);
            QVERIFY(menus.form->isVisible());
            Press(Qt::Key_Escape);
            QVERIFY(!menus.form->isVisible());
            QCOMPARE(menus.Lines(), all);
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
        test::Type(form, "txtCaption", "C");
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
