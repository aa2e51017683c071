#pragma once

#include "base/FileLock.h"
#include "base/OpenFile.h"
#include "project/Snapshot.h"

#include <ctime>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// What is left of a design when the program is killed or the power fails: recovery files, one for each running
/// program, in a folder of the user's that no project lies in.

/// That folder; an empty path when the user has none.
std::filesystem::path RecoveryFolder();

/// The running program's recovery file. It makes nothing before it is first written, and removes everything at a normal
/// end. A folder or file that somebody removes meanwhile is made again. Not for two threads at the same time.
class RecoveryFile {
  public:
    explicit RecoveryFile(std::filesystem::path folder) : folder_(std::move(folder)) {}
    RecoveryFile(const RecoveryFile&) = delete;
    RecoveryFile& operator=(const RecoveryFile&) = delete;
    ~RecoveryFile();

    /// Puts a snapshot into the place of the last one; whatever happens meanwhile, one of them is on disk, whole.
    /// When it is told to stop on the way the last one stays. Raises RuntimeError with the file error.
    void Write(std::string_view snapshot, const std::stop_token& stop = {});
    /// Whether the last snapshot written is still there, with the lock that keeps other programs off.
    bool IsInPlace() const;
    /// For a design that need not be recovered.
    void Remove();
    /// Whether the file stays behind the end of the program, so that the next one offers it.
    void StayBehind(bool stays) { staysBehind_ = stays; }
    bool StaysBehind() const { return staysBehind_; }

  private:
    void ReserveName();
    void TryName(const std::string& name);

    std::filesystem::path folder_;
    std::filesystem::path file_; ///< empty until a name is reserved
    std::optional<FileLock> lock_;
    OpenFile held_; ///< the file itself: the lock's file can be removed by somebody
    bool staysBehind_ = false;
};

/// A design whose program has ended without removing it.
struct LeftDesign {
    std::filesystem::path file;
    std::time_t written;
};

/// The designs that were left, the newest first. Also clears away what killed programs have left half-written. What
/// belongs to other users is left out.
/// Raises RuntimeError with the file error when the folder cannot be listed.
std::vector<LeftDesign> LeftDesigns(const std::filesystem::path& folder);

/// While it is there no other program gets hold of a left design.
struct HeldDesign {
    std::optional<FileLock> lock;
    OpenFile file;
};

/// Gets hold of a left design; nothing when another program has it or when it is no longer there. Raises nothing.
std::optional<HeldDesign> Hold(const LeftDesign& left);

/// The design itself, equal to the one that was lost. Raises RuntimeError: the file errors, and any number for a
/// damaged file.
OpenDesign ReadDesign(const LeftDesign& left);
/// Removes what need not be offered again.
void Discard(const LeftDesign& left);
/// Keeps a damaged file beside the others, under a name that is not offered; gives the new path.
std::filesystem::path SetAside(const LeftDesign& left);

/// The bytes of a file that keeps a snapshot, and back: both with a check that it is whole. Reading raises
/// RuntimeError, any number.
std::string KeptBytesOf(std::string_view snapshot);
std::string SnapshotOfKeptBytes(std::string_view bytes);

} // namespace pirol
