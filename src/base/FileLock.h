#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace pirol {

/// A lock that shows that this program is running. The system releases it when the program ends, however it ends. It is
/// a lock on a file that exists as long as the lock; a killed program may leave the file, but not the lock.
class FileLock {
  public:
    /// Gives the lock, or nothing when a program has it already, this one included. Raises RuntimeError with the file
    /// error when the file cannot be made.
    static std::optional<FileLock> TryLock(const std::filesystem::path& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    /// Removes the file and releases the lock.
    ~FileLock();

    /// Whether the locked file is still the one of that path; somebody may have removed it.
    bool IsInPlace() const;

  private:
    explicit FileLock(std::filesystem::path path) : path_(std::move(path)) {}

    static constexpr std::intptr_t none = -1;

    std::filesystem::path path_;
    std::intptr_t handle_ = none; ///< of the open file, as the system counts it
};

} // namespace pirol
