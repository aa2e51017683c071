#include "sql/SQLWizard.h"

#include <gtest/gtest.h>

#include <tuple>

namespace pirol {
namespace {

const SQLSettings stored = {"srv", "usr", "pw", "db", "tbl", {0, 7, -1}};

TEST(SQLWizard, WalksTheStepsAndStopsAtBothEnds) {
    const std::tuple<char, std::size_t, const char*, const char*> walk[] = {
        {'<', 0, "Schritt 1 - Die Datenbankverbindung", "Weiter >>"},
        {'>', 1, "Schritt 2 - Die Datenbanktabelle", "Weiter >>"},
        {'>', 2, "Schritt 3 - Vordefinierte Abfragen", "Fertig"},
        {'>', 2, "Schritt 3 - Vordefinierte Abfragen", "Fertig"},
        {'<', 1, "Schritt 2 - Die Datenbanktabelle", "Weiter >>"},
        {'<', 0, "Schritt 1 - Die Datenbankverbindung", "Weiter >>"},
    };
    SQLWizard wizard({});
    for (const auto& [key, step, title, forwardCaption] : walk) {
        key == '<' ? wizard.Back() : wizard.Forward();
        EXPECT_EQ(wizard.StepIndex(), step);
        EXPECT_EQ(wizard.Step().title, title);
        EXPECT_EQ(wizard.Step().forwardCaption, forwardCaption);
    }
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
