#include "base/FileAccess.h"

#include "base/RuntimeError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <optional>
#include <random>
#include <system_error>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#else
#include <unistd.h>
#endif

namespace pirol {
namespace {

namespace fs = std::filesystem;

/// No file of a project comes near this size. An endless device or a wrong file gives a clear error and does not use up
/// the machine's memory. The content hash is not defined for longer texts either.
constexpr std::size_t largestFile = std::size_t{1} << 29u;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

std::error_code LastError() {
    return {errno, std::generic_category()};
}

/// To read a file, to write into one that is there, to write one that must not be there yet.
enum class Purpose { Read, Change, Create };

#ifdef _WIN32

struct OpenMode {
    int flags;
    const wchar_t* mode;
};

/// Some versions of the Windows library lack the mode that refuses existing files; all of them have the flag.
constexpr OpenMode openModes[] = {
    {_O_BINARY | _O_RDONLY, L"rb"},
    {_O_BINARY | _O_RDWR, L"r+b"},
    {_O_BINARY | _O_WRONLY | _O_CREAT | _O_EXCL, L"wb"},
};

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

File TryOpen(const fs::path& path, Purpose purpose) {
    const OpenMode& mode = openModes[static_cast<int>(purpose)];
    const int descriptor = _wopen(path.c_str(), mode.flags, _S_IREAD | _S_IWRITE);
    if (descriptor < 0) {
        errno = PreciseError(path, errno);
        return nullptr;
    }
    File file(_wfdopen(descriptor, mode.mode));
    if (file == nullptr)
        _close(descriptor);
    return file;
}

#else

constexpr const char* openModes[] = {"rb", "r+b", "wbx"};

File TryOpen(const fs::path& path, Purpose purpose) {
    return File(std::fopen(path.c_str(), openModes[static_cast<int>(purpose)]));
}

#endif

/// When a file cannot be made because something does not exist, that is its folder.
RuntimeError WriteError(const std::error_code& code) {
    if (code == std::errc::no_such_file_or_directory)
        return RuntimeError(RuntimeError::PathNotFound);
    return RuntimeError::OfFile(code);
}

File OpenForWriting(const fs::path& path, Purpose purpose) {
    File file = TryOpen(path, purpose);
    if (file == nullptr)
        throw WriteError(LastError());
    return file;
}

void SyncToDisk(std::FILE* file) {
#ifdef _WIN32
    const int result = _commit(_fileno(file));
#else
    const int result = fsync(fileno(file));
#endif
    // Pipes and devices cannot be synchronised and need not be.
    if (result != 0 && errno != EINVAL && errno != ENOTSUP)
        throw WriteError(LastError());
}

/// Writes all bytes through to the disk. Every failure on the way is an error, the last one at closing included.
void WriteAndClose(File file, const std::function<void(const ByteSink&)>& produce) {
    produce([&file](std::string_view bytes) {
        // An empty text may have no place in memory, which the C library does not take.
        if (!bytes.empty() && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size())
            throw WriteError(LastError());
    });
    if (std::fflush(file.get()) != 0)
        throw WriteError(LastError());
    SyncToDisk(file.get());
    if (std::fclose(file.release()) != 0)
        throw WriteError(LastError());
}

void WriteAndClose(File file, std::string_view bytes) {
    WriteAndClose(std::move(file), [bytes](const ByteSink& write) { write(bytes); });
}

/// A file that is removed again unless it is kept.
class TemporaryFile {
  public:
    explicit TemporaryFile(fs::path path) : path_(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        std::error_code ignored;
        if (isOurs_)
            fs::remove(path_, ignored);
    }
    const fs::path& Path() const { return path_; }
    File Create() {
        File file = OpenForWriting(path_, Purpose::Create);
        isOurs_ = true;
        return file;
    }
    void Keep() { isOurs_ = false; }

  private:
    fs::path path_;
    bool isOurs_ = false;
};

fs::path NameBeside(const fs::path& path) {
    std::random_device random;
    fs::path name = ".";
    name += path.filename();
    name += ".";
    name += std::to_string(random());
    name += ".tmp";
    return path.parent_path() / name;
}

/// The file that the path names through any links, or nothing when there is none yet.
std::optional<fs::path> ExistingFile(const fs::path& path) {
    std::error_code error;
    fs::path resolved = fs::canonical(path, error);
    if (!error)
        return resolved;
    // Something that exists but cannot be examined may be a link, and no new file must take its place.
    std::error_code ignored;
    if (error != std::errc::no_such_file_or_directory && fs::exists(fs::symlink_status(path, ignored)))
        throw WriteError(error);
    return std::nullopt;
}

fs::file_status StatusOf(const fs::path& existing) {
    std::error_code error;
    const fs::file_status status = fs::status(existing, error);
    if (error)
        throw WriteError(error);
    return status;
}

} // namespace

fs::path PathOf(std::string_view utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string TextOf(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

bool IsExistingFile(const fs::path& path) {
    std::error_code ignored;
    const fs::file_status status = fs::status(path, ignored);
    return fs::exists(status) && !fs::is_directory(status);
}

std::string ReadFileBytes(const fs::path& path) {
    const File file = TryOpen(path, Purpose::Read);
    if (file == nullptr)
        throw RuntimeError::OfFile(LastError());
    std::string bytes;
    std::error_code unknownSize;
    const std::uintmax_t size = fs::file_size(path, unknownSize);
    if (!unknownSize && size <= largestFile)
        bytes.reserve(static_cast<std::size_t>(size));
    std::array<char, 65536> block;
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get())) {
        if (bytes.size() + count > largestFile)
            throw RuntimeError(RuntimeError::OutOfMemory);
        bytes.append(block.data(), count);
    }
    if (std::ferror(file.get()) != 0)
        throw RuntimeError::OfFile(LastError());
    return bytes;
}

void ReplaceFileBytes(const fs::path& path, std::string_view bytes) {
    ReplaceFile(path, [bytes](const ByteSink& write) { write(bytes); });
}

void ReplaceFile(const fs::path& path, const std::function<void(const ByteSink&)>& produce) {
    const std::optional<fs::path> existing = ExistingFile(path);
    fs::file_status status;
    if (existing) {
        // Opening the file shows whether it may be written; renaming over it does not ask for that permission.
        File writable = OpenForWriting(*existing, Purpose::Change);
        status = StatusOf(*existing);
        if (!fs::is_regular_file(status))
            return WriteAndClose(std::move(writable), produce);
    }
    const fs::path target = existing.value_or(path);
    TemporaryFile temporary(NameBeside(target));
    WriteAndClose(temporary.Create(), produce);
    std::error_code error;
    if (existing)
        fs::permissions(temporary.Path(), status.permissions(), error);
    fs::rename(temporary.Path(), target, error);
    if (error)
        throw WriteError(error);
    temporary.Keep();
}

void OverwriteFileBytes(const fs::path& path, std::string_view bytes) {
    const std::optional<fs::path> existing = ExistingFile(path);
    if (!existing || !fs::is_regular_file(StatusOf(*existing)))
        return ReplaceFileBytes(path, bytes);
    const std::string old = ReadFileBytes(*existing);
    ReplaceFile(path, [&](const ByteSink& write) {
        write(bytes);
        write(std::string_view(old).substr(std::min(bytes.size(), old.size())));
    });
}

void CreateFileBytes(const fs::path& path, std::string_view bytes) {
    WriteAndClose(OpenForWriting(path, Purpose::Create), bytes);
}

} // namespace pirol
