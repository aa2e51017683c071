#include "designer/ComponentLook.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(ComponentLook, BeyondTheLongestUsefulTotalNoThumbChanges) {
    for (const int bar : {50, 113, 500, 32767}) {
        const int longest = LongestUsefulTotal(bar, bar);
        EXPECT_EQ(ScrollThumb(bar, bar, longest), ScrollThumb(bar, bar, longest + 1'000'000)) << bar;
    }
}

TEST(ComponentLook, NoMoreIsMeasuredThanFits) {
    int measured = 0;
    const Advance counting = [&measured](char16_t) {
        ++measured;
        return 10;
    };
    const std::u16string endless(100'000, u'x');
    FittedText(endless, 200, counting);
    WrapPoint(endless, 200, counting);
    EXPECT_LE(measured, 100);
}

} // namespace
} // namespace pirol
