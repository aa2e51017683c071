#ifdef __linux__ // nothing can be mounted elsewhere

#include "app/Preferences.h"
#include "Cases.h"
#include "codegen/ExportCommands.h"
#include "codegen/JavaText.h"
#include "FakeDialogs.h"
#include "project/FileCommands.h"
#include "SmallDisk.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace pirol {
namespace {

/// Runs with a disk on which nothing can be written: one that is full, and one that is locked against everybody.
class Disks : public testing::TestWithParam<bool> {
  protected:
    void SetUp() override {
        if (!disk_.IsMounted())
            GTEST_SKIP() << "file systems can be mounted by an administrator only";
    }
    bool IsFull() const { return GetParam(); }
    auto FileCount() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }
    void Close() { ASSERT_TRUE(IsFull() ? disk_.Fill() : disk_.Lock()); }

    const test::ScratchFolder folder_;
    const std::filesystem::path path_ = folder_ / "disk";
    const test::SmallDisk disk_{path_};
};

INSTANTIATE_TEST_SUITE_P(FullAndLocked, Disks, testing::Bool());

/// The old project stays whole, nothing half-written is left, and the design stays as it is.
TEST_P(Disks, CommandsLoseNothing) {
    const CodeOptions options;
    ProjectModel model;
    model.PlaceComponent(ComponentKind::Button, {10, 20, 100, 30});
    const ProjectModel before = model;
    test::FakeDialogs dialogs;
    test::FakeStarter starter;
    const struct {
        const char* file;
        std::function<void()> write;
        std::string label;
    } cases[] = {
        {"old.prl", [&] { SaveProject(model, dialogs); }, "Main.File.PRL.GeneratePRLCode"},
        {"new.prl", [&] { SaveProject(model, dialogs); }, "Main.File.PRL.GeneratePRLCode"},
        {"Projekt", [&] { ExportBlueJ(model, options, "", dialogs, starter); }, "Main.Project.Export"},
        {"SuMAnwendung.java", [&] { ExportJava(model, options, dialogs); }, "Main.Project.Export"},
        {"SuMAnwendung.txt", [&] { ExportText(model, options, dialogs); }, "Main.Project.Export"},
    };
    CreateFileBytes(path_ / "old.prl", "old");
    Close();
    const auto files = FileCount();
    const std::string error = IsFull() ? "Fehler 61: Datenträger voll" : "Fehler 70: Zugriff verweigert";
    for (const auto& [file, write, label] : cases) {
        dialogs.paths = {TextOf(path_ / file)};
        dialogs.yes = {true};
        EXPECT_EQ(test::ErrorOf(write), Concatenate(error, " (", label, ")")) << file;
        EXPECT_EQ(ReadFileBytes(path_ / "old.prl"), "old") << file;
        EXPECT_EQ(FileCount(), files) << file << " left something half-written";
        EXPECT_TRUE(model == before && model.IsChanged()) << file;
    }
}

TEST_P(Disks, PreferencesFailSilentlyAndKeepTheStoredOnes) {
    setenv("XDG_CONFIG_HOME", path_.c_str(), 1);
    const Preferences old = {"/opt/bluej/bluej", 1, 0x0000FF};
    old.Save();
    Close();
    Preferences{"/opt/bluej/bluej", 2, 0x00FF00}.Save();
    EXPECT_EQ(Preferences::Load(), old);
    unsetenv("XDG_CONFIG_HOME");
}

} // namespace
} // namespace pirol

#endif
