#include "app/FileCommands.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "Cases.h"
#include "FakeDialogs.h"
#include "project/ProjectFile.h"

#include <gtest/gtest.h>

#include <tuple>

namespace pirol {
namespace {

using test::ErrorOf;

constexpr std::string_view projectDialog = " <prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*> 4096 <";
constexpr std::string_view overwrite = "question Die Datei existiert bereits! Überschreiben?\n";

/// The dialog begins with the project's path.
std::string Seen(std::string_view dialog, std::string_view more = {}, const std::string& path = {}) {
    return std::string(dialog) + std::string(projectDialog) + path + ">\n" + std::string(more);
}

ProjectModel DesignOf(std::string_view author) {
    ProjectModel model;
    model.PlaceComponent(ComponentKind::Button, {10, 20, 100, 30});
    model.SetAuthor(author);
    return model;
}

/// A document with unsaved changes.
struct ChangedDocument : Document {
    explicit ChangedDocument(std::string_view author) {
        Edit("", [&](ProjectModel& model) { model = DesignOf(author); });
    }
};

TEST(FileCommands, ProjectOnCommandLine) {
    const std::pair<std::vector<std::string>, std::string_view> cases[] = {
        {{}, ""},
        {{"a.prl"}, "a.prl"},
        {{"\"C:\\Meine Projekte\\a.prl\""}, "C:\\Meine Projekte\\a.prl"},
        {{"Meine", "Projekte/a.prl"}, "Meine Projekte/a.prl"},
        {{"\"\""}, ""},
        {{"file:///Schule/Mein%20Quiz%c3%A4.prl"}, "/Schule/Mein Quizä.prl"},
        {{"file://localhost/a%2", "%b.prl"}, "/a%2 %b.prl"},
        {{"file:///C:/a%41.prl"}, "C:/aA.prl"},
        {{"file:///a%00.prl"}, "file:///a%00.prl"},
        {{"file://server/a.prl"}, "file://server/a.prl"},
        {{"file:a%41.prl"}, "file:a%41.prl"},
    };
    for (const auto& [words, path] : cases)
        EXPECT_EQ(ProjectOnCommandLine(words), path);
#ifndef _WIN32
    // A quote in a name counts only where it must.
    const test::ScratchFolder folder;
    const std::string plain = TextOf(folder / "a.prl");
    const std::string quoted = TextOf(folder / "\"a\".prl");
    CreateFileBytes(PathOf(quoted), "");
    EXPECT_EQ(ProjectOnCommandLine(std::vector{quoted}), quoted);
    CreateFileBytes(PathOf(plain), "");
    EXPECT_EQ(ProjectOnCommandLine(std::vector{quoted}), plain);
#endif
}

/// What lies at the chosen path before, what the user answers, and what comes of it.
TEST(FileCommands, SaveAsksBeforeItReplaces) {
    const std::string longer(1000, '.'); // than the project
    const std::tuple<const char*, std::optional<std::string>, std::deque<bool>, std::string_view, bool> cases[] = {
        {"new", std::nullopt, {}, "", true},
        {"yes", longer, {true}, overwrite, true},
        {"no", "old", {false}, overwrite, false},
        {"empty file", "", {true}, overwrite, true},
    };
    for (const auto& [name, before, answer, seen, saved] : cases) {
        const test::ScratchFolder folder;
        const auto path = folder / "Größe 1.prl";
        if (before)
            CreateFileBytes(path, *before);
        ChangedDocument document(name);
        test::FakeDialogs dialogs;
        dialogs.paths = {TextOf(path)};
        dialogs.yes = answer;
        EXPECT_EQ(SaveProject(document, dialogs), saved) << name;
        EXPECT_EQ(dialogs.TakeSeen(), Seen("save", seen)) << name;
        EXPECT_EQ(ReadFileBytes(path), saved ? GeneratePRLCode(document.Model()) : *before) << name;
        EXPECT_EQ(document.IsChanged(), !saved) << name;
        EXPECT_EQ(document.FilePath(), saved ? TextOf(path) : "") << name;
    }
}

TEST(FileCommands, CancellingChangesNothing) {
    ChangedDocument document("A");
    const ProjectModel before = document.Model();
    test::FakeDialogs dialogs;
    EXPECT_FALSE(SaveProject(document, dialogs));
    EXPECT_EQ(dialogs.TakeSeen(), Seen("save"));
    EXPECT_FALSE(OpenProject(document, dialogs, nullptr));
    EXPECT_EQ(dialogs.TakeSeen(), Seen("open"));
    EXPECT_EQ(document.Model(), before);
    EXPECT_TRUE(document.IsChanged());
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
        ChangedDocument document("A");
        const ProjectModel before = document.Model();
        test::FakeDialogs dialogs;
        dialogs.paths = {path};
        dialogs.yes = {true};
        EXPECT_EQ(ErrorOf([&] { SaveProject(document, dialogs); }), error + " (Main.File.PRL.GeneratePRLCode)") << path;
        EXPECT_EQ(document.Model(), before);
        EXPECT_TRUE(document.IsChanged());
    }
    EXPECT_EQ(ReadFileBytes(folder / "file"), "x");
}

/// Whoever changes the open project's file, the design in memory is what is saved, and only after the question.
TEST(FileCommands, ChangesByAnotherProgram) {
    const test::ScratchFolder folder;
    const auto path = folder / "a.prl";
    const std::string good = GeneratePRLCode(DesignOf("first"));
    CreateFileBytes(path, good);
    Document document;
    test::FakeDialogs dialogs;
    LoadProject(TextOf(path), document, dialogs, nullptr);
    ReplaceFileBytes(path, "second");
    dialogs.paths = {TextOf(path), TextOf(path), TextOf(path)};
    dialogs.yes = {false, true};
    EXPECT_FALSE(SaveProject(document, dialogs));
    EXPECT_EQ(ReadFileBytes(path), "second");
    EXPECT_TRUE(SaveProject(document, dialogs));
    EXPECT_EQ(ReadFileBytes(path), good);

    std::filesystem::remove(path);
    dialogs.TakeSeen();
    EXPECT_TRUE(SaveProject(document, dialogs));
    EXPECT_EQ(dialogs.TakeSeen(), Seen("save", {}, TextOf(path))) << "there is nothing to replace";
    EXPECT_EQ(ReadFileBytes(path), good);
}

TEST(FileCommands, ATemplateBeginsANewProject) {
    ChangedDocument document("mine");
    document.MarkSaved("mine.prl");
    BeginWithTemplate(document, GeneratePRLCode(DesignOf("template")));
    EXPECT_EQ(document.Model().Author(), "template");
    EXPECT_EQ(document.FilePath(), "");
    EXPECT_FALSE(document.IsChanged());
    EXPECT_EQ(document.UndoLabel(), "Vorlage öffnen");
    std::string sizes;
    for (const NewWindowSize& size : newWindowSizes) {
        NewProject(document, size);
        sizes += std::to_string(document.Model().WindowWidth()) + "x" +
                 std::to_string(document.Model().WindowHeight()) + " ";
    }
    EXPECT_EQ(sizes, "320x240 640x480 800x600 ");
}

TEST(Dialogs, BeginWithWhatIsUsual) {
    EXPECT_EQ(PrintJob(), (PrintJob{"", "", "", false, 1, 0, 0})) << "one copy of all pages";
    EXPECT_EQ(FontChoice(), (FontChoice{"", "", 10}));
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
    const std::string half = "#Begin.Pirol.Window\r\n1\r\n2\r\nhalf\r\n";
    CreateFileBytes(folder / "unended.prl", half + HashFunction(half));
    const std::tuple<const char*, std::string_view, std::string_view, std::string_view> cases[] = {
        {"good.prl", "", "", "other"},
        {"unended.prl", "", "Fehler 9: Index außerhalb des gültigen Bereichs (Main.File.PRL.ReadPRLFile)", "half"},
        {"half.prl", damaged, "", ""},
        {"empty.prl", "", "Fehler 9: Index außerhalb des gültigen Bereichs (Main.File.PRL.ReadPRLFile)", ""},
        {"missing.prl", "", "Fehler 53: Datei nicht gefunden (Main.File.PRL.ReadPRLFile)", ""},
    };
    for (const auto& [name, seen, error, author] : cases) {
        ChangedDocument document("mine");
        document.Edit("", [](ProjectModel& model) { model.EditSql().Server = "localhost"; });
        document.MarkSaved("mine.prl");
        const ProjectModel before = document.Model();
        test::FakeDialogs dialogs;
        dialogs.paths = {TextOf(folder / name)};
        EXPECT_EQ(ErrorOf([&] { EXPECT_TRUE(OpenProject(document, dialogs, nullptr)); }), error) << name;
        EXPECT_EQ(dialogs.TakeSeen(), Seen("open", seen, "mine.prl")) << name;
        const ProjectModel& model = document.Model();
        const bool loaded = author == "other";
        EXPECT_EQ(model.Author(), author) << name;
        // Only a project that was read brings database settings of its own.
        EXPECT_EQ(model.Sql().Server, loaded ? "" : "localhost") << name;
        EXPECT_EQ(model.ElementCount(ComponentKind::Button), loaded ? 2u : 1u) << name;
        EXPECT_EQ(document.FilePath(), loaded ? TextOf(folder / name) : "") << name;
        EXPECT_EQ(document.IsChanged(), author == "half") << name;
        document.Undo();
        EXPECT_EQ(document.Model(), before) << name;
        EXPECT_EQ(document.FilePath(), "mine.prl") << name;
        EXPECT_FALSE(document.IsChanged()) << name;
    }
}

} // namespace
} // namespace pirol
