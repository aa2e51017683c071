#include "FakeDialogs.h"
#include "menu/frmMenuGenerator.h"
#include "model/Conversions.h"
#include "window/Forms.h"
#include "window/Rows.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

namespace pirol::test {

/// The form on a bar of one menu with an entry and a submenu with an entry.
struct Generator {
    Generator() {
        cMenu& menu = bar.Append("A", "hatMenueA");
        menu.AddEntry("x", cMenu::Entry);
        menu.AddEntry("B", cMenu::SubMenu)->AddEntry("y", cMenu::Entry);
        form.emplace(bar, dialogs, nullptr);
        Show(*form);
        list = Part<QListWidget>(*form, "lstEntries");
    }

    /// The bar with "|" between fields and "/" between lines.
    QString Lines() const {
        const std::string lines = ReplaceAll(bar.CreatePRLString(), lineEnd, "/");
        return QString::fromStdString(ReplaceAll(lines, std::string_view(&fieldSeparator, 1), "|")).chopped(1);
    }

    void CheckList() const {
        MenuBar copy = bar;
        const MenuEditor editor(copy);
        QCOMPARE(list->count(), int(editor.Rows().size()));
        int row = 0;
        for (const auto& [text, colour, node] : editor.Rows()) {
            const QListWidgetItem* const item = list->item(row++);
            QCOMPARE(item->text().toStdString(), text);
            QCOMPARE(item->foreground(), colour ? QBrush(QColor(colour->red, colour->green, colour->blue)) : QBrush());
        }
    }

    QString Depth() const { return Part<QLabel>(*form, "lblDepth")->text(); }

    MenuBar bar;
    FakeDialogs dialogs;
    std::optional<frmMenuGenerator> form;
    QListWidget* list = nullptr;
};

class MenuGeneratorTest : public QObject {
    Q_OBJECT

  private slots:
    void ChangesTheBarUntilEscape_data() { AddRows("menu-generator"); }

    void ChangesTheBarUntilEscape() {
        const auto [row, steps, told, lines, depth] = CurrentRow<5>();
        Generator menus;
        const QString before = menus.Lines();
        if (row != "0")
            ClickRow(*menus.list, row.toInt() - 1);
        Do(*menus.form, steps);
        QCOMPARE(menus.Lines(), lines);
        QCOMPARE(QString::fromStdString(menus.dialogs.TakeSeen()), told.isEmpty() ? "" : "information " + told + "\n");
        menus.CheckList();
        QCOMPARE(menus.Depth(), "Aktuelle Menütiefe: " + depth);
        QVERIFY(menus.form->isVisible());
        Press(Qt::Key_Escape);
        QVERIFY(!menus.form->isVisible());
        QCOMPARE(menus.Lines(), before);
    }

    /// The way up ends in the bar, where only menus can be made. Nothing else has a name.
    void ShowsTheWayUp() {
        Generator menus;
        const QWidget& form = *menus.form;
        const auto* const name = Part<QLineEdit>(form, "txtName");
        QVERIFY(!Part<QWidget>(form, "cmdDel")->isEnabled());
        for (int row = 0; row < 4; ++row) {
            ClickRow(*menus.list, row);
            QCOMPARE(menus.Depth(), QString("Aktuelle Menütiefe: %1").arg(row < 2 ? 1 : 2));
        }
        Do(form, "@optType2 @txtCaption C");
        QVERIFY(!name->isEnabled());
        QCOMPARE(name->text(), "");
        Click(form, "cmdLevelUp");
        QVERIFY(Part<QRadioButton>(form, "optType2")->isChecked());
        Click(form, "cmdLevelUp");
        QVERIFY(Part<QRadioButton>(form, "optType0")->isChecked());
        QVERIFY(name->isEnabled());
        QVERIFY(!Part<QWidget>(form, "cmdLevelUp")->isEnabled());
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::MenuGeneratorTest)
#include "frmMenuGenerator_test.moc"
