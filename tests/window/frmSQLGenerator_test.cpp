#include "sql/frmSQLGenerator.h"
#include "window/Forms.h"

#include <QGroupBox>
#include <QLabel>
#include <QTreeWidget>

namespace pirol {
namespace {

using test::Click;
using test::Part;
using test::Type;

class SQLGeneratorTest : public QObject {
    Q_OBJECT

  private slots:
    void LeadsThroughThreeSteps();
    void OnlyFinishingTakesOver_data();
    void OnlyFinishingTakesOver();
    void ShowsWhatTheProjectHas();
};

QString Caption(const QWidget& form, const char* button) {
    return Part<QAbstractButton>(form, button)->text().remove('&');
}

/// What the user reads in the step that is shown.
QString Notes(const QWidget& form) {
    for (const QLabel* const label : form.findChildren<QLabel*>("lblNotes"))
        if (label->isVisible())
            return label->text();
    return {};
}

void SQLGeneratorTest::LeadsThroughThreeSteps() {
    SQLSettings settings;
    frmSQLGenerator form(settings, nullptr);
    form.show();
    QCOMPARE(form.windowTitle(), QString("Pirol - SQL Generator"));
    const struct {
        QString title, firstNote, lastNote, focus, back, forward;
        bool hasBack;
    } steps[] = {
        {"Schritt 1 - Die Datenbankverbindung", "Geben Sie hier die benötigten Verbindungsdaten an.",
         "- Datenbank: Der Name der Datenbank, die die Daten enthält", "txtServer", "<< Zurück", "Weiter >>", false},
        {"Schritt 2 - Die Datenbanktabelle", "Geben Sie hier den Namen der anzuwählenden Tabelle an",
         "Das generierte Script öffnet standardmäßig eine Tabelle. Diese wird hier angegeben.", "txtTableName",
         "<< Zurück", "Weiter >>", true},
        {"Schritt 3 - Vordefinierte Abfragen", "Geben Sie an, welche Abfragen im Script vordefiniert werden sollen",
         "Es besteht mit diesem Assistenten die Möglichkeit vordefinierte Abfragen erstellen", "lstDefined",
         "<< Zurück", "Fertig", true},
    };
    const int way[] = {0, 1, 2, 1, 0, 1, 2};
    int shown = 0;
    for (const int next : way) {
        if (next != shown)
            Click(form, next > shown ? "cmdStepForward" : "cmdStepBack");
        shown = next;
        const auto& step = steps[next];
        QCOMPARE(Part<QLabel>(form, "lblStep")->text(), step.title);
        QCOMPARE(Notes(form).split('\n').constFirst(), step.firstNote);
        QCOMPARE(Notes(form).split('\n').constLast(), step.lastNote);
        QCOMPARE(Caption(form, "cmdStepBack"), step.back);
        QCOMPARE(Caption(form, "cmdStepForward"), step.forward);
        QCOMPARE(Part<QWidget>(form, "cmdStepBack")->isEnabled(), step.hasBack);
        QCOMPARE(form.focusWidget()->objectName(), step.focus);
    }
    QVERIFY(form.isVisible());
}

void SQLGeneratorTest::OnlyFinishingTakesOver_data() {
    QTest::addColumn<bool>("types");
    QTest::addColumn<QString>("end"); // a button; empty: the Escape key
    QTest::addColumn<bool>("takesOver");
    QTest::newRow("Fertig") << true << "cmdStepForward" << true;
    QTest::newRow("Fertig, left empty") << false << "cmdStepForward" << true;
    QTest::newRow("Abbrechen") << true << "cmdCancel" << false;
    QTest::newRow("Escape") << true << "" << false;
}

void SQLGeneratorTest::OnlyFinishingTakesOver() {
    QFETCH(bool, types);
    QFETCH(QString, end);
    QFETCH(bool, takesOver);
    SQLSettings settings;
    settings.Flags = {7, 0, 0};
    const SQLSettings before = settings;
    frmSQLGenerator form(settings, nullptr);
    form.show();
    const SQLSettings typed = {"localhost", "anna", "ge\"heim", "schule", "größen", {0, 1, 0}};
    if (types) {
        Type(form, "txtServer", "localhost");
        Type(form, "txtUser", "anna");
        Type(form, "txtPass", "ge\"heim");
        Type(form, "txtDB", "schule");
    }
    // The Enter key goes on as the button does.
    QTest::keyClick(form.focusWidget(), Qt::Key_Return);
    if (types)
        Type(form, "txtTableName", "größen");
    Click(form, "cmdStepForward");
    if (types) {
        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
        QTest::keyClick(form.focusWidget(), Qt::Key_Down);
        QTest::keyClick(form.focusWidget(), Qt::Key_Space);
    }
    QVERIFY(settings == before);
    if (end.isEmpty())
        QTest::keyClick(&form, Qt::Key_Escape);
    else
        Click(form, end.toLatin1());
    QVERIFY(!form.isVisible());
    const SQLSettings untouched = {"", "", "", "", "", {1, 0, 0}};
    QVERIFY(settings == (!takesOver ? before : types ? typed : untouched));
}

void SQLGeneratorTest::ShowsWhatTheProjectHas() {
    SQLSettings settings = {"s", "u", "secret", "d", "t", {0, 5, 1}};
    frmSQLGenerator form(settings, nullptr);
    form.show();
    const struct {
        const char* field;
        QString label, text;
    } fields[] = {{"txtServer", "Server:  ", "s"},
                  {"txtUser", "Username:  ", "u"},
                  {"txtPass", "Passwort:  ", "secret"},
                  {"txtDB", "Datenbank:  ", "d"},
                  {"txtTableName", "Name der Tabelle:  ", "t"}};
    QStringList labels;
    for (const QLabel* const label : form.findChildren<QLabel*>())
        labels << label->text().remove('&');
    for (const auto& row : fields) {
        QCOMPARE(Part<QLineEdit>(form, row.field)->text(), row.text);
        QVERIFY2(labels.contains(row.label), qPrintable(row.label));
    }
    QVERIFY(!Part<QLineEdit>(form, "txtPass")->displayText().contains('s'));

    const auto* const list = Part<QTreeWidget>(form, "lstDefined");
    QCOMPARE(list->headerItem()->text(0), QString("Methodenname"));
    QCOMPARE(list->headerItem()->text(1), QString("Beschreibung"));
    const struct {
        QString name, description;
        bool checked;
    } rows[] = {{"AnzahlDerTabellen()", "Gibt die Anzahl der Tabellen zurück", false},
                {"NameDerTabelle(int pIndex)", "Gibt den Tabellennamen zurück", true},
                {"AnzahlDerEintraege()", "Anzahl der aktuellen Tabelleneinträge", true}};
    QCOMPARE(list->topLevelItemCount(), 3);
    for (int row = 0; row < 3; ++row) {
        QCOMPARE(list->topLevelItem(row)->text(0), rows[row].name);
        QCOMPARE(list->topLevelItem(row)->text(1), rows[row].description);
        QCOMPARE(list->topLevelItem(row)->checkState(0) == Qt::Checked, rows[row].checked);
    }
}

} // namespace
} // namespace pirol

QTEST_MAIN(pirol::SQLGeneratorTest)
#include "frmSQLGenerator_test.moc"
