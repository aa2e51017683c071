#include "project/Recovery.h"

#include "base/FileAccess.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/UserFolder.h"
#include "project/Snapshot.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <memory>
#include <string>

#ifdef _WIN32
#include <process.h>
#else
#include <dirent.h>
#include <unistd.h>
#endif

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view designExtension = ".design";
constexpr std::string_view lockExtension = ".lock";
constexpr std::string_view damagedExtension = ".damaged";

/// The first line of a recovery file. The second is the hash of what follows, the snapshot.
constexpr std::string_view firstLine = "Pirol-Wiederherstellung 1\n";
constexpr std::size_t hashLength = 40;

int ProcessNumber() {
#ifdef _WIN32
    return _getpid();
#else
    return getpid();
#endif
}

fs::path WithExtension(const fs::path& folder, const std::string& name, std::string_view extension) {
    return folder / (name + std::string(extension));
}

/// The part of a file's name that all files of one program have in common: "123-0" of ".123-0.design.4711.tmp".
std::string NameOf(const fs::path& file) {
    std::string name = TextOf(file.filename());
    if (name.starts_with('.'))
        name.erase(0, 1);
    return name.substr(0, name.find('.'));
}

std::time_t WrittenAt(const fs::path& file) {
    std::error_code ignored;
    const auto time = std::chrono::file_clock::to_sys(fs::last_write_time(file, ignored));
    return std::chrono::system_clock::to_time_t(std::chrono::time_point_cast<std::chrono::seconds>(time));
}

} // namespace

fs::path RecoveryFolder() {
    const fs::path folder = StateFolder();
#ifdef _WIN32
    return folder.empty() ? folder : folder / "Recovery";
#else
    return folder.empty() ? folder : folder / "recovery";
#endif
}

void RecoveryFile::ReserveName() {
    // A design can hold the password of a database.
    MakePrivateFolder(folder_);
    // The process number alone is not enough: a killed program can have had it, and two machines can share the folder.
    for (int attempt = 0; !lock_; ++attempt) {
        const std::string name = std::to_string(ProcessNumber()) + "-" + std::to_string(attempt);
        std::optional<FileLock> lock = FileLock::TryLock(WithExtension(folder_, name, lockExtension));
        file_ = WithExtension(folder_, name, designExtension);
        if (std::error_code ignored; lock && !fs::exists(file_, ignored))
            lock_.emplace(std::move(*lock));
    }
}

void RecoveryFile::Write(std::string_view snapshot) {
    if (!lock_)
        ReserveName();
    ReplaceFile(file_, [snapshot](const ByteSink& write) {
        write(firstLine);
        write(HashFunction(snapshot));
        write("\n");
        write(snapshot);
    });
}

void RecoveryFile::Remove() {
    std::error_code ignored;
    if (lock_)
        fs::remove(file_, ignored);
}

std::vector<LeftDesign> LeftDesigns(const fs::path& folder) {
    std::vector<fs::path> files = FilesIn(folder);
    // Half-written files begin with a point. They come first, before a design of the same program is held.
    std::sort(files.begin(), files.end());
    std::vector<LeftDesign> left;
    for (const fs::path& file : files) {
        std::optional<FileLock> lock = FileLock::TryLock(WithExtension(folder, NameOf(file), lockExtension));
        if (!lock)
            continue;
        std::error_code ignored;
        if (file.extension() == ".tmp")
            fs::remove(file, ignored);
        else if (file.extension() == designExtension && fs::is_regular_file(file, ignored))
            left.push_back({file, WrittenAt(file), std::move(*lock)});
    }
    std::stable_sort(left.begin(), left.end(),
                     [](const LeftDesign& a, const LeftDesign& b) { return a.written > b.written; });
    return left;
}

OpenDesign ReadDesign(const LeftDesign& left) {
    return UnderLabel("Main.Recovery.ReadDesign", [&left] {
        const std::string bytes = ReadFileBytes(left.file);
        const std::string_view rest = std::string_view(bytes).substr(std::min(firstLine.size(), bytes.size()));
        const std::string_view snapshot = rest.substr(std::min(hashLength + 1, rest.size()));
        if (!bytes.starts_with(firstLine) || rest.substr(0, hashLength) != HashFunction(snapshot))
            throw RuntimeError(RuntimeError::TypeMismatch);
        return DesignOfSnapshot(snapshot);
    });
}

void Discard(const LeftDesign& left) {
    std::error_code ignored;
    fs::remove(left.file, ignored);
}

fs::path SetAside(const LeftDesign& left) {
    std::error_code ignored;
    fs::path aside = left.file;
    aside.replace_extension(damagedExtension);
    fs::rename(left.file, aside, ignored);
    return aside;
}

} // namespace pirol
