#pragma once

#include "app/cDownload.h"
#include "base/FileLock.h"
#include "base/OpenFile.h"

#include <filesystem>
#include <optional>
#include <string>

namespace pirol {

/// The user's own folder StateFolder()/update; an empty path when the user has none.
std::filesystem::path UpdateFolder();

/// A download in a folder that nobody but the user can write to: "HASH.part" while it grows, "HASH.mark" beside it, and
/// its own name when it is whole. A folder of somebody else's, or that is a link, is refused with
/// UpdateFault::FolderNotPrivate, and one in which another program loads with UpdateFault::AnotherProgram.
class DownloadFolder : public DownloadTarget {
  public:
    DownloadFolder(std::filesystem::path folder, const OfferedFile& file);

    void Hold() override;
    std::uint64_t Size() override;
    void Append(std::string_view bytes) override;
    void Clear() override;
    std::string Mark() override;
    void SetMark(const std::string& mark) override;
    std::string Hash() override;
    std::filesystem::path Finish() override;

  private:
    std::filesystem::path PathOf(const char* ending) const;
    void RemoveOthers();

    std::filesystem::path folder_;
    std::string name_;
    std::string stem_; ///< of the growing file: a beginning of the hash, so that it never passes for another
    std::optional<FileLock> lock_;
    OpenFile part_;
};

} // namespace pirol
