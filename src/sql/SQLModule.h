#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pirol {

constexpr std::size_t sqlFunctionCount = 3;

/// The database settings of a project. The texts are UTF-8 and stand exactly as the user typed them, the password in
/// plain text. A new project's are empty.
struct SQLSettings {
    std::string Server;
    std::string User;
    std::string Password;
    std::string Database;
    std::string TableName;
    /// Which predefined methods the generated class gets. Any number is kept as a project file gave it.
    std::array<std::int16_t, sqlFunctionCount> Flags{};

    bool operator==(const SQLSettings&) const = default;

    /// True when a server is named: the generated class then imports the database package.
    bool UsesDatabase() const { return !Server.empty(); }
    /// True when the class gets the method at this place of SQLFunctions(), from 0.
    bool HasFunction(std::size_t index) const { return Flags.at(index) != 0; }
};

/// One of the settings' texts, wherever it is shown, stored or checked.
struct SQLField {
    std::string SQLSettings::*text;
    std::string_view control; ///< its text field's name on the wizard's form
    std::string_view label;   ///< stands before the text field
    bool unreadable = false;  ///< its characters must not be shown

    /// What messages call it: the label without its colon.
    constexpr std::string_view Name() const { return label.substr(0, label.find(':')); }
};

/// The texts in the order of the wizard and of the project file.
inline constexpr std::array<SQLField, 5> sqlFields = {{
    {&SQLSettings::Server, "txtServer", "Server:  "},
    {&SQLSettings::User, "txtUser", "Username:  "},
    {&SQLSettings::Password, "txtPass", "Passwort:  ", true},
    {&SQLSettings::Database, "txtDB", "Datenbank:  "},
    {&SQLSettings::TableName, "txtTableName", "Name der Tabelle:  "},
}};

/// A predefined query method.
struct cSQLFunction {
    std::string_view row;  ///< name and description with a comma between them
    std::string_view code; ///< the Java method and an empty line, lines of CR LF

    /// What the wizard's list shows: the text before the first comma of the row, and the rest.
    std::string_view Name() const { return row.substr(0, row.find(',')); }
    std::string_view Description() const { return row.substr(row.find(',') + 1); }
};

/// The methods in the order of the settings' flags.
const std::array<cSQLFunction, sqlFunctionCount>& SQLFunctions();

/// The import line, CR LF included; empty when the settings use no database.
std::string GenerateSQLImport(const SQLSettings& settings);

/// Java for the generated class, lines of CR LF: the fields, the constructor's statements, and the method that connects
/// to the database followed by the chosen predefined methods. Settings are written without escaping.
std::string GenerateSQLInitCode();
std::string GenerateSQLCode(const SQLSettings& settings);
std::string GenerateSQLMethods(const SQLSettings& settings);

} // namespace pirol
