#include "project/ProjectFile.h"

#include "base/Conversions.h"
#include "base/FileAccess.h"
#include "base/HashFunction.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "controls/Oddities.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace pirol {
namespace {

constexpr std::string_view windowMarker = "#Begin.Pirol.Window";
constexpr std::string_view componentsMarker = "#Begin.Pirol.Components";
constexpr std::string_view menuMarker = "#Begin.Pirol.Menu";
constexpr std::string_view sqlMarker = "#Begin.Pirol.SQL";
constexpr std::string_view hashMarker = "#Begin.Pirol.Hash";

/// More fields than any line has; the rest of a damaged line is not read.
constexpr std::size_t mostFields = 32;

constexpr std::size_t firstComponentLine = 5;

/// What a file may hold of components, menu entries and list items together: many times more than any window shows.
/// A file made for it could otherwise ask for a hundred times its own size in memory.
constexpr std::size_t mostParts = 5'000'000;

std::string SqlNumbers(const SQLSettings& sql) {
    std::string line;
    for (const std::int16_t number : sql.Flags)
        Append(line, line.empty() ? "" : ";", number);
    return line;
}

std::string AllButTheHash(const ProjectModel& model) {
    // What a component's line usually takes; growing step by step would copy a large text several times.
    constexpr std::size_t usualLength = 96;
    std::string text;
    text.reserve(model.CreationOrder().size() * usualLength);
    Append(text, windowMarker, lineEnd, model.WindowWidth(), lineEnd, model.WindowHeight(), lineEnd, model.Author(),
           lineEnd, componentsMarker, lineEnd);
    model.ForEachVisible(
        [&text](const Control& control) { text += control.CreatePRLString(control.Left, control.Top); });
    Append(text, menuMarker, lineEnd, model.Menus().CreatePRLString(), sqlMarker, lineEnd);
    for (const SQLField& field : sqlFields)
        Append(text, model.Sql().*field.text, lineEnd);
    Append(text, SqlNumbers(model.Sql()), lineEnd, hashMarker, lineEnd);
    return text;
}

/// A file's text line by line. The lines are views into the bytes, so even those of a large file take no memory.
class Lines {
  public:
    /// The lines of the bytes; the last one is the hash.
    explicit Lines(std::string_view bytes) {
        if (bytes.empty())
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        const std::size_t lastEnd = bytes.rfind(lineEnd);
        const std::size_t hashBegin = lastEnd == std::string_view::npos ? 0 : lastEnd + lineEnd.size();
        hashed_ = bytes.substr(0, hashBegin);
        hash_ = bytes.substr(hashBegin);
        rest_ = bytes;
    }

    bool HashMatches() const { return HashFunction(hashed_) == hash_; }

    /// The next line without its end. The hash is the last line.
    /// Raises RuntimeError::IndexOutOfRange behind it.
    std::string_view Next() {
        if (ended_)
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        const std::size_t end = rest_.find(lineEnd);
        const std::string_view line = rest_.substr(0, end);
        ended_ = end == std::string_view::npos;
        rest_.remove_prefix(ended_ ? rest_.size() : end + lineEnd.size());
        ++index_;
        return line;
    }

    /// The index of the line that Next will give.
    std::size_t Index() const { return index_; }
    std::size_t Count() const { return CountOf(hashed_, lineEnd) + 1; }

  private:
    static std::size_t CountOf(std::string_view text, std::string_view what) {
        std::size_t count = 0;
        for (std::size_t hit = text.find(what); hit != std::string_view::npos; hit = text.find(what, hit + what.size()))
            ++count;
        return count;
    }

    std::string_view hashed_;
    std::string_view hash_;
    std::string_view rest_;
    std::size_t index_ = 0;
    bool ended_ = false;
};

/// Counts what a file asks for.
class Parts {
  public:
    /// Raises RuntimeError::OutOfMemory when it is too much.
    void AddLine(std::string_view line) {
        count_ += 1 + static_cast<std::size_t>(std::count(line.begin(), line.end(), itemSeparator));
        if (count_ > mostParts)
            throw RuntimeError(RuntimeError::OutOfMemory);
    }

  private:
    std::size_t count_ = 0;
};

/// Shows progress when the caller wants it.
class Progress {
  public:
    Progress(LoadingProgress* shown, std::size_t lines) : shown_(shown) {
        if (shown_ != nullptr)
            shown_->SetMaximum(static_cast<int>(lines) - 2);
    }
    void Caption(std::string_view caption) const {
        if (shown_ != nullptr)
            shown_->SetCaption(caption);
    }
    void Value(const Lines& lines) const {
        if (shown_ != nullptr)
            shown_->SetValue(static_cast<int>(lines.Index()));
    }

