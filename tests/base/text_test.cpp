#include "base/Conversions.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "Cases.h"

#include <gtest/gtest.h>

#include <numeric>

namespace pirol {
namespace {

TEST(Windows1252, EveryByteSurvivesBothWays) {
    std::string all(256, '\0');
    std::iota(all.begin(), all.end(), '\0');
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
    EXPECT_EQ(HashFunction(FromWindows1252(all)), "139E448D54BDF35E28D87FB6DAF7565FC094A1CD") << "Python's cp1252";
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
