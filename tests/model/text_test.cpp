#include "model/Conversions.h"
#include "model/RuntimeError.h"
#include "model/Windows1252.h"

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
    const struct {
        std::string utf8, bytes;
    } cases[] = {
        {"Größe", "Gr\xF6\xDF"
                  "e"},
        {"€ „Ÿ“", "\x80 \x84\x9F\x93"},
        {"Ł", "?"},                // not in the code page
        {"\xF0\x9F\x90\xA6", "?"}, // one character of four bytes
        {"\u0080", "?"},           // that code means the euro sign
        {"a\xFF\xC3", "a??"},      // no well-formed text
        {"\xC0\xAF", "??"},        // too long a form
        {"\xED\xA0\x80", "???"},   // half a pair
    };
    for (const auto& row : cases)
        EXPECT_EQ(ToWindows1252(row.utf8), row.bytes) << row.utf8;
}

TEST(Conversions, WholeNumbersRoundHalfToEven) {
    const struct {
        const char* text;
        int value;
    } cases[] = {{"0", 0},      {"-0", 0},          {" 42 ", 42},        {"+7", 7},          {"24,5", 24},
                 {"25.5", 26},  {"-24,5", -24},     {"-25,5", -26},      {"24,50001", 25},   {",5", 0},
                 {"1,5", 2},    {"7,", 7},          {"32767", 32767},    {"-32768", -32768}, {"32767,4", 32767},
                 {"00012", 12}, {"32766,5", 32766}, {"-32768,5", -32768}};
    for (const auto& row : cases)
        EXPECT_EQ(ToInt16(std::string_view(row.text)), row.value) << row.text;
}

TEST(Conversions, WhatIsNoNumberOrTooLargeIsAnError) {
    const struct {
        const char* text;
        int number;
    } cases[] = {{"", 13},
                 {" ", 13},
                 {"x", 13},
                 {"1 2", 13},
                 {"--1", 13},
                 {"1,2,3", 13},
                 {",", 13},
                 {"1e3", 13},
                 {"0x10", 13},
                 {"1.000,5", 13},
                 {"32768", 6},
                 {"-32769", 6},
                 {"32767,5", 6},
                 {"99999999999999999999", 6},
                 {"-99999999999999999999", 6},
                 {"12\t", 13}};
    for (const auto& row : cases) {
        try {
            ToInt16(std::string_view(row.text));
            ADD_FAILURE() << row.text;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.ErrorNumber(), row.number) << row.text;
        }
        EXPECT_EQ(IsNumeric(row.text), row.number == 6) << row.text;
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
    try {
        UnderLabel("Outer", [] { UnderLabel("Inner", [] { throw RuntimeError(RuntimeError::Overflow); }); });
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_STREQ(error.what(), "Fehler 6: Überlauf (Inner)");
    }
    try {
        UnderLabel("Memory", []() -> int { throw std::bad_alloc(); });
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_STREQ(error.what(), "Fehler 7: Nicht genügend Speicher (Memory)");
    }
}

} // namespace
} // namespace pirol
