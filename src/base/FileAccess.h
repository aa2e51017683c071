#pragma once

#include "base/OpenFile.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Whole files as bytes. All of these, unless they say otherwise, raise RuntimeError with the number of the file error
/// that happened.

/// The path of a UTF-8 text, on every system.
std::filesystem::path PathOf(std::string_view utf8);
/// The UTF-8 text of a path.
std::string TextOf(const std::filesystem::path& path);

/// Whether the path names something that is there and is no folder. Raises nothing.
bool IsExistingFile(const std::filesystem::path& path);

/// What is in a folder, in no order; nothing when there is no such folder.
std::vector<std::filesystem::path> FilesIn(const std::filesystem::path& folder);

/// Folders, pipes and devices are refused at once (PathAccess).
std::string ReadFileBytes(const std::filesystem::path& path);

/// Replaces a file as one step: whatever happens meanwhile, the old content or the new one is on disk, whole.
/// Keeps the permissions of the file that it replaces, and its owner and group as far as the system lets it, and writes
/// through a symbolic link to what it names. Where the folder forbids that step the file itself is written; the old
/// content lies meanwhile in "Pirol-Sicherung-NUMBER" beside it or in the user's folder StateFolder()/saving.
/// Clears away what killed programs have left half-written in that folder.
void ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes);

/// Takes the bytes of a file piece by piece.
using ByteSink = std::function<void(std::string_view)>;
/// Makes the bytes of a file; it may be asked for them twice.
using Producer = std::function<void(const ByteSink&)>;

/// The same for bytes that are made only while they are written. What `produce` raises passes through; the old file
/// stays then. The privacy is that of a file that was not there.
void ReplaceFile(const std::filesystem::path& path, const Producer& produce, Privacy privacy = Privacy::Usual);

/// Removes what killed programs have left half-written in a folder, and nothing that is being written. Raises nothing.
void ClearHalfWritten(const std::filesystem::path& folder);

/// Writes from the beginning of the file, without cutting it off behind: what a longer file held there stays. As one
/// step, too.
void OverwriteFileBytes(const std::filesystem::path& path, std::string_view bytes);

/// Writes a file that must not exist yet.
void CreateFileBytes(const std::filesystem::path& path, std::string_view bytes);

} // namespace pirol
