#include "app/RegistryText.h"
#include "Tables.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

constexpr std::string_view key = "Software\\Pirol";

/// A text in quotes, a number without, and a word for no value.
std::string Shown(const std::optional<RegistryValue>& value) {
    if (!value)
        return "none";
    const auto* text = std::get_if<std::string>(&*value);
    return text != nullptr ? "\"" + *text + "\"" : std::to_string(std::get<std::int32_t>(*value));
}

TEST(RegistryText, FindsOnlyProperValues) {
    for (const test::TableRow& row : test::Table("registry-values"))
        EXPECT_EQ(Shown(FindRegistryValue(row[0], key, "N")), row[1]) << row.line;
}

TEST(RegistryText, SetsAValueAndKeepsAllElse) {
    for (const test::TableRow& row : test::Table("registry-changes")) {
        const bool isText = row[1].starts_with('"');
        const RegistryValue value = isText ? RegistryValue(row[1].substr(1, row[1].size() - 2)) : row.Number(1);
        const std::string after = WithRegistryValue(row[0], key, "N", value);
        EXPECT_EQ(after, row[2]);
        EXPECT_EQ(FindRegistryValue(after, key, "N"), value) << after;
        EXPECT_EQ(WithRegistryValue(after, key, "N", value), after) << "writing again changes nothing";
    }
}

TEST(RegistryText, NamesAreEscapedToo) {
    const std::string text = WithRegistryValue("", key, "a\"\\\nb", 1);
    EXPECT_EQ(text, "[Software\\Pirol]\n\"a\\\"\\\\\\nb\"=dword:00000001\n");
    EXPECT_EQ(FindRegistryValue(text, key, "a\"\\\nb"), RegistryValue(1));
}

} // namespace
} // namespace pirol
