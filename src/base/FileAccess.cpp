#include "base/FileAccess.h"

#include "base/RuntimeError.h"
#include "base/UserFolder.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <random>
#include <system_error>
#include <utility>

#ifndef _WIN32
#include <dirent.h>
#endif

namespace pirol {
namespace {

namespace fs = std::filesystem;

using Purpose = OpenFile::Purpose;

/// Half-written files have short names of their own, so that every name that the file system takes can be saved.
constexpr std::string_view temporaryPrefix = ".pirol-";
constexpr std::string_view temporaryExtension = ".tmp";
/// Not hidden, for after a power cut the user looks for it.
constexpr std::string_view copyPrefix = "Pirol-Sicherung-";

OpenFile OpenToChange(const fs::path& path) {
    std::error_code error;
    OpenFile file = OpenFile::Open(path, Purpose::Change, error);
    if (error)
        ThrowWriteError(error);
    return file;
}

/// Gathers small pieces to large ones.
class Buffer {
  public:
    explicit Buffer(OpenFile& file) : file_(file) {}
    void Add(std::string_view bytes) {
        constexpr std::size_t enough = std::size_t{1} << 18U;
        bytes_ += bytes;
        if (bytes_.size() >= enough)
            Flush();
    }
    void Flush() {
        file_.Write(bytes_);
        bytes_.clear();
    }

  private:
    OpenFile& file_;
    std::string bytes_;
};

void WriteAll(OpenFile& file, const Producer& produce) {
    Buffer buffer(file);
    produce([&buffer](std::string_view bytes) { buffer.Add(bytes); });
    buffer.Flush();
}

fs::path RandomName(std::string_view prefix, const fs::path& extension) {
    std::random_device random;
    fs::path name = prefix;
    name += std::to_string(random());
    name += extension;
    return name;
}

/// A new file that is removed again unless it is kept.
class TemporaryFile {
  public:
    explicit TemporaryFile(fs::path path) : path_(std::move(path)) {}
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        file_ = {}; // first: Windows removes no open file
        std::error_code ignored;
        if (isOurs_)
            fs::remove(path_, ignored);
    }
    const fs::path& Path() const { return path_; }
    OpenFile& File() { return file_; }

    std::error_code Create(Privacy privacy) {
        std::error_code error;
        file_ = OpenFile::Open(path_, Purpose::Create, error, privacy);
        isOurs_ = !error;
        return error;
    }
    std::error_code MoveTo(const fs::path& target) {
        std::error_code error;
        file_.GetReadyForRenaming();
        fs::rename(path_, target, error);
        isOurs_ = static_cast<bool>(error);
        return error;
    }
    void Keep(bool keep) { isOurs_ = !keep; }

