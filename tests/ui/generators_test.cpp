#include "base/Conversions.h"
#include "FakeDialogs.h"
#include "ui/dialogs/frmMenuGenerator.h"
#include "ui/dialogs/frmSQLGenerator.h"
#include "ui/Forms.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QTreeWidget>

namespace pirol::test {

/// The menu generator on a bar of one menu with an entry and a submenu with an entry.
struct Menus {
    Menus() {
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

/// The forms that make menus and methods for the database.
class GeneratorsTest : public QObject {
    Q_OBJECT

  private slots:
    void MenusChangeUntilEscape_data() { AddRows("menu-generator"); }

    void MenusChangeUntilEscape() {
        const auto [row, steps, told, lines, depth] = CurrentRow<5>();
        Menus menus;
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
    void MenusShowTheWayUp() {
        Menus menus;
        const QWidget& form = *menus.form;
        const auto* const name = Part<QLineEdit>(form, "txtName");
        QVERIFY(!Part<QWidget>(form, "cmdDel")->isEnabled());
        ClickRow(*menus.list, 3);
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

    /// What is typed goes to the next field by Tab and to the next step by Enter or the button.
    void TheSqlWizardChangesTheProjectWhenItIsFinished() {
        SQLSettings settings = {"s", "u", "secret", "d", "t", {0, 5, 1}};
        const SQLSettings before = settings;
        frmSQLGenerator form(settings, nullptr);
        Show(form);
        const std::pair<const char*, std::size_t> walk[] = {
            {"@txtServer Ctrl+A localhost Tab anna Tab ge\"heim Tab Del Return", 1},
            {"@cmdStepBack", 0},
            {"Return Ctrl+A größen @cmdStepForward", 2},
            {"@cmdStepBack", 1},
            {"@cmdStepForward Space Down Space", 2},
        };
        QVERIFY(!Part<QLineEdit>(form, "txtPass")->displayText().contains('s'));
        for (const auto& [steps, index] : walk) {
            Do(form, steps);
            const SQLWizardStep& step = SQLWizard::Steps()[index];
            QCOMPARE(Part<QLabel>(form, "lblStep")->text().toStdString(), std::string(step.title));
            QCOMPARE(Notes(form).contains(QString::fromUtf8(step.notes[0].data(), qsizetype(step.notes[0].size()))),
                     true);
            QCOMPARE(Part<QWidget>(form, "cmdStepBack")->isEnabled(), index > 0);
            QVERIFY(settings == before);
        }
        QCOMPARE(form.focusWidget()->objectName(), "lstDefined");
        const auto* const list = Part<QTreeWidget>(form, "lstDefined");
        QCOMPARE(list->topLevelItem(1)->text(0) + list->topLevelItem(1)->text(1),
                 "NameDerTabelle(int pIndex)Gibt den Tabellennamen zurück");
        Click(form, "cmdStepForward");
        QVERIFY(!form.isVisible());
        QVERIFY((settings == SQLSettings{"localhost", "anna", "ge\"heim", "", "größen", {1, 0, 1}}));
    }

  private:
    /// What the user reads in the step that is shown.
    static QString Notes(const QWidget& form) {
        for (const QLabel* const label : form.findChildren<QLabel*>("lblNotes"))
            if (label->isVisible())
                return label->text();
        return {};
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::GeneratorsTest)
#include "generators_test.moc"
