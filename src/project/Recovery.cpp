#include "project/Recovery.h"

#include "base/FileAccess.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
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

std::time_t WrittenAt(const fs::path& file) {
    std::error_code ignored;
    const auto time = std::chrono::file_clock::to_sys(fs::last_write_time(file, ignored));
    return std::chrono::system_clock::to_time_t(std::chrono::time_point_cast<std::chrono::seconds>(time));
}

/// Leads out of a writing that is told to stop.
struct BrokenOff {};

void WriteInPieces(std::string_view bytes, const ByteSink& write, const std::stop_token& stop) {
    constexpr std::size_t pieceSize = std::size_t{1} << 20U;
    for (std::size_t begin = 0; begin < bytes.size(); begin += pieceSize) {
        if (stop.stop_requested())
            throw BrokenOff();
        write(bytes.substr(begin, pieceSize));
    }
}

/// Getting a lock for a moment clears away the one that a killed program has left.
void ClearLock(const fs::path& lock) {
    try {
        FileLock::TryLock(lock);
    } catch (const RuntimeError&) {
        return; // no lock of ours
    }
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

RecoveryFile::~RecoveryFile() {
    if (!staysBehind_)
        Remove();
}

void RecoveryFile::TryName(const std::string& name) {
    std::optional<FileLock> lock = FileLock::TryLock(WithExtension(folder_, name, lockExtension));
    fs::path file = WithExtension(folder_, name, designExtension);
    if (std::error_code ignored; !lock || fs::exists(file, ignored))
        return;
    file_ = std::move(file);
    lock_.emplace(std::move(*lock));
}

void RecoveryFile::ReserveName() {
    // A design can hold the password of a database.
    MakePrivateFolder(folder_);
    lock_.reset();
    // The process number alone is not enough: a killed program can have had it, and two machines can share the folder.
    // A name whose lock is none of ours, or no file, is passed over, but not for ever.
    constexpr int mostFailures = 16;
    int failures = 0;
    for (int attempt = 0; !lock_; ++attempt) {
        try {
            TryName(std::to_string(ProcessNumber()) + "-" + std::to_string(attempt));
        } catch (const RuntimeError&) {
            if (++failures == mostFailures)
                throw;
        }
    }
}

void RecoveryFile::Write(std::string_view snapshot, const std::stop_token& stop) {
    const fs::path former = file_;
    if (!lock_ || !lock_->IsInPlace())
        ReserveName();
    const std::string bytes = KeptBytesOf(snapshot);
    try {
        ReplaceFile(
            file_, [&](const ByteSink& write) { WriteInPieces(bytes, write, stop); }, Privacy::UserAlone);
    } catch (const BrokenOff&) {
        return;
    }
    std::error_code ignored;
    OpenFile present = OpenFile::Open(file_, OpenFile::Purpose::Change, ignored);
    if (present.IsOpen() && present.TryHold())
        held_ = std::move(present);
    if (former != file_ && !former.empty())
        fs::remove(former, ignored);
}

bool RecoveryFile::IsInPlace() const {
    std::error_code ignored;
    return lock_ && lock_->IsInPlace() && fs::exists(file_, ignored);
}

void RecoveryFile::Remove() {
    std::error_code ignored;
    if (lock_)
        fs::remove(file_, ignored);
    held_ = {};
}

std::vector<LeftDesign> LeftDesigns(const fs::path& folder) {
    ClearHalfWritten(folder);
    std::vector<LeftDesign> left;
    for (const fs::path& file : FilesIn(folder)) {
        LeftDesign design{file, WrittenAt(file)};
        if (file.extension() == lockExtension)
            ClearLock(file);
        else if (file.extension() == designExtension && Hold(design))
            left.push_back(std::move(design));
    }
    std::stable_sort(left.begin(), left.end(),
                     [](const LeftDesign& a, const LeftDesign& b) { return a.written > b.written; });
    return left;
}

std::optional<HeldDesign> Hold(const LeftDesign& left) {
    HeldDesign held;
    std::error_code error;
    held.file = OpenFile::Open(left.file, OpenFile::Purpose::Change, error);
    if (error || !held.file.TryHold())
        return std::nullopt;
    fs::path lock = left.file;
    lock.replace_extension(lockExtension);
    // A lock that is none, such as a folder of that name, keeps nobody out; holding the file itself does.
    try {
        held.lock = FileLock::TryLock(lock);
        return held.lock ? std::optional(std::move(held)) : std::nullopt;
    } catch (const RuntimeError&) {
        return held;
    }
}

std::string KeptBytesOf(std::string_view snapshot) {
    std::string bytes(firstLine);
    bytes.reserve(firstLine.size() + hashLength + 1 + snapshot.size());
    Append(bytes, HashFunction(snapshot), "\n", snapshot);
    return bytes;
}

std::string SnapshotOfKeptBytes(std::string_view bytes) {
    const std::string_view rest = bytes.substr(std::min(firstLine.size(), bytes.size()));
    const std::string_view snapshot = rest.substr(std::min(hashLength + 1, rest.size()));
    if (!bytes.starts_with(firstLine) || rest.substr(0, hashLength) != HashFunction(snapshot))
        throw RuntimeError(RuntimeError::TypeMismatch);
    return std::string(snapshot);
}

OpenDesign ReadDesign(const LeftDesign& left) {
    return UnderLabel("Main.Recovery.ReadDesign",
                      [&left] { return DesignOfSnapshot(SnapshotOfKeptBytes(ReadFileBytes(left.file))); });
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
