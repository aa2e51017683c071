#include "app/Registry.h"
#include "app/WindowPlace.h"
#include "Cases.h"
#include "Tables.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace pirol {
namespace {

TEST(WindowPlace, FallsBackWhereTheScreenIsGone) {
    const std::vector<Rectangle> screens = {{0, 0, 1920, 1080}, {1920, 0, 1280, 1024}};
    const struct {
        Rectangle box;
        std::optional<Rectangle> place;
    } rows[] = {
        {{100, 50, 800, 600}, Rectangle{100, 50, 800, 600}},
        {{2000, 50, 800, 600}, Rectangle{2000, 50, 800, 600}},
        {{-300, -20, 800, 600}, Rectangle{0, 0, 800, 600}},
        {{100, 50, 9000, 6000}, Rectangle{0, 0, 1920, 1080}},
        {{1860, 50, 60, 600}, Rectangle{1860, 50, 60, 600}},
        {{3140, 50, 800, 600}, Rectangle{2400, 50, 800, 600}},
        {{3141, 50, 800, 600}, std::nullopt}, // only its edge would be seen
        {{100, 1020, 800, 600}, Rectangle{100, 480, 800, 600}},
        {{100, 1021, 800, 600}, std::nullopt},
        {{1900, 400, 2000, 2000}, Rectangle{1920, 0, 1280, 1024}},
        {{-2000, 50, 800, 600}, std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(OnScreens(row.box, screens), row.place) << row.box.left;
    EXPECT_EQ(ScreensName(screens), "1920x1080+0+0 1280x1024+1920+0");
}

#ifndef _WIN32
TEST(WindowPlace, IsKeptForTheScreens) {
    const test::ScratchFolder folder;
    setenv("XDG_CONFIG_HOME", (folder / "").c_str(), 1);
    const WindowPlace place{{10, -20, 800, 600}, true, 180, 0, 90};
    place.Save("one");
    EXPECT_EQ(WindowPlace::Load("one"), place);
    EXPECT_EQ(WindowPlace::Load("two"), std::nullopt);
    WindowPlace{.box = {0, 0, 200, 200}}.Save("plain");
    EXPECT_EQ(registry::ReadText("Software\\Pirol\\Window", "plain"), "0 0 200 200 0 0 0 0");
    EXPECT_TRUE(WindowPlace::Load("plain"));
    registry::WriteText("Software\\Pirol\\Window", "wide", "0 0 200 200 2 2000 2000 2000");
    EXPECT_EQ(WindowPlace::Load("wide"), (WindowPlace{{0, 0, 200, 200}, true, 2000, 2000, 2000}));
    for (const char* damaged : {"", "x", "1 2 3", "0 0 10 10 0 0 0 0", "0 0 800 600 0 -5 0 0", "0 0 800 99999 0 0 0 0",
                                "0 0 199 200 0 0 0 0", "0 0 200 199 0 0 0 0", "0 0 800 600 0 2001 0 0",
                                "0 0 800 600 0 0 2001 0", "0 0 800 600 0 0 0 -1", "0 0 800 600 0 0 0 0 0"}) {
        registry::WriteText("Software\\Pirol\\Window", "one", damaged);
        EXPECT_EQ(WindowPlace::Load("one"), std::nullopt) << damaged;
    }
    unsetenv("XDG_CONFIG_HOME");
}
#endif

} // namespace
} // namespace pirol
