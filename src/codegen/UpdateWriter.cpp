#include "codegen/UpdateWriter.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "codegen/SourceLines.h"
#include "codegen/SourceStatement.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace pirol {

UpdateWriter::UpdateWriter(const UpdateBasis& basis, const ExistingCode& existing, const PieceMatch& match,
                           UpdateRecord& record)
    : wanted_(basis.wanted), tokens_(basis.tokens), source_(basis.tokens.Source()), existing_(existing), match_(match),
      record_(record), output_(source_, basis.lineEnd) {
    FindLost(basis);
}

/// Conversion leaves the pieces' number and order alone.
void UpdateWriter::FindLost(const UpdateBasis& basis) {
    if (basis.original.empty())
        return;
    const GeneratedCode original(basis.original);
    for (std::size_t index = 0; index < wanted_.pieces.size(); ++index)
        if (wanted_.pieces[index].code != original.pieces[index].code)
            lost_.insert(index);
}

UpdateOutput& UpdateWriter::Write() {
    std::size_t position = 0;
    for (std::size_t section = 0; section < sectionCount; ++section) {
        const ClassFrame::Region& region = existing_.frame.regions[section];
        output_.CopyOwn(position, region.begin);
        WriteSection(static_cast<CodeSection>(section));
        position = region.end;
    }
    output_.CopyOwn(position, source_.size());
    return output_;
}

// --- what is there ---

/// Divides a section's region into pieces, each with its lines, and the text between them.
std::vector<UpdateWriter::Stretch> UpdateWriter::TakeApart(CodeSection section) {
    const ClassFrame::Region& region = existing_.frame.regions[static_cast<std::size_t>(section)];
    const std::vector<ExistingPiece>& pieces = existing_.pieces;
    std::vector<Stretch> stretches;
    stretches.reserve(pieces.size());
    std::size_t position = region.begin;
    std::uint32_t anchor = none;
    const auto first = std::partition_point(pieces.begin(), pieces.end(),
                                            [&](const ExistingPiece& piece) { return piece.begin < region.begin; });
    for (auto index = static_cast<std::uint32_t>(first - pieces.begin());
         index < pieces.size() && pieces[index].end <= region.end; ++index) {
        const ExistingPiece& piece = pieces[index];
        std::size_t begin = piece.begin;
        while (begin > position && !IsLineEnd(source_[begin - 1]))
            --begin;
        if (begin > position)
            stretches.push_back({position, begin, anchor});
        const bool isLast = index + 1 == pieces.size() || pieces[index + 1].end > region.end;
        const std::size_t end = EndOfPiece(piece, isLast ? region.end : pieces[index + 1].begin);
        const std::uint32_t wanted = match_.wantedOf[index];
        const bool hasPlace = wanted != none && piece.section == section;
        if (hasPlace && (anchor == none || wanted > anchor))
            anchor = wanted;
        if (wanted != none || match_.kept[index])
            stretches.push_back({begin, end, hasPlace ? wanted : anchor, index});
        else
            AddRest(piece, {begin, end, anchor}, stretches);
        if (wanted == none && match_.kept[index] && piece.key->detail == databasePackage)
            record_.KeptImport(piece);
        position = end;
    }
    if (position < region.end)
        stretches.push_back({position, region.end, anchor});
    return stretches;
}

/// Behind the lines of a piece, with the empty one that the generator puts behind some.
std::size_t UpdateWriter::EndOfPiece(const ExistingPiece& piece, std::size_t limit) const {
    const std::string_view upToLimit = source_.substr(0, limit);
    const std::size_t end = BehindLine(upToLimit, piece.end);
    const CodeKey& key = *piece.key;
    const bool takesBlank = key.member == members::method || key.member == members::proposal || key.detail == "null;";
    if (!takesBlank || end >= limit)
        return end;
    const std::size_t behind = BehindLine(upToLimit, end);
    const bool isEmptyLine =
        IsLineEnd(source_[behind - 1]) && IsLineEnd(source_[end - 1]) && IsBlank(source_.substr(end, behind - end));
    return isEmptyLine ? behind : end;
}

/// What else stands in the lines of a piece that goes: a comment behind a statement is the pupil's.
void UpdateWriter::AddRest(const ExistingPiece& piece, const Stretch& stretch, std::vector<Stretch>& stretches) {
    record_.Removed(piece);
    const std::string_view before = source_.substr(stretch.begin, piece.begin - stretch.begin);
    const std::string_view behind =
        source_.substr(piece.end, BehindLine(source_.substr(0, stretch.end), piece.end) - piece.end);
    if (IsBlank(before) && IsBlank(behind))
        return;
    stretches.push_back({stretch.begin, stretch.end, stretch.anchor, none, static_cast<std::uint32_t>(rests_.size())});
    rests_.push_back(Concatenate(before, TrimLeft(behind)));
}

// --- what comes ---

bool UpdateWriter::HasPlace(const Stretch& stretch, CodeSection section) const {
    return stretch.piece != none && match_.wantedOf[stretch.piece] != none &&
           existing_.pieces[stretch.piece].section == section;
}

/// A call of the super class must be the first statement, so it does not wait for what pupils wrote there.
bool UpdateWriter::IsNewSuper(std::size_t wanted, std::size_t end) const {
    return wanted < end && wanted_.pieces[wanted].key.object == superCall && match_.pieceOf[wanted] == none &&
           !match_.skipped[wanted];
}

