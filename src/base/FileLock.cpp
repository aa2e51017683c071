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
    // The other lock holds now what this one held, and its destructor releases it.
    std::swap(path_, other.path_);
    std::swap(handle_, other.handle_);
    return *this;
}

#ifdef _WIN32

std::optional<FileLock> FileLock::TryLock(const std::filesystem::path& path) {
    FileLock lock(path);
    // A handle that shares nothing has the file for itself, and the system deletes the file with the last handle.
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

/// Nobody removes a file that we share with nobody.
bool FileLock::IsInPlace() const {
    return handle_ != none;
}

FileLock::~FileLock() {
    if (handle_ != none)
        CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

#else

namespace {

/// Whether a holder that ended after we had opened the file, but before we locked it, has removed the file. A lock on a
/// removed file keeps nobody out.
bool IsRemoved(int descriptor) {
    struct stat status = {};
    return fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

} // namespace

std::optional<FileLock> FileLock::TryLock(const std::filesystem::path& path) {
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

bool FileLock::IsInPlace() const {
    struct stat held = {};
    struct stat present = {};
    return handle_ != none && fstat(static_cast<int>(handle_), &held) == 0 && stat(path_.c_str(), &present) == 0 &&
           held.st_dev == present.st_dev && held.st_ino == present.st_ino;
}

FileLock::~FileLock() {
    if (handle_ == none)
        return;
    if (IsInPlace())
        unlink(path_.c_str());
    close(static_cast<int>(handle_));
}

#endif

} // namespace pirol
