#include "sql/SQLModule.h"

#include "base/JavaText.h"
#include "base/Text.h"

namespace pirol {
namespace {

constexpr std::array<cSQLFunction, sqlFunctionCount> functions = {{
    {"AnzahlDerTabellen(),Gibt die Anzahl der Tabellen zurück", "    public int AnzahlDerTabellen()\r\n"
                                                                "    {\r\n"
                                                                "        return hatDatenbank.tabellenAnzahl();\r\n"
                                                                "    }\r\n"
                                                                "\r\n"},
    {"NameDerTabelle(int pIndex),Gibt den Tabellennamen zurück", "    public String NameDerTabelle(int pIndex)\r\n"
                                                                 "    {\r\n"
                                                                 "        return hatDatenbank.tabellenName(pIndex);\r\n"
                                                                 "    }\r\n"
                                                                 "\r\n"},
    {"AnzahlDerEintraege(),Anzahl der aktuellen Tabelleneinträge", "    public int AnzahlDerEintraege()\r\n"
                                                                   "    {\r\n"
                                                                   "        return hatErgebnisliste.zeilenAnzahl();\r\n"
                                                                   "    }\r\n"
                                                                   "\r\n"},
}};

} // namespace

const std::array<cSQLFunction, sqlFunctionCount>& SQLFunctions() {
    return functions;
}

std::string GenerateSQLImport(const SQLSettings& settings) {
    return settings.UsesDatabase() ? "import sum.sql.*;\r\n" : "";
}

std::string GenerateSQLInitCode() {
    return FieldDeclaration("Datenbank", "hatDatenbank") + FieldDeclaration("SQLErgebnisliste", "hatErgebnisliste");
}

std::string GenerateSQLCode(const SQLSettings& settings) {
    return Concatenate("        hatDatenbank = new Datenbank();\r\n"
                       "        hatErgebnisliste = null;\r\n"
                       "\r\n"
                       "        if (VerbindeMitDatenbank())\r\n"
                       "        {\r\n"
                       "            hatDatenbank.sendeSQL(\"SELECT * FROM ",
                       settings.TableName,
                       "\");\r\n"
                       "            hatErgebnisliste = hatDatenbank.ergebnis();\r\n"
                       "        }\r\n");
}

std::string GenerateSQLMethods(const SQLSettings& settings) {
    // Database first, then server: the order the library's call expects.
    const std::string arguments = Concatenate(Quoted(settings.Database), ", ", Quoted(settings.Server), ", ",
                                              Quoted(settings.User), ", ", Quoted(settings.Password));
    // The comparisons are by reference on purpose, as every program made so far has them.
    std::string code = Concatenate("    public boolean VerbindeMitDatenbank()\r\n"
                                   "    {\r\n"
                                   "        String lFehler;\r\n"
                                   "        lFehler = hatDatenbank.verbindeMySQL(",
                                   arguments,
                                   ");\r\n"
                                   "        if(lFehler != \"\")\r\n"
                                   "            System.out.println(lFehler);\r\n"
                                   "        return lFehler == \"\";\r\n"
                                   "    }\r\n"
                                   "\r\n");
    for (std::size_t i = 0; i < functions.size(); ++i)
        if (settings.HasFunction(i))
            code += functions[i].code;
    return code;
}

} // namespace pirol