void UpdateWriter::WriteSection(CodeSection section) {
    const std::vector<Stretch> stretches = TakeApart(section);
    const std::size_t first = wanted_.sections[static_cast<std::size_t>(section)];
    const std::size_t end = wanted_.sections[static_cast<std::size_t>(section) + 1];
    std::vector<std::uint32_t> placeOf(end - first, none); // the stretch of each wanted piece
    std::vector<std::uint32_t> others;                     // all other stretches; their anchors ascend
    std::uint32_t last = 0;
    bool inOrder = true;
    for (std::uint32_t index = 0; index < stretches.size(); ++index) {
        const Stretch& stretch = stretches[index];
        if (!HasPlace(stretch, section)) {
            others.push_back(index);
            continue;
        }
        placeOf[stretch.anchor - first] = index;
        inOrder = inOrder && stretch.anchor >= last;
        last = stretch.anchor;
    }
    if (!inOrder)
        record_.Moved(section);

    auto other = others.begin();
    const auto writeOthers = [&](std::size_t anchor) {
        for (; other != others.end() && stretches[*other].anchor == anchor; ++other)
            WriteStretch(stretches[*other]);
    };
    std::size_t wanted = first;
    if (wanted < end && match_.skipped[wanted] && IsNewSuper(wanted + 1, end))
        ++wanted;
    if (IsNewSuper(wanted, end))
        WriteNew(wanted++);
    writeOthers(none);
    for (; wanted < end; ++wanted) {
        const std::size_t anchor = wanted;
        if (placeOf[wanted - first] != none)
            WritePiece(stretches[placeOf[wanted - first]]);
        else if (!match_.skipped[wanted] && match_.pieceOf[wanted] == none)
            WriteNew(wanted);
        if (IsNewSuper(wanted + 1, end))
            WriteNew(++wanted);
        writeOthers(anchor);
    }
}

void UpdateWriter::WriteStretch(const Stretch& stretch) {
    if (stretch.rest != none)
        output_.AddText(rests_[stretch.rest]);
    else if (stretch.piece != none)
        WritePiece(stretch);
    else
        output_.CopyOwn(stretch.begin, stretch.end);
}

void UpdateWriter::WriteNew(std::size_t wanted) {
    const GeneratedPiece& piece = wanted_.pieces[wanted];
    const std::size_t place = output_.AddLine(piece);
    record_.New(piece, place);
    if (lost_.contains(wanted))
        record_.Lost(piece.code, noPosition, place);
}

void UpdateWriter::WritePiece(const Stretch& stretch) {
    const ExistingPiece& piece = existing_.pieces[stretch.piece];
    const std::uint32_t number = match_.wantedOf[stretch.piece];
    if (number == none) {
        output_.Copy(stretch.begin, stretch.end);
        return;
    }
    const GeneratedPiece& wanted = wanted_.pieces[number];
    const bool isKnown = piece.isKnown && piece.key == &wanted.key && !wanted.isReplaced;
    const std::string code = isKnown || match_.kept[stretch.piece] ? std::string() : CodeFor(piece, wanted);
    if (code.empty() || IsSame(piece, code)) {
        output_.Copy(stretch.begin, stretch.end, wanted.indent);
        return;
    }
    output_.Copy(stretch.begin, piece.begin, wanted.indent);
    const std::size_t place = output_.Replace(code, piece.end);
    output_.Copy(piece.end, stretch.end);
    record_.Changed(piece, code, place);
    if (lost_.contains(number))
        record_.Lost(code, piece.begin, place);
}

/// The wanted code; where the pupil made a field private or gave the window a place, that stays.
std::string UpdateWriter::CodeFor(const ExistingPiece& piece, const GeneratedPiece& wanted) const {
    if (wanted.key.member == members::field) {
        std::size_t type = piece.firstToken;
        while (IsModifier(tokens_.Text(type)))
            ++type;
        return Concatenate(source_.substr(piece.begin, tokens_[type].begin - piece.begin), wanted.code);
    }
    if (wanted.key.object == superCall)
        if (const std::optional<SourceStatement> call = ReadStatement(tokens_, piece.firstToken);
            call && call->arguments.kinds.size() == 4) {
            const std::size_t begin = tokens_[call->arguments.begins[0]].begin;
            const std::size_t end = tokens_[call->arguments.begins[2]].begin;
            return Concatenate("super(", source_.substr(begin, end - begin), wanted.code.substr(sizeof "super"));
        }
    return std::string(wanted.code);
}

/// Whether two codes differ in nothing but blanks.
bool UpdateWriter::IsSame(const ExistingPiece& piece, std::string_view code) const {
    if (CodeOf(piece) == code || piece.firstToken == piece.endToken)
        return true;
    const SourceTokens tokens(code, SourceTokens::Comments::WithinLines);
    if (tokens.Count() != piece.endToken - piece.firstToken)
        return false;
    for (std::size_t index = 0; index < tokens.Count(); ++index)
        if (!tokens_.Is(piece.firstToken + index, tokens.Text(index)))
            return false;
    // The handlers of components and of menus differ in a comment.
    return piece.key->member != members::method ||
           (CodeOf(piece).find("//") == std::string_view::npos) == (code.find("//") == std::string_view::npos);
}

} // namespace pirol
