#include "base/OpenFile.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <utility>
#ifdef _WIN32
#include <io.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t largestFile = std::size_t{1} << 29u;
constexpr std::size_t blockSize = 65536;

std::error_code LastError() {
    return {errno, std::generic_category()};
}

/// A signal is no failure. The attempts have a bound all the same, so that nothing can make the program hang here.
template <class Call>
auto Uninterrupted(Call call) {
    constexpr int mostAttempts = 100;
    auto result = call();
    for (int attempt = 1; result < 0 && errno == EINTR && attempt < mostAttempts; ++attempt)
        result = call();
    return result;
}

#ifdef _WIN32

constexpr int openFlags[] = {_O_BINARY | _O_NOINHERIT | _O_RDONLY, _O_BINARY | _O_NOINHERIT | _O_RDWR,
                             _O_BINARY | _O_NOINHERIT | _O_RDWR | _O_CREAT | _O_EXCL,
                             _O_BINARY | _O_NOINHERIT | _O_WRONLY | _O_CREAT | _O_APPEND};

/// The longest path that Windows takes from a program unless its administrator lifted that limit.
constexpr std::size_t longestPath = 259;

/// The Windows library calls several failures by one name; a second look at the path tells them apart.
int PreciseError(const fs::path& path, int code) {
    std::error_code ignored;
    if (code == EACCES && fs::is_directory(path, ignored))
        return EISDIR;
    if (code == ENOENT && fs::absolute(path, ignored).native().size() > longestPath)
        return ENAMETOOLONG;
    if (code == ENOENT && fs::is_regular_file(path.parent_path(), ignored))
        return ENOTDIR;
    return code;
}

int OpenDescriptor(const fs::path& path, OpenFile::Purpose purpose, Privacy /*folders decide*/) {
    const int descriptor = _wopen(path.c_str(), openFlags[static_cast<int>(purpose)], _S_IREAD | _S_IWRITE);
    if (descriptor < 0)
        errno = PreciseError(path, errno);
    return descriptor;
}

/// Why what was opened is no file to work on; 0 when it is one.
int RefusalOf(int descriptor) {
    struct _stat64 status = {};
    if (_fstat64(descriptor, &status) != 0)
        return errno;
    return (status.st_mode & _S_IFMT) == _S_IFREG ? 0 : ENODEV;
}

int CloseDescriptor(int descriptor) {
    return _close(descriptor);
}

int ReadBlock(int descriptor, char* data, std::size_t size) {
    return _read(descriptor, data, static_cast<unsigned>(size));
}

int WriteBlock(int descriptor, const char* data, std::size_t size) {
    return _write(descriptor, data, static_cast<unsigned>(std::min(size, blockSize)));
}

bool GoToBeginning(int descriptor) {
    return _lseeki64(descriptor, 0, SEEK_SET) == 0;
}

bool CutOff(int descriptor, std::size_t size) {
    return _chsize_s(descriptor, static_cast<long long>(size)) == 0;
}

int SyncDescriptor(int descriptor) {
    return _commit(descriptor);
}

#else

// Without waiting for the other end of a pipe.
constexpr int openFlags[] = {O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                             O_RDWR | O_CLOEXEC | O_CREAT | O_EXCL,
                             O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW | O_CREAT | O_APPEND};

constexpr mode_t forTheUser = S_IRUSR | S_IWUSR;
constexpr mode_t forEverybody = forTheUser | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH; // less what the system takes off

int OpenDescriptor(const fs::path& path, OpenFile::Purpose purpose, Privacy privacy) {
    const mode_t mode = privacy == Privacy::UserAlone ? forTheUser : forEverybody;
    return Uninterrupted([&] { return open(path.c_str(), openFlags[static_cast<int>(purpose)], mode); });
}

int RefusalOf(int descriptor) {
    struct stat status = {};
    if (fstat(descriptor, &status) != 0)
        return errno;
    if (S_ISDIR(status.st_mode))
        return EISDIR;
    return S_ISREG(status.st_mode) ? 0 : ENODEV;
}

/// Once only: what an interrupted closing leaves is closed.
int CloseDescriptor(int descriptor) {
    const int result = close(descriptor);
    return result != 0 && errno == EINTR ? 0 : result;
}

ssize_t ReadBlock(int descriptor, char* data, std::size_t size) {
    return read(descriptor, data, size);
}

ssize_t WriteBlock(int descriptor, const char* data, std::size_t size) {
    return write(descriptor, data, size);
}

bool GoToBeginning(int descriptor) {
    return lseek(descriptor, 0, SEEK_SET) == 0;
}

bool CutOff(int descriptor, std::size_t size) {
    return Uninterrupted([&] { return ftruncate(descriptor, static_cast<off_t>(size)); }) == 0;
}

int SyncDescriptor(int descriptor) {
    return fsync(descriptor);
}

#endif

} // namespace

void ThrowWriteError(const std::error_code& code) {
    if (code == std::errc::no_such_file_or_directory)
        throw RuntimeError(RuntimeError::PathNotFound);
    throw RuntimeError::OfFile(code);
}