  private:
    LoadingProgress* shown_;
};

std::optional<ComponentKind> KindOfLine(std::string_view line) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), number);
    const bool codeEnds = end == line.data() + line.size() || *end == fieldSeparator;
    // A code must look as it is written: "01" is none.
    if (error != std::errc() || !codeEnds || line.front() == '0')
        return std::nullopt;
    const auto kind = KindByNumber(static_cast<int>(number));
    return kind ? std::optional(oddities::CrossTextAreas(*kind)) : std::nullopt;
}

void ReadWindow(Lines& lines, ProjectModel& model) {
    lines.Next();
    const std::int16_t width = ToInt16(lines.Next());
    const std::int16_t height = ToInt16(lines.Next());
    model.SetWindowSize(width, height);
    model.SetAuthor(FromWindows1252(lines.Next()));
}

void ReadComponents(Lines& lines, ProjectModel& model, Parts& parts, const Progress& progress) {
    while (lines.Index() < firstComponentLine)
        lines.Next();
    for (std::string_view line = lines.Next(); line != menuMarker; line = lines.Next()) {
        progress.Value(lines);
        if (const auto kind = KindOfLine(line)) {
            parts.AddLine(line);
            const std::string text = FromWindows1252(line);
            Control& element = model.EditElement(model.AddElement(*kind));
            element.LoadFromPRL(Split(text, fieldSeparator, mostFields));
        }
    }
}

void ReadMenus(Lines& lines, ProjectModel& model, Parts& parts, const Progress& progress) {
    MenuBarReader menus(model.EditMenus());
    for (std::string_view line = lines.Next(); line != sqlMarker; line = lines.Next()) {
        progress.Value(lines);
        parts.AddLine(line);
        const std::string text = FromWindows1252(line);
        menus.AddLine(Split(text, fieldSeparator, mostFields));
    }
}

void ReadSqlNumbers(std::string_view line, SQLSettings& sql) {
    if (line.empty())
        return;
    std::size_t index = 0;
    for (const std::string_view number : Split(line, ';', sql.Flags.size() + 1)) {
        if (index == sql.Flags.size())
            throw RuntimeError(RuntimeError::IndexOutOfRange);
        sql.Flags[index++] = ToInt16(number);
    }
}

void ReadSql(Lines& lines, ProjectModel& model, const Progress& progress) {
    SQLSettings& sql = model.EditSql();
    std::size_t position = 0;
    for (std::string_view line = lines.Next(); line != hashMarker; line = lines.Next()) {
        progress.Value(lines);
        if (position < sqlFields.size())
            sql.*sqlFields[position].text = FromWindows1252(line);
        else if (position == sqlFields.size())
            ReadSqlNumbers(line, sql);
        ++position;
    }
}

ReadResult ReadLines(std::string_view bytes, ProjectModel& model, LoadingProgress* shown) {
    Lines lines(bytes);
    if (!lines.HashMatches())
        return ReadResult::Refused;
    ReadWindow(lines, model);
    const Progress progress(shown, lines.Count());
    progress.Caption("Lade Komponenten . . .");
    Parts parts;
    ReadComponents(lines, model, parts, progress);
    progress.Caption("Lade Menüeinträge . . .");
    ReadMenus(lines, model, parts, progress);
    progress.Caption("Lade SQL-Daten . . .");
    ReadSql(lines, model, progress);
    return ReadResult::Loaded;
}

constexpr std::string_view readLabel = "Main.File.PRL.ReadPRLFile";

} // namespace

std::string GeneratePRLCode(const ProjectModel& model) {
    return UnderLabel("Main.File.PRL.GeneratePRLCode", [&model] {
        std::string bytes = ToWindows1252(AllButTheHash(model));
        bytes += HashFunction(bytes);
        return bytes;
    });
}

ReadResult ReadPRLFile(const std::filesystem::path& path, ProjectModel& model, LoadingProgress* progress) {
    model.Reset();
    return UnderLabel(readLabel, [&] { return ReadLines(ReadFileBytes(path), model, progress); });
}

ReadResult ReadPRLBytes(std::string_view bytes, ProjectModel& model, LoadingProgress* progress) {
    model.Reset();
    return UnderLabel(readLabel, [&] { return ReadLines(bytes, model, progress); });
}

} // namespace pirol
