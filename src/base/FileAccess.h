#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace pirol {

/// Whole files as bytes. All of these, unless they say otherwise, raise RuntimeError with the number of the file error
/// that happened.

/// The path of a UTF-8 text, on every system.
std::filesystem::path PathOf(std::string_view utf8);
/// The UTF-8 text of a path.
std::string TextOf(const std::filesystem::path& path);

/// Whether the path names something that is there and is no folder. Raises nothing.
bool IsExistingFile(const std::filesystem::path& path);

std::string ReadFileBytes(const std::filesystem::path& path);

/// Replaces a file as one step: whatever happens meanwhile, the old content or the new one is on disk, whole.
/// Keeps the permissions of the file that it replaces and writes through a symbolic link to what it names.
void ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes);

/// Takes the bytes of a file piece by piece.
using ByteSink = std::function<void(std::string_view)>;

/// The same for bytes that `produce` makes only while they are written. What it raises passes through; the old file
/// stays then.
void ReplaceFile(const std::filesystem::path& path, const std::function<void(const ByteSink&)>& produce);

/// Writes from the beginning of the file, without cutting it off behind: what a longer file held there stays. As one
/// step, too.
void OverwriteFileBytes(const std::filesystem::path& path, std::string_view bytes);

/// Writes a file that must not exist yet.
void CreateFileBytes(const std::filesystem::path& path, std::string_view bytes);

} // namespace pirol
