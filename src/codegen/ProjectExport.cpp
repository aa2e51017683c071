#include "codegen/ProjectExport.h"

#include "model/FileAccess.h"
#include "model/RuntimeError.h"
#include "model/Windows1252.h"
#include "resources/BlueJTemplate.h"

#include <string>
#include <system_error>

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

void FillFolder(const fs::path& folder, std::string_view source) {
    for (const std::string_view name : templateFiles)
        CreateFileBytes(folder / name, BlueJTemplate(name));
    CreateFileBytes(folder / "SuMAnwendung.java", ToWindows1252(std::string(source)));
}

} // namespace

void ExportBlueJProject(const fs::path& folder, std::string_view source) {
    UnderLabel(exportLabel, [&] {
        CreateFolder(folder);
        try {
            FillFolder(folder, source);
        } catch (...) {
            std::error_code ignored;
            fs::remove_all(folder, ignored);
            throw;
        }
    });
}

void ExportSource(const fs::path& file, std::string_view source) {
    UnderLabel(exportLabel, [&] { OverwriteFileBytes(file, ToWindows1252(std::string(source))); });
}

} // namespace pirol
