#include "Cases.h"
#include "project/Recovery.h"
#include "project/Snapshot.h"

#include <gtest/gtest.h>

namespace pirol {
namespace {

namespace fs = std::filesystem;

OpenDesign Design(const std::string& author) {
    OpenDesign design;
    design.model.SetAuthor(author);
    return design;
}

class Recovery : public testing::Test {
  protected:
    /// What a killed program leaves: its recovery file without the lock.
    void Leave(const std::string& name, const std::string& author) {
        const test::ScratchFolder other;
        RecoveryFile file(other / "recovery");
        file.Write(SnapshotOf(Design(author)));
        fs::create_directories(folder_);
        for (const fs::path& path : FilesIn(other / "recovery"))
            if (path.extension() == ".design")
                fs::copy_file(path, folder_ / (name + ".design"));
    }

    const test::ScratchFolder scratch_;
    const fs::path folder_ = scratch_ / "state" / "recovery";
};

std::string AuthorsOf(const std::vector<LeftDesign>& designs) {
    std::string authors;
    for (const LeftDesign& left : designs)
        authors += ReadDesign(left).model.Author() + " ";
    return authors;
}

TEST_F(Recovery, NothingIsLeftByLivingProgramsAndByNormalEnds) {
    EXPECT_TRUE(LeftDesigns(folder_).empty());
    {
        RecoveryFile first(folder_);
        RecoveryFile second(folder_);
        EXPECT_FALSE(fs::exists(folder_)) << "made before there is something to keep";
        // A folder that cannot be made is an error and may come later.
        CreateFileBytes(scratch_ / "state", "x");
        const auto write = [&first] { first.Write(SnapshotOf(Design("old"))); };
        for (int attempt = 0; attempt < 2; ++attempt)
            EXPECT_EQ(test::ErrorOf(write), "Fehler 76: Pfad nicht gefunden");
        fs::remove(scratch_ / "state");
        EXPECT_EQ(test::ErrorOf(write), "");
        first.Write(SnapshotOf(Design("new")));
        second.Write(SnapshotOf(Design("other")));
        EXPECT_TRUE(LeftDesigns(folder_).empty());
        EXPECT_EQ(FilesIn(folder_).size(), 4U);
        second.Remove();
        EXPECT_EQ(FilesIn(folder_).size(), 3U);
    }
    EXPECT_TRUE(FilesIn(folder_).empty());
    EXPECT_EQ(test::ErrorOf([] { RecoveryFile({}).Write(""); }), "Fehler 76: Pfad nicht gefunden");
}

TEST_F(Recovery, LeftDesignsAreOfferedToOneProgramTheNewestFirst) {
    for (const std::string name : {"1-0", "30-0", "2-0"})
        Leave(name, name);
    const auto time = fs::last_write_time(folder_ / "1-0.design");
    fs::last_write_time(folder_ / "2-0.design", time + std::chrono::hours(1));
    fs::last_write_time(folder_ / "30-0.design", time - std::chrono::hours(1));
    for (const char* rest : {".pirol-4711.tmp", "1-0.lock", ".pirol-1.tmp", "98-0.lock"}) {
        CreateFileBytes(folder_ / rest, "x");
        fs::last_write_time(folder_ / rest, time - std::chrono::hours(2)); // by which Windows knows what is abandoned
    }
    const std::vector<LeftDesign> left = LeftDesigns(folder_);
    EXPECT_EQ(AuthorsOf(left), "2-0 1-0 30-0 ");
    EXPECT_EQ(FilesIn(folder_).size(), 3U) << "without what was half written, and locks";
    {
        const auto held = Hold(left[1]);
        EXPECT_TRUE(held);
        EXPECT_FALSE(Hold(left[1])) << "offered twice at the same time";
        EXPECT_EQ(AuthorsOf(LeftDesigns(folder_)), "2-0 30-0 ");
        Discard(left[1]);
    }
    EXPECT_FALSE(Hold(left[1]));
    EXPECT_EQ(AuthorsOf(LeftDesigns(folder_)), "2-0 30-0 ");
    EXPECT_EQ(FilesIn(folder_).size(), 2U);
}

#ifndef _WIN32

TEST_F(Recovery, WhatIsNoLockKeepsNoDesignBack) {
    for (const std::string name : {"1-0", "2-0", "3-0", "4-0"})
        Leave(name, name);
    fs::create_directory(folder_ / "1-0.lock");
    fs::create_symlink("2-0.lock", folder_ / "2-0.lock");
    const auto writer = FileLock::TryLock(folder_ / "3-0.lock");
    fs::permissions(folder_, fs::perms::all);
    const std::string authors = AuthorsOf(LeftDesigns(folder_));
    for (const char* name : {"1-0", "2-0", "4-0"})
        EXPECT_NE(authors.find(name), std::string::npos) << authors;
    EXPECT_EQ(authors.find("3-0"), std::string::npos);
    RecoveryFile file(folder_);
    file.Write(SnapshotOf(Design("own")));
    EXPECT_EQ(fs::status(folder_).permissions(), fs::perms::owner_all);
}

TEST_F(Recovery, TheRunningProgramsDesignIsSafeWithoutItsLockAndItsFolder) {
    RecoveryFile file(folder_);
    file.Write(SnapshotOf(Design("first")));
    for (const fs::path& path : FilesIn(folder_)) {
        EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
        if (path.extension() == ".lock")
            fs::remove(path);
    }
    EXPECT_TRUE(LeftDesigns(folder_).empty());
    file.Write(SnapshotOf(Design("second")));
    EXPECT_TRUE(LeftDesigns(folder_).empty());
    EXPECT_EQ(FilesIn(folder_).size(), 2U);
    fs::remove_all(folder_);
    file.Write(SnapshotOf(Design("third")));
    EXPECT_EQ(FilesIn(folder_).size(), 2U);
    file.StayBehind(true);
}

#endif

TEST_F(Recovery, ALeftDesignIsNotOverwrittenByAProgramOfTheSameNumber) {
    RecoveryFile first(folder_);
    first.Write(SnapshotOf(Design("first")));
    const std::string own = TextOf(FilesIn(folder_)[0].filename());
    const std::string number = own.substr(0, own.find('-'));
    Leave(number + "-1", "left");
    fs::create_directory(folder_ / (number + "-2.lock"));
    RecoveryFile second(folder_);
    second.Write(SnapshotOf(Design("second")));
    EXPECT_TRUE(fs::exists(folder_ / (number + "-3.design")));
    EXPECT_EQ(AuthorsOf(LeftDesigns(folder_)), "left ");
}

TEST_F(Recovery, ALargeDesignIsWrittenWholeOrNotAtAll) {
    const std::string author(3'000'000, 'x');
    {
        RecoveryFile file(folder_);
        file.Write(SnapshotOf(Design(author)));
        std::stop_source stop;
        stop.request_stop();
        file.Write(SnapshotOf(Design("later")), stop.get_token());
        file.StayBehind(true);
    }
    EXPECT_TRUE(AuthorsOf(LeftDesigns(folder_)) == author + " ");
}

TEST_F(Recovery, DamagedFilesAreRefusedAndSetAside) {
    Leave("1-0", "Zoë");
    const std::string whole = ReadFileBytes(folder_ / "1-0.design");
    const auto changed = [&whole](std::size_t at) {
        std::string bytes = whole;
        bytes[at] ^= 1;
        return bytes;
    };
    for (const std::string& bytes : {std::string(), std::string("Pirol"), whole.substr(0, 26), whole.substr(0, 70),
                                     whole.substr(0, whole.size() - 1), whole + "x", changed(3), changed(30),
                                     changed(70), changed(whole.size() - 1), std::string(1000, '\0')}) {
        ReplaceFileBytes(folder_ / "1-0.design", bytes);
        const std::vector<LeftDesign> left = LeftDesigns(folder_);
        ASSERT_EQ(left.size(), 1U);
        EXPECT_NE(test::ErrorOf([&left] { ReadDesign(left[0]); }), "") << bytes;
        EXPECT_EQ(ReadFileBytes(SetAside(left[0])), bytes);
        EXPECT_TRUE(LeftDesigns(folder_).empty());
    }
}

} // namespace
} // namespace pirol
