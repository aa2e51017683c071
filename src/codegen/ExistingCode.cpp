#include "codegen/ExistingCode.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "codegen/SourceLines.h"
#include "codegen/UpdateRefusal.h"
#include "codegen/WordList.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::string_view radioButtonClass = "Radioknopf";
constexpr std::string_view packages[] = {"ereignis", "komponenten", "multimedia", databasePackage, toolsPackage};
constexpr std::string_view textAreas[] = {"Zeichenbereich", "Zeilenbereich"};
/// Far more than any program has; what a file made for it could ask for ends here.
constexpr std::size_t mostPieces = std::size_t{1} << 21U;

} // namespace

ExistingCode::ExistingCode(const SourceTokens& tokens, const GeneratedCode& wanted, CodeOptions blocks)
    : frame(tokens, wanted), tokens_(tokens), source_(tokens.Source()), wanted_(wanted), blocks_(blocks) {
    pieces.reserve(wanted.pieces.size() + wanted.pieces.size() / 8);
    fields.Reserve(wanted.fields.Size());
    ReadImports();
    ReadFields(frame.classOpen + 1, frame.constructor, CodeSection::Fields);
    ReadFields(frame.Methods(), frame.classEnd, CodeSection::Methods);
    ReadConstructor();
    ReadComments(source_.size());
    DecideFields();
    PutInOrder();
    KeepOwnedPieces();
    CollectRegistered();
    ReadMethods();
    PutInOrder();
    DropOverlaps();
}

ExistingPiece& ExistingCode::AddPiece(const CodeKey* key, CodeSection section, std::size_t firstToken,
                                      std::size_t endToken) {
    ReadComments(tokens_[firstToken].begin);
    if (pieces.size() == mostPieces)
        throw RuntimeError(RuntimeError::OutOfMemory);
    ExistingPiece& piece = pieces.emplace_back();
    piece.key = key;
    piece.section = section;
    piece.begin = tokens_[firstToken].begin;
    piece.end = tokens_[endToken - 1].end;
    piece.firstToken = static_cast<std::uint32_t>(firstToken);
    piece.endToken = static_cast<std::uint32_t>(endToken);
    return piece;
}

void ExistingCode::ReadImports() {
    for (std::size_t index = 0; index < frame.classToken; ++index)
        if (tokens_.Are(index, "import", "sum", ".") && tokens_.Are(index + 4, ".", "*", ";") &&
            MayBegin(tokens_, index) && Contains(packages, tokens_.Text(index + 3)))
            AddPiece(Keep({{}, members::import, tokens_.Text(index + 3)}), CodeSection::Imports, index, index + 7);
}

void ExistingCode::ReadFields(std::size_t first, std::size_t end, CodeSection section) {
    int level = 1;
    for (std::size_t index = first; index < end; ++index) {
        level += LevelStep(tokens_.Text(index));
        const GeneratedPiece* const known = wanted_.Known(tokens_[index]);
        const bool mayBegin = known != nullptr ? known->section == CodeSection::Fields
                                               : tokens_.IsWord(index) && MayBegin(tokens_, index);
        if (!mayBegin)
            continue;
        if (level != 1 && (section == CodeSection::Methods ||
                           (frame.inOrder && Indent(tokens_, index) != Indent(tokens_, frame.constructor))))
            continue;
        // A half-written line above may end in a word that reads like a modifier.
        if (IsModifier(tokens_.Text(index)) && tokens_.StartsLine(index + 1))
            continue;
        if (known != nullptr) {
            const std::string_view javaClass = known->code.substr(0, known->code.find(' '));
            AddField({javaClass, known->key.object, index, true}, level, index, index + 1, &known->key);
            continue;
        }
        std::size_t behind = index;
        for (const SourceDeclaration& declaration : ReadDeclarations(tokens_, index, behind))
            AddField(declaration, level, index, behind, nullptr);
    }
}

