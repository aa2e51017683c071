#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace pirol {

/// A lock that says: this program lives. The system releases it when the program ends, however it ends.
/// A file stands for it. The file lasts as long as the lock; a killed program may leave it, but not the lock.
class FileLock {
  public:
    /// Takes the lock; nothing when somebody holds it, be it this very program.
    /// Raises RuntimeError with the file error when the file cannot be made.
    static std::optional<FileLock> Take(const std::filesystem::path& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    /// Removes the file and releases the lock.
    ~FileLock();

  private:
    explicit FileLock(std::filesystem::path path) : path_(std::move(path)) {}

    static constexpr std::intptr_t none = -1;

    std::filesystem::path path_;
    std::intptr_t handle_ = none; ///< of the open file, as the system counts it
};

} // namespace pirol
