#include "Cases.h"
#include "FakeDialogs.h"
#include "model/RuntimeError.h"
#include "project/FileCommands.h"
#include "project/ProjectFile.h"

#include <gtest/gtest.h>

#ifdef __linux__
#include "SmallDisk.h"
#endif

namespace pirol {
namespace {

using test::ErrorOf;

constexpr std::string_view projectDialog = " <prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*> 4096 <>\n";
constexpr std::string_view overwrite = "question Die Datei existiert bereits! Überschreiben?\n";

std::string Seen(std::string_view dialog, std::string_view more = {}) {
    return std::string(dialog) + std::string(projectDialog) + std::string(more);
}

ProjectModel DesignOf(std::string_view author) {
    ProjectModel model;
    model.PlaceComponent(ComponentKind::Button, {10, 20, 100, 30});
    model.SetAuthor(author);
    return model;
}

TEST(FileCommands, ProjectOnCommandLine) {
    const std::pair<std::vector<std::string>, std::string_view> cases[] = {
        {{}, ""},
        {{"a.prl"}, "a.prl"},
        {{"\"C:\\Meine Projekte\\a.prl\""}, "C:\\Meine Projekte\\a.prl"},
        {{"Meine", "Projekte/a.prl"}, "Meine Projekte/a.prl"},
        {{"\"\""}, ""},
    };
    for (const auto& [words, path] : cases)
        EXPECT_EQ(ProjectOnCommandLine(words), path);
}

/// What lies at the chosen path before, what the user answers, and what comes of it.
TEST(FileCommands, SaveAsksBeforeItReplaces) {
    const struct {
        const char* name;
        const char* before; ///< nullptr: no file
        std::deque<bool> answer;
        std::string_view seen;
        bool saved;
    } cases[] = {
        {"new", nullptr, {}, "", true},
        {"yes",
         "a much longer file than a project without components would ever be ......................",
         {true},
         overwrite,
         true},
        {"no", "old", {false}, overwrite, false},
        {"empty file", "", {true}, overwrite, true},
    };
    for (const auto& row : cases) {
        const test::ScratchFolder folder;
        const auto path = folder / "Größe 1.prl";
        if (row.before != nullptr)
            CreateFileBytes(path, row.before);
        ProjectModel model = DesignOf(row.name);
        test::FakeDialogs dialogs;
        dialogs.paths = {TextOf(path)};
        dialogs.yes = row.answer;
        EXPECT_EQ(SaveProject(model, dialogs), row.saved) << row.name;
        EXPECT_EQ(dialogs.TakeSeen(), Seen("save", row.seen)) << row.name;
        EXPECT_EQ(ReadFileBytes(path), row.saved ? GeneratePRLCode(model) : row.before) << row.name;
        EXPECT_EQ(model.IsChanged(), !row.saved) << row.name;
        EXPECT_EQ(model.FilePath(), row.saved ? TextOf(path) : "") << row.name;
    }
}

TEST(FileCommands, CancellingChangesNothing) {
    ProjectModel model = DesignOf("A");
    const ProjectModel before = model;
    test::FakeDialogs dialogs;
    EXPECT_FALSE(SaveProject(model, dialogs));
    EXPECT_EQ(dialogs.TakeSeen(), Seen("save"));
    EXPECT_FALSE(OpenProject(model, dialogs, nullptr));
    EXPECT_EQ(dialogs.TakeSeen(), Seen("open"));
    EXPECT_EQ(model, before);
    EXPECT_TRUE(model.IsChanged());
}

/// The places where a project cannot be written: the design stays as it is, marked as changed, and so does the file.
TEST(FileCommands, SavingThatFailsLosesNothing) {
    const test::ScratchFolder folder;
    CreateFileBytes(folder / "file", "x");
    std::filesystem::create_directory(folder / "directory");
    const std::pair<std::string, std::string> cases[] = {
        {TextOf(folder / "missing/a.prl"), "Fehler 76: Pfad nicht gefunden"},
        {TextOf(folder / "file/a.prl"), "Fehler 76: Pfad nicht gefunden"},
        {TextOf(folder / "directory"), "Fehler 75: Fehler beim Zugriff auf Pfad/Datei"},
        {TextOf(folder / std::string(300, 'a').c_str()), "Fehler 52: Dateiname oder -nummer falsch"},
    };
    for (const auto& [path, error] : cases) {
        ProjectModel model = DesignOf("A");
        const ProjectModel before = model;
        test::FakeDialogs dialogs;
        dialogs.paths = {path};
        dialogs.yes = {true};
        EXPECT_EQ(ErrorOf([&] { SaveProject(model, dialogs); }), error + " (Main.File.PRL.GeneratePRLCode)") << path;
        EXPECT_EQ(model, before);
        EXPECT_TRUE(model.IsChanged());
    }
    EXPECT_EQ(ReadFileBytes(folder / "file"), "x");
}

#ifdef __linux__

TEST(FileCommands, FullDiskKeepsTheOldProject) {
    const test::ScratchFolder folder;
    const test::SmallDisk disk(folder / "disk");
    if (!disk.IsMounted())
        GTEST_SKIP() << "file systems can be mounted by an administrator only";
    const auto path = folder / "disk/a.prl";
    ProjectModel model = DesignOf("old");
    test::FakeDialogs dialogs;
    dialogs.paths = {TextOf(path), TextOf(path)};
    dialogs.yes = {true};
    ASSERT_TRUE(SaveProject(model, dialogs));
    const std::string before = ReadFileBytes(path);
    model.SetAuthor(std::string(100000, 'a'));
    EXPECT_EQ(ErrorOf([&] { SaveProject(model, dialogs); }),
              "Fehler 61: Datenträger voll (Main.File.PRL.GeneratePRLCode)");
    EXPECT_EQ(ReadFileBytes(path), before);
    EXPECT_TRUE(model.IsChanged());
    // Nothing half-written may fill what room is left.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "disk"), {}), 1);
}

#endif

/// Whoever changes the open project's file, the design in memory is what is saved, and only after the question.
TEST(FileCommands, ChangesByAnotherProgram) {
    const test::ScratchFolder folder;
    const auto path = folder / "a.prl";
    const std::string good = GeneratePRLCode(DesignOf("first"));
    CreateFileBytes(path, good);
    ProjectModel model;
    test::FakeDialogs dialogs;
    LoadProject(TextOf(path), model, dialogs, nullptr);
    ReplaceFileBytes(path, "second");
    dialogs.paths = {TextOf(path), TextOf(path), TextOf(path)};
    dialogs.yes = {false, true};
    EXPECT_FALSE(SaveProject(model, dialogs));
    EXPECT_EQ(ReadFileBytes(path), "second");
    EXPECT_TRUE(SaveProject(model, dialogs));
    EXPECT_EQ(ReadFileBytes(path), good);

    std::filesystem::remove(path);
    dialogs.TakeSeen();
    EXPECT_TRUE(SaveProject(model, dialogs));
    EXPECT_EQ(dialogs.TakeSeen(), Seen("save")) << "there is nothing to replace";
    EXPECT_EQ(ReadFileBytes(path), good);
}

constexpr std::string_view damaged =
    "critical Fehler: Die .prl - Datei ist fehlerhaft oder wurde manuell verändert.\r\n"
    "Der Ladevorgang wird abgebrochen!\n";

TEST(FileCommands, OpeningEmptiesTheDesignFirst) {
    const test::ScratchFolder folder;
    const std::string good = GeneratePRLCode(DesignOf("other"));
    CreateFileBytes(folder / "good.prl", good);
    CreateFileBytes(folder / "half.prl", good.substr(0, good.size() / 2));
    CreateFileBytes(folder / "empty.prl", "");
    const struct {
        const char* name;
        std::string_view seen;
        std::string_view error;
        std::string_view author;
    } cases[] = {
        {"good.prl", "", "", "other"},
        {"half.prl", damaged, "", ""},
        {"empty.prl", "", "Fehler 9: Index außerhalb des gültigen Bereichs (Main.File.PRL.ReadPRLFile)", ""},
        {"missing.prl", "", "Fehler 53: Datei nicht gefunden (Main.File.PRL.ReadPRLFile)", ""},
    };
    for (const auto& row : cases) {
        ProjectModel model = DesignOf("mine");
        model.EditSql().Server = "localhost";
        test::FakeDialogs dialogs;
        dialogs.paths = {TextOf(folder / row.name)};
        EXPECT_EQ(ErrorOf([&] { EXPECT_TRUE(OpenProject(model, dialogs, nullptr)); }), row.error) << row.name;
        EXPECT_EQ(dialogs.TakeSeen(), Seen("open", row.seen)) << row.name;
        EXPECT_EQ(model.Author(), row.author) << row.name;
        // Only a project that was read brings database settings of its own.
        EXPECT_EQ(model.Sql().Server, row.author.empty() ? "localhost" : "") << row.name;
        EXPECT_EQ(model.ElementCount(ComponentKind::Button), row.author.empty() ? 1u : 2u) << row.name;
    }
}

} // namespace
} // namespace pirol