OpenFile OpenFile::Open(const fs::path& path, Purpose purpose, std::error_code& error, Privacy privacy) {
    OpenFile file;
    error.clear();
    file.descriptor_ = OpenDescriptor(path, purpose, privacy);
    if (!file.IsOpen()) {
        error = LastError();
    } else if (const int refusal = purpose == Purpose::Create ? 0 : RefusalOf(file.descriptor_); refusal != 0) {
        error = {refusal, std::generic_category()};
        return {};
    }
    return file;
}

OpenFile::OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, none)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

OpenFile::~OpenFile() {
    if (IsOpen())
        CloseDescriptor(descriptor_);
}

std::string OpenFile::ReadAll() {
    if (!GoToBeginning(descriptor_))
        throw RuntimeError::OfFile(LastError());
    std::string bytes;
    std::array<char, blockSize> block;
    while (true) {
        const auto count = Uninterrupted([&] { return ReadBlock(descriptor_, block.data(), block.size()); });
        if (count < 0)
            throw RuntimeError::OfFile(LastError());
        if (count == 0)
            return bytes;
        if (bytes.size() + static_cast<std::size_t>(count) > largestFile)
            throw RuntimeError(RuntimeError::OutOfMemory);
        bytes.append(block.data(), static_cast<std::size_t>(count));
    }
}

void OpenFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = Uninterrupted([&] { return WriteBlock(descriptor_, bytes.data(), bytes.size()); });
        if (count < 0)
            ThrowWriteError(LastError());
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void OpenFile::Rewrite(std::string_view bytes) {
    if (!GoToBeginning(descriptor_))
        ThrowWriteError(LastError());
    Write(bytes);
    if (!CutOff(descriptor_, bytes.size()))
        ThrowWriteError(LastError());
    Sync();
}

void OpenFile::Sync() {
    const int result = Uninterrupted([this] { return SyncDescriptor(descriptor_); });
    // Some file systems know no synchronising.
    if (result != 0 && errno != EINVAL && errno != ENOTSUP)
        ThrowWriteError(LastError());
}

void OpenFile::Close() {
    if (IsOpen() && CloseDescriptor(std::exchange(descriptor_, none)) != 0)
        ThrowWriteError(LastError());
}

#ifdef _WIN32

// A new file has the rights of its folder, and nobody removes an open one.

void OpenFile::TakeOwnerAndRights(const OpenFile&) {}

bool OpenFile::MarkAsBeingWritten() {
    return true;
}

/// Between closing and renaming a file is not open either; that does not take an hour.
bool OpenFile::IsAbandoned() {
    struct _stat64 status = {};
    constexpr std::time_t longEnough = 3600;
    return _fstat64(descriptor_, &status) == 0 && status.st_mtime + longEnough < std::time(nullptr);
}

bool OpenFile::TryHold() {
    Close();
    return true;
}

void OpenFile::GetReadyForRenaming() {
    Close();
}

void SyncFolder(const fs::path&) {}

#else

void OpenFile::TakeOwnerAndRights(const OpenFile& other) {
    struct stat wanted = {};
    struct stat own = {};
    if (fstat(other.descriptor_, &wanted) != 0)
        return;
    // Only the administrator gives files away; a group of his own everybody may choose.
    if (fchown(descriptor_, wanted.st_uid, wanted.st_gid) != 0 &&
        fchown(descriptor_, static_cast<uid_t>(-1), wanted.st_gid) != 0)
        errno = 0;
    if (fstat(descriptor_, &own) != 0)
        return;
    mode_t mode = wanted.st_mode & static_cast<mode_t>(~S_IFMT);
    if (own.st_uid != wanted.st_uid)
        mode &= static_cast<mode_t>(~(S_ISUID | S_ISGID));
    if (own.st_gid != wanted.st_gid) {
        const mode_t ofOthers = (mode & S_IRWXO) << 3U;
        mode &= static_cast<mode_t>(~S_ISGID) & (ofOthers | static_cast<mode_t>(~S_IRWXG));
    }
    if (fchmod(descriptor_, mode) != 0)
        errno = 0;
}

bool OpenFile::MarkAsBeingWritten() {
    struct stat status = {};
    Uninterrupted([this] { return flock(descriptor_, LOCK_EX); });
    return fstat(descriptor_, &status) != 0 || status.st_nlink > 0;
}

bool OpenFile::IsAbandoned() {
    return IsOpen() && flock(descriptor_, LOCK_EX | LOCK_NB) == 0;
}

bool OpenFile::TryHold() {
    return flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

void OpenFile::GetReadyForRenaming() {}

void SyncFolder(const fs::path& folder) {
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return; // one may write into a folder that one may not read
    const int result = Uninterrupted([descriptor] { return fsync(descriptor); });
    const std::error_code error = LastError();
    CloseDescriptor(descriptor);
    if (result != 0 && error != std::errc::invalid_argument && error != std::errc::not_supported)
        ThrowWriteError(error);
}

#endif

} // namespace pirol
