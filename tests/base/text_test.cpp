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

TEST(RuntimeErrors, KeepTheInnermostLabel) {
    const auto overflow = [] { throw RuntimeError(RuntimeError::Overflow); };
    EXPECT_EQ(test::ErrorOf([&] { UnderLabel("Outer", [&] { UnderLabel("Inner", overflow); }); }),
              "Fehler 6: Überlauf (Inner)");
    EXPECT_EQ(test::ErrorOf([] { UnderLabel("Memory", []() -> int { throw std::bad_alloc(); }); }),
              "Fehler 7: Nicht genügend Speicher (Memory)");
}

} // namespace
} // namespace pirol
