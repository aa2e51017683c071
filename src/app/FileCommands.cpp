#include "app/FileCommands.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "project/ProjectFile.h"

namespace pirol {
namespace {

FileDialogSetup ProjectDialog(std::string title) {
    return {.Title = std::move(title),
            .Filter = "prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*",
            .Flags = FileDialogSetup::FileMustExist,
            .FileName = {},
            .Name = "projectDialog"};
}

/// The progress form lets the windows paint while the file is read. They must never meet a half-read design, so the
/// design changes in one step at the end, be the end a good one or an error.
ReadResult ReplaceDesign(const std::string& path, ProjectModel& model, LoadingProgress* progress) {
    ProjectModel read;
    read.EditSql() = model.Sql();
    try {
        const ReadResult result = ReadPRLFile(PathOf(path), read, progress);
        model = std::move(read);
        return result;
    } catch (...) {
        model = std::move(read);
        throw;
    }
}

} // namespace

std::string ProjectOnCommandLine(std::span<const std::string> words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    return ReplaceAll(line, "\"", "");
}

void LoadProject(const std::string& path, ProjectModel& model, cCommonDialog& dialogs, LoadingProgress* progress) {
    if (ReplaceDesign(path, model, progress) == ReadResult::Refused)
        dialogs.Critical("Fehler", damagedProjectMessage);
}

bool OpenProject(ProjectModel& model, cCommonDialog& dialogs, LoadingProgress* progress) {
    const std::string path = dialogs.ShowOpen(ProjectDialog("Projekt öffnen"));
    if (path.empty())
        return false;
    LoadProject(path, model, dialogs, progress);
    return true;
}

bool SaveProject(ProjectModel& model, cCommonDialog& dialogs) {
    const std::string path = dialogs.ShowSave(ProjectDialog("Projekt speichern"));
    if (path.empty() || !MayReplaceFile(path, dialogs))
        return false;
    const std::string bytes = GeneratePRLCode(model);
    UnderLabel("Main.File.PRL.GeneratePRLCode", [&] { ReplaceFileBytes(PathOf(path), bytes); });
    model.MarkUnchanged(path);
    return true;
}

} // namespace pirol