  private:
    fs::path path_;
    OpenFile file_;
    bool isOurs_ = false;
};

/// The file that the path names through any links, whether there is one or not.
fs::path BehindLinks(const fs::path& path) {
    std::error_code error;
    fs::path resolved = fs::canonical(path, error);
    if (!error)
        return resolved;
    std::error_code ignored;
    const bool isThere = fs::exists(fs::symlink_status(path, ignored));
    // Something that exists but cannot be examined may be a link, and no new file must take its place.
    if (isThere && error != std::errc::no_such_file_or_directory)
        ThrowWriteError(error);
    resolved = path;
    constexpr int mostLinks = 40; // as many as the system follows
    for (int links = 0; links < mostLinks; ++links) {
        const fs::path next = fs::read_symlink(resolved, ignored);
        if (ignored || next.empty())
            break;
        resolved = resolved.parent_path() / next;
    }
    return resolved;
}

/// Whether the folder forbids another file in the place of one that may be written itself: a folder or file system that
/// is read-only, a folder in which each removes only his own, a file that is mounted on its own.
bool FolderForbids(const std::error_code& error) {
    for (const std::errc code :
         {std::errc::permission_denied, std::errc::operation_not_permitted, std::errc::read_only_file_system,
          std::errc::device_or_resource_busy, std::errc::cross_device_link})
        if (error == code)
            return true;
    return false;
}

/// Writes a copy of bytes beside a file or, where nothing can be written there, into the user's own folder.
void WriteCopy(std::optional<TemporaryFile>& copy, const fs::path& path, std::string_view bytes) {
    const fs::path name = RandomName(copyPrefix, path.extension());
    copy.emplace(path.parent_path() / name);
    if (copy->Create(Privacy::UserAlone)) {
        const fs::path folder = StateFolder() / "saving";
        MakePrivateFolder(folder);
        copy.emplace(folder / name);
        if (const std::error_code error = copy->Create(Privacy::UserAlone))
            ThrowWriteError(error);
    }
    copy->File().Write(bytes);
    copy->File().Sync();
    SyncFolder(copy->Path().parent_path());
}

/// Writes into the file itself. Until the new bytes are on disk the old ones lie in a copy, which stays when they
/// cannot be put back.
void WriteInPlace(const fs::path& path, const Producer& produce) {
    std::string bytes;
    produce([&bytes](std::string_view piece) { bytes += piece; });
    OpenFile file = OpenToChange(path);
    const std::string old = file.ReadAll();
    std::optional<TemporaryFile> copy;
    WriteCopy(copy, path, old);
    try {
        file.Rewrite(bytes);
    } catch (...) {
        copy->Keep(true);
        file.Rewrite(old);
        copy->Keep(false);
        throw;
    }
}

bool IsHalfWritten(const fs::path& file) {
    const std::string name = TextOf(file.filename());
    return name.starts_with(temporaryPrefix) && name.ends_with(temporaryExtension);
}

/// A new content in a file of its own beside the target, which then takes the target's place. Gives the reason when the
/// folder does not let that happen.
std::error_code Replace(const fs::path& target, bool exists, const Producer& produce, Privacy privacy) {
    TemporaryFile temporary(target.parent_path() / RandomName(temporaryPrefix, temporaryExtension));
    // It may become readable by others when the file that it replaces is, and not before.
    if (const std::error_code error = temporary.Create(exists ? Privacy::UserAlone : privacy))
        return error;
    if (!temporary.File().MarkAsBeingWritten())
        return std::make_error_code(std::errc::resource_unavailable_try_again);
    WriteAll(temporary.File(), produce);
    if (exists)
        temporary.File().TakeOwnerAndRights(OpenToChange(target));
    temporary.File().Sync();
    return temporary.MoveTo(target);
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

#ifdef _WIN32
std::vector<fs::path> FilesIn(const fs::path& folder) {
    std::vector<fs::path> files;
    try {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder))
            files.push_back(entry.path());
    } catch (const fs::filesystem_error& error) {
        if (error.code() != std::errc::no_such_file_or_directory)
            throw RuntimeError::OfFile(error.code());
    }
    return files;
}
#else
/// Not with the standard library's iterator: GNU's ends the program when it finds no memory.
std::vector<fs::path> FilesIn(const fs::path& folder) {
    const auto fail = [] { throw RuntimeError::OfFile({errno, std::generic_category()}); };
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(opendir(folder.empty() ? "." : folder.c_str()), closedir);
    std::vector<fs::path> files;
    if (!directory && errno == ENOENT)
        return files;
    if (!directory)
        fail();
    errno = 0;
    while (const dirent* entry = readdir(directory.get())) {
        if (const std::string_view name = entry->d_name; name != "." && name != "..")
            files.push_back(folder / name);
        errno = 0;
    }
    if (errno != 0)
        fail();
    return files;
}
#endif

void ClearHalfWritten(const fs::path& folder) {
    try {
        for (const fs::path& path : FilesIn(folder)) {
            std::error_code error;
            if (IsHalfWritten(path) && OpenFile::Open(path, Purpose::Change, error).IsAbandoned())
                fs::remove(path, error);
        }
    } catch (const std::exception&) {
        return; // there is another time
    }
}

std::string ReadFileBytes(const fs::path& path) {
    std::error_code error;
    OpenFile file = OpenFile::Open(path, Purpose::Read, error);
    if (error)
        throw RuntimeError::OfFile(error);
    return file.ReadAll();
}

void ReplaceFileBytes(const fs::path& path, std::string_view bytes) {
    ReplaceFile(path, [bytes](const ByteSink& write) { write(bytes); });
}

void ReplaceFile(const fs::path& path, const Producer& produce, Privacy privacy) {
    const fs::path target = BehindLinks(path);
    std::error_code error;
    // Opening the file shows whether it may be written; renaming over it does not ask for that permission.
    OpenFile::Open(target, Purpose::Change, error).Close();
    const bool exists = error != std::errc::no_such_file_or_directory;
    if (exists && error)
        ThrowWriteError(error);
    // Another program's clearing away can take a file between its making and its marking.
    constexpr int mostAttempts = 10;
    for (int attempt = 0; attempt < mostAttempts; ++attempt)
        if (error = Replace(target, exists, produce, privacy); error != std::errc::resource_unavailable_try_again)
            break;
    if (exists && FolderForbids(error))
        return WriteInPlace(target, produce);
    if (error)
        ThrowWriteError(error);
    SyncFolder(target.parent_path());
    ClearHalfWritten(target.parent_path());
}

void OverwriteFileBytes(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    OpenFile file = OpenFile::Open(path, Purpose::Change, error);
    if (error && error != std::errc::no_such_file_or_directory)
        ThrowWriteError(error);
    const std::string old = error ? std::string() : file.ReadAll();
    file.Close();
    ReplaceFile(path, [&](const ByteSink& write) {
        write(bytes);
        write(std::string_view(old).substr(std::min(bytes.size(), old.size())));
    });
}

void CreateFileBytes(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    OpenFile file = OpenFile::Open(path, Purpose::Create, error);
    if (error)
        ThrowWriteError(error);
    file.Write(bytes);
    file.Sync();
    file.Close();
}

} // namespace pirol
