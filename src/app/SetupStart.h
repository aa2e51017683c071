#pragma once

#include "app/ProgramStarter.h"

#include <filesystem>
#include <string>

namespace pirol {

/// Starts a setup program that was loaded and found right. On Windows it waits for the end of this program, replaces
/// it, and starts it again with the project given, or without one when that is empty. Elsewhere the file is a package,
/// which goes to the program that the system opens packages with. Raises RuntimeError when the system refuses or has no
/// such program.
void StartSetup(const std::filesystem::path& setup, const std::string& project, ProgramStarter& starter);

} // namespace pirol
