#include "Cases.h"
#include "project/KeptDesigns.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::time_t day = 24 * 3600;

OpenDesign Design(const std::string& author) {
    OpenDesign design{{}, "/Schule/" + author + "\n.prl"};
    design.model.SetAuthor(author);
    return design;
}

TEST(KeptDesigns, StayWholeForTheUserAloneTheNewestFirst) {
    const test::ScratchFolder scratch;
    const fs::path folder = KeptFolder(scratch / "recovery");
    EXPECT_TRUE(KeptDesigns(folder).empty());
    KeepDesign(folder, Design("a"), "Neuer Entwurf", 5 * day);
    KeepDesign(folder, Design("b"), "Projekt öffnen", 6 * day);
    KeepDesign(folder, Design("a"), "Neuer Entwurf", 7 * day);
    CreateFileBytes(folder / "broken.kept", "Pirol-Wiederherstellung 1\n");
    const std::vector<KeptDesign> kept = KeptDesigns(folder);
    ASSERT_EQ(kept.size(), 2U) << "an equal one is no second one";
    EXPECT_EQ(kept[0].reason + kept[0].filePath + kept[1].reason, "Neuer Entwurf/Schule/a .prlProjekt öffnen");
    EXPECT_EQ(kept[0].kept, 7 * day);
    EXPECT_EQ(ReadDesign(kept[0]).filePath, "/Schule/a\n.prl");
    EXPECT_TRUE(ReadDesign(kept[1]).model == Design("b").model);
#ifndef _WIN32 // where a user's folders are his alone
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(kept[0].file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
#endif
    Delete(kept[0]);
    EXPECT_EQ(KeptDesigns(folder).size(), 1U);
}

TEST(KeptDesigns, TheOldestGoBeyondTheLimits) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "kept";
    for (std::size_t i = 0; i < mostKept + 3; ++i)
        KeepDesign(folder, Design(std::to_string(i)), "", static_cast<std::time_t>(i));
    ASSERT_EQ(KeptDesigns(folder).size(), mostKept);
    EXPECT_EQ(KeptDesigns(folder).back().kept, 3);
    KeepDesign(folder, Design("later"), "", longestKept + 30);
    EXPECT_EQ(KeptDesigns(folder).back().kept, 30);
    const fs::path large = folder / (std::to_string(longestKept + 29) + "-1.kept");
    CreateFileBytes(large, "");
    fs::resize_file(large, mostKeptBytes);
    KeepDesign(folder, Design("last"), "", longestKept + 30);
    EXPECT_EQ(KeptDesigns(folder).size(), 2U) << "behind so large a one there is no room";
    EXPECT_FALSE(fs::exists(large));
}

} // namespace
} // namespace pirol
