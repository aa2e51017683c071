#pragma once

#include <filesystem>
#include <string_view>

namespace pirol {

/// The folder that an environment variable names. Where it names none or a relative one, which would be another folder
/// after every change of the working directory, the folder `belowHome` of the user's home folder; an empty path when
/// that is unknown too.
std::filesystem::path UserFolder(const char* variable, std::string_view belowHome);

} // namespace pirol
