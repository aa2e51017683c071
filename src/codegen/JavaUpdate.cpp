#include "codegen/JavaUpdate.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "codegen/KnownPieces.h"
#include "codegen/SourceLines.h"
#include "codegen/UpdateOutput.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace pirol {
namespace {

constexpr std::size_t none = noPosition;
/// Bytes; nobody reads more in a list.
constexpr std::size_t longestEntry = 300;
/// Wanted pieces that are looked at before all of them are put in order by their keys.
constexpr std::size_t nearPieces = 16;

/// What a section's pieces are called together.
constexpr std::string_view sectionWords[] = {"Die import-Zeilen", "Die Deklarationen",
                                             "Die Anweisungen des Konstruktors", "Die Methoden"};

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
    {"Radioknopf", "setzeBearbeiterGeklickt", keys::click.key}, // the group decides
};

bool IsTextArea(std::string_view javaClass) {
    return javaClass == RowOf(ComponentKind::CharField).javaClass ||
           javaClass == RowOf(ComponentKind::RowField).javaClass;
}

/// Whether a text holds characters beyond those that have the same number in Windows-1252.
bool MayLackCharacters(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char byte) {
        const auto code = static_cast<unsigned char>(byte);
        return code >= 0xC4 || code == 0xC2;
    });
}

/// A piece of the source with what stands in its lines, or text between pieces.
struct Stretch {
    std::size_t begin;
    std::size_t end;
    std::size_t anchor;       ///< the wanted piece that it follows, or none at the beginning
    std::size_t piece = none; ///< the existing piece in it, if any
    std::size_t rest = none;  ///< of what is left of a removed piece's lines
};

/// The optional blocks that are Pirol's in a source that holds some.
CodeOptions BlocksOf(CodeOptions held, const UpdateOptions& options) {
    return {held.menu || (options.marks.menu && !options.withoutMenu),
            held.database || (options.marks.database && !options.withoutDatabase)};
}

/// The generated code and the tokens of the source; what both have is read at once.
struct Basis {
    Basis(std::string_view source, SourceTokens::Comments comments, CodeOptions heldBlocks, const ProjectModel& model,
          const UpdateOptions& options)
        : held(heldBlocks), lineEnd(UsualLineEnd(source)), wanted(Generate(model, options)),
          known_(wanted, source), tokens(source, comments, &known_) {}

    CodeOptions held; ///< the blocks that the source holds
    std::string_view lineEnd;
    std::string original; ///< the generated code before it lost characters; empty when it lost none
    GeneratedCode wanted;

  private:
    KnownPieces known_;

  public:
    SourceTokens tokens;

  private:
    std::string Generate(const ProjectModel& model, const UpdateOptions& options) {
        const CodeOptions blocks = BlocksOf(held, options);
        std::string source =
            GenerateCode(model, {blocks.menu && !options.withoutMenu, blocks.database && !options.withoutDatabase});
        if (!options.windows1252 || !MayLackCharacters(source))
            return source;
        std::string inFile = FromWindows1252(ToWindows1252(source));
        if (inFile != source)
            original = std::move(source);
        return inFile;
    }

};

std::unique_ptr<Basis> BasisOf(std::string_view source, SourceTokens::Comments comments, const ProjectModel& model,
                               const UpdateOptions& options) {
    const CodeOptions seeming = SeeminglyHeldBlocks(source);
    auto basis = std::make_unique<Basis>(source, comments, seeming, model, options);
    const CodeOptions held = HeldBlocks(basis->tokens);
    if (held.menu != seeming.menu || held.database != seeming.database)
        basis = std::make_unique<Basis>(source, comments, held, model, options);
    return basis;
}

/// One reading of a source and what becomes of it.
class Update {
  public:
    Update(Basis& basis, const ProjectModel& model, const UpdateOptions& options)
        : basis_(basis), wanted_(basis.wanted), tokens_(basis.tokens), source_(basis.tokens.Source()), model_(model),
          options_(options), existing_(tokens_, wanted_, BlocksOf(basis.held, options)),
          output_(source_, basis.lineEnd), wantedOf_(existing_.pieces.size(), none),
          pieceOf_(wanted_.pieces.size(), none), skipped_(wanted_.pieces.size(), false),
          kept_(existing_.pieces.size(), false) {}

