#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace pirol {

/// Who may read a file that is made.
enum class Privacy {
    Usual, ///< whom the system's settings for new files let
    UserAlone,
};

/// An open regular file. Closing is the destructor's, too. What fails raises RuntimeError with the file error, unless
/// it says otherwise; an operation that a signal interrupts goes on.
class OpenFile {
  public:
    enum class Purpose {
        Read,
        Change, ///< reading and writing what is there
        Create, ///< writing what must not be there yet
        Append, ///< writing behind what may be there
    };

    /// Opens a file, or gives the reason in `error`. Folders, pipes and devices are refused at once.
    static OpenFile Open(const std::filesystem::path& path, Purpose purpose, std::error_code& error,
                         Privacy privacy = Privacy::Usual);

    OpenFile() = default;
    OpenFile(OpenFile&& other) noexcept;
    OpenFile& operator=(OpenFile&& other) noexcept;
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile();

    bool IsOpen() const { return descriptor_ != none; }

    /// All that the file holds, from its beginning. Raises OutOfMemory for more than half a gigabyte: no file of a
    /// project comes near that, and the content hash is not defined for longer texts.
    std::string ReadAll();
    /// Writes from where the last writing ended.
    void Write(std::string_view bytes);
    /// Puts bytes in the place of all that the file holds, and on the disk.
    void Rewrite(std::string_view bytes);
    /// Has the disk hold all that was written.
    void Sync();
    void Close();

    /// Makes this file belong to whom the other one does and readable by the same, as far as the system allows it.
    /// Nobody gets more rights than he had: without the group, the group's rights are those of all others, and marks
    /// that let a program run as its owner are not carried to another owner. Raises nothing.
    void TakeOwnerAndRights(const OpenFile& other);

    /// Shows that the file is being written, until it is closed. False when it is gone meanwhile. Nothing happens where
    /// files cannot be locked.
    bool MarkAsBeingWritten();
    /// Whether it is certain that nobody is writing the file. Raises nothing.
    bool IsAbandoned();
    /// Keeps other programs from getting hold of this very file, whatever happens to its name, until it is closed.
    /// False when another one has it. Windows removes and renames no open file, so there it is closed.
    bool TryHold();
    /// Windows renames no open file; elsewhere it stays open, and marked.
    void GetReadyForRenaming();

  private:
    static constexpr int none = -1;

    int descriptor_ = none;
};

/// Has the disk hold which files are in a folder. Nothing happens where that cannot be asked for.
void SyncFolder(const std::filesystem::path& folder);

/// The error of a failed writing: when a file cannot be made because something does not exist, that is its folder.
[[noreturn]] void ThrowWriteError(const std::error_code& code);

} // namespace pirol
