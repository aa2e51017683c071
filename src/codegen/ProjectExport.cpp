#include "codegen/ProjectExport.h"

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "codegen/BlueJTemplate.h"

#include <string>
#include <system_error>
#include <vector>

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view exportLabel = "Main.Project.Export";

/// The template files in the order in which they are written. Their content is the same for every design.
constexpr std::string_view templateFiles[] = {"bluej.pkg", "bluej.pkh", "Readme.txt", "SuMAnwendung.ctxt"};

void CreateFolder(const fs::path& folder) {
    std::error_code error;
    if (fs::create_directory(folder, error))
        return;
    if (error == std::errc::no_such_file_or_directory)
        throw RuntimeError(RuntimeError::PathNotFound);
    throw error ? RuntimeError::OfFile(error) : RuntimeError(RuntimeError::PathAccess);
}

struct NewFile {
    fs::path path;
    std::string bytes;
};

/// All that the folder will hold, ready to be written.
std::vector<NewFile> FilesOf(const fs::path& folder, std::string_view source) {
    std::vector<NewFile> files;
    for (const std::string_view name : templateFiles)
        files.push_back({folder / name, std::string(BlueJTemplate(name))});
    files.push_back({folder / "SuMAnwendung.java", ToWindows1252(std::string(source))});
    return files;
}

/// Allocates no memory, as it also runs when memory has run out.
void RemoveAll(const std::vector<NewFile>& files, const fs::path& folder) {
    std::error_code ignored;
    for (const NewFile& file : files)
        fs::remove(file.path, ignored);
    fs::remove(folder, ignored);
}

} // namespace

void ExportBlueJProject(const fs::path& folder, std::string_view source) {
    UnderLabel(exportLabel, [&] {
        const std::vector<NewFile> files = FilesOf(folder, source);
        CreateFolder(folder);
        try {
            for (const NewFile& file : files)
                CreateFileBytes(file.path, file.bytes);
        } catch (...) {
            RemoveAll(files, folder);
            throw;
        }
    });
}

void ExportSource(const fs::path& file, std::string_view source) {
    UnderLabel(exportLabel, [&] { OverwriteFileBytes(file, ToWindows1252(std::string(source))); });
}

} // namespace pirol
