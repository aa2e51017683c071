#include "app/RegistryText.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

constexpr std::string_view key = "Software\\Pirol";

TEST(RegistryText, FindsOnlyProperValues) {
    const struct {
        std::string_view text;
        std::optional<RegistryValue> value; // of "N" below the key
    } cases[] = {
        {"[Software\\Pirol]\n\"N\"=dword:000000ff\n", 255},
        {"[Software\\Pirol]\r\n\"N\"=dword:FFFFFFFE\r\n", -2},
        {"[Software\\Pirol]\n\"N\"=\"C:\\\\a\\\"b\\n\\r ü\"", "C:\\a\"b\n\r ü"},
        {"[Software\\Pirol]\n\"N\"=\"\"\n", ""},
        {"\n\n[Other]\n\"N\"=dword:1\n[Software\\Pirol]\n\n\"M\"=dword:2\n\"N\"=dword:3\n\"N\"=dword:4\n", 3},
        {"[Software\\Pirol]\n[Other]\n[Software\\Pirol]\n\"N\"=dword:5\n", 5},
        // Damaged lines.
        {"[Software\\Pirol]\n\"N\"=dword:xyz\n\"N\"=dword:6\n", 6},
        {"", {}},
        {"\"N\"=dword:1\n", {}},
        {"[Software\\Pirol]\n", {}},
        {"[Software\\Pirol\n\"N\"=dword:1\n", {}},
        {"[software\\pirol]\n\"N\"=dword:1\n", {}},
        {"[Software\\Pirol]\n[Other]\n\"N\"=dword:1\n", {}},
        {"[Software\\Pirol]\n\"N\"=dword:\n", {}},
        {"[Software\\Pirol]\n\"N\"=dword:000000001\n", {}},
        {"[Software\\Pirol]\n\"N\"=dword:-1\n", {}},
        {"[Software\\Pirol]\n\"N\"=dword:1 \n", {}},
        {"[Software\\Pirol]\n\"N\"=1\n", {}},
        {"[Software\\Pirol]\n\"N\"\n", {}},
        {"[Software\\Pirol]\nN=dword:1\n", {}},
        {"[Software\\Pirol]\n\"N\"=\"open\n", {}},
        {"[Software\\Pirol]\n\"N\"=\"bad \\x\"\n", {}},
        {"[Software\\Pirol]\n\"N\"=\"end\\\n", {}},
        {"[Software\\Pirol]\n\"N\"=\"x\"y\n", {}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(FindRegistryValue(row.text, key, "N"), row.value) << row.text;
}

TEST(RegistryText, SetsAValueAndKeepsAllElse) {
    const struct {
        std::string_view before;
        RegistryValue value;
        std::string_view after;
    } cases[] = {
        {"", 1, "[Software\\Pirol]\n\"N\"=dword:00000001\n"},
        {"", "C:\\a\"\n", "[Software\\Pirol]\n\"N\"=\"C:\\\\a\\\"\\n\"\n"},
        {"[Software\\Pirol]\n\"M\"=\"m\"\n\"N\"=\"x\"\n\"Z\"=\"z\"\n", -1,
         "[Software\\Pirol]\n\"M\"=\"m\"\n\"N\"=dword:ffffffff\n\"Z\"=\"z\"\n"},
        {"[Software\\Pirol]\n\"M\"=\"m\"\n\n[Other]\n\"N\"=\"o\"\n", 1,
         "[Software\\Pirol]\n\"M\"=\"m\"\n\"N\"=dword:00000001\n\n[Other]\n\"N\"=\"o\"\n"},
        {"[Other]\n\"N\"=\"o\"", 1, "[Other]\n\"N\"=\"o\"\n\n[Software\\Pirol]\n\"N\"=dword:00000001\n"},
        {"[Software\\Pirol]", 1, "[Software\\Pirol]\n\"N\"=dword:00000001"},
        {"; note\r\n[Software\\Pirol]\r\n\"N\"=dword:2\r\n", 1,
         "; note\r\n[Software\\Pirol]\r\n\"N\"=dword:00000001\r\n"},
        {"rubbish\n[Software\\Pirol]\n\"N\"=dword:xx\nmore\n", 1,
         "rubbish\n[Software\\Pirol]\n\"N\"=dword:xx\nmore\n\"N\"=dword:00000001\n"},
    };
    for (const auto& row : cases) {
        const std::string after = WithRegistryValue(row.before, key, "N", row.value);
        EXPECT_EQ(after, row.after);
        EXPECT_EQ(FindRegistryValue(after, key, "N"), row.value) << after;
        EXPECT_EQ(WithRegistryValue(after, key, "N", row.value), after) << "writing again changes nothing";
    }
}

TEST(RegistryText, NamesAreEscapedToo) {
    const std::string text = WithRegistryValue("", key, "a\"\\\nb", 1);
    EXPECT_EQ(text, "[Software\\Pirol]\n\"a\\\"\\\\\\nb\"=dword:00000001\n");
    EXPECT_EQ(FindRegistryValue(text, key, "a\"\\\nb"), RegistryValue(1));
}

} // namespace
} // namespace pirol
