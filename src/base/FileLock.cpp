#include "base/FileLock.h"

#include "base/RuntimeError.h"

#include <cerrno>
#include <system_error>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace pirol {

FileLock::FileLock(FileLock&& other) noexcept
    : path_(std::move(other.path_)), handle_(std::exchange(other.handle_, none)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
    // The other one releases at its own end what this one held.
    std::swap(path_, other.path_);
    std::swap(handle_, other.handle_);
    return *this;
}

#ifdef _WIN32

std::optional<FileLock> FileLock::Take(const std::filesystem::path& path) {
    FileLock lock(path);
    // Who shares nothing is alone with the file, and the system deletes it with the last handle.
    const HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        lock.handle_ = reinterpret_cast<std::intptr_t>(handle);
        return lock;
    }
    const DWORD error = GetLastError();
    // A file that is just being deleted refuses access.
    if (error == ERROR_SHARING_VIOLATION || error == ERROR_DELETE_PENDING)
        return std::nullopt;
    throw RuntimeError::OfFile({static_cast<int>(error), std::system_category()});
}

FileLock::~FileLock() {
    if (handle_ != none)
        CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

#else

namespace {

/// A holder that ended between our opening the file and locking it has removed it: such a lock keeps nobody out.
bool IsRemoved(int descriptor) {
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

} // namespace

std::optional<FileLock> FileLock::Take(const std::filesystem::path& path) {
    FileLock lock(path);
    while (true) {
        const int descriptor = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (descriptor < 0)
            throw RuntimeError::OfFile({errno, std::generic_category()});
        if (flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
            const int error = errno;
            close(descriptor);
            if (error == EWOULDBLOCK)
                return std::nullopt;
            throw RuntimeError::OfFile({error, std::generic_category()});
        }
        if (!IsRemoved(descriptor)) {
            lock.handle_ = descriptor;
            return lock;
        }
        close(descriptor);
    }
}

FileLock::~FileLock() {
    if (handle_ == none)
        return;
    unlink(path_.c_str());
    close(static_cast<int>(handle_));
}

#endif

} // namespace pirol
