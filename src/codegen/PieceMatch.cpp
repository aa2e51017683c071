#include "codegen/PieceMatch.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "codegen/SourceLines.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace pirol {
namespace {

/// Wanted pieces that are looked at before all of them are put in order by their keys.
constexpr std::size_t nearPieces = 16;

constexpr std::string_view clickRegistration = "setzeBearbeiterGeklickt";

/// A statement whose value a project file does not hold.
struct UnheldStatement {
    std::string_view javaClass;
    std::string_view method;
    std::string_view property;
};

constexpr UnheldStatement unheldStatements[] = {
    {"Schalter", "schalteAn", keys::checked.key},
    {"Kennwortfeld", "setzeInhalt", keys::value.key},
    {"Fortschrittsbalken", "setzeWert", keys::currentvalue.key},
    {"Radioknopf", clickRegistration, keys::click.key}, // the group decides
};

bool IsTextArea(std::string_view javaClass) {
    return javaClass == RowOf(ComponentKind::CharField).javaClass ||
           javaClass == RowOf(ComponentKind::RowField).javaClass;
}

} // namespace

PieceMatch::PieceMatch(UpdateBasis& basis, const ExistingCode& existing, const ProjectModel& model,
                       const UpdateOptions& options)
    : wantedOf(existing.pieces.size(), none), pieceOf(basis.wanted.pieces.size(), none),
      skipped(basis.wanted.pieces.size(), false), kept(existing.pieces.size(), false), wanted_(basis.wanted),
      tokens_(basis.tokens), existing_(existing), options_(options) {
    ReadRadioGroups(model);
    KeepTextAreas();
    Match();
    SkipWhatIsThere();
    KeepWhatIsHis();
}

void PieceMatch::ReadRadioGroups(const ProjectModel& model) {
    if (!options_.isUnknown)
        return;
    model.ForEachVisible([this](const Control& control) {
        if (control.Kind() == ComponentKind::OptionGroup)
            for (const cRadioButton& row : static_cast<const dOptionsgruppe&>(control).OptionButtons)
                groupOf_.emplace(row.Name, control.ObjectName);
    });
}

void PieceMatch::KeepTextAreas() {
    if (!options_.isUnknown)
        return;
    for (GeneratedPiece& piece : wanted_.pieces) {
        const bool isCreation = piece.key.member == members::assignment && piece.key.detail.empty();
        if (piece.key.member != members::field && !isCreation)
            continue;
        const std::string_view* const wanted = wanted_.fields.Find(piece.key.object);
        const ExistingField* const existing = existing_.fields.Find(piece.key.object);
        if (wanted == nullptr || existing == nullptr || *wanted == existing->javaClass || !IsTextArea(*wanted) ||
            !IsTextArea(existing->javaClass) || !options_.isUnknown(piece.key.object, textAreaKind))
            continue;
        const std::size_t place = isCreation ? piece.code.find(*wanted, piece.key.object.size()) : 0;
        std::string code(piece.code);
        wanted_.Replace(piece, code.replace(place, wanted->size(), existing->javaClass));
    }
}

void PieceMatch::Match() {
    for (std::uint32_t index = 0; index < wantedOf.size(); ++index) {
        const std::uint32_t wanted = FindWanted(*existing_.pieces[index].key);
        if (wanted == none)
            continue;
        wantedOf[index] = wanted;
        pieceOf[wanted] = index;
        expected_ = wanted + 1;
    }
}

/// The first piece of the key that is not found yet: mostly the one behind the last found.
std::uint32_t PieceMatch::FindWanted(const CodeKey& key) {
    // A few that the source lacks may come before.
    const auto near = std::min<std::size_t>(expected_ + nearPieces, pieceOf.size());
    for (std::uint32_t index = expected_; index < near; ++index)
        if (pieceOf[index] == none && (&wanted_.pieces[index].key == &key || wanted_.pieces[index].key == key))
            return index;
    if (nextWanted_.empty())
        ListWanted();
    const auto first = firstWanted_.find(key);
    if (first == firstWanted_.end())
        return none;
    while (first->second != none && pieceOf[first->second] != none)
        first->second = nextWanted_[first->second];
    return first->second;
}

