#include "app/UpdateCommands.h"

#include "base/FileAccess.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"

#include <algorithm>
#include <system_error>

namespace pirol {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view updateLabel = "Main.File.Java.Update";
constexpr std::string_view mark = "\xEF\xBB\xBF";
constexpr int oldestVersion = 9;

/// The length of the well-formed character at the text's beginning, or 0.
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    struct Row {
        unsigned first, last;     // of the first byte
        unsigned lowest, highest; // of the second byte
        std::size_t length;
    };
    constexpr Row rows[] = {{0x00, 0x7F, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
                            {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
                            {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    const auto* const row = std::find_if(std::begin(rows), std::end(rows), [&](const Row& candidate) {
        return byte(0) >= candidate.first && byte(0) <= candidate.last;
    });
    if (row == std::end(rows) || text.size() < row->length)
        return 0;
    if (row->length > 1 && (byte(1) < row->lowest || byte(1) > row->highest))
        return 0;
    for (std::size_t index = 2; index < row->length; ++index)
        if ((byte(index) & 0xC0U) != 0x80U)
            return 0;
    return row->length;
}

fs::path Version(const fs::path& path, int age) {
    fs::path version = path;
    version += age == 0 ? std::string(".bak") : ".bak" + std::to_string(age);
    return version;
}

void Rename(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (error && error != std::errc::no_such_file_or_directory)
        throw RuntimeError::OfFile(error);
}

/// The new copy is whole before an older one gives way.
void KeepVersion(const fs::path& path, std::string_view bytes) {
    fs::path newest = Version(path, 0);
    newest += ".neu";
    ReplaceFileBytes(newest, bytes);
    try {
        std::error_code ignored;
        fs::permissions(newest, fs::status(path).permissions(), ignored);
        for (int age = oldestVersion; age > 0; --age)
            Rename(Version(path, age - 1), Version(path, age));
        Rename(newest, Version(path, 0));
    } catch (...) {
        std::error_code ignored;
        fs::remove(newest, ignored);
        throw;
    }
}

} // namespace

JavaEncoding EncodingOf(std::string_view bytes) {
    const bool hasMark = bytes.starts_with(mark);
    bool isAscii = !hasMark;
    for (std::string_view rest = bytes; !rest.empty();) {
        const auto ascii = std::find_if(rest.begin(), rest.end(), [](char byte) { return byte < 0 || byte > '\x7E'; });
        rest.remove_prefix(static_cast<std::size_t>(ascii - rest.begin()));
        if (rest.empty())
            break;
        const std::size_t length = CharacterLength(rest);
        if (length == 0)
            return JavaEncoding::Windows1252;
        isAscii = isAscii && length == 1;
        rest.remove_prefix(length);
    }
    if (isAscii)
        return JavaEncoding::Windows1252;
    return hasMark ? JavaEncoding::Utf8WithMark : JavaEncoding::Utf8;
}

std::string DecodeJava(std::string_view bytes, JavaEncoding encoding) {
    if (encoding == JavaEncoding::Windows1252)
        return FromWindows1252(bytes);
    return std::string(bytes.substr(encoding == JavaEncoding::Utf8WithMark ? mark.size() : 0));
}

std::string EncodeJava(std::string text, JavaEncoding encoding) {
    if (encoding == JavaEncoding::Windows1252)
        return ToWindows1252(std::move(text));
    if (encoding == JavaEncoding::Utf8WithMark)
        text.insert(0, mark);
    return text;
}

FileUpdate PrepareUpdate(const fs::path& path, const ProjectModel& model, UpdateOptions options) {
    return UnderLabel(updateLabel, [&] {
        FileUpdate file;
        file.path = path;
        file.before = ReadFileBytes(path);
        const JavaEncoding encoding = EncodingOf(file.before);
        file.source = DecodeJava(file.before, encoding);
        options.windows1252 = encoding == JavaEncoding::Windows1252;
        file.update = UpdateJava(file.source, model, options);
        file.after = EncodeJava(file.update.source, encoding);
        return file;
    });
}

bool WriteUpdate(const FileUpdate& update) {
    return UnderLabel(updateLabel, [&] {
        if (ReadFileBytes(update.path) != update.before)
            return false;
        if (!update.Changes())
            return true;
        KeepVersion(update.path, update.before);
        ReplaceFileBytes(update.path, update.after);
        return true;
    });
}

} // namespace pirol
