#include "sql/frmSQLGenerator.h"
#include "window/Forms.h"

#include <QLabel>
#include <QTreeWidget>

namespace pirol {

using test::Click;
using test::Part;
using test::Type;

class SQLGeneratorTest : public QObject {
    Q_OBJECT

  private slots:
    void LeadsThroughThreeSteps() {
        SQLSettings settings;
        frmSQLGenerator form(settings, nullptr);
        form.show();
        QCOMPARE(form.windowTitle(), "Pirol - SQL Generator");
        const char* const focused[] = {"txtServer", "txtTableName", "lstDefined"};
        int shown = 0;
        for (const int next : {0, 1, 2, 1, 0, 1, 2}) {
            if (next != shown)
                Click(form, next > shown ? "cmdStepForward" : "cmdStepBack");
            shown = next;
            const SQLWizardStep& step = SQLWizard::Steps()[std::size_t(next)];
            std::string notes;
            for (const std::string_view note : step.notes)
                notes.append(notes.empty() ? "" : "\n").append(note);
            QCOMPARE(Part<QLabel>(form, "lblStep")->text().toStdString(), std::string(step.title));
            QCOMPARE(Notes(form), notes);
            QCOMPARE(Caption(form, "cmdStepBack"), "<< Zurück");
            QCOMPARE(Caption(form, "cmdStepForward"), next == 2 ? "Fertig" : "Weiter >>");
            QCOMPARE(Part<QWidget>(form, "cmdStepBack")->isEnabled(), next > 0);
            QCOMPARE(form.focusWidget()->objectName(), focused[next]);
        }
        QVERIFY(form.isVisible());
    }

    void ShowsWhatTheProjectHasAndFinishingTakesOver() {
        SQLSettings settings = {"s", "u", "secret", "d", "t", {0, 5, 1}};
        const SQLSettings before = settings;
        frmSQLGenerator form(settings, nullptr);
        form.show();
        const struct {
            const char* field;
            QString label, text, typed;
        } fields[] = {{"txtServer", "Server:  ", "s", "localhost"},
                      {"txtUser", "Username:  ", "u", "anna"},
                      {"txtPass", "Passwort:  ", "secret", "ge\"heim"},
                      {"txtDB", "Datenbank:  ", "d", ""},
                      {"txtTableName", "Name der Tabelle:  ", "t", "größen"}};
        QStringList labels;
        for (const QLabel* const label : form.findChildren<QLabel*>())
            labels << label->text().remove('&');
        QVERIFY(!Part<QLineEdit>(form, "txtPass")->displayText().contains('s'));
        for (const auto& row : fields) {
            QVERIFY2(labels.contains(row.label), qPrintable(row.label));
            QCOMPARE(Part<QLineEdit>(form, row.field)->text(), row.text);
            // The Enter key goes on as the button does.
            if (row.field == QString("txtTableName"))
                QTest::keyClick(form.focusWidget(), Qt::Key_Return);
            Type(form, row.field, row.typed);
        }
        Click(form, "cmdStepForward");

        const auto* const list = Part<QTreeWidget>(form, "lstDefined");
        QString table = list->headerItem()->text(0) + " | " + list->headerItem()->text(1) + "\n";
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            const QTreeWidgetItem* const item = list->topLevelItem(row);
            table += item->checkState(0) == Qt::Checked ? "[x] " : "[ ] ";
            table += item->text(0) + " | " + item->text(1) + "\n";
        }
        QCOMPARE(table, "Methodenname | Beschreibung\n"
                        "[ ] AnzahlDerTabellen() | Gibt die Anzahl der Tabellen zurück\n"
                        "[x] NameDerTabelle(int pIndex) | Gibt den Tabellennamen zurück\n"
                        "[x] AnzahlDerEintraege() | Anzahl der aktuellen Tabelleneinträge\n");
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Space})
            QTest::keyClick(form.focusWidget(), key);
        QVERIFY(settings == before);
        Click(form, "cmdStepForward");
        QVERIFY(!form.isVisible());
        QVERIFY((settings == SQLSettings{"localhost", "anna", "ge\"heim", "", "größen", {1, 0, 1}}));
    }

  private:
    static QString Caption(const QWidget& form, const char* button) {
        return Part<QAbstractButton>(form, button)->text().remove('&');
    }

    /// What the user reads in the step that is shown.
    static std::string Notes(const QWidget& form) {
        for (const QLabel* const label : form.findChildren<QLabel*>("lblNotes"))
            if (label->isVisible())
                return label->text().toStdString();
        return {};
    }
};

} // namespace pirol

QTEST_MAIN(pirol::SQLGeneratorTest)
#include "frmSQLGenerator_test.moc"
