#include "codegen/KnownPieces.h"

#include "base/Conversions.h"
#include "codegen/SourceLines.h"

#include <algorithm>

namespace pirol {
namespace {

/// How many pieces may be missing between two that are found by comparing.
constexpr std::size_t farthest = 16;
/// So many lines that are none of the next pieces may be a pupil's.
constexpr std::size_t mostMissed = 32;

/// Whether a piece can be told by its text alone. What belongs to the menu bar or the database as a whole is looked at
/// token by token.
bool IsPlain(const GeneratedPiece& piece) {
    const CodeKey& key = piece.key;
    const bool isOfDatabase = key.object == database || key.object == resultList;
    switch (piece.section) {
    case CodeSection::Imports:
        return false;
    case CodeSection::Fields:
        return key.member == members::field && key.object != subMenu && !isOfDatabase;
    case CodeSection::Constructor:
        return piece.code.size() > 1 && !piece.code.starts_with("//") && key.member != members::block &&
               key.member != members::other && key.object != superCall && !isOfDatabase;
    case CodeSection::Methods:
        return piece.code.starts_with("public void ");
    }
    return false;
}

std::string_view LineAt(std::string_view text, std::size_t begin) {
    return text.substr(begin, EndOfLine(text, begin) - begin);
}

} // namespace

KnownPieces::KnownPieces(const GeneratedCode& wanted, std::string_view source)
    : pieces_(wanted.pieces), source_(source), found_(pieces_.size()) {}

KnownPieces::Found KnownPieces::Find(std::size_t begin) {
    const std::size_t last = std::min(next_ + farthest, pieces_.size());
    std::size_t piece = next_;
    std::size_t end = none;
    for (; piece < last; ++piece)
        if (!found_[piece] && (end = EndAt(piece, begin)) != none)
            break;
    if (end == none && ++missed_ > mostMissed) {
        piece = FindAnywhere(begin);
        end = piece == none ? none : EndAt(piece, begin);
    }
    if (end == none)
        return {none, begin};
    found_[piece] = true;
    next_ = piece + 1;
    missed_ = 0;
    return {piece, end};
}

/// The end of a line at which the piece ends that stands at the position, or none.
std::size_t KnownPieces::EndAt(std::size_t piece, std::size_t begin) const {
    const std::string_view code = pieces_[piece].code;
    if (!code.starts_with(source_[begin]))
        return none;
    std::size_t end = begin + code.size();
    if (!source_.substr(begin).starts_with(code)) {
        if (pieces_[piece].section != CodeSection::Methods)
            return none;
        end = EndOfLinesAt(code, begin);
    }
    const bool endsLine = end >= source_.size() || IsLineEnd(source_[end]);
    return endsLine && IsPlain(pieces_[piece]) ? end : none;
}

/// The same for several lines whose ends the source may have in another form.
std::size_t KnownPieces::EndOfLinesAt(std::string_view code, std::size_t begin) const {
    for (;;) {
        const std::string_view line = LineAt(code, 0);
        if (LineAt(source_, begin) != line)
            return none;
        if (line.size() == code.size())
            return begin + line.size();
        code.remove_prefix(line.size() + lineEnd.size());
        begin = BehindLine(source_, begin);
    }
}

std::size_t KnownPieces::FindAnywhere(std::size_t begin) {
    if (byFirstLine_.Empty()) {
        byFirstLine_.Reserve(pieces_.size());
        for (std::size_t piece = 0; piece < pieces_.size(); ++piece)
            byFirstLine_.Add(LineAt(pieces_[piece].code, 0), static_cast<std::uint32_t>(piece));
    }
    const std::uint32_t* const piece = byFirstLine_.Find(LineAt(source_, begin));
    return piece == nullptr || found_[*piece] ? none : *piece;
}

} // namespace pirol
