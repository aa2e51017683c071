#include "app/FileCommands.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "project/ProjectFile.h"

#include <charconv>
#include <optional>

namespace pirol {
namespace {

/// It opens in the project's folder, with the project's name.
FileDialogSetup ProjectDialog(std::string title, const Document& document) {
    return {.Title = std::move(title),
            .Filter = "prl - Dateien (*.prl)|*.prl|Alle Dateien (*.*)|*.*",
            .Flags = FileDialogSetup::FileMustExist,
            .FileName = document.FilePath(),
            .Name = "projectDialog"};
}

/// The text with "%41" for "A" and so on; a percent sign that begins no such number stays. Nothing when a character
/// comes out that no path can hold.
std::optional<std::string> Unescaped(std::string_view text) {
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char code = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] != '%' || i + 2 >= text.size() || std::from_chars(digits, digits + 2, code, 16).ptr != digits + 2) {
            path += text[i];
            continue;
        }
        if (code == 0)
            return std::nullopt;
        path += static_cast<char>(code);
        i += 2;
    }
    return path;
}

/// The path of an address such as "file:///home/eva/Mein%20Quiz.prl"; nothing for other texts.
std::optional<std::string> PathOfAddress(std::string_view address) {
    for (const std::string_view beginning : {"file://localhost/", "file:///", "file:/"})
        if (address.starts_with(beginning) && address.substr(beginning.size(), 1) != "/") {
            std::optional<std::string> path = Unescaped(address.substr(beginning.size() - 1));
            // "/C:/Schule" is "C:/Schule" on Windows.
            if (path && path->size() > 2 && (*path)[2] == ':')
                path->erase(0, 1);
            return path;
        }
    return std::nullopt;
}

} // namespace

std::string ProjectOnCommandLine(std::span<const std::string> words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    const std::string path = ReplaceAll(line, "\"", "");
    if (IsExistingFile(PathOf(path)))
        return path;
    return IsExistingFile(PathOf(line)) ? line : PathOfAddress(path).value_or(path);
}

void NewProject(Document& document, const NewWindowSize& size) {
    document.Replace("Neuer Entwurf", [&size](ProjectModel& model) {
        model.Reset();
        model.SetWindowSize(size.width, size.height);
        return Document::Origin{.path = {}, .isSaved = true};
    });
}

void BeginWithTemplate(Document& document, std::string_view bytes) {
    document.Replace("Vorlage öffnen", [bytes](ProjectModel& model) {
        ReadPRLBytes(bytes, model);
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
    const std::string path = dialogs.ShowOpen(ProjectDialog("Projekt öffnen", document));
    if (path.empty())
        return false;
    LoadProject(path, document, dialogs, progress);
    return true;
}

bool SaveProject(Document& document, cCommonDialog& dialogs) {
    const std::string path = dialogs.ShowSave(ProjectDialog("Projekt speichern", document));
    if (path.empty() || !MayReplaceFile(path, dialogs))
        return false;
    dialogs.Wait([&path, model = document.Model()] {
        const std::string bytes = GeneratePRLCode(model);
        UnderLabel("Main.File.PRL.GeneratePRLCode", [&] { ReplaceFileBytes(PathOf(path), bytes); });
    });
    document.MarkSaved(path);
    return true;
}

} // namespace pirol
