#include "Cases.h"
#include "project/Recovery.h"
#include "project/Snapshot.h"

#include <gtest/gtest.h>

#include <functional>

namespace pirol {
namespace {

namespace fs = std::filesystem;

ProjectModel Design(const std::string& author) {
    ProjectModel model;
    model.SetAuthor(author);
    return model;
}

std::vector<fs::path> FilesIn(const fs::path& folder) {
    return {fs::directory_iterator(folder), {}};
}

/// What a killed program leaves: its recovery file without the lock.
void Leave(const fs::path& folder, const std::string& name, const std::string& author) {
    const test::ScratchFolder other;
    RecoveryFile file(other / "recovery");
    file.Write(TakeSnapshot(Design(author)));
    fs::create_directories(folder);
    for (const fs::path& path : FilesIn(other / "recovery"))
        if (path.extension() == ".design")
            fs::copy_file(path, folder / (name + ".design"));
}

std::string AuthorsOf(const std::vector<LeftDesign>& designs) {
    std::string authors;
    for (const LeftDesign& left : designs)
        authors += ReadDesign(left).Author() + " ";
    return authors;
}

TEST(Recovery, NothingIsLeftByLivingProgramsAndByNormalEnds) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    EXPECT_TRUE(LeftDesigns(folder).empty());
    {
        RecoveryFile first(folder);
        EXPECT_FALSE(fs::exists(folder)) << "made before there is something to keep";
        RecoveryFile second(folder);
        first.Write(TakeSnapshot(Design("old")));
        first.Write(TakeSnapshot(Design("new")));
        second.Write(TakeSnapshot(Design("other")));
        EXPECT_TRUE(LeftDesigns(folder).empty());
        EXPECT_EQ(FilesIn(folder).size(), 4U);
        second.Remove();
        EXPECT_EQ(FilesIn(folder).size(), 3U);
    }
    EXPECT_TRUE(FilesIn(folder).empty());
}

TEST(Recovery, LeftDesignsAreOfferedToOneProgramTheNewestFirst) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    for (const std::string name : {"1-0", "30-0", "2-0"})
        Leave(folder, name, name);
    const auto time = fs::last_write_time(folder / "1-0.design");
    fs::last_write_time(folder / "2-0.design", time + std::chrono::hours(1));
    fs::last_write_time(folder / "30-0.design", time - std::chrono::hours(1));
    for (const char* rest : {".1-0.design.4711.tmp", "1-0.lock", ".99-0.design.1.tmp", "98-0.lock"})
        CreateFileBytes(folder / rest, "x");
    {
        const std::vector<LeftDesign> left = LeftDesigns(folder);
        EXPECT_EQ(AuthorsOf(left), "2-0 1-0 30-0 ");
        EXPECT_EQ(FilesIn(folder).size(), 6U) << "three designs with their locks and no rests";
        EXPECT_TRUE(LeftDesigns(folder).empty()) << "offered twice at the same time";
        Discard(left[1]);
    }
    EXPECT_EQ(AuthorsOf(LeftDesigns(folder)), "2-0 30-0 ");
    EXPECT_EQ(FilesIn(folder).size(), 2U);
}

TEST(Recovery, ALeftDesignIsNotOverwrittenByAProgramOfTheSameNumber) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    RecoveryFile first(folder);
    first.Write(TakeSnapshot(Design("first")));
    const std::string own = TextOf(FilesIn(folder)[0].filename());
    const std::string number = own.substr(0, own.find('-'));
    Leave(folder, number + "-1", "left");
    RecoveryFile second(folder);
    second.Write(TakeSnapshot(Design("second")));
    EXPECT_TRUE(fs::exists(folder / (number + "-2.design")));
    EXPECT_EQ(AuthorsOf(LeftDesigns(folder)), "left ");
}

TEST(Recovery, DamagedFilesAreRefusedAndSetAside) {
    const test::ScratchFolder scratch;
    const fs::path folder = scratch / "recovery";
    Leave(folder, "1-0", "Zoë");
    const std::string whole = ReadFileBytes(folder / "1-0.design");
    const auto changed = [&whole](std::size_t at) {
        std::string bytes = whole;
        bytes[at] ^= 1;
        return bytes;
    };
    for (const std::string& bytes : {std::string(), std::string("Pirol"), whole.substr(0, 26), whole.substr(0, 70),
                                     whole.substr(0, whole.size() - 1), whole + "x", changed(3), changed(30),
                                     changed(70), changed(whole.size() - 1), std::string(1000, '\0')}) {
        ReplaceFileBytes(folder / "1-0.design", bytes);
        const std::vector<LeftDesign> left = LeftDesigns(folder);
        ASSERT_EQ(left.size(), 1U);
        EXPECT_NE(test::ErrorOf([&left] { ReadDesign(left[0]); }), "") << bytes;
        EXPECT_EQ(ReadFileBytes(SetAside(left[0])), bytes);
        EXPECT_TRUE(LeftDesigns(folder).empty());
    }
}

TEST(Recovery, AFolderThatCannotBeMadeIsAnErrorAndMayComeLater) {
    const test::ScratchFolder scratch;
    CreateFileBytes(scratch / "file", "x");
    RecoveryFile recovery((scratch / "file") / "recovery");
    const auto write = [&recovery] { recovery.Write(TakeSnapshot(ProjectModel())); };
    EXPECT_EQ(test::ErrorOf(write), "Fehler 76: Pfad nicht gefunden");
    EXPECT_EQ(test::ErrorOf(write), "Fehler 76: Pfad nicht gefunden");
    fs::remove(scratch / "file");
    EXPECT_EQ(test::ErrorOf(write), "");
    EXPECT_EQ(test::ErrorOf([] { RecoveryFile({}).Write(""); }), "Fehler 76: Pfad nicht gefunden");
}

} // namespace
} // namespace pirol