/// The key is that of a known declaration, null for another one.
void ExistingCode::AddField(const SourceDeclaration& declaration, int level, std::size_t firstToken,
                            std::size_t endToken, const CodeKey* key) {
    ExistingField field;
    field.javaClass = declaration.javaClass;
    field.depth = level;
    field.form = FormOf(declaration.javaClass);
    field.alone = declaration.alone && field.form != nullptr;
    field.hasValue = declaration.hasValue;
    field.firstToken = firstToken;
    if (key != nullptr)
        field.wantedClass = field.javaClass;
    else if (const std::string_view* const wanted = wanted_.fields.Find(declaration.name))
        field.wantedClass = *wanted;
    if (!field.alone && field.wantedClass.empty())
        return;
    const auto [entry, isNew] = fields.Add(declaration.name, field);
    ExistingField& before = entry->value;
    if (!isNew && before.depth == level && level == 1)
        Refuse(tokens_, declaration.token,
               Concatenate("Das Feld ", declaration.name, " ist zweimal deklariert, zuerst in Zeile ",
                           LineOf(tokens_, before.firstToken), "."));
    if (!isNew && level >= before.depth)
        return;
    before = field;
    if (!field.alone)
        return;
    ExistingPiece& piece = AddPiece(key != nullptr ? key : Keep({declaration.name, members::field, {}}),
                                    CodeSection::Fields, firstToken, endToken);
    piece.field = static_cast<std::uint32_t>(entry - &fields[0]);
    piece.isKnown = key != nullptr;
}

/// The form of a class, if that is one of Pirol's; mostly that of the field before.
const ClassForm* ExistingCode::FormOf(std::string_view javaClass) {
    if (lastForm_ == nullptr || lastForm_->first != javaClass) {
        const auto form = ClassForms().find(javaClass);
        if (form == ClassForms().end())
            return nullptr;
        lastForm_ = &*form;
    }
    return &lastForm_->second;
}

void ExistingCode::ReadConstructor() {
    bool mentionsConnection = false;
    bool hasBlock = false;
    for (std::size_t index = frame.constructorOpen + 1; index < frame.constructorEnd;) {
        mentionsConnection |= tokens_.Is(index, connectMethod);
        const std::size_t before = pieces.size();
        const std::size_t next = MayBegin(tokens_, index) ? ReadConstructorStatement(index) : index + 1;
        hasBlock |= pieces.size() > before && pieces[before].key->member == members::block;
        index = next;
    }
    ownDatabaseBlock = mentionsConnection && !hasBlock;
}

void ExistingCode::AddKnown(std::size_t token, const GeneratedPiece& wanted) {
    const bool isCreation = wanted.key.member == members::assignment && wanted.key.detail.empty();
    std::uint32_t field = FindField(wanted.key.object);
    if (field == noField && isCreation)
        field = AddUndeclared(wanted.key.object, token);
    if (field == noField)
        return;
    fields[field].value.createdAsForm |= isCreation;
    ExistingPiece& piece = AddPiece(&wanted.key, CodeSection::Constructor, token, token + 1);
    piece.field = field;
    piece.isKnown = true;
}

/// A component whose declaration was taken out: its statements are Pirol's all the same, or it would be made twice.
std::uint32_t ExistingCode::AddUndeclared(std::string_view name, std::size_t token) {
    const std::string_view* const wanted = wanted_.fields.Find(name);
    if (wanted == nullptr)
        return noField;
    ExistingField field;
    field.javaClass = field.wantedClass = *wanted;
    field.form = FormOf(*wanted);
    field.alone = true;
    field.firstToken = token;
    fields.Add(name, field);
    return FindField(name);
}

