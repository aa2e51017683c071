#include "codegen/UpdateRecord.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "codegen/SourceLines.h"

#include <algorithm>
#include <utility>

namespace pirol {
namespace {

/// Bytes; nobody reads more in a list.
constexpr std::size_t longestEntry = 300;
/// What a section's pieces are called together.
constexpr std::string_view sectionWords[] = {"Die import-Zeilen", "Die Deklarationen",
                                             "Die Anweisungen des Konstruktors", "Die Methoden"};

} // namespace

void UpdateRecord::Add(UpdateAction action, std::string text, std::size_t oldPosition, std::size_t newPosition) {
    if (entries_.size() >= mostUpdateEntries)
        return;
    if (text.size() > longestEntry) {
        std::size_t end = longestEntry;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
            --end; // whole characters only
        text.resize(end);
        text += " ...";
    }
    entries_.push_back({{action, SingleLine(text)}, oldPosition, newPosition});
}

void UpdateRecord::New(const GeneratedPiece& wanted, std::size_t place) {
    const CodeKey& key = wanted.key;
    const std::string_view* const field = wanted_.fields.Find(key.object);
    const bool isCreation = key.member == members::assignment && key.detail.empty();
    std::string text(wanted.code);
    if (key.member == members::method)
        text = Concatenate("Methode ", key.object, "()");
    else if (field != nullptr && !existing_.fields.Contains(key.object)) {
        const bool hasCreation = key.object != subMenu && key.object != resultList;
        if (hasCreation != isCreation || (!hasCreation && key.member != members::field))
            return;
        text = Concatenate(*field, " ", key.object);
    }
    Add(UpdateAction::New, std::move(text), noPosition, place);
}

void UpdateRecord::Changed(const ExistingPiece& piece, std::string_view code, std::size_t place) {
    const std::string_view old = CodeOf(piece);
    if (piece.key->member == members::method) {
        Add(UpdateAction::Changed, Concatenate("Methode ", piece.key->object, "()"), piece.begin, place);
        return;
    }
    // The values are what stands behind the bracket up to which both are the same.
    const std::size_t bracket = std::min(code.find('('), code.size() - 1);
    std::size_t common = 0;
    if (old.substr(0, bracket + 1) == code.substr(0, bracket + 1) && old.ends_with(");") && code.ends_with(");"))
        common = bracket + 1;
    const auto values = [common](std::string_view text) {
        return common == 0 ? text : text.substr(common, text.size() - common - 2);
    };
    const std::string_view name =
        piece.key->member.starts_with(members::assignment) || piece.key->member.empty() || common == 0
            ? piece.key->object
            : code.substr(0, bracket);
    Add(UpdateAction::Changed, Concatenate(name, ": ", values(old), " wird ", values(code)), piece.begin, place);
}

void UpdateRecord::Removed(const ExistingPiece& piece) {
    const CodeKey& key = *piece.key;
    std::string text(CodeOf(piece));
    if (key.member == members::method) {
        text = Concatenate("Methode ", key.object, "()");
        gone_.insert(key.object);
    } else if (IsGone(key.object)) {
        if (key.member != members::field)
            return;
        text = Concatenate(existing_.fields.Find(key.object)->javaClass, " ", key.object);
        gone_.insert(key.object);
    }
    Add(UpdateAction::Removed, std::move(text), piece.begin, noPosition);
}

bool UpdateRecord::IsGone(std::string_view field) const {
    return existing_.fields.Contains(field) && !wanted_.fields.Contains(field);
}

void UpdateRecord::Moved(CodeSection section) {
    Add(UpdateAction::Moved,
        Concatenate(sectionWords[static_cast<std::size_t>(section)], " stehen jetzt in der Reihenfolge des Entwurfs"),
        noPosition, noPosition);
}

void UpdateRecord::Lost(std::string_view code, std::size_t oldPosition, std::size_t newPosition) {
    Add(UpdateAction::Reported, Concatenate("Zeichen, die der Datei fehlen, stehen als Fragezeichen da: ", code),
        oldPosition, newPosition);
}

void UpdateRecord::KeptImport(const ExistingPiece& piece) {
    Add(UpdateAction::Kept, Concatenate(CodeOf(piece), " wird noch gebraucht"), piece.begin, noPosition);
}

void UpdateRecord::KeptCode() {
    for (const auto& [name, position] : existing_.ownMethods)
        if (existing_.registered.Contains(name) && !wanted_.methods.Contains(name))
            Add(UpdateAction::Kept, Concatenate("Methode ", name, "() gehört zu keinem Ereignis mehr"), position,
                noPosition);
    for (const auto& [name, field] : existing_.fields)
        if (field.hasValue)
            Add(UpdateAction::Reported,
                Concatenate(name, " wird schon bei der Deklaration erzeugt, mit Werten, die bleiben"),
                tokens_[field.firstToken].begin, noPosition);
    if (existing_.ownDatabaseBlock)
        Add(UpdateAction::Kept, "Die Anweisungen für die Datenbank sind verändert", noPosition, noPosition);
}

void UpdateRecord::Mentions(const UpdateOutput& output) {
    if (gone_.empty())
        return;
    for (const UpdateOutput::Own& own : output.OwnRanges())
        AddMentions(own);
}

void UpdateRecord::AddMentions(const UpdateOutput::Own& own) {
    const std::string_view source = tokens_.Source();
    std::size_t reported = own.begin; // each line once
    for (std::size_t index = tokens_.From(own.begin); index < tokens_.Count() && tokens_[index].begin < own.end;
         ++index) {
        const std::size_t position = tokens_[index].begin;
        if (position < reported || !gone_.contains(tokens_.Text(index)))
            continue;
        std::size_t line = position;
        while (line > reported && !IsLineEnd(source[line - 1]))
            --line;
        reported = EndOfLine(source, position);
        Add(UpdateAction::Reported,
            Concatenate(tokens_.Text(index), " gibt es nicht mehr: ", Stripped(source.substr(line, reported - line))),
            position, own.place + (position - own.begin));
    }
}

std::vector<UpdateEntry> UpdateRecord::Take(UpdateOutput& output) {
    const std::string_view text = output.Text();
    for (PlacedEntry& placed : entries_)
        if (placed.newPosition == noPosition && placed.oldPosition != noPosition &&
            placed.entry.action != UpdateAction::Removed)
            placed.newPosition = output.NewPosition(placed.oldPosition);
    NumberLines(tokens_.Source(), entries_, &PlacedEntry::oldPosition, &UpdateEntry::oldLine);
    NumberLines(text, entries_, &PlacedEntry::newPosition, &UpdateEntry::newLine);
    std::vector<UpdateEntry> entries;
    entries.reserve(entries_.size());
    for (PlacedEntry& placed : entries_)
        entries.push_back(std::move(placed.entry));
    return entries;
}

} // namespace pirol
