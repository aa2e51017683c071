#include "sql/frmSQLGenerator.h"
#include "window/Forms.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

namespace pirol::test {

class SQLGeneratorTest : public QObject {
    Q_OBJECT

  private slots:
    void LeadsThroughThreeSteps() {
        SQLSettings settings;
        frmSQLGenerator form(settings, nullptr);
        Show(form);
        const struct {
            const char* way;
            std::size_t step;
            const char* focused;
        } walk[] = {
            {"@txtServer", 0, "txtServer"},       {"@cmdStepForward", 1, "txtTableName"},
            {"@cmdStepForward", 2, "lstDefined"}, {"@cmdStepBack", 1, "txtTableName"},
            {"@cmdStepBack", 0, "txtServer"},
        };
        for (const auto& row : walk) {
            Do(form, row.way);
            const SQLWizardStep& step = SQLWizard::Steps()[row.step];
            QCOMPARE(Part<QLabel>(form, "lblStep")->text().toStdString(), std::string(step.title));
            std::string notes;
            for (const std::string_view note : step.notes)
                notes.append(notes.empty() ? "" : "\n").append(note);
            QCOMPARE(Notes(form), notes);
            QCOMPARE(Part<QAbstractButton>(form, "cmdStepForward")->text().remove('&').toStdString(),
                     std::string(step.forwardCaption));
            QCOMPARE(Part<QWidget>(form, "cmdStepBack")->isEnabled(), row.step > 0);
            QCOMPARE(form.focusWidget()->objectName(), row.focused);
        }
    }

    void ShowsWhatTheProjectHasAndFinishingTakesOver() {
        SQLSettings settings = {"s", "u", "secret", "d", "t", {0, 5, 1}};
        const SQLSettings before = settings;
        frmSQLGenerator form(settings, nullptr);
        Show(form);
        const std::pair<const char*, const char*> fields[] = {
            {"txtServer", "s"}, {"txtUser", "u"}, {"txtPass", "secret"}, {"txtDB", "d"}, {"txtTableName", "t"}};
        for (const auto& [field, text] : fields)
            QCOMPARE(Part<QLineEdit>(form, field)->text(), text);
        QVERIFY(!Part<QLineEdit>(form, "txtPass")->displayText().contains('s'));
        // The Enter key goes on as the button does.
        Do(form, "@txtServer Ctrl+A localhost Tab anna Tab ge\"heim Tab Del Return Ctrl+A größen @cmdStepForward");

        const auto* const list = Part<QTreeWidget>(form, "lstDefined");
        QString table;
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            const QTreeWidgetItem* const item = list->topLevelItem(row);
            table += item->checkState(0) == Qt::Checked ? "[x] " : "[ ] ";
            table += item->text(0) + " | " + item->text(1) + "\n";
        }
        QCOMPARE(table, "[ ] AnzahlDerTabellen() | Gibt die Anzahl der Tabellen zurück\n"
                        "[x] NameDerTabelle(int pIndex) | Gibt den Tabellennamen zurück\n"
                        "[x] AnzahlDerEintraege() | Anzahl der aktuellen Tabelleneinträge\n");
        Do(form, "Space Down Space");
        QVERIFY(settings == before);
        Click(form, "cmdStepForward");
        QVERIFY(!form.isVisible());
        QVERIFY((settings == SQLSettings{"localhost", "anna", "ge\"heim", "", "größen", {1, 0, 1}}));
    }

  private:
    /// What the user reads in the step that is shown.
    static std::string Notes(const QWidget& form) {
        for (const QLabel* const label : form.findChildren<QLabel*>("lblNotes"))
            if (label->isVisible())
                return label->text().toStdString();
        return {};
    }
};

} // namespace pirol::test

QTEST_MAIN(pirol::test::SQLGeneratorTest)
#include "frmSQLGenerator_test.moc"