std::size_t ExistingCode::ReadConstructorStatement(std::size_t index) {
    if (const GeneratedPiece* const known = wanted_.Known(tokens_[index])) {
        if (known->section == CodeSection::Constructor)
            AddKnown(index, *known);
        return index + 1;
    }
    if (tokens_.Are(index, "if", "(", connectMethod, "(", ")", ")")) {
        ReadDatabaseBlock(index);
        return index + 1;
    }
    if (tokens_.Are(index, resultList, "=", "null", ";")) {
        AddPiece(Keep({resultList, members::assignment, "null;"}), CodeSection::Constructor, index, index + 4);
        return index + 4;
    }
    callsThis |= tokens_.Are(index, "this", "(");
    const bool isSuper = tokens_.Is(index, superCall);
    const std::uint32_t field = isSuper ? noField : FindField(tokens_.Text(index));
    if (isSuper || field != noField)
        if (const std::optional<SourceStatement> statement = ReadStatement(tokens_, index))
            return AddStatement(index, *statement, field);
    return index + 1;
}

/// Mostly the one that the statement before was about, or the next.
std::uint32_t ExistingCode::FindField(std::string_view name) {
    for (const std::uint32_t number : {lastField_, lastField_ + 1})
        if (number < fields.Size() && fields[number].name == name)
            return lastField_ = number;
    const std::uint32_t number = fields.NumberOf(name);
    return number == noField ? noField : lastField_ = number;
}

std::size_t ExistingCode::AddStatement(std::size_t first, const SourceStatement& statement, std::uint32_t number) {
    ExistingField* const field = number == noField ? nullptr : &fields[number].value;
    const std::string& kinds = statement.arguments.kinds;
    CodeKey key{statement.assigned, members::assignment, {}};
    bool asForm = true;
    if (field == nullptr) {
        key = {statement.method, {}, {}};
    } else if (!statement.createdClass.empty()) {
        if (field->form == nullptr || field->javaClass != statement.createdClass)
            return first + 1;
        asForm = field->form->creation == kinds;
        field->createdAsForm |= asForm;
    } else if (!statement.assigned.empty()) {
        if (statement.assigned != subMenu || statement.method != "neuesUntermenue" || kinds != "s")
            return first + 1;
        // As the generator writes it, whatever blanks the pupil put in.
        key.detail = details_.emplace_back(
            Concatenate(statement.object, ".", statement.method, "(", tokens_.Text(statement.arguments.First()), ");"));
    } else {
        // The database's calls belong to its block.
        if (statement.object == database || field->form == nullptr)
            return first + 1;
        const auto call = field->form->calls.find(statement.method);
        if (call == field->form->calls.end())
            return first + 1;
        asForm = call->second == kinds;
        key = {statement.object, statement.method, {}};
        if (IsListMethod(statement.method))
            key.detail = tokens_.Text(statement.arguments.Last());
    }
    ExistingPiece& piece = AddPiece(Keep(key), CodeSection::Constructor, first, statement.end);
    piece.field = number;
    piece.asForm = asForm;
    piece.isOdd = kinds == "?";
    piece.firstArgument = static_cast<std::uint32_t>(statement.arguments.First());
    piece.lastArgument = static_cast<std::uint32_t>(statement.arguments.Last());
    return statement.end;
}

