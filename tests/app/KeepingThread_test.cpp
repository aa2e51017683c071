#include "app/KeepingThread.h"
#include "Cases.h"
#include "project/KeptDesigns.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <future>
#include <utility>

namespace pirol {
namespace {

namespace fs = std::filesystem;

OpenDesign Design(const std::string& author) {
    OpenDesign design;
    design.model.SetAuthor(author);
    return design;
}

/// Whatever comes in the way, nothing is lost at the end of the program, and what is kept is there once.
TEST(KeepingThread, WaitsForAPlaceAndTriesOnceMoreAtTheEnd) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    fs::create_directories(folder);
    CreateFileBytes(KeptFolder(folder), "a file where the folder should be");
    {
        KeepingThread keeping(folder, [](const std::string&) {});
        keeping.KeepFormer({Design("a"), "Neuer Entwurf", 5});
        keeping.KeepFormer({Design("b"), "Projekt öffnen", 6});
        EXPECT_FALSE(keeping.Wait().empty());
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}) / 2, 2) << "each with its lock";
        keeping.KeepShown(Design("c"));
        EXPECT_FALSE(keeping.Wait().empty()) << "the other two still wait";
        fs::remove(KeptFolder(folder));
    }
    std::string kept;
    for (const KeptDesign& design : KeptDesigns(KeptFolder(folder)))
        kept += ReadDesign(design).model.Author() + design.reason + " ";
    EXPECT_EQ(kept, "bProjekt öffnen aNeuer Entwurf ");
    EXPECT_TRUE(fs::is_empty(folder)) << "no recovery file is left";
}

std::size_t FilesBeside(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

/// The file of the one design in the recovery folder; beside it lies its lock.
fs::path LeftFile(const fs::path& folder) {
    EXPECT_LE(FilesBeside(folder), 2U);
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == ".design")
            return entry.path();
    return {};
}

std::string Left(const fs::path& folder) {
    const fs::path file = LeftFile(folder);
    return file.empty() ? "none" : ReadDesign(LeftDesign{file, 0}).model.Author();
}

TEST(KeepingThread, TheDesignOnTheScreenHasItsFileAsLongAsItNeedsOne) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    fs::create_directories(folder);
    std::string told;
    {
        KeepingThread keeping(folder, [&told](const std::string& failure) { told += "<" + failure + ">"; });
        keeping.CheckFiles();
        EXPECT_EQ(keeping.Wait(), "");
        EXPECT_EQ(Left(folder), "none") << "nothing was shown";
        keeping.KeepShown(Design("a"));
        EXPECT_EQ(keeping.Wait(), "");
        EXPECT_EQ(Left(folder), "a");
        const fs::path file = LeftFile(folder);
        fs::last_write_time(file, fs::last_write_time(file) - std::chrono::hours(1));
        const fs::file_time_type earlier = fs::last_write_time(file);
        keeping.CheckFiles();
        keeping.Wait();
        EXPECT_EQ(fs::last_write_time(file), earlier) << "in place";
#ifndef _WIN32 // where a folder stays as long as a file in it is open
        fs::remove_all(folder);
        keeping.CheckFiles();
        keeping.Wait();
        EXPECT_EQ(Left(folder), "a") << "written again";
#endif
        keeping.ForgetShown();
        keeping.Wait();
        EXPECT_EQ(Left(folder), "none");
        keeping.CheckFiles();
        keeping.Wait();
        EXPECT_EQ(Left(folder), "none") << "there is no need of it";
        keeping.KeepShown(Design("b"));
        keeping.Wait();
        keeping.StayBehind(true);
    }
    EXPECT_GE(told.size(), 2U);
    EXPECT_EQ(told.find_first_not_of("<>"), std::string::npos) << told;
    EXPECT_EQ(Left(folder), "b");
    {
        KeepingThread next(folder, [](const std::string&) {});
        next.KeepLeft();
        EXPECT_EQ(next.Wait(), "");
    }
    EXPECT_EQ(Left(folder), "b") << "it is offered";
    ASSERT_EQ(KeptDesigns(KeptFolder(folder)).size(), 1U) << "and kept";
    EXPECT_EQ(KeptDesigns(KeptFolder(folder))[0].reason, "Pirol wurde nicht richtig beendet");
}

TEST(KeepingThread, DoesByItselfWhateverIsAskedFor) {
    void (*const requests[])(KeepingThread&) = {
        [](KeepingThread& keeping) { keeping.KeepShown(Design("a")); },
        [](KeepingThread& keeping) { keeping.ForgetShown(); },
        [](KeepingThread& keeping) {
            keeping.KeepFormer({Design("a"), "Neuer Entwurf", 5});
        },
        [](KeepingThread& keeping) { keeping.KeepLeft(); },
        [](KeepingThread& keeping) { keeping.CheckFiles(); },
    };
    for (const auto request : requests) {
        const test::ScratchFolder scratch;
        std::promise<void> told;
        KeepingThread keeping(scratch / "recovery", [&told, isTold = false](const std::string&) mutable {
            if (!std::exchange(isTold, true))
                told.set_value();
        });
        request(keeping);
        EXPECT_EQ(told.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready)
            << std::find(std::begin(requests), std::end(requests), request) - std::begin(requests);
    }
}

TEST(KeepingThread, TellsWhatCannotBeWritten) {
    const test::ScratchFolder scratch;
    CreateFileBytes(scratch / "file", "");
    std::string told;
    {
        KeepingThread keeping(scratch / "file", [&told](const std::string& failure) { told += failure; });
        keeping.KeepShown(Design("a"));
        EXPECT_FALSE(keeping.Wait().empty());
        keeping.ForgetShown();
        EXPECT_EQ(keeping.Wait(), "") << "there is nothing to write";
    }
    EXPECT_FALSE(told.empty());
}

/// The oldest of too many that wait is left in its file.
TEST(KeepingThread, NoMoreWaitThanAreKept) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    fs::create_directories(folder);
    KeepingThread idle(scratch / "other", [](const std::string&) {}); // long asleep when it ends
    idle.ForgetShown();
    idle.Wait();
    CreateFileBytes(KeptFolder(folder), "a file where the folder should be");
    std::string told;
    {
        KeepingThread keeping(folder, [&told](const std::string& failure) { told = failure; });
        for (std::size_t i = 0; i <= mostKept; ++i) {
            keeping.KeepFormer({Design(std::to_string(i)), "Neuer Entwurf", static_cast<std::time_t>(100 + i)});
            EXPECT_FALSE(keeping.Wait().empty());
        }
        fs::remove(KeptFolder(folder));
        EXPECT_FALSE(keeping.Wait().empty()) << "nothing was asked for";
        keeping.CheckFiles();
        EXPECT_EQ(keeping.Wait(), "");
        EXPECT_EQ(FilesBeside(folder), 1U);
        EXPECT_EQ(KeptDesigns(KeptFolder(folder)).size(), mostKept);
    }
    EXPECT_EQ(Left(folder), "0");
    EXPECT_EQ(told, "");
}

} // namespace
} // namespace pirol
