#include "app/ExportCommands.h"

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "codegen/ProjectExport.h"

namespace pirol {
namespace {

FileDialogSetup BlueJDialog() {
    return {.Title = "BlueJ-Projekt exportieren",
            .Filter = {},
            .Flags = FileDialogSetup::PathMustExist,
            .FileName = {},
            .Name = "exportDialog"};
}

FileDialogSetup JavaDialog() {
    return {.Title = "Java-Datei exportieren",
            .Filter = "SuMAnwendung.java|SuMAnwendung.java|Alle Dateien (*.*)|*.*",
            .Flags = FileDialogSetup::PathMustExist,
            .FileName = "SuMAnwendung.java",
            .Name = "exportDialog"};
}

FileDialogSetup TextDialog() {
    return {.Title = "Textdatei exportieren",
            .Filter = "Textdateien (*.txt)|*.txt|Alle Dateien (*.*)|*.*",
            .Flags = FileDialogSetup::PathMustExist,
            .FileName = {},
            .Name = "exportDialog"};
}

std::string ExportFile(const ProjectModel& model, CodeOptions options, const FileDialogSetup& setup,
                       cCommonDialog& dialogs) {
    std::string path = dialogs.ShowSave(setup);
    if (!path.empty())
        dialogs.Wait([&, copy = model] { ExportSource(PathOf(path), GenerateCode(copy, options)); });
    return path;
}

/// A path that names no file is no fault here: the preferences have warned of it.
void Start(const std::string& blueJPath, const std::string& folder, ProgramStarter::Window window,
           ProgramStarter& starter) {
    if (IsExistingFile(PathOf(blueJPath)))
        UnderLabel("Main.File.StartBlueJ", [&] { starter.Start(blueJPath, folder, window); });
}

} // namespace

std::string ExportBlueJ(const ProjectModel& model, CodeOptions options, cCommonDialog& dialogs) {
    std::string folder = dialogs.ShowSave(BlueJDialog());
    if (!folder.empty())
        dialogs.Wait([&, copy = model] { ExportBlueJProject(PathOf(folder), GenerateCode(copy, options)); });
    return folder;
}

std::string ExportJava(const ProjectModel& model, CodeOptions options, cCommonDialog& dialogs) {
    return ExportFile(model, options, JavaDialog(), dialogs);
}

std::string ExportText(const ProjectModel& model, CodeOptions options, cCommonDialog& dialogs) {
    return ExportFile(model, options, TextDialog(), dialogs);
}

void StartBlueJ(const std::string& blueJPath, ProgramStarter& starter) {
    Start(blueJPath, {}, ProgramStarter::Window::Normal, starter);
}

void StartBlueJOn(const std::string& folder, const std::string& blueJPath, ProgramStarter& starter) {
    Start(blueJPath, folder, ProgramStarter::Window::Minimised, starter);
}

} // namespace pirol
