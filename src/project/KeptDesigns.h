#pragma once

#include "project/Snapshot.h"

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// Designs with unsaved changes that have left the screen, each a file of its own in a folder that the user alone can
/// read. They stay for 30 days, at most 50 of them and 100 megabytes; the oldest go first, the newest always stays.
constexpr std::time_t longestKept = std::time_t{30} * 24 * 3600;
constexpr std::size_t mostKept = 50;
constexpr std::uintmax_t mostKeptBytes = std::uintmax_t{100} << 20U;

/// Where they lie when the recovery files lie in the given folder.
std::filesystem::path KeptFolder(const std::filesystem::path& recoveryFolder);

struct KeptDesign {
    std::filesystem::path file;
    std::time_t kept;     ///< when it left the screen
    std::string reason;   ///< why it did, German
    std::string filePath; ///< of its project, UTF-8, empty for none
    std::uintmax_t bytes; ///< of the file
};

/// Keeps a design; one that is there already with the same reason moves to the top. Then the limits hold. A file that
/// is written is whole. Raises RuntimeError with the file error; the limits raise nothing.
void KeepDesign(const std::filesystem::path& folder, const OpenDesign& design, std::string_view reason,
                std::time_t now);

/// Keeps what ended programs have left in the recovery folder, where it stays: the newest of them, as many as can be
/// kept, but for those that are kept already or are too old. Raises RuntimeError with the file error.
void KeepLeftDesigns(const std::filesystem::path& folder, const std::filesystem::path& recoveryFolder,
                     std::string_view reason, std::time_t now);

/// What is kept, the newest first. A file that cannot be read is left out. Raises RuntimeError with the file error when
/// the folder cannot be listed.
std::vector<KeptDesign> KeptDesigns(const std::filesystem::path& folder);

/// The design itself. Raises RuntimeError: the file errors, and any number for a damaged file.
OpenDesign ReadDesign(const KeptDesign& kept);

/// Deletes it. Raises RuntimeError with the file error.
void Delete(const KeptDesign& kept);

} // namespace pirol
