#include "sql/SQLModule.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(SQLModule, RowsAreSplitAtTheFirstComma) {
    std::string methods;
    for (const cSQLFunction& method : SQLFunctions())
        methods.append(method.Name()).append(": ").append(method.Description()).append("/");
    EXPECT_EQ(methods, "AnzahlDerTabellen(): Gibt die Anzahl der Tabellen zurück/"
                       "NameDerTabelle(int pIndex): Gibt den Tabellennamen zurück/"
                       "AnzahlDerEintraege(): Anzahl der aktuellen Tabelleneinträge/");
    EXPECT_EQ((cSQLFunction{"f(),a, b", ""}.Description()), "a, b");
}

/// What the methods look like, the cases in tests/data/generate show.
TEST(SQLModule, FlagsChooseTheMethods) {
    const char* const methods[] = {"tabellenAnzahl()", "tabellenName(pIndex)", "zeilenAnzahl()"};
    for (const std::array<std::int16_t, sqlFunctionCount> flags :
         {std::array<std::int16_t, 3>{0, 0, 1}, {1, 0, 0}, {0, -1, 0}, {2, 7, 32767}}) {
        const std::string source = GenerateSQLMethods({"srv", "", "", "", "", flags});
        for (std::size_t i = 0; i < sqlFunctionCount; ++i)
            EXPECT_EQ(source.find(methods[i]) != std::string::npos, flags.at(i) != 0) << methods[i];
    }
}

} // namespace
} // namespace pirol
