#include "sql/SQLWizard.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

const SQLSettings stored = {"srv", "usr", "pw", "db", "tbl", {0, 7, -1}};

TEST(SQLWizard, WalksTheStepsAndStopsAtBothEnds) {
    SQLWizard wizard({});
    std::string walk = wizard.IsFirstStep() ? "" : "begins elsewhere, ";
    for (const char way : std::string("<>>><<")) {
        way == '<' ? wizard.Back() : wizard.Forward();
        walk.append(std::to_string(wizard.StepIndex())).append(" ").append(wizard.Step().title).append("/");
        EXPECT_EQ(wizard.Step().forwardCaption, wizard.IsLastStep() ? "Fertig" : "Weiter >>");
    }
    const std::string first = "0 Schritt 1 - Die Datenbankverbindung/";
    const std::string second = "1 Schritt 2 - Die Datenbanktabelle/";
    const std::string last = "2 Schritt 3 - Vordefinierte Abfragen/";
    EXPECT_EQ(walk, first + second + last + last + second + first);
}

TEST(SQLWizard, EveryFieldEditsItsOwnSetting) {
    SQLWizard wizard(stored);
    std::string shown;
    for (const SQLWizardStep& step : SQLWizard::Steps())
        for (const SQLField& field : step.fields) {
            shown.append(field.label).append(wizard.Text(field)).append(field.unreadable ? " (*)\n" : "\n");
            wizard.SetText(field, std::string(field.control));
        }
    EXPECT_EQ(shown, "Server:  srv\nUsername:  usr\nPasswort:  pw (*)\nDatenbank:  db\nName der Tabelle:  tbl\n");

    SQLSettings result;
    wizard.Finish(result);
    EXPECT_EQ(result, (SQLSettings{"txtServer", "txtUser", "txtPass", "txtDB", "txtTableName", {0, 1, 1}}));
}

TEST(SQLWizard, ChoicesBecomeFlags) {
    SQLWizard wizard(stored);
    EXPECT_FALSE(wizard.IsChosen(0));
    EXPECT_TRUE(wizard.IsChosen(1));
    EXPECT_TRUE(wizard.IsChosen(2));
    wizard.Choose(0, true);
    wizard.Choose(2, false);

    SQLSettings result = stored;
    wizard.Finish(result);
    EXPECT_EQ(result, (SQLSettings{"srv", "usr", "pw", "db", "tbl", {1, 1, 0}}));

    SQLWizard({}).Finish(result);
    EXPECT_EQ(result, SQLSettings{}) << "everything may stay empty";
}

} // namespace
} // namespace pirol