void PieceMatch::ListWanted() {
    nextWanted_.resize(pieceOf.size(), none);
    firstWanted_.reserve(pieceOf.size());
    for (auto index = static_cast<std::uint32_t>(pieceOf.size()); index-- > 0;) {
        const auto [place, isNew] = firstWanted_.emplace(wanted_.pieces[index].key, index);
        if (!isNew)
            nextWanted_[index] = std::exchange(place->second, index);
    }
}

void PieceMatch::SkipWhatIsThere() {
    for (std::size_t index = 0; index < pieceOf.size(); ++index) {
        if (pieceOf[index] != none)
            continue;
        const GeneratedPiece& piece = wanted_.pieces[index];
        skipped[index] = skipped[index] || piece.optional || IsThere(piece);
        // A radio button that stays without its registration needs no handler either, which comes later.
        if (skipped[index] && piece.key.member == clickRegistration)
            if (const auto* const handler = wanted_.methods.Find(Concatenate(piece.key.object, suffixes::clicked)))
                skipped[*handler] = true;
    }
}

/// Whether the pupil has it in a form that is not ours, or it is his choice to be without.
bool PieceMatch::IsThere(const GeneratedPiece& wanted) {
    const CodeKey& key = wanted.key;
    const ExistingField* const field = existing_.fields.Find(key.object);
    const bool isKnownField = field != nullptr;
    if (key.member == members::field)
        return isKnownField && !field->alone;
    if (key.member == members::proposal) { // he has switched it on, or does not want it
        const std::string_view* const sound = wanted_.fields.Find(key.object);
        return isKnownField && sound != nullptr && *sound == field->javaClass;
    }
    if (key.member == members::assignment && key.detail.empty())
        return isKnownField && field->hasValue;
    if (key.member == members::method)
        return existing_.ownMethods.Contains(key.object);
    if (key.object == superCall)
        return existing_.callsThis;
    if (key.member == members::other)
        return IsInSource(Trim(wanted.code));
    const bool isOfBlock =
        key.member == members::block || key.object == database || (key.object == resultList && key.detail != "null;");
    if (isOfBlock && existing_.ownDatabaseBlock)
        return key.member != members::assignment || key.object != database;
    return isKnownField && IsUnknown(key);
}

bool PieceMatch::IsInSource(std::string_view line) {
    const std::string_view source = tokens_.Source();
    if (lines_.empty())
        for (std::size_t at = 0; at < source.size(); at = BehindLine(source, at))
            lines_.emplace(Trim(source.substr(at, EndOfLine(source, at) - at)));
    return lines_.contains(std::string(line));
}

/// Whether a statement says what the project file that was loaded does not hold.
bool PieceMatch::IsUnknown(const CodeKey& key) const {
    if (!options_.isUnknown)
        return false;
    const ExistingField* const field = existing_.fields.Find(key.object);
    if (field == nullptr)
        return false;
    const auto* const row =
        std::find_if(std::begin(unheldStatements), std::end(unheldStatements), [&](const UnheldStatement& statement) {
            return statement.javaClass == field->javaClass && statement.method == key.member;
        });
    if (row == std::end(unheldStatements) || !wanted_.fields.Contains(key.object))
        return false;
    const auto group = groupOf_.find(key.object);
    return options_.isUnknown(group == groupOf_.end() ? key.object : group->second, row->property);
}

void PieceMatch::KeepWhatIsHis() {
    std::unordered_set<std::string> handlers;
    for (std::size_t index = 0; index < existing_.pieces.size(); ++index) {
        const ExistingPiece& piece = existing_.pieces[index];
        const bool isHandler = piece.key->member == members::method && wantedOf[index] == none;
        if (IsUnknown(*piece.key)) {
            kept[index] = true;
            handlers.insert(Concatenate(piece.key->object, suffixes::clicked));
        } else if (piece.key->member == members::import) {
            kept[index] =
                wantedOf[index] != none || piece.key->detail != databasePackage || existing_.needsDatabaseImport;
        } else if (piece.key->member == members::comment || piece.key->object == superCall) {
            kept[index] = wantedOf[index] == none;
        } else if (isHandler && !handlers.empty()) {
            kept[index] = handlers.contains(std::string(piece.key->object));
        }
    }
}

} // namespace pirol
