#include "app/ProjectSettings.h"
#include "model/RuntimeError.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

TEST(ProjectSettings, TheOtherSizeFollows) {
    const struct {
        WindowSettings stored;
        char field; // 'w' or 'h'
        const char* typed;
        const char* width;
        const char* height;
    } cases[] = {
        {{640, 480, ""}, 'w', "800", "800", "600"},
        {{640, 480, ""}, 'h', "600", "800", "600"},
        {{640, 480, ""}, 'w', "8", "8", "6"},
        {{640, 480, ""}, 'w', "-80", "-80", "-60"},
        {{640, 480, ""}, 'w', "0", "0", "0"},
        {{640, 480, ""}, 'w', "640", "640", "480"},
        // Halves go to the even neighbour, in both directions.
        {{640, 320, ""}, 'w', "5", "5", "2"},
        {{640, 320, ""}, 'w', "7", "7", "4"},
        {{320, 640, ""}, 'h', "5", "2", "5"},
        {{600, 500, ""}, 'w', "3", "3", "2"},
        {{640, 480, ""}, 'w', "800,4", "800,4", "600"},
        // No number: the stored size comes back.
        {{640, 480, ""}, 'w', "64x", "640", "480"},
        {{640, 480, ""}, 'h', "", "640", "480"},
        // Beyond 16 bits the other field stays.
        {{640, 480, ""}, 'w', "40000", "40000", "480"},
        {{640, 480, ""}, 'h', "32767", "640", "32767"},
        {{1, 32767, ""}, 'w', "2", "2", "32767"},
        // A size of zero has no proportion.
        {{640, 0, ""}, 'w', "800", "800", "0"},
        {{640, 0, ""}, 'h', "480", "640", "480"},
        {{0, 480, ""}, 'w', "640", "640", "480"},
        {{0, 0, ""}, 'h', "x", "0", "0"},
    };
    for (const auto& row : cases) {
        ProjectSettings settings(row.stored);
        row.field == 'w' ? settings.ChangeWidth(row.typed) : settings.ChangeHeight(row.typed);
        EXPECT_EQ(settings.WidthText(), row.width) << row.typed;
        EXPECT_EQ(settings.HeightText(), row.height) << row.typed;
    }
}

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
        try {
            settings.Accept();
            ADD_FAILURE() << size;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.ErrorNumber(), RuntimeError::Overflow);
        }
    }
}

} // namespace
} // namespace pirol
