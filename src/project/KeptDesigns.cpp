#include "project/KeptDesigns.h"

#include "base/FileAccess.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/UserFolder.h"
#include "project/Recovery.h"

#include <algorithm>
#include <charconv>
#include <random>
#include <unordered_set>
#include <utility>

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view extension = ".kept";

// A file is called "TIME-NUMBER.kept". It holds, in the same frame as a recovery file, two lines and the snapshot:
// reason and path of the project.

std::string LineOf(std::string_view text) {
    std::string line(text);
    std::replace(line.begin(), line.end(), '\n', ' ');
    return line + "\n";
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos)
        throw RuntimeError(RuntimeError::TypeMismatch);
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return line;
}

std::string ContentOf(const fs::path& file) {
    return SnapshotOfKeptBytes(ReadFileBytes(file));
}

/// The files, the newest first, without a look into them.
std::vector<KeptDesign> KeptFiles(const fs::path& folder) {
    std::vector<std::pair<fs::file_time_type, KeptDesign>> files;
    for (const fs::path& file : FilesIn(folder)) {
        std::error_code ignored;
        if (file.extension() != extension || !fs::is_regular_file(file, ignored))
            continue;
        const std::string name = TextOf(file.filename());
        std::time_t time = 0;
        std::from_chars(name.data(), name.data() + name.size(), time);
        files.emplace_back(fs::last_write_time(file, ignored),
                           KeptDesign{file, time, {}, {}, fs::file_size(file, ignored)});
    }
    std::sort(files.begin(), files.end(), [](const auto& a, const auto& b) {
        return std::pair(a.second.kept, a.first) > std::pair(b.second.kept, b.first);
    });
    std::vector<KeptDesign> kept;
    for (auto& [written, file] : files)
        kept.push_back(std::move(file));
    return kept;
}

/// The newest, which is `newest`, stays whatever it is.
void DropWhatExceeds(const std::vector<KeptDesign>& files, const fs::path& newest, std::time_t now) {
    std::size_t count = 0;
    std::uintmax_t bytes = 0;
    for (const KeptDesign& kept : files) {
        bytes += kept.bytes;
        const bool fits = ++count <= mostKept && bytes <= mostKeptBytes && now - kept.kept <= longestKept;
        std::error_code ignored;
        if (!fits && kept.file != newest)
            fs::remove(kept.file, ignored);
    }
}

/// The same design kept once more, as after going to and fro in the history, takes no room twice.
void DropEqual(const std::vector<KeptDesign>& files, const fs::path& newest, std::string_view content,
               std::uintmax_t bytes) {
    for (const KeptDesign& kept : files) {
        std::error_code ignored;
        if (kept.file != newest && kept.bytes == bytes && ContentOf(kept.file) == content)
            fs::remove(kept.file, ignored);
    }
}

/// The hashes of the designs, whyever they are kept.
std::unordered_set<std::string> DesignsIn(const fs::path& folder) {
    std::unordered_set<std::string> designs;
    for (const KeptDesign& kept : KeptFiles(folder))
        try {
            const std::string content = ContentOf(kept.file);
            std::string_view design = content;
            TakeLine(design);
            designs.insert(HashFunction(design));
        } catch (const RuntimeError&) {
            continue; // a damaged one holds none
        }
    return designs;
}

} // namespace

fs::path KeptFolder(const fs::path& recoveryFolder) {
    return recoveryFolder.empty() ? fs::path() : recoveryFolder.parent_path() / "kept";
}

void KeepDesign(const fs::path& folder, const OpenDesign& design, std::string_view reason, std::time_t now) {
    MakePrivateFolder(folder);
    std::random_device random;
    const fs::path file = folder / Concatenate(static_cast<std::int64_t>(now), "-", random(), extension);
    const std::string content = LineOf(reason) + LineOf(design.filePath) + SnapshotOf(design);
    const std::string bytes = KeptBytesOf(content);
    ReplaceFile(
        file, [&bytes](const ByteSink& write) { write(bytes); }, Privacy::UserAlone);
    try {
        DropEqual(KeptFiles(folder), file, content, bytes.size());
        DropWhatExceeds(KeptFiles(folder), file, now);
    } catch (const RuntimeError&) {
        return; // the limits can wait
    }
}

void KeepLeftDesigns(const fs::path& folder, const fs::path& recoveryFolder, std::string_view reason, std::time_t now) {
    std::vector<LeftDesign> left = LeftDesigns(recoveryFolder);
    std::erase_if(left, [now](const LeftDesign& design) { return now - design.written > longestKept; });
    if (left.empty())
        return;
    left.resize(std::min(left.size(), mostKept));
    std::unordered_set<std::string> kept = DesignsIn(folder);
    for (const LeftDesign& one : left)
        try {
            const std::optional<HeldDesign> held = Hold(one);
            if (!held)
                continue;
            const OpenDesign design = ReadDesign(one);
            if (kept.insert(HashFunction(LineOf(design.filePath) + SnapshotOf(design))).second)
                KeepDesign(folder, design, reason, one.written);
        } catch (const RuntimeError& error) {
            // A damaged one is told of where it is offered.
            if (error.ErrorNumber() >= RuntimeError::BadFileName)
                throw;
        }
}

std::vector<KeptDesign> KeptDesigns(const fs::path& folder) {
    std::vector<KeptDesign> designs;
    for (KeptDesign& kept : KeptFiles(folder)) {
        try {
            const std::string content = ContentOf(kept.file);
            std::string_view rest = content;
            kept.reason = TakeLine(rest);
            kept.filePath = TakeLine(rest);
            designs.push_back(std::move(kept));
        } catch (const RuntimeError&) {
            continue;
        }
    }
    return designs;
}

OpenDesign ReadDesign(const KeptDesign& kept) {
    return UnderLabel("Main.Recovery.ReadDesign", [&kept] {
        const std::string content = ContentOf(kept.file);
        std::string_view rest = content;
        TakeLine(rest);
        TakeLine(rest);
        return DesignOfSnapshot(rest);
    });
}

void Delete(const KeptDesign& kept) {
    std::error_code error;
    fs::remove(kept.file, error);
    if (error)
        throw RuntimeError::OfFile(error);
}

} // namespace pirol