    JavaUpdate Run() {
        FindLost();
        ReadRadioGroups();
        KeepTextAreas();
        Match();
        SkipWhatIsThere();
        KeepWhatIsHis();
        Write();
        ReportHandlers();
        ReportMentions();
        return Result();
    }

  private:
    void FindLost();
    void ReadRadioGroups();
    void KeepTextAreas();
    void Match();
    std::size_t FindWanted(const CodeKey& key);
    void SkipWhatIsThere();
    bool IsThere(const GeneratedPiece& wanted);
    void KeepWhatIsHis();
    bool IsUnknown(const CodeKey& key) const;
    void Write();
    void WriteRegion(CodeSection section);
    std::vector<Stretch> TakeApart(CodeSection section);
    std::string RestOf(const ExistingPiece& piece, std::size_t begin, std::size_t end) const;
    void WriteStretch(const Stretch& stretch);
    void WriteWanted(std::size_t wanted, const std::vector<Stretch>& stretches);
    void WriteNew(std::size_t wanted);
    void WritePiece(std::size_t piece, std::size_t begin, std::size_t end);
    std::string CodeFor(const ExistingPiece& piece, const GeneratedPiece& wanted) const;
    bool IsSame(const ExistingPiece& piece, std::string_view code) const;
    std::string_view CodeOf(const ExistingPiece& piece) const {
        return source_.substr(piece.begin, piece.end - piece.begin);
    }
    bool WasThere(std::string_view field) const { return existing_.fields.Contains(field); }
    bool IsGone(std::string_view field) const {
        const ExistingField* const found = existing_.fields.Find(field);
        return found != nullptr && found->owned && found->alone && !wanted_.fields.Contains(field);
    }
    void ReportNew(const GeneratedPiece& wanted, std::size_t place);
    void ReportChanged(const ExistingPiece& piece, std::string_view code, std::size_t place);
    void ReportRemoved(const ExistingPiece& piece);
    void ReportHandlers();
    void ReportMentions();
    void Report(UpdateAction action, std::string text, std::size_t oldPosition, std::size_t newPosition);
    JavaUpdate Result();

    const Basis& basis_;
    GeneratedCode& wanted_;
    const SourceTokens& tokens_;
    std::string_view source_;
    const ProjectModel& model_;
    const UpdateOptions& options_;
    ExistingCode existing_;
    UpdateOutput output_;
    std::vector<std::size_t> wantedOf_; ///< of each existing piece
    std::vector<std::size_t> pieceOf_;  ///< of each wanted piece
    std::vector<bool> skipped_;         ///< wanted pieces that the pupil has in a form of his own
    std::vector<bool> kept_;            ///< existing pieces that stay as they are
    std::unordered_set<std::size_t> lost_;
    std::vector<std::string> rests_;                                 ///< what is left of the lines of removed pieces
    std::unordered_map<std::string_view, std::string_view> groupOf_; ///< radio button, group
    std::unordered_map<CodeKey, std::size_t, CodeKeyHash> firstWanted_;
    std::vector<std::size_t> nextWanted_; ///< the next piece of the same key
    std::size_t expected_ = 0;
    std::unordered_set<std::string_view> gone_;
    std::unordered_set<std::string> lines_; ///< of the source, when first asked for
    std::vector<PlacedEntry> entries_;
};

/// Pieces that hold characters which the file's encoding lacks. Conversion leaves the pieces' number and order alone.
void Update::FindLost() {
    if (basis_.original.empty())
        return;
    const GeneratedCode original(basis_.original);
    for (std::size_t index = 0; index < wanted_.pieces.size() && index < original.pieces.size(); ++index)
        if (wanted_.pieces[index].code != original.pieces[index].code)
            lost_.insert(index);
}

void Update::ReadRadioGroups() {
    if (!options_.isUnknown)
        return;
    model_.ForEachVisible([this](const Control& control) {
        if (control.Kind() == ComponentKind::OptionGroup)
            for (const cRadioButton& row : static_cast<const dOptionsgruppe&>(control).OptionButtons)
                groupOf_.emplace(row.Name, control.ObjectName);
    });
}

