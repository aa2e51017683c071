#include "base/Conversions.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "Cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace pirol {
namespace {

TEST(Windows1252, EveryByteSurvivesBothWays) {
    std::string all(256, '\0');
    std::iota(all.begin(), all.end(), '\0');
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
    EXPECT_EQ(HashFunction(FromWindows1252(all)), "139E448D54BDF35E28D87FB6DAF7565FC094A1CD") << "Python's cp1252";
}

/// The table of well-formed byte sequences in the Unicode standard.
bool IsWellFormed(const std::string& bytes) {
    struct Row {
        unsigned char first, last, secondFrom, secondTo;
        std::size_t length;
    };
    constexpr Row rows[] = {{0x00, 0x7F, 0x80, 0xBF, 1}, {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
                            {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
                            {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    const auto code = [&bytes](std::size_t at) {
        return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
    };
    std::size_t at = 0;
    while (at < bytes.size()) {
        const auto* row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& candidate) {
            return code(at) >= candidate.first && code(at) <= candidate.last;
        });
        if (row == std::end(rows) ||
            (row->length > 1 && (code(at + 1) < row->secondFrom || code(at + 1) > row->secondTo)))
            return false;
        for (std::size_t next = 2; next < row->length; ++next)
            if (code(at + next) < 0x80 || code(at + next) > 0xBF)
                return false;
        at += row->length;
    }
    return true;
}

TEST(Utf8, IsWhatTheStandardSays) {
    const std::string_view ends(
        "\0\x7F\x80\x8F\x90\x9F\xA0\xBF\xC0\xC1\xC2\xDF\xE0\xE1\xEC\xED\xEE\xEF\xF0\xF1\xF3\xF4\xF5\xFF", 24);
    for (const char a : ends)
        for (const char b : ends)
            for (const char c : ends)
                for (const char d : {'\x7F', '\x80', '\xBF', '\xC0', '\xC2'})
                    for (const std::string& bytes : {std::string{a}, std::string{a, b, c}, std::string{a, b, c, d}})
                        ASSERT_EQ(IsUtf8(bytes), IsWellFormed(bytes)) << testing::PrintToString(bytes);
}

TEST(Windows1252, OtherCharactersAreFoundAtEveryPlace) {
    for (std::size_t length = 1; length < 40; ++length)
        for (std::size_t place = 0; place < length; ++place) {
            const std::string before(place, 'x');
            const std::string behind(length - place - 1, 'x');
            EXPECT_EQ(FromWindows1252(before + '\x80' + behind), before + "€" + behind);
            EXPECT_EQ(ToWindows1252(before + "€" + behind), before + '\x80' + behind);
        }
}

TEST(Conversions, AnExcerptIsOneShortLine) {
    EXPECT_EQ(Excerpt(std::string(60, 'x')), std::string(60, 'x'));
    EXPECT_EQ(Excerpt(std::string(61, 'x')), std::string(60, 'x') + "…");
    EXPECT_EQ(Excerpt(std::string(59, 'x') + "ä"), std::string(59, 'x') + "…");
    EXPECT_EQ(Excerpt("\1a\nb\x1F \x7F~ä"), " a b   ~ä");
}

TEST(RuntimeErrors, HaveTheirNumbersAndTexts) {
    std::string all;
    for (const auto number :
         {RuntimeError::InvalidCall, RuntimeError::Overflow, RuntimeError::OutOfMemory, RuntimeError::IndexOutOfRange,
          RuntimeError::TypeMismatch, RuntimeError::BadFileName, RuntimeError::FileNotFound, RuntimeError::DeviceError,
          RuntimeError::DiskFull, RuntimeError::TooManyFiles, RuntimeError::PermissionDenied, RuntimeError::PathAccess,
          RuntimeError::PathNotFound})
        all += std::string(RuntimeError(number).what()).substr(7) + "\n";
    EXPECT_EQ(all, "5: Ungültiger Prozeduraufruf\n6: Überlauf\n7: Nicht genügend Speicher\n"
                   "9: Index außerhalb des gültigen Bereichs\n13: Typen unverträglich\n"
                   "52: Dateiname oder -nummer falsch\n53: Datei nicht gefunden\n57: E/A-Gerätefehler\n"
                   "61: Datenträger voll\n67: Zu viele Dateien\n70: Zugriff verweigert\n"
                   "75: Fehler beim Zugriff auf Pfad/Datei\n76: Pfad nicht gefunden\n");
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
