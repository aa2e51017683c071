#include "app/cCommonDialog.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(CommonDialog, TakesFiltersApart) {
    const struct {
        std::string_view filter;
        std::vector<FileFilter> expected;
    } cases[] = {
        {"", {}},
        {"BlueJ.exe|BlueJ.exe", {{"BlueJ.exe", {"BlueJ.exe"}}}},
        {"prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*",
         {{"prl - Dateien (*.prl)", {"*.prl"}}, {"Alle Dateien (*.*)", {"*.*"}}}},
        {"Bilder (*.bmp, *.gif, *.jpg)|*.bmp; *.gif; *.jpg",
         {{"Bilder (*.bmp, *.gif, *.jpg)", {"*.bmp", "*.gif", "*.jpg"}}}},
        {"Alles", {{"Alles", {"*"}}}},
        {"Alles|;|", {{"Alles", {"*"}}, {"", {"*"}}}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(FileFilters(row.filter), row.expected) << row.filter;
}

} // namespace
} // namespace pirol
