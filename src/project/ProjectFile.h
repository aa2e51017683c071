#pragma once

#include "model/ProjectModel.h"
#include "project/LoadingProgress.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace pirol {

/// The project file: single-byte text in Windows-1252 in five sections, closed by a hash of everything before.

/// What the user reads when the hash of a project file does not match.
constexpr std::string_view damagedProjectMessage =
    "Die .prl - Datei ist fehlerhaft oder wurde manuell verändert.\r\nDer Ladevorgang wird abgebrochen!";

enum class ReadResult {
    Loaded,
    Refused, ///< the hash does not match; show damagedProjectMessage
};

/// The bytes of the design's project file. Texts are written as they are; one that holds a line end or a separator
/// spoils its line. Raises RuntimeError under the label "Main.File.PRL.GeneratePRLCode".
std::string GeneratePRLCode(const ProjectModel& model);

/// Empties the design and fills it from a file. After a refusal it stays empty; after an error it holds what was read
/// before. `progress` may be null.
/// Raises RuntimeError under the label "Main.File.PRL.ReadPRLFile": the file errors, TypeMismatch and Overflow for bad
/// numbers, IndexOutOfRange for missing lines and fields and for menu lines that fit nowhere, OutOfMemory for
/// more than five million components, menu entries and list items. Linear in the file's size.
ReadResult ReadPRLFile(const std::filesystem::path& path, ProjectModel& model, LoadingProgress* progress = nullptr);

/// The same for a file's bytes.
ReadResult ReadPRLBytes(std::string_view bytes, ProjectModel& model, LoadingProgress* progress = nullptr);

} // namespace pirol