void ExistingCode::ReadDatabaseBlock(std::size_t first) {
    std::size_t open = tokens_.Is(first + 6, "{") ? first + 6 : 0;
    std::size_t query = 0;
    std::size_t result = 0;
    std::size_t close = 0;
    int level = open == 0 ? 0 : 1;
    // Among braces that do not match, ours are those as far left as the "if" and alone in their lines.
    const auto isOurs = [&](std::size_t index) {
        const std::size_t end = tokens_[index].end;
        return tokens_.StartsLine(index) && Indent(tokens_, index) == Indent(tokens_, first) &&
               IsBlank(source_.substr(end, EndOfLine(source_, end) - end));
    };
    for (std::size_t index = first + 7; index < frame.constructorEnd && close == 0; ++index) {
        const int step = LevelStep(tokens_.Text(index));
        level += step;
        if (step > 0 && open == 0 && isOurs(index))
            open = index;
        else if (tokens_.Are(index, database, ".", "sendeSQL", "(") && tokens_.Are(index + 5, ")", ";"))
            query = index;
        else if (query != 0 && tokens_.Are(index, resultList, "=", database, ".", "ergebnis", "(", ")", ";"))
            result = index;
        else if (step < 0 && result != 0 && (frame.inOrder ? level == 0 : isOurs(index)))
            close = index;
    }
    if (open == 0 || open > query || close == 0)
        return;
    AddPiece(Keep({"if", members::block, {}}), CodeSection::Constructor, first, first + 6);
    AddPiece(Keep({"{", members::block, {}}), CodeSection::Constructor, open, open + 1);
    AddPiece(Keep({database, "sendeSQL", {}}), CodeSection::Constructor, query, query + 7);
    AddPiece(Keep({resultList, members::assignment, "hatDatenbank.ergebnis();"}), CodeSection::Constructor, result,
             result + 8);
    AddPiece(Keep({"}", members::block, {}}), CodeSection::Constructor, close, close + 1);
}

/// Takes the comments of ours that begin before a position, so that all pieces come in the order of the source.
void ExistingCode::ReadComments(std::size_t limit) {
    const std::vector<SourceComment>& comments = tokens_.LineComments();
    for (; nextComment_ < comments.size() && comments[nextComment_].begin < limit; ++nextComment_) {
        const SourceComment& comment = comments[nextComment_];
        const std::string_view text = Stripped(source_.substr(comment.begin, comment.end - comment.begin));
        ExistingPiece piece;
        CodeKey key{text, members::comment, {}};
        piece.begin = static_cast<std::uint32_t>(comment.begin);
        piece.end = static_cast<std::uint32_t>(comment.begin + text.size());
        if (text == "//import sum.werkzeuge.*;")
            key = {{}, members::import, toolsPackage};
        else if (text == fieldsComment)
            piece.section = CodeSection::Fields;
        else if (text == superComment)
            piece.section = CodeSection::Constructor;
        else if (text.ends_with(proposalEnd)) {
            piece.section = CodeSection::Constructor;
            key = {text.substr(2, text.size() - 2 - proposalEnd.size()), members::proposal, {}};
        } else
            continue;
        const ClassFrame::Region& region = frame.regions[static_cast<std::size_t>(piece.section)];
        if (piece.begin < region.begin || piece.end > region.end)
            continue;
        piece.firstToken = piece.endToken = static_cast<std::uint32_t>(tokens_.From(piece.begin));
        piece.key = Keep(key);
        pieces.push_back(piece);
    }
}

void ExistingCode::DecideFields() {
    for (auto& [name, field] : fields) {
        field.owned = IsOwned(name, field);
        if (field.wantedClass.empty() || field.wantedClass == field.javaClass || field.owned)
            continue;
        Refuse(tokens_, field.firstToken,
               Concatenate("Hier ist ", name, " ein eigenes Feld der Klasse ", field.javaClass,
                           "; im Entwurf heißt so ein Objekt der Klasse ", field.wantedClass, "."));
    }
}

bool ExistingCode::IsOwned(std::string_view name, const ExistingField& field) const {
    const bool isWanted = field.wantedClass == field.javaClass ||
                          (Contains(textAreas, field.wantedClass) && Contains(textAreas, field.javaClass));
    if (field.javaClass == databaseClass || field.javaClass == resultClass)
        return blocks_.database && (isWanted || (field.alone && (name == database || name == resultList)));
    if (field.javaClass == menuClass)
        return blocks_.menu && (isWanted || (field.alone && (name == subMenu || field.createdAsForm)));
    return isWanted || (field.alone && field.createdAsForm);
}

void ExistingCode::KeepOwnedPieces() {
    std::erase_if(pieces, [this](const ExistingPiece& piece) { return !IsOwned(piece); });
}

