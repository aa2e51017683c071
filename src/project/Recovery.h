#pragma once

#include "base/FileLock.h"
#include "project/Snapshot.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace pirol {

/// What is left of a design when the program is killed or the power fails: recovery files, one for each running
/// program, in a folder of the user's that no project lies in.

/// That folder; an empty path when the user has none.
std::filesystem::path RecoveryFolder();

/// The running program's recovery file. It makes nothing before it is first written, and removes everything at a normal
/// end. Not for two threads at the same time.
class RecoveryFile {
  public:
    explicit RecoveryFile(std::filesystem::path folder) : folder_(std::move(folder)) {}
    RecoveryFile(const RecoveryFile&) = delete;
    RecoveryFile& operator=(const RecoveryFile&) = delete;
    ~RecoveryFile() { Remove(); }

    /// Puts a snapshot into the place of the last one; whatever happens meanwhile, one of them is on disk, whole.
    /// Raises RuntimeError with the file error.
    void Write(std::string_view snapshot);
    /// For a design that need not be recovered.
    void Remove();

  private:
    void ReserveName();

    std::filesystem::path folder_;
    std::filesystem::path file_; ///< empty until a name is reserved
    std::optional<FileLock> lock_;
};

/// A design whose program has ended without removing it. As long as it is held here no other program is offered it.
struct LeftDesign {
    std::filesystem::path file;
    std::time_t written;
    FileLock lock;
};

/// The designs that were left, the newest first. Also clears away what killed programs have left half-written.
/// Raises RuntimeError with the file error.
std::vector<LeftDesign> LeftDesigns(const std::filesystem::path& folder);

/// The design itself, equal to the one that was lost. Raises RuntimeError: the file errors, and any number for a
/// damaged file.
OpenDesign ReadDesign(const LeftDesign& left);
/// Removes what need not be offered again.
void Discard(const LeftDesign& left);
/// Keeps a damaged file beside the others, under a name that is not offered; gives the new path.
std::filesystem::path SetAside(const LeftDesign& left);

} // namespace pirol
