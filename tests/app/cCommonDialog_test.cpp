#include "app/cCommonDialog.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(CommonDialog, TakesFiltersApart) {
    const std::pair<std::string_view, std::vector<FileFilter>> cases[] = {
        {"", {}},
        {"BlueJ.exe|BlueJ.exe", {{"BlueJ.exe", {"BlueJ.exe"}}}},
        {"prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*",
         {{"prl - Dateien (*.prl)", {"*.prl"}}, {"Alle Dateien (*.*)", {"*.*"}}}},
        {"Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg",
         {{"Bilder (*.bmp, *.gif, *.jpg)", {"*.bmp", "*.gif", "*.jpg"}}}},
        {"Alles", {{"Alles", {"*"}}}},
        {"Alles|;|", {{"Alles", {"*"}}, {"", {"*"}}}},
    };
    for (const auto& [filter, expected] : cases)
        EXPECT_EQ(FileFilters(filter), expected) << filter;
}

TEST(CommonDialog, AFilterAddsItsFirstExtension) {
    const std::pair<std::string, std::string_view> cases[] = {{"*.prl", "prl"},  {"*.*", ""},      {"*", ""},
                                                              {"BlueJ.exe", ""}, {"*.tar.gz", ""}, {"*.", ""}};
    for (const auto& [pattern, extension] : cases)
        EXPECT_EQ(ExtensionOf({"", {pattern, "*.other"}}), extension) << pattern;
}

} // namespace
} // namespace pirol
