#include "sql/SQLWizard.h"

namespace pirol {
namespace {

/// All but the last text belong to the connection.
constexpr std::span<const SQLField> tableFields = std::span<const SQLField>(sqlFields).last(1);
constexpr std::span<const SQLField> connectionFields = std::span<const SQLField>(sqlFields).first(sqlFields.size() - 1);

constexpr std::string_view connectionNotes[] = {
    "Geben Sie hier die benötigten Verbindungsdaten an.",
    "- Server: Die IP - Adresse des Servers (oder \"localhost\", falls der Server lokal läuft)",
    "- Username: Der gültige Username um den Zugriff zur Datenbank zu erhalten",
    "- Passwort: Das dem Usernamen zugehörige Passwort",
    "- Datenbank: Der Name der Datenbank, die die Daten enthält",
};

constexpr std::string_view tableNotes[] = {
    "Geben Sie hier den Namen der anzuwählenden Tabelle an",
    "Eine Datenbanktabelle speichert die ihr zugewiesenen Einträge.",
    "Es werden hierzu mehrere Spalten definiert (z.B. Index, Name, Vorname, ...)",
    "In der Datenbank selbst können mehrere Tabellen angelegt werden.",
    "Das generierte Script öffnet standardmäßig eine Tabelle. Diese wird hier angegeben.",
};

constexpr std::string_view methodNotes[] = {
    "Geben Sie an, welche Abfragen im Script vordefiniert werden sollen",
    "Es besteht mit diesem Assistenten die Möglichkeit vordefinierte Abfragen erstellen",
};

constexpr std::string_view onCaption = "Weiter >>";

constexpr SQLWizardStep steps[] = {
    {"Schritt 1 - Die Datenbankverbindung", "Verbindungsdaten:", connectionFields, connectionNotes, onCaption},
    {"Schritt 2 - Die Datenbanktabelle", "Tabellendaten", tableFields, tableNotes, onCaption},
    {"Schritt 3 - Vordefinierte Abfragen", "Abfragen", {}, methodNotes, "Fertig"},
};

} // namespace

std::span<const SQLWizardStep> SQLWizard::Steps() {
    return steps;
}

void SQLWizard::Back() {
    if (!IsFirstStep())
        --step_;
}

void SQLWizard::Forward() {
    if (!IsLastStep())
        ++step_;
}

void SQLWizard::Finish(SQLSettings& settings) const {
    settings = entered_;
    for (std::int16_t& flag : settings.Flags)
        flag = flag != 0 ? 1 : 0;
}

} // namespace pirol
