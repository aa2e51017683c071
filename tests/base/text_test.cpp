#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(Windows1252, EveryByteSurvivesBothWays) {
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
}

TEST(Windows1252, OtherCharactersAreFoundAtEveryPlace) {
    for (std::size_t length = 1; length < 40; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            std::string bytes(length, 'x');
            std::string utf8 = bytes;
            bytes[place] = '\x80';
            utf8.replace(place, 1, "€");
            EXPECT_EQ(FromWindows1252(bytes), utf8);
            EXPECT_EQ(ToWindows1252(utf8), bytes);
        }
    }
}

TEST(Windows1252, CharactersOutsideBecomeQuestionMarks) {
    for (const test::TableRow& row : test::Table("windows-1252"))
        EXPECT_EQ(ToWindows1252(row[0]), row[1]) << row.line;
}

TEST(Conversions, WholeNumbersRoundHalfToEven) {
    for (const test::TableRow& row : test::Table("numbers")) {
        const std::string_view typed = row[0];
        EXPECT_EQ(test::OutcomeOf([typed] { return std::to_string(ToInt16(typed)); }), row[1]) << row.line;
        EXPECT_EQ(IsNumeric(typed), row[1] != "Fehler 13") << row.line;
    }
}

TEST(Conversions, FlagsAreTrueForThreeWordsOnly) {
    for (const char* text : {"Wahr", "wahr", "WAHR", "True", "tRUE", "-1"})
        EXPECT_TRUE(ConvertToBoolean(text)) << text;
    for (const char* text : {"", "1", "Falsch", "False", "0", " Wahr", "Wahr ", "wahrheit", "--1"})
        EXPECT_FALSE(ConvertToBoolean(text)) << text;
}

TEST(Conversions, SplitGivesAllPiecesUpToTheLimit) {
    using Pieces = std::vector<std::string_view>;
    EXPECT_EQ(Split("", ','), (Pieces{""}));
    EXPECT_EQ(Split("a,,b,", ','), (Pieces{"a", "", "b", ""}));
    EXPECT_EQ(Split("a,b,c", ',', 2), (Pieces{"a", "b"}));
}

TEST(RuntimeErrors, KeepTheInnermostLabel) {
    const auto overflow = [] { throw RuntimeError(RuntimeError::Overflow); };
    EXPECT_EQ(test::ErrorOf([&] { UnderLabel("Outer", [&] { UnderLabel("Inner", overflow); }); }),
              "Fehler 6: Überlauf (Inner)");
    EXPECT_EQ(test::ErrorOf([] { UnderLabel("Memory", []() -> int { throw std::bad_alloc(); }); }),
              "Fehler 7: Nicht genügend Speicher (Memory)");
}

} // namespace
} // namespace pirol