void Update::KeepTextAreas() {
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

void Update::Match() {
    for (std::size_t index = 0; index < existing_.pieces.size(); ++index) {
        const std::size_t wanted = FindWanted(*existing_.pieces[index].key);
        if (wanted == none)
            continue;
        wantedOf_[index] = wanted;
        pieceOf_[wanted] = index;
        expected_ = wanted + 1;
    }
}

/// The first piece of the key that is not found yet: mostly the one behind the last found.
std::size_t Update::FindWanted(const CodeKey& key) {
    // A few that the source lacks may come before.
    const std::size_t near = std::min(expected_ + nearPieces, pieceOf_.size());
    for (std::size_t index = expected_; index < near; ++index)
        if (pieceOf_[index] == none && (&wanted_.pieces[index].key == &key || wanted_.pieces[index].key == key))
            return index;
    if (nextWanted_.empty()) {
        nextWanted_.resize(wanted_.pieces.size(), none);
        firstWanted_.reserve(wanted_.pieces.size());
        for (std::size_t index = wanted_.pieces.size(); index-- > 0;) {
            const auto [place, isNew] = firstWanted_.emplace(wanted_.pieces[index].key, index);
            if (!isNew)
                nextWanted_[index] = std::exchange(place->second, index);
        }
    }
    const auto first = firstWanted_.find(key);
    if (first == firstWanted_.end())
        return none;
    while (first->second != none && pieceOf_[first->second] != none)
        first->second = nextWanted_[first->second];
    return first->second;
}

void Update::SkipWhatIsThere() {
    for (std::size_t index = 0; index < wanted_.pieces.size(); ++index)
        if (pieceOf_[index] == none)
            skipped_[index] = wanted_.pieces[index].optional || IsThere(wanted_.pieces[index]);
    if (groupOf_.empty())
        return;
    for (const GeneratedPiece& piece : wanted_.pieces) {
        // A radio button that stays without its registration needs no handler either.
        const std::size_t* const method = wanted_.methods.Find(piece.key.object);
        if (piece.section != CodeSection::Methods || method == nullptr)
            continue;
        const std::string_view name = piece.key.object;
        if (!name.ends_with(suffixes::clicked) || pieceOf_[*method] != none)
            continue;
        const std::string_view button = name.substr(0, name.size() - suffixes::clicked.size());
        if (groupOf_.contains(button) && IsUnknown({button, "setzeBearbeiterGeklickt", {}}) &&
            !existing_.registered.Contains(name))
            skipped_[*method] = true;
    }
}

/// Whether the pupil has it in a form that is not ours, or it is his choice to be without.
bool Update::IsThere(const GeneratedPiece& wanted) {
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
    if (key.member == members::other) {
        if (lines_.empty())
            for (std::size_t at = 0; at < source_.size(); at = BehindLine(source_, at))
                lines_.emplace(Trim(source_.substr(at, EndOfLine(source_, at) - at)));
        return lines_.contains(std::string(Trim(wanted.code)));
    }
    const bool isOfBlock =
        key.member == members::block || key.object == database || (key.object == resultList && key.detail != "null;");
    if (isOfBlock && existing_.ownDatabaseBlock)
        return key.member != members::assignment || key.object != database;
    return isKnownField && IsUnknown(key);
}

/// Whether a statement says what the project file that was loaded does not hold.
bool Update::IsUnknown(const CodeKey& key) const {
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

void Update::KeepWhatIsHis() {
    std::unordered_set<std::string> handlers;
    for (std::size_t index = 0; index < existing_.pieces.size(); ++index) {
        const ExistingPiece& piece = existing_.pieces[index];
        const bool isHandler = piece.key->member == members::method && wantedOf_[index] == none;
        if (IsUnknown(*piece.key)) {
            kept_[index] = true;
            handlers.insert(Concatenate(piece.key->object, suffixes::clicked));
        } else if (piece.key->member == members::import) {
            kept_[index] = wantedOf_[index] != none || piece.key->detail != databasePackage;
            if (wantedOf_[index] == none && piece.key->detail == databasePackage && existing_.needsDatabaseImport) {
                kept_[index] = true;
                Report(UpdateAction::Kept, Concatenate(CodeOf(piece), " wird noch gebraucht"), piece.begin, none);
            }
        } else if (piece.key->member == members::comment || piece.key->object == superCall) {
            kept_[index] = wantedOf_[index] == none;
        } else if (isHandler && !handlers.empty()) {
            kept_[index] = handlers.contains(std::string(piece.key->object));
        }
    }
}

void Update::Write() {
    std::size_t position = 0;
    for (std::size_t section = 0; section < sectionCount; ++section) {
        const ExistingCode::Region& region = existing_.regions[section];
        output_.CopyOwn(position, region.begin);
        WriteRegion(static_cast<CodeSection>(section));
        position = region.end;
    }
    output_.CopyOwn(position, source_.size());
}

/// Divides a region into pieces, each with its lines, and the text between them.
std::vector<Stretch> Update::TakeApart(CodeSection section) {
    const ExistingCode::Region& region = existing_.regions[static_cast<std::size_t>(section)];
    std::vector<Stretch> stretches;
    stretches.reserve(existing_.pieces.size());
    std::size_t position = region.begin;
    std::size_t anchor = none;
    const auto first = std::partition_point(existing_.pieces.begin(), existing_.pieces.end(),
                                            [&](const ExistingPiece& piece) { return piece.begin < region.begin; });
    for (auto index = static_cast<std::size_t>(first - existing_.pieces.begin());
         index < existing_.pieces.size() && existing_.pieces[index].end <= region.end; ++index) {
        const ExistingPiece& piece = existing_.pieces[index];
        std::size_t begin = piece.begin;
        while (begin > position && !IsLineEnd(source_[begin - 1]))
            --begin;
        if (begin > position)
            stretches.push_back({position, begin, anchor});
        const bool isLast = index + 1 == existing_.pieces.size() || existing_.pieces[index + 1].end > region.end;
        const std::size_t limit = isLast ? region.end : existing_.pieces[index + 1].begin;
        const std::string_view upToLimit = source_.substr(0, limit);
        std::size_t end = BehindLine(upToLimit, piece.end);
        const bool takesBlank =
            piece.key->member == members::method || piece.key->member == members::proposal || piece.key->detail == "null;";
        if (takesBlank && end < limit) {
            const std::size_t behind = BehindLine(upToLimit, end);
            if (IsLineEnd(source_[behind - 1]) && IsLineEnd(source_[end - 1]) &&
                IsBlank(source_.substr(end, behind - end)))
                end = behind;
        }
        const std::size_t wanted = wantedOf_[index];
        const bool hasPlace = wanted != none && piece.section == section;
        if (hasPlace && (anchor == none || wanted > anchor))
            anchor = wanted;
        if (hasPlace || kept_[index] || wanted != none) {
            stretches.push_back({begin, end, hasPlace ? wanted : anchor, index});
        } else {
            ReportRemoved(piece);
            std::string rest = RestOf(piece, begin, end);
            if (!rest.empty()) {
                stretches.push_back({begin, end, anchor, none, rests_.size()});
                rests_.push_back(std::move(rest));
            }
        }
        position = end;
    }
    if (position < region.end)
        stretches.push_back({position, region.end, anchor});
    return stretches;
}

/// What else stands in the lines of a piece that goes: a comment behind a statement is the pupil's.
std::string Update::RestOf(const ExistingPiece& piece, std::size_t begin, std::size_t end) const {
    const std::string_view before = source_.substr(begin, piece.begin - begin);
    const std::string_view behind =
        source_.substr(piece.end, BehindLine(source_.substr(0, end), piece.end) - piece.end);
    if (IsBlank(before) && IsBlank(behind))
        return {};
    return Concatenate(before, TrimLeft(behind));
}

void Update::WriteRegion(CodeSection section) {
    const std::vector<Stretch> stretches = TakeApart(section);
    const std::size_t first = wanted_.sections[static_cast<std::size_t>(section)];
    const std::size_t end = wanted_.sections[static_cast<std::size_t>(section) + 1];
    std::vector<std::size_t> placeOf(end - first, none); // the stretch of each wanted piece
    std::vector<std::size_t> others;                     // all other stretches; their anchors ascend
    std::size_t last = first;
    bool inOrder = true;
    for (std::size_t index = 0; index < stretches.size(); ++index) {
        const Stretch& stretch = stretches[index];
        const bool hasPlace = stretch.piece != none && wantedOf_[stretch.piece] != none &&
                              existing_.pieces[stretch.piece].section == section;
        if (!hasPlace) {
            others.push_back(index);
            continue;
        }
        placeOf[stretch.anchor - first] = index;
        inOrder = inOrder && stretch.anchor >= last;
        last = stretch.anchor;
    }
    if (!inOrder)
        Report(UpdateAction::Moved,
               Concatenate(sectionWords[static_cast<std::size_t>(section)],
                           " stehen jetzt in der Reihenfolge des Entwurfs"),
               none, none);

    auto other = others.begin();
    const auto writeOthers = [&](std::size_t anchor) {
        for (; other != others.end() && stretches[*other].anchor == anchor; ++other)
            WriteStretch(stretches[*other]);
    };
    // A call of the super class must be the first statement, so it does not wait for what pupils wrote there.
    const auto isNewSuper = [&](std::size_t wanted) {
        return wanted < end && wanted_.pieces[wanted].key.object == superCall && pieceOf_[wanted] == none &&
               !skipped_[wanted];
    };
    std::size_t wanted = first;
    if (wanted < end && skipped_[wanted] && isNewSuper(wanted + 1))
        ++wanted;
    if (isNewSuper(wanted))
        WriteNew(wanted++);
    writeOthers(none);
    for (; wanted < end; ++wanted) {
        const std::size_t anchor = wanted;
        if (placeOf[wanted - first] != none) {
            const Stretch& stretch = stretches[placeOf[wanted - first]];
            WritePiece(stretch.piece, stretch.begin, stretch.end);
        } else if (!skipped_[wanted] && pieceOf_[wanted] == none) {
            WriteNew(wanted);
        }
        if (isNewSuper(wanted + 1))
            WriteNew(++wanted);
        writeOthers(anchor);
    }
}

void Update::WriteStretch(const Stretch& stretch) {
    if (stretch.rest != none)
        output_.AddText(rests_[stretch.rest]);
    else if (stretch.piece != none)
        WritePiece(stretch.piece, stretch.begin, stretch.end);
    else
        output_.CopyOwn(stretch.begin, stretch.end);
}

void Update::WriteNew(std::size_t wanted) {
    const std::size_t place = output_.AddLine(wanted_.pieces[wanted]);
    ReportNew(wanted_.pieces[wanted], place);
    if (lost_.contains(wanted))
        Report(UpdateAction::Reported,
               Concatenate("Zeichen, die der Datei fehlen, stehen als Fragezeichen da: ", wanted_.pieces[wanted].code),
               none, place);
}

void Update::WritePiece(std::size_t index, std::size_t begin, std::size_t end) {
    const ExistingPiece& piece = existing_.pieces[index];
    const std::size_t wanted = wantedOf_[index];
    const std::size_t indent = wanted == none ? 0 : wanted_.pieces[wanted].indent;
    if (wanted == none || kept_[index]) {
        output_.Copy(begin, end, indent);
        return;
    }
    if (piece.isKnown && piece.key == &wanted_.pieces[wanted].key && !wanted_.pieces[wanted].isReplaced) {
        output_.Copy(begin, end, indent);
        return;
    }
    const std::string code = CodeFor(piece, wanted_.pieces[wanted]);
    if (IsSame(piece, code)) {
        output_.Copy(begin, end, indent);
        return;
    }
    output_.Copy(begin, piece.begin, indent);
    const std::size_t place = output_.Replace(code, piece.end);
    output_.Copy(piece.end, end);
    ReportChanged(piece, code, place);
    if (lost_.contains(wanted))
        Report(UpdateAction::Reported, Concatenate("Zeichen, die der Datei fehlen, stehen als Fragezeichen da: ", code),
               piece.begin, place);
}

/// The wanted code; where the pupil made a field private or gave the window a place, that stays.
std::string Update::CodeFor(const ExistingPiece& piece, const GeneratedPiece& wanted) const {
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
bool Update::IsSame(const ExistingPiece& piece, std::string_view code) const {
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

// --- the report ---

void Update::Report(UpdateAction action, std::string text, std::size_t oldPosition, std::size_t newPosition) {
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

void Update::ReportNew(const GeneratedPiece& wanted, std::size_t place) {
    const CodeKey& key = wanted.key;
    const std::string_view* const field = wanted_.fields.Find(key.object);
    const bool isCreation = key.member == members::assignment && key.detail.empty();
    std::string text(wanted.code);
    if (key.member == members::method)
        text = Concatenate("Methode ", key.object, "()");
    else if (field != nullptr && !WasThere(key.object)) {
        const bool hasCreation = key.object != subMenu && key.object != resultList;
        if (hasCreation != isCreation || (!hasCreation && key.member != members::field))
            return;
        text = Concatenate(*field, " ", key.object);
    }
    Report(UpdateAction::New, std::move(text), none, place);
}

void Update::ReportChanged(const ExistingPiece& piece, std::string_view code, std::size_t place) {
    const std::string_view old = CodeOf(piece);
    if (piece.key->member == members::method) {
        Report(UpdateAction::Changed, Concatenate("Methode ", piece.key->object, "()"), piece.begin, place);
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
    Report(UpdateAction::Changed, Concatenate(name, ": ", values(old), " wird ", values(code)), piece.begin, place);
}

void Update::ReportRemoved(const ExistingPiece& piece) {
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
    Report(UpdateAction::Removed, std::move(text), piece.begin, none);
}

void Update::ReportHandlers() {
    for (const auto& [name, position] : existing_.ownMethods)
        if (existing_.registered.Contains(name) && !wanted_.methods.Contains(name))
            Report(UpdateAction::Kept, Concatenate("Methode ", name, "() gehört zu keinem Ereignis mehr"), position,
                   none);
    for (const auto& [name, field] : existing_.fields)
        if (field.hasValue && wanted_.fields.Contains(name))
            Report(UpdateAction::Reported,
                   Concatenate(name, " wird schon bei der Deklaration erzeugt, mit Werten, die bleiben"),
                   tokens_[field.firstToken].begin, none);
    if (existing_.ownDatabaseBlock)
        Report(UpdateAction::Kept, "Die Anweisungen für die Datenbank sind verändert", none, none);
}

/// Names each own line that speaks of what is gone, and tells where the kept things stand now.
void Update::ReportMentions() {
    for (PlacedEntry& placed : entries_)
        if (placed.newPosition == none && placed.oldPosition != none && placed.entry.action != UpdateAction::Removed)
            placed.newPosition = output_.NewPosition(placed.oldPosition);
    if (gone_.empty())
        return;
    for (const UpdateOutput::Own& own : output_.OwnRanges()) {
        std::size_t reported = own.begin; // each line once
        for (std::size_t index = tokens_.From(own.begin); index < tokens_.Count() && tokens_[index].begin < own.end;
             ++index) {
            const std::size_t position = tokens_[index].begin;
            if (position < reported || !gone_.contains(tokens_.Text(index)))
                continue;
            std::size_t line = position;
            while (line > reported && !IsLineEnd(source_[line - 1]))
                --line;
            reported = EndOfLine(source_, position);
            Report(UpdateAction::Reported,
                   Concatenate(tokens_.Text(index),
                               " gibt es nicht mehr: ", Stripped(source_.substr(line, reported - line))),
                   position, own.place + (position - own.begin));
        }
    }
}

JavaUpdate Update::Result() {
    NumberLines(source_, entries_, &PlacedEntry::oldPosition, &UpdateEntry::oldLine);
    NumberLines(output_.Text(), entries_, &PlacedEntry::newPosition, &UpdateEntry::newLine);
    JavaUpdate update;
    update.source = output_.Take();
    update.held = basis_.held;
    for (PlacedEntry& placed : entries_)
        update.entries.push_back(std::move(placed.entry));
    return update;
}

/// Commented-out code is no code. But where a comment was begun and ended around lines of ours and the source is as it
/// should be without it, it stays as it is; and so where nothing can be found with it.
JavaUpdate UpdateReading(std::string_view source, const ProjectModel& model, const UpdateOptions& options) {
    using enum SourceTokens::Comments;
    const std::unique_ptr<Basis> acrossLines = BasisOf(source, AcrossLines, model, options);
    if (!acrossLines->tokens.HasLongComments())
        return Update(*acrossLines, model, options).Run();
    std::optional<JavaUpdate> result;
    try {
        result = Update(*BasisOf(source, WithinLines, model, options), model, options).Run();
        if (result->source == source)
            return std::move(*result);
    } catch (const UpdateRefusal&) {
        result.reset(); // the other reading tells why
    }
    try {
        return Update(*acrossLines, model, options).Run();
    } catch (const UpdateRefusal&) {
        if (!result)
            throw;
        return std::move(*result);
    }
}

} // namespace

JavaUpdate UpdateJava(std::string_view source, const ProjectModel& model, const UpdateOptions& options) {
    if (options.renames.empty())
        return UpdateReading(source, model, options);
    RenamedSource renamed = WithNewNames(source, options.renames);
    JavaUpdate update = UpdateReading(renamed.source, model, options);
    renamed.entries.insert(renamed.entries.end(), std::make_move_iterator(update.entries.begin()),
                           std::make_move_iterator(update.entries.end()));
    update.entries = std::move(renamed.entries);
    return update;
}

} // namespace pirol
