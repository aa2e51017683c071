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

} // namespace

std::string ProjectOnCommandLine(std::span<const std::string> words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    return ReplaceAll(line, "\"", "");
}

void NewProject(Document& document) {
    document.Replace("Neuer Entwurf", [](ProjectModel& model) {
        model.Reset();
        return Document::Origin{.path = {}, .isSaved = true};
    });
}

void LoadProject(const std::string& path, Document& document, cCommonDialog& dialogs, LoadingProgress* progress) {
    ReadResult result{};
    document.Replace("Projekt öffnen", [&](ProjectModel& model) {
        result = ReadPRLFile(PathOf(path), model, progress);
        return Document::Origin{.path = result == ReadResult::Loaded ? path : "", .isSaved = true};
    });
    if (result == ReadResult::Refused)
        dialogs.Critical("Fehler", damagedProjectMessage);
}

bool OpenProject(Document& document, cCommonDialog& dialogs, LoadingProgress* progress) {
    const std::string path = dialogs.ShowOpen(ProjectDialog("Projekt öffnen"));
    if (path.empty())
        return false;
    LoadProject(path, document, dialogs, progress);
    return true;
}

bool SaveProject(Document& document, cCommonDialog& dialogs) {
    const std::string path = dialogs.ShowSave(ProjectDialog("Projekt speichern"));
    if (path.empty() || !MayReplaceFile(path, dialogs))
        return false;
    const std::string bytes = GeneratePRLCode(document.Model());
    UnderLabel("Main.File.PRL.GeneratePRLCode", [&] { ReplaceFileBytes(PathOf(path), bytes); });
    document.MarkSaved(path);
    return true;
}

} // namespace pirol
