#include "sql/SQLModule.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

constexpr std::string_view table = "    public int AnzahlDerTabellen()\r\n    {\r\n"
                                   "        return hatDatenbank.tabellenAnzahl();\r\n    }\r\n\r\n";
constexpr std::string_view name = "    public String NameDerTabelle(int pIndex)\r\n    {\r\n"
                                  "        return hatDatenbank.tabellenName(pIndex);\r\n    }\r\n\r\n";
constexpr std::string_view count = "    public int AnzahlDerEintraege()\r\n    {\r\n"
                                   "        return hatErgebnisliste.zeilenAnzahl();\r\n    }\r\n\r\n";

SQLSettings Filled() {
    return {"srv", "usr", "p\"w", "db", "tbl", {}};
}

TEST(SQLModule, RowsAreSplitAtTheFirstComma) {
    const struct {
        std::string_view name;
        std::string_view description;
    } cases[] = {
        {"AnzahlDerTabellen()", "Gibt die Anzahl der Tabellen zurück"},
        {"NameDerTabelle(int pIndex)", "Gibt den Tabellennamen zurück"},
        {"AnzahlDerEintraege()", "Anzahl der aktuellen Tabelleneinträge"},
    };
    for (std::size_t i = 0; i < sqlFunctionCount; ++i) {
        EXPECT_EQ(SQLFunctions().at(i).Name(), cases[i].name);
        EXPECT_EQ(SQLFunctions().at(i).Description(), cases[i].description);
    }
    EXPECT_EQ((cSQLFunction{"f(),a, b", ""}.Description()), "a, b");
}

TEST(SQLModule, PiecesHoldTheSettingsAsTyped) {
    EXPECT_EQ(GenerateSQLInitCode(), "    Datenbank hatDatenbank;\r\n    SQLErgebnisliste hatErgebnisliste;\r\n");
    const struct {
        SQLSettings settings;
        std::string_view import;
        std::string_view query;
        std::string_view connection;
    } cases[] = {
        {{},
         "",
         "            hatDatenbank.sendeSQL(\"SELECT * FROM \");\r\n",
         "        lFehler = hatDatenbank.verbindeMySQL(\"\", \"\", \"\", \"\");\r\n"},
        {Filled(), "import sum.sql.*;\r\n", "            hatDatenbank.sendeSQL(\"SELECT * FROM tbl\");\r\n",
         "        lFehler = hatDatenbank.verbindeMySQL(\"db\", \"srv\", \"usr\", \"p\"w\");\r\n"},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(GenerateSQLImport(row.settings), row.import);
        EXPECT_EQ(GenerateSQLCode(row.settings), "        hatDatenbank = new Datenbank();\r\n"
                                                 "        hatErgebnisliste = null;\r\n"
                                                 "\r\n"
                                                 "        if (VerbindeMitDatenbank())\r\n"
                                                 "        {\r\n" +
                                                     std::string(row.query) +
                                                     "            hatErgebnisliste = hatDatenbank.ergebnis();\r\n"
                                                     "        }\r\n");
        EXPECT_EQ(GenerateSQLMethods(row.settings), "    public boolean VerbindeMitDatenbank()\r\n"
                                                    "    {\r\n"
                                                    "        String lFehler;\r\n" +
                                                        std::string(row.connection) +
                                                        "        if(lFehler != \"\")\r\n"
                                                        "            System.out.println(lFehler);\r\n"
                                                        "        return lFehler == \"\";\r\n"
                                                        "    }\r\n"
                                                        "\r\n");
    }
}

TEST(SQLModule, FlagsChooseTheMethods) {
    const struct {
        std::array<std::int16_t, sqlFunctionCount> flags;
        std::string methods;
    } cases[] = {
        {{0, 0, 1}, std::string(count)},
        {{1, 0, 0}, std::string(table)},
        {{0, -1, 0}, std::string(name)},
        {{2, 7, 32767}, std::string(table) + std::string(name) + std::string(count)},
    };
    const std::string connection = GenerateSQLMethods(Filled());
    for (const auto& row : cases) {
        SQLSettings settings = Filled();
        settings.Flags = row.flags;
        EXPECT_EQ(GenerateSQLMethods(settings), connection + row.methods);
    }
}

} // namespace
} // namespace pirol
