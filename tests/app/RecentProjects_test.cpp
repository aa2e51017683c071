#ifndef _WIN32
#include "app/RecentProjects.h"
#include "app/Registry.h"
#include "Cases.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace pirol {
namespace {

class RecentProjects : public testing::Test {
  protected:
    void SetUp() override { setenv("XDG_CONFIG_HOME", (folder_ / "").c_str(), 1); }
    void TearDown() override { unsetenv("XDG_CONFIG_HOME"); }

    static void Store(std::string_view text) { registry::WriteText("Software\\Pirol", "RecentProjects", text); }

    const test::ScratchFolder folder_;
};

using Paths = std::vector<std::string>;

TEST_F(RecentProjects, AreTheLastTenEachOnce) {
    for (int i = 0; i < 12; ++i)
        recentprojects::Add("/schule/" + std::to_string(i) + ".prl");
    recentprojects::Add("/schule/../schule/7.prl");
    recentprojects::Add("/schule/zwei\nZeilen.prl");
    const Paths paths = recentprojects::Load();
    ASSERT_EQ(paths.size(), 10U);
    EXPECT_EQ(Paths(paths.begin(), paths.begin() + 3), (Paths{"/schule/7.prl", "/schule/11.prl", "/schule/10.prl"}));
    recentprojects::Forget("/schule/11.prl");
    EXPECT_EQ(recentprojects::Load()[1], "/schule/10.prl");
    recentprojects::ForgetAll();
    EXPECT_TRUE(recentprojects::Load().empty());
}

TEST_F(RecentProjects, AreNoneWhereTheValueIsDamaged) {
    const std::pair<const char*, Paths> cases[] = {
        {"", {}},
        {"a.prl\n\n\xFF\n", {}},
        {"/a.prl\nb.prl\n/a.prl", {"/a.prl"}},
    };
    for (const auto& [text, paths] : cases) {
        Store(text);
        EXPECT_EQ(recentprojects::Load(), paths) << text;
    }
    registry::WriteNumber("Software\\Pirol", "RecentProjects", 7);
    EXPECT_TRUE(recentprojects::Load().empty());
}

} // namespace
} // namespace pirol
#endif
