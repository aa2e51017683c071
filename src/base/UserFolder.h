#pragma once

#include <filesystem>
#include <string_view>

namespace pirol {

/// The folder that an environment variable names. When it names none, or a relative one, which would change with the
/// working directory, the folder `belowHome` of the user's home folder; an empty path when that is unknown too.
std::filesystem::path UserFolder(const char* variable, std::string_view belowHome);

} // namespace pirol
