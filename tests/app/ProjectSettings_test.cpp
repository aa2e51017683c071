#include "app/ProjectSettings.h"
#include "Cases.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(ProjectSettings, ShowingAFieldSetsOffNothing) {
    ProjectSettings settings({640, 480, ""});
    settings.ChangeWidth("5");
    EXPECT_EQ(settings.HeightText(), "4");
    settings.ChangeHeight("4"); // as the height field reports it when the form shows it
    EXPECT_EQ(settings.WidthText(), "5");
    settings.ChangeHeight("40");
    EXPECT_EQ(settings.WidthText(), "53");
    settings.ChangeWidth("?");
    EXPECT_EQ(settings.WidthText(), "640") << "the stored size, not the last one typed";
    EXPECT_EQ(settings.HeightText(), "480");
}

TEST(ProjectSettings, AcceptGivesWholeSettingsOrFails) {
    ProjectSettings settings({640, 480, "Alt"});
    settings.ChangeWidth("800");
    settings.ChangeAuthor("Jürgen");
    EXPECT_EQ(settings.Accept(), (WindowSettings{800, 600, "Jürgen"}));
    for (const char* size : {"32768", "-32769", "99999999999"}) {
        settings.ChangeHeight(size);
        EXPECT_EQ(test::ErrorNumberOf([&settings] { settings.Accept(); }), RuntimeError::Overflow) << size;
    }
}

} // namespace
} // namespace pirol