bool ExistingCode::IsOwned(const ExistingPiece& piece) {
    const std::string_view member = piece.key->member;
    if (member == members::block)
        return blocks_.database;
    if (member == members::import || member == members::comment || piece.key->object == superCall)
        return true;
    const std::uint32_t number = piece.field != noField ? piece.field : fields.NumberOf(piece.key->object);
    if (number == noField || !fields[number].value.owned)
        return false;
    if (member == members::field)
        return fields[number].value.alone && fields[number].value.firstToken == piece.firstToken;
    if (piece.isKnown || piece.field == noField)
        return true;
    if (member == members::assignment || member == members::proposal)
        return !piece.isOdd || IsAsWanted(piece);
    return IsOwnedCall(piece) || IsAsWanted(piece);
}

bool ExistingCode::IsOwnedCall(const ExistingPiece& piece) const {
    const std::string_view method = piece.key->member;
    if (!piece.asForm)
        return false;
    if (method.starts_with(registration))
        return TextOf(tokens_, piece.firstArgument) ==
               Concatenate(piece.key->object, method.substr(registration.size()));
    if (method == "fuegeEin") {
        const ExistingField* const button = fields.Find(piece.key->detail);
        return button != nullptr && button->owned && button->javaClass == radioButtonClass;
    }
    // A line that he put into our menu has a handler that we would not have named so.
    if (method == "haengeZeileAn")
        return TextOf(tokens_, piece.lastArgument).ends_with(cMenu::CleanString(TextOf(tokens_, piece.firstArgument)));
    return true;
}

bool ExistingCode::IsAsWanted(const ExistingPiece& piece) {
    if (wantedCodes_.empty())
        for (const GeneratedPiece& wanted : wanted_.pieces)
            wantedCodes_.insert(wanted.code);
    return wantedCodes_.contains(source_.substr(piece.begin, piece.end - piece.begin));
}

void ExistingCode::CollectRegistered() {
    for (const ExistingPiece& piece : pieces) {
        const bool isMenu = piece.key->member == "haengeZeileAn";
        if (piece.isKnown || (!isMenu && !piece.key->member.starts_with(registration)))
            continue; // what is as wanted registers a wanted handler
        Registration& by = registered.Add(TextOf(tokens_, piece.lastArgument), Registration::Component).first->value;
        if (isMenu)
            by = Registration::Menu;
    }
}

void ExistingCode::ReadMethods() {
    ExistingMethods methods(tokens_, wanted_, frame, registered);
    methods.FindMentions(pieces);
    needsDatabaseImport = methods.MentionsDatabase();
    methods.ForEach([this](const ExistingMethod& method) {
        const bool owned = method.generated && (method.isQuery ? blocks_.database : !method.mentioned);
        if (!owned) {
            ownMethods.Add(method.name, tokens_[method.firstToken].begin);
            return;
        }
        const GeneratedPiece* const known = wanted_.Known(tokens_[method.firstToken]);
        ExistingPiece& piece = AddPiece(known != nullptr ? &known->key : Keep({method.name, members::method, {}}),
                                        CodeSection::Methods, method.firstToken, method.endToken);
        piece.isKnown = known != nullptr;
    });
}

/// Mostly they are so already.
void ExistingCode::PutInOrder() {
    const auto isBefore = [](const ExistingPiece& left, const ExistingPiece& right) {
        return left.begin < right.begin;
    };
    if (!std::is_sorted(pieces.begin(), pieces.end(), isBefore))
        std::stable_sort(pieces.begin(), pieces.end(), isBefore);
}

/// Of two pieces that a half-written source makes overlap the first counts.
void ExistingCode::DropOverlaps() {
    std::size_t end = 0;
    std::erase_if(pieces, [&end](const ExistingPiece& piece) {
        if (piece.begin < end)
            return true;
        end = piece.end;
        return false;
    });
}

} // namespace pirol
