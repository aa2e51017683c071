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
        {{3150, 50, 800, 600}, std::nullopt}, // only its edge would be seen
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
    for (const char* damaged :
         {"", "x", "1 2 3", "0 0 10 10 0 0 0 0", "0 0 800 600 0 -5 0 0", "0 0 800 99999 0 0 0 0"}) {
        registry::WriteText("Software\\Pirol\\Window", "one", damaged);
        EXPECT_EQ(WindowPlace::Load("one"), std::nullopt) << damaged;
    }
    unsetenv("XDG_CONFIG_HOME");
}
#endif

} // namespace
} // namespace pirol
