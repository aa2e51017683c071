#pragma once

#include <filesystem>
#include <string_view>

namespace pirol {

/// The path that an environment variable holds; an empty one without such a variable.
std::filesystem::path PathOfVariable(const char* variable);

/// The folder that an environment variable names. When it names none, or a relative one, which would change with the
/// working directory, the folder `belowHome` of the user's home folder; an empty path when that is unknown too.
std::filesystem::path UserFolder(const char* variable, std::string_view belowHome);

/// The user's folder for what Pirol itself keeps between two runs; an empty path when the user has none.
std::filesystem::path StateFolder();

/// Makes a folder that the user alone can look into. One that is there and belongs to the user becomes such a folder.
/// Raises RuntimeError with the file error.
void MakePrivateFolder(const std::filesystem::path& folder);

/// Whether this is a folder, and no link to one, that belongs to the user and that nobody else may look into. Windows
/// keeps the user's folders from all others, so there every folder is one. Raises nothing.
bool IsPrivateFolder(const std::filesystem::path& folder);

} // namespace pirol
