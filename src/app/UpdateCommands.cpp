#include "app/UpdateCommands.h"

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <system_error>

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view updateLabel = "Main.File.Java.Update";
constexpr std::string_view mark = "\xEF\xBB\xBF";
constexpr int oldestVersion = 9;

fs::path Version(const fs::path& path, int age) {
    fs::path version = path;
    version += age == 0 ? std::string(".bak") : ".bak" + std::to_string(age);
    return version;
}

/// There may be no such version yet.
void Rename(const fs::path& from, const fs::path& to) {
    std::error_code error;
    if (fs::symlink_status(from, error).type() == fs::file_type::not_found)
        return;
    fs::rename(from, to, error);
    if (error)
        throw RuntimeError::OfFile(error);
}

/// The new copy is whole before an older one gives way.
void KeepVersion(const fs::path& path, std::string_view bytes) {
    fs::path newest = Version(path, 0);
    newest += ".neu";
    ReplaceFileBytes(newest, bytes);
    try {
        std::error_code error;
        if (const fs::file_status status = fs::status(path, error); !error)
            fs::permissions(newest, status.permissions(), error);
        for (int age = oldestVersion; age > 0; --age)
            Rename(Version(path, age - 1), Version(path, age));
        Rename(newest, Version(path, 0));
    } catch (...) {
        std::error_code ignored;
        fs::remove(newest, ignored);
        throw;
    }
}

/// What BlueJ calls the file that makes a folder its project, now and formerly.
constexpr std::string_view projectFiles[] = {"package.bluej", "bluej.pkg"};

constexpr std::string_view projectIsUnclear =
    "In diesem BlueJ-Projekt steht keine Java-Datei mit einer Klasse, die EBAnwendung erweitert, oder mehr als eine. "
    "Bitte wählen Sie die Datei selbst.";

/// Whether a file mentions the class that windows extend; a longer one is none.
bool MayBeWindow(const fs::path& path) {
    constexpr std::uintmax_t longest = 10'000'000;
    std::error_code error;
    return path.extension() == ".java" && fs::file_size(path, error) <= longest && !error &&
           ReadFileBytes(path).find("EBAnwendung") != std::string::npos;
}

/// Empty for none and for several.
fs::path OnlyWindowIn(const fs::path& folder) {
    std::vector<fs::path> files = FilesIn(folder);
    std::erase_if(files, [](const fs::path& file) { return !MayBeWindow(file); });
    return files.size() == 1 ? files.front() : fs::path();
}

} // namespace

bool IsBlueJProject(const fs::path& folder) {
    return std::any_of(std::begin(projectFiles), std::end(projectFiles),
                       [&folder](std::string_view name) { return IsExistingFile(folder / name); });
}

JavaEncoding EncodingOf(std::string_view bytes) {
    if (!IsUtf8(bytes))
        return JavaEncoding::Windows1252;
    if (bytes.starts_with(mark))
        return JavaEncoding::Utf8WithMark;
    const bool isAscii = std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; });
    return isAscii ? JavaEncoding::Windows1252 : JavaEncoding::Utf8;
}

std::string DecodeJava(std::string_view bytes, JavaEncoding encoding) {
    if (encoding == JavaEncoding::Windows1252)
        return FromWindows1252(bytes);
    return std::string(bytes.substr(encoding == JavaEncoding::Utf8WithMark ? mark.size() : 0));
}

std::string EncodeJava(std::string text, JavaEncoding encoding) {
    if (encoding == JavaEncoding::Windows1252)
        return ToWindows1252(std::move(text));
    if (encoding == JavaEncoding::Utf8WithMark)
        text.insert(0, mark);
    return text;
}

FileUpdate PrepareUpdate(const fs::path& path, const ProjectModel& model, UpdateOptions options) {
    return UnderLabel(updateLabel, [&] {
        FileUpdate file;
        file.path = path;
        file.before = ReadFileBytes(path);
        const JavaEncoding encoding = EncodingOf(file.before);
        file.source = DecodeJava(file.before, encoding);
        options.windows1252 = encoding == JavaEncoding::Windows1252;
        file.update = UpdateJava(file.source, model, options);
        file.after = EncodeJava(file.update.source, encoding);
        return file;
    });
}

bool WriteUpdate(const FileUpdate& update) {
    return UnderLabel(updateLabel, [&] {
        if (ReadFileBytes(update.path) != update.before)
            return false;
        if (!update.Changes())
            return true;
        KeepVersion(update.path, update.before);
        ReplaceFileBytes(update.path, update.after);
        return true;
    });
}

fs::path JavaFileOf(const fs::path& chosen) {
    std::error_code ignored;
    const bool isFolder = fs::is_directory(chosen, ignored);
    const bool isProject = std::any_of(std::begin(projectFiles), std::end(projectFiles),
                                       [&chosen](std::string_view name) { return chosen.filename() == name; });
    if (!isFolder && !isProject)
        return chosen;
    const fs::path folder = isFolder ? chosen : chosen.parent_path();
    const fs::path usual = folder / "SuMAnwendung.java";
    return IsExistingFile(usual) ? usual : UnderLabel(updateLabel, [&] { return OnlyWindowIn(folder); });
}

std::string ChooseJavaFile(const std::string& preset, cCommonDialog& dialogs) {
    FileDialogSetup setup{.Title = "Java-Datei wählen",
                          .Filter = "Java-Dateien und BlueJ-Projekte|*.java;package.bluej;bluej.pkg|"
                                    "Alle Dateien (*.*)|*.*",
                          .Flags = FileDialogSetup::FileMustExist | FileDialogSetup::BlueJFolder,
                          .FileName = preset,
                          .Name = "updateDialog"};
    for (;;) {
        const std::string chosen = dialogs.ShowOpen(setup);
        if (chosen.empty())
            return {};
        const fs::path file = JavaFileOf(PathOf(chosen));
        if (!file.empty())
            return TextOf(file);
        dialogs.Information(projectIsUnclear);
        setup.FileName = chosen;
    }
}

} // namespace pirol
