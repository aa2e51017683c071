#include "app/ExportCommands.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "Cases.h"
#include "FakeDialogs.h"

#include <gtest/gtest.h>

#include <tuple>

namespace pirol {
namespace {

using test::ErrorOf;

constexpr const char* blueJDialog = "save <> 2048 <>\n";
constexpr const char* javaDialog =
    "save <SuMAnwendung.java|SuMAnwendung.java|Alle Dateien (*.*)|*.*> 2048 <SuMAnwendung.java>\n";
constexpr const char* textDialog = "save <Textdateien (*.txt)|*.txt|Alle Dateien (*.*)|*.*> 2048 <>\n";

class ExportCommandsTest : public testing::Test {
  protected:
    ExportCommandsTest() {
        model_.SetAuthor("Jürgen");
        model_.PlaceComponent(ComponentKind::Button, {10, 20, 100, 30});
        model_.EditMenus().Append("Datei", "hatMenueDatei");
        CreateFileBytes(folder_ / "blue j", "");
        std::filesystem::create_directory(folder_ / "directory");
    }

    std::string Path(const char* name) const { return TextOf(folder_ / name); }
    std::string Source() const { return ToWindows1252(GenerateCode(model_, options_)); }

    test::ScratchFolder folder_;
    ProjectModel model_;
    CodeOptions options_ = {.menu = true, .database = false};
    test::FakeDialogs dialogs_;
    test::FakeStarter starter_;
};

TEST_F(ExportCommandsTest, BlueJIsStartedWhenItsPathNamesAFile) {
    const std::pair<const char*, std::string> cases[] = {
        {"Projekt", ""},
        {"mit Leerzeichen", Path("blue j")},
        {"Übung", Path("missing")},
        {"noch eins", Path("directory")},
    };
    for (const auto& [folder, blueJ] : cases) {
        dialogs_.paths = {Path(folder)};
        starter_.started.clear();
        EXPECT_EQ(ExportBlueJ(model_, options_, dialogs_), Path(folder));
        StartBlueJOn(Path(folder), blueJ, starter_);
        EXPECT_EQ(dialogs_.TakeSeen(), blueJDialog);
        EXPECT_EQ(ReadFileBytes(folder_ / folder / "SuMAnwendung.java"), Source());
        StartBlueJ(blueJ, starter_);
        const bool starts = blueJ == Path("blue j");
        EXPECT_EQ(starter_.started,
                  starts ? Concatenate(blueJ, " \"", Path(folder), "\" minimised\n", blueJ, " normal\n") : "")
            << folder;
    }
    starter_.refuses = true;
    const std::string error = "Fehler 70: Zugriff verweigert (Main.File.StartBlueJ)";
    EXPECT_EQ(ErrorOf([&] { StartBlueJ(Path("blue j"), starter_); }), error);
    EXPECT_EQ(ErrorOf([&] { StartBlueJOn(Path("Projekt"), Path("blue j"), starter_); }), error);
    EXPECT_EQ(dialogs_.TakeSeen(), "");
}

TEST_F(ExportCommandsTest, BlueJExportThatFails) {
    CreateFileBytes(folder_ / "directory/keep", "x");
    const std::pair<const char*, const char*> cases[] = {
        {"directory", "Fehler 75: Fehler beim Zugriff auf Pfad/Datei (Main.Project.Export)"},
        {"blue j", "Fehler 75: Fehler beim Zugriff auf Pfad/Datei (Main.Project.Export)"},
        {"missing/new", "Fehler 76: Pfad nicht gefunden (Main.Project.Export)"},
    };
    for (const auto& [folder, error] : cases) {
        dialogs_.paths = {Path(folder)};
        EXPECT_EQ(ErrorOf([&] { ExportBlueJ(model_, options_, dialogs_); }), error) << folder;
    }
    EXPECT_EQ(ReadFileBytes(folder_ / "directory/keep"), "x");
}

TEST_F(ExportCommandsTest, FilesAreOverwrittenFromTheBeginning) {
    using Command = std::string (*)(const ProjectModel&, CodeOptions, cCommonDialog&);
    const std::tuple<Command, const char*, std::string, std::string> cases[] = {
        {ExportJava, javaDialog, "", ""},
        {ExportText, textDialog, "short", ""},
        {ExportJava, javaDialog, std::string(Source().size(), 'x') + "old end", "old end"},
        {ExportText, textDialog, std::string(Source().size(), 'x') + "old end", "old end"},
    };
    for (const auto& [command, dialog, before, tail] : cases) {
        const auto path = folder_ / "SuMAnwendung.java";
        ReplaceFileBytes(path, before);
        EXPECT_EQ(command(model_, options_, dialogs_), "");
        EXPECT_EQ(dialogs_.TakeSeen(), dialog) << "cancelled";
        EXPECT_EQ(ReadFileBytes(path), before) << "cancelled";
        dialogs_.paths = {TextOf(path)};
        EXPECT_EQ(command(model_, options_, dialogs_), TextOf(path));
        EXPECT_EQ(dialogs_.TakeSeen(), dialog);
        EXPECT_EQ(ReadFileBytes(path), Source() + tail);
    }
    dialogs_.paths = {Path("directory")};
    EXPECT_EQ(ErrorOf([&] { ExportJava(model_, options_, dialogs_); }),
              "Fehler 75: Fehler beim Zugriff auf Pfad/Datei (Main.Project.Export)");
}

} // namespace
} // namespace pirol
