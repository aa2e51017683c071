#include "Cases.h"
#include "project/KeptDesigns.h"
#include "project/Recovery.h"
#include "project/Snapshot.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <ctime>

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
    for (std::size_t i = 0; i < 53; ++i)
        KeepDesign(folder, Design(std::to_string(i)), "", static_cast<std::time_t>(i));
    ASSERT_EQ(KeptDesigns(folder).size(), 50U);
    EXPECT_EQ(KeptDesigns(folder).back().kept, 3);
    KeepDesign(folder, Design("later"), "", 30 * day + 30);
    EXPECT_EQ(KeptDesigns(folder).back().kept, 30);
    const std::uintmax_t size = fs::file_size(KeptDesigns(folder).front().file);
    const fs::path large = folder / (std::to_string(30 * day + 29) + "-1.kept");
    CreateFileBytes(large, "");
    fs::resize_file(large, 100 * 1024 * 1024 - size);
    KeepDesign(folder, Design("later"), "", 30 * day + 30);
    EXPECT_TRUE(fs::exists(large)) << "both take 100 megabytes";
    fs::resize_file(large, 100 * 1024 * 1024 - size + 1);
    KeepDesign(folder, Design("later"), "", 30 * day + 30);
    EXPECT_EQ(KeptDesigns(folder).size(), 1U) << "behind so large a one there is no room";
    EXPECT_FALSE(fs::exists(large));
}

TEST(KeptDesigns, WhatEndedProgramsHaveLeftIsKeptOnce) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "kept";
    const fs::path recovery = scratch / "recovery";
    const std::time_t now = std::time(nullptr);
    const auto leave = [&](const std::string& author, int daysAgo) {
        const std::vector<fs::path> before = FilesIn(recovery);
        {
            RecoveryFile file(recovery);
            file.Write(SnapshotOf(Design(author)));
            file.StayBehind(true);
        }
        for (const fs::path& path : FilesIn(recovery))
            if (std::find(before.begin(), before.end(), path) == before.end())
                fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(24 * daysAgo + 1));
    };
    KeepLeftDesigns(folder, recovery, "beendet", now);
    EXPECT_FALSE(fs::exists(folder));
    leave("old", 31);
    leave("damaged", 29);
    for (const LeftDesign& left : LeftDesigns(recovery))
        if (now - left.written < 30 * day)
            ReplaceFileBytes(left.file, "x");
    leave("known", 28);
    leave("new", 27);
    KeepDesign(folder, Design("known"), "other", now);
    const std::size_t files = FilesIn(recovery).size();
    for (int round = 0; round < 2; ++round) {
        KeepLeftDesigns(folder, recovery, "beendet", now);
        std::string kept;
        for (const KeptDesign& design : KeptDesigns(folder))
            kept += ReadDesign(design).model.Author() + " " + design.reason + " " +
                    std::to_string((now - design.kept) / day) + "/";
        EXPECT_EQ(kept, "known other 0/new beendet 27/");
    }
    EXPECT_EQ(FilesIn(recovery).size(), files) << "they stay to be offered";
}

} // namespace
} // namespace pirol
