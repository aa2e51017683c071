#pragma once

#include <filesystem>
#include <string_view>

namespace pirol {

/// What the exports write. `source` is the generated Java, UTF-8; files hold it as Windows-1252.
/// All raise RuntimeError under the label "Main.Project.Export".

/// Creates a folder of exactly this path with the four files of a BlueJ project and the source. The folder must not
/// exist yet; when anything fails it is removed again.
void ExportBlueJProject(const std::filesystem::path& folder, std::string_view source);

/// Writes the source over the beginning of a file. When the file was longer its old end stays behind the source: the
/// export does not cut files off.
void ExportSource(const std::filesystem::path& file, std::string_view source);

} // namespace pirol
