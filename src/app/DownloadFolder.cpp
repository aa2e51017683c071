#include "app/DownloadFolder.h"

#include "base/FileAccess.h"
#include "base/Signature.h"
#include "base/UserFolder.h"

#include <system_error>
#include <utility>

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr const char* partEnding = ".part";
constexpr const char* markEnding = ".mark";
constexpr std::string_view lockName = "lock";

void Remove(const fs::path& path) {
    std::error_code error;
    fs::remove(path, error);
    if (error)
        throw RuntimeError::OfFile(error);
}

void Rename(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error)
        throw RuntimeError::OfFile(error);
}

} // namespace

fs::path UpdateFolder() {
    const fs::path folder = StateFolder();
    return folder.empty() ? folder : folder / "update";
}

DownloadFolder::DownloadFolder(fs::path folder, const OfferedFile& file)
    : folder_(std::move(folder)), name_(file.name), stem_(file.hash.substr(0, 16)) {}

fs::path DownloadFolder::PathOf(const char* ending) const {
    return folder_ / (stem_ + ending);
}

void DownloadFolder::Hold() {
    if (lock_ && lock_->IsInPlace() && IsPrivateFolder(folder_))
        return;
    part_ = OpenFile();
    lock_.reset();
    MakePrivateFolder(folder_);
    if (!IsPrivateFolder(folder_))
        throw UpdateError(UpdateFault::FolderNotPrivate);
    lock_ = FileLock::TryLock(folder_ / lockName);
    if (!lock_)
        throw UpdateError(UpdateFault::AnotherProgram);
    RemoveOthers();
    // A file that was whole and never run is looked at again like any other.
    if (IsExistingFile(folder_ / name_))
        Rename(folder_ / name_, PathOf(partEnding));
}

void DownloadFolder::RemoveOthers() {
    for (const fs::path& path : FilesIn(folder_)) {
        const fs::path name = path.filename();
        if (name != lockName && name != name_ && path != PathOf(partEnding) && path != PathOf(markEnding)) {
            std::error_code ignored; // what cannot go harms nobody
            fs::remove(path, ignored);
        }
    }
}

std::uint64_t DownloadFolder::Size() {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(PathOf(partEnding), error);
    return error ? 0 : size;
}

void DownloadFolder::Append(std::string_view bytes) {
    if (!part_.IsOpen()) {
        std::error_code error;
        part_ = OpenFile::Open(PathOf(partEnding), OpenFile::Purpose::Append, error, Privacy::UserAlone);
        if (error)
            ThrowWriteError(error);
    }
    part_.Write(bytes);
}

void DownloadFolder::Clear() {
    part_ = OpenFile();
    Remove(PathOf(partEnding));
    Remove(PathOf(markEnding));
}

std::string DownloadFolder::Mark() {
    return IsExistingFile(PathOf(markEnding)) ? ReadFileBytes(PathOf(markEnding)) : std::string();
}

void DownloadFolder::SetMark(const std::string& mark) {
    if (mark.empty())
        Remove(PathOf(markEnding));
    else
        ReplaceFileBytes(PathOf(markEnding), mark);
}

std::string DownloadFolder::Hash() {
    if (part_.IsOpen())
        part_.Sync();
    Sha256 hash;
    hash.Add(ReadFileBytes(PathOf(partEnding)));
    return hash.Digits();
}

fs::path DownloadFolder::Finish() {
    part_.Close();
    Rename(PathOf(partEnding), folder_ / name_);
    Remove(PathOf(markEnding));
    return folder_ / name_;
}

} // namespace pirol
