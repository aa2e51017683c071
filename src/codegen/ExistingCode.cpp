#include "codegen/ExistingCode.h"

#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "codegen/SourceLines.h"

#include <algorithm>

namespace pirol {
namespace {

constexpr std::string_view baseClass = "EBAnwendung";
constexpr std::string_view menuClass = "Menue";
constexpr std::string_view databaseClass = "Datenbank";
constexpr std::string_view resultClass = "SQLErgebnisliste";
constexpr std::string_view radioButtonClass = "Radioknopf";
constexpr std::string_view packages[] = {"ereignis", "komponenten", "multimedia", databasePackage, toolsPackage};
/// Methods that the generator calls and pupils anywhere, too.
constexpr std::string_view commonMethods[] = {"haengeAn", "schalteAn", "setzeInhalt", "setzeWert"};
constexpr std::string_view textAreas[] = {"Zeichenbereich", "Zeilenbereich"};
/// Far more than any program has; what a file made for it could ask for ends here.
constexpr std::size_t mostPieces = std::size_t{1} << 21U;
/// A class's head is not longer, and what half-written lines put into a constructor's head.
constexpr std::size_t longestHead = 40;
constexpr std::size_t mostTokensBetween = 400;

template <class Texts>
bool Contains(const Texts& texts, std::string_view text) {
    return std::find(std::begin(texts), std::end(texts), text) != std::end(texts);
}

/// What stands between the quotes of a literal.
std::string_view TextOf(const SourceTokens& tokens, std::size_t literal) {
    const std::string_view text = tokens.Text(literal);
    return text.size() < 2 ? std::string_view() : text.substr(1, text.size() - 2);
}

/// The database's methods as generated, with "?" for every setting.
const SourceTokens& Queries() {
    static const std::string code = [] {
        SQLSettings settings{"?", "?", "?", "?", "?", {}};
        settings.Flags.fill(1);
        return GenerateSQLMethods(settings);
    }();
    static const SourceTokens tokens(code, SourceTokens::Comments::WithinLines);
    return tokens;
}

/// The token with the name of a query in Queries(), or its count.
std::size_t FindQuery(std::string_view name) {
    static const std::unordered_map<std::string_view, std::size_t> names = [] {
        std::unordered_map<std::string_view, std::size_t> found;
        for (std::size_t index = 0; index < Queries().Count(); ++index)
            if (IsMethodHead(Queries(), index, {}))
                found.emplace(Queries().Text(index), index);
        return found;
    }();
    const auto place = names.find(name);
    return place == names.end() ? Queries().Count() : place->second;
}

/// All methods that the generator calls.
const std::unordered_set<std::string_view>& GeneratedCalls() {
    static const std::unordered_set<std::string_view> calls = [] {
        std::unordered_set<std::string_view> all = {"sendeSQL"};
        for (const auto& [javaClass, form] : ClassForms())
            for (const auto& [method, kinds] : form.calls)
                all.insert(method);
        return all;
    }();
    return calls;
}

} // namespace

UpdateRefusal::UpdateRefusal(std::size_t line, std::string_view message)
    : std::runtime_error(Concatenate("Zeile ", line, ": ", message)), line_(line) {}

CodeOptions HeldBlocks(const SourceTokens& tokens) {
    CodeOptions held;
    for (std::size_t index = 2; index < tokens.Count(); ++index) {
        if (!tokens.Is(index, ";"))
            continue;
        held.menu |= tokens.Are(index - 2, menuClass, subMenu);
        held.database |= tokens.Are(index - 2, databaseClass, database);
    }
    return held;
}

CodeOptions SeeminglyHeldBlocks(std::string_view source) {
    constexpr std::size_t mostBlanks = 80;
    const auto isDeclared = [source](std::string_view javaClass, std::string_view name) {
        for (std::size_t hit = source.find(javaClass); hit != std::string_view::npos;
             hit = source.find(javaClass, hit + 1)) {
            const std::string_view behind = Stripped(source.substr(hit + javaClass.size(), mostBlanks));
            if (behind.starts_with(name) && Stripped(behind.substr(name.size())).starts_with(';'))
                return true;
        }
        return false;
    };
    return {isDeclared(menuClass, subMenu), isDeclared(databaseClass, database)};
}

ExistingCode::ExistingCode(const SourceTokens& tokens, const GeneratedCode& wanted, CodeOptions blocks)
    : tokens_(tokens), source_(tokens.Source()), wanted_(wanted), blocks_(blocks) {
    pieces.reserve(wanted.pieces.size() + wanted.pieces.size() / 8);
    fields.Reserve(wanted.fields.Size());
    FindClass();
    FindConstructor();
    FindConstructorEnd();
    FindClassEnd();
    SetRegions();
    ReadImports();
    ReadFields(classOpen_ + 1, constructor_, CodeSection::Fields);
    ReadFields(constructorEnd_ + (constructorCloses_ ? 1 : 0), classEnd_, CodeSection::Methods);
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

// --- where things are ---

void ExistingCode::FindClass() {
    int balance = 0;
    bool found = false;
    for (std::size_t index = 0; index < tokens_.Count(); ++index) {
        balance += LevelStep(tokens_.Text(index));
        if (!tokens_.Is(index, "class") || !tokens_.IsWord(index + 1))
            continue;
        std::size_t at = index + 2;
        while (at < index + longestHead && LevelStep(tokens_.Text(at)) == 0 && !tokens_.Is(at, "extends"))
            ++at;
        while (tokens_.Is(at + 2, "."))
            at += 2;
        if (!tokens_.Is(at + 1, baseClass))
            continue;
        if (found)
            Refuse(index, "Mehr als eine Klasse erweitert EBAnwendung.");
        found = true;
        classToken_ = index;
        className_ = tokens_.Text(index + 1);
        classOpen_ = at + 1;
        for (std::size_t ahead = at + 2; ahead < at + longestHead; ++ahead)
            if (tokens_.Is(ahead, "{")) {
                classOpen_ = ahead;
                break;
            }
    }
    if (!found)
        throw UpdateRefusal(1, "Es gibt keine Klasse, die EBAnwendung erweitert.");
    bracesMatch_ = balance == 0;
}

void ExistingCode::FindConstructor() {
    int level = 1;
    int foundLevel = 0;
    for (std::size_t index = classOpen_ + 1; index < tokens_.Count(); ++index) {
        level += LevelStep(tokens_.Text(index));
        if (!tokens_.Is(index, className_) || !tokens_.Are(index + 1, "(", ")"))
            continue;
        const bool begins = MayBegin(tokens_, index) || IsModifier(tokens_.Text(index - 1));
        if (!begins || tokens_.Is(index - 1, "new") || tokens_.Is(index + 3, ";") || tokens_.Is(index + 3, "."))
            continue;
        if (constructor_ != 0 && level == foundLevel)
            Refuse(index, Concatenate("Der Konstruktor ", className_, "() steht zweimal da, zuerst in Zeile ",
                                      LineOf(constructor_), "."));
        if (constructor_ != 0 && level > foundLevel)
            continue;
        constructor_ = index;
        foundLevel = level;
    }
    if (constructor_ == 0)
        Refuse(classToken_, Concatenate("Die Klasse ", className_, " hat keinen Konstruktor ohne Parameter."));
    FindConstructorOpen();
    inOrder_ = foundLevel == 1;
}

/// The brace behind the head; where lines were put in between, the first one as far left that no other head precedes.
void ExistingCode::FindConstructorOpen() {
    constructorOpen_ = constructor_ + 2;
    const bool hasThrows = tokens_.Is(constructor_ + 3, "throws");
    for (std::size_t ahead = constructor_ + 3; ahead < constructor_ + mostTokensBetween; ++ahead) {
        if (tokens_.Are(ahead, superCall, "("))
            return;
        if (!tokens_.Is(ahead, "{"))
            continue;
        const bool isSure = ahead == constructor_ + 3 || hasThrows;
        if (isSure || (tokens_[ahead].startsLine != 0 && Indent(ahead) == Indent(constructor_)))
            constructorOpen_ = ahead;
        if (isSure || (constructorOpen_ == ahead && !tokens_.Is(ahead - 1, ")")))
            return;
    }
}

/// The brace that closes the constructor's first one, if nothing speaks against it: none of our methods begins before,
/// no statement of ours stands between it and the next of our methods outside any braces, and the class has one left.
void ExistingCode::FindConstructorEnd() {
    int level = 1;
    std::size_t closing = 0;
    std::size_t index = constructorOpen_ + 1;
    std::size_t outerBrace = 0; // another one that stands where the closing one should
    bool trusted = true;
    bool isKnown = false;
    bool isInMethod = false;
    for (; index < tokens_.Count() && trusted && level >= 0 && !isKnown; ++index) {
        const int step = LevelStep(tokens_.Text(index));
        level += step;
        RememberHandler(index);
        const auto isStatement = [&] { return LooksLikeStatement(index) || LooksLikeCall(index); };
        isKnown = IsKnownHead(index);
        if (closing != 0) {
            isInMethod = isInMethod || IsMethodHead(tokens_, index, className_);
            trusted = (level != 0 && isInMethod) || !isStatement();
            continue;
        }
        trusted = !isKnown;
        if (step < 0 && level == 0)
            closing = index;
        else if (step < 0 && tokens_[index].startsLine != 0 && Indent(index) == Indent(constructor_))
            outerBrace = index;
        else if (outerBrace != 0 && isStatement())
            outerBrace = 0;
    }
    for (const bool classEnded = level < 0; classEnded && trusted && index < tokens_.Count(); ++index)
        trusted = !IsKnownHead(index);
    trusted = trusted && closing != 0 && (level < 0 || isKnown) &&
              ((bracesMatch_ && inOrder_ && outerBrace == 0) || Indent(closing) == Indent(constructor_));
    inOrder_ = inOrder_ && trusted;
    constructorEnd_ = closing;
    if (!trusted)
        FindBrokenConstructorEnd();
}

/// Where braces do not tell: behind the last statement of ours and before the next method, the first brace as far left
/// as the constructor's head, or else the last one that begins a line.
void ExistingCode::FindBrokenConstructorEnd() {
    std::size_t lowest = constructorOpen_;
    std::size_t limit = constructorOpen_ + 1;
    std::size_t ownHead = 0;
    std::size_t outerBrace = 0;
    std::size_t block = 0; // the database's "if" until it closes
    std::size_t lastBrace = tokens_.Count();
    for (; limit < tokens_.Count() && !IsKnownHead(limit); ++limit) {
        if (tokens_.Is(limit, "}")) {
            lastBrace = limit;
            if (tokens_[limit].startsLine != 0 && Indent(limit) == Indent(constructor_))
                outerBrace = limit;
        }
        RememberHandler(limit);
        if (tokens_.Are(limit, "if", "(", connectMethod))
            block = limit;
        const bool closesBlock =
            block != 0 && tokens_.Is(limit, "}") && tokens_[limit].startsLine != 0 && Indent(limit) == Indent(block);
        if (closesBlock)
            block = 0;
        if (closesBlock || LooksLikeStatement(limit)) {
            lowest = limit;
            ownHead = 0; // it stands in the constructor, where no method should
        } else if (ownHead == 0 && outerBrace > lowest && IsMethodHead(tokens_, limit, className_)) {
            ownHead = limit;
        }
    }
    limit = ownHead != 0 ? ownHead : limit;
    limit = limit < tokens_.Count() ? FirstOfHead(limit) : std::max(lastBrace, lowest + 1);
    constructorEnd_ = limit;
    constructorCloses_ = false;
    for (std::size_t index = limit; index-- > lowest + 1;) {
        if (!tokens_.Is(index, "}") || tokens_[index].startsLine == 0)
            continue;
        if (!constructorCloses_ || Indent(index) == Indent(constructor_))
            constructorEnd_ = index;
        constructorCloses_ = true;
    }
}

void ExistingCode::FindClassEnd() {
    int level = 1;
    classEnd_ = tokens_.Count();
    std::size_t lastBrace = tokens_.Count();
    for (std::size_t index = constructorEnd_ + (constructorCloses_ ? 1 : 0); index < tokens_.Count(); ++index) {
        const int step = LevelStep(tokens_.Text(index));
        level += step;
        if (step >= 0)
            continue;
        lastBrace = index;
        if (level != 0)
            continue;
        std::size_t next = index + 1;
        while (IsModifier(tokens_.Text(next)))
            ++next;
        if (next == tokens_.Count() ||
            Contains(std::array<std::string_view, 4>{"class", "interface", "enum", "@"}, tokens_.Text(next))) {
            classEnd_ = index;
            return;
        }
    }
    inOrder_ = false;
    classEnd_ = lastBrace;
}

bool ExistingCode::IsKnownHead(std::size_t index) {
    if (const GeneratedPiece* const known = wanted_.Known(tokens_[index]))
        return known->section == CodeSection::Methods;
    if (!tokens_.Is(index + 1, "(") || index < 2 || tokens_.Is(index - 1, "."))
        return false;
    const std::string_view name = tokens_.Text(index);
    if (!tokens_.Is(index - 1, "void"))
        return tokens_.Is(index - 2, "public") && FindQuery(name) < Queries().Count();
    return tokens_.Is(index + 2, ")") && !tokens_.Is(index + 3, ";") &&
           (wanted_.methods.Contains(name) || IsNamedHandler(name));
}

/// Remembers a statement that registers a handler: that one's head ends the constructor.
void ExistingCode::RememberHandler(std::size_t index) {
    if (!tokens_.Is(index, "(") || index < 2 || !tokens_.Is(index - 2, "."))
        return;
    if (tokens_.Text(index - 1).starts_with(registration))
        handlerTokens_.push_back(index + 1);
    else if (tokens_.Is(index - 1, "haengeZeileAn") && tokens_.Is(index + 2, ","))
        handlerTokens_.push_back(index + 3);
}

bool ExistingCode::IsNamedHandler(std::string_view name) {
    for (; !handlerTokens_.empty(); handlerTokens_.pop_back())
        namedHandlers_.insert(Literal(handlerTokens_.back()));
    return namedHandlers_.contains(name);
}

bool ExistingCode::LooksLikeStatement(std::size_t index) const {
    if (const GeneratedPiece* const known = wanted_.Known(tokens_[index]))
        return known->section == CodeSection::Constructor;
    if (!MayBegin(tokens_, index))
        return false;
    if (tokens_.Are(index + 1, "=", "new"))
        return ClassForms().contains(tokens_.Text(index + 3));
    return (LooksLikeCall(index) && !Contains(commonMethods, tokens_.Text(index + 2))) ||
           tokens_.Are(index, resultList, "=", database) || tokens_.Are(index, subMenu, "=");
}

/// Whether a statement begins that the generator may have written, or a pupil anywhere.
bool ExistingCode::LooksLikeCall(std::size_t index) const {
    if (!MayBegin(tokens_, index))
        return false;
    if (tokens_.Is(index + 1, ".") && tokens_.Is(index + 3, "("))
        return GeneratedCalls().contains(tokens_.Text(index + 2));
    return tokens_.Are(index, "if", "(", connectMethod) || tokens_.Are(index, superCall, "(");
}

/// How many blanks and tabs stand before the first word of a head, or before a brace.
std::size_t ExistingCode::Indent(std::size_t index) const {
    const std::size_t begin = tokens_[FirstOfHead(index)].begin;
    return begin - LineStart(begin, 0);
}

std::size_t ExistingCode::FirstOfHead(std::size_t index) const {
    while (index > 0 && tokens_[index].startsLine == 0 && tokens_.IsWord(index - 1))
        --index;
    return index;
}

void ExistingCode::SetRegions() {
    const auto positionOf = [this](std::size_t token) {
        return token < tokens_.Count() ? tokens_[token].begin : source_.size();
    };
    Region& imports = regions[static_cast<std::size_t>(CodeSection::Imports)];
    imports.end = AboveComments(LineStart(positionOf(FirstOfHead(classToken_)), 0), 0);
    Region& declarations = regions[static_cast<std::size_t>(CodeSection::Fields)];
    declarations.begin = BehindToken(classOpen_);
    declarations.end =
        AboveComments(LineStart(positionOf(FirstOfHead(constructor_)), declarations.begin), declarations.begin);
    Region& statements = regions[static_cast<std::size_t>(CodeSection::Constructor)];
    statements.begin = BehindToken(constructorOpen_);
    statements.end = LineStart(positionOf(constructorEnd_), statements.begin);
    Region& methods = regions[static_cast<std::size_t>(CodeSection::Methods)];
    methods.begin = statements.end;
    if (constructorCloses_) {
        methods.begin = BehindToken(constructorEnd_);
        const std::size_t behind = BehindLine(source_, methods.begin);
        if (behind <= positionOf(constructorEnd_ + 1) && behind < source_.size() &&
            IsLineEnd(source_[methods.begin - 1]) && IsBlank(source_.substr(methods.begin, behind - methods.begin)))
            methods.begin = behind;
    }
    methods.end = LineStart(positionOf(classEnd_), methods.begin);
}

/// Behind a token's line when nothing else stands in it, and directly behind the token otherwise.
std::size_t ExistingCode::BehindToken(std::size_t index) const {
    const std::size_t end = tokens_[index].end;
    const std::size_t endOfLine = EndOfLine(source_, end);
    const bool isLast = index + 1 >= tokens_.Count() || tokens_[index + 1].begin >= endOfLine;
    return isLast ? BehindLine(source_, end) : end;
}

/// The beginning of the line when only blanks stand before the position.
std::size_t ExistingCode::LineStart(std::size_t position, std::size_t lowest) const {
    std::size_t start = position;
    while (start > lowest && (source_[start - 1] == ' ' || source_[start - 1] == '\t'))
        --start;
    return start == lowest || IsLineEnd(source_[start - 1]) ? start : position;
}

/// The empty line above a head, with the comments between them: a new declaration must not come between a comment and
/// what it is about.
std::size_t ExistingCode::AboveComments(std::size_t position, std::size_t lowest) const {
    std::size_t line = position;
    while (line > lowest && IsLineEnd(source_[line - 1])) {
        std::size_t before = line - (source_.substr(0, line).ends_with("\r\n") ? 2 : 1);
        while (before > lowest && !IsLineEnd(source_[before - 1]))
            --before;
        const std::string_view text = Stripped(source_.substr(before, line - before));
        if (text.empty())
            return before;
        const bool isOurs = text == fieldsComment || text.starts_with("//import");
        if (isOurs ||
            !(text.starts_with("//") || text.starts_with("/*") || text.starts_with('*') || text.starts_with('@')))
            break;
        line = before;
    }
    return position;
}

// --- what is Pirol's ---

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
    for (std::size_t index = 0; index < classToken_; ++index)
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
        if (level != 1 && (section == CodeSection::Methods || (inOrder_ && Indent(index) != Indent(constructor_))))
            continue;
        // A half-written line above may end in a word that reads like a modifier.
        if (IsModifier(tokens_.Text(index)) && index + 1 < end && tokens_[index + 1].startsLine != 0)
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
        Refuse(declaration.token,
               Concatenate("Das Feld ", declaration.name, " ist zweimal deklariert, zuerst in Zeile ",
                           LineOf(before.firstToken), "."));
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
    for (std::size_t index = constructorOpen_ + 1; index < constructorEnd_;) {
        mentionsConnection |= tokens_.Is(index, connectMethod);
        const std::size_t before = pieces.size();
        const std::size_t next = MayBegin(tokens_, index) ? ReadConstructorStatement(index) : index + 1;
        hasBlock |= pieces.size() > before && pieces[before].key->member == members::block;
        index = next;
    }
    ownDatabaseBlock = mentionsConnection && !hasBlock;
}

void ExistingCode::AddKnown(std::size_t token, const GeneratedPiece& wanted) {
    const std::uint32_t field = FindField(wanted.key.object);
    if (field == noField)
        return;
    if (wanted.key.member == members::assignment && wanted.key.detail.empty())
        fields[field].value.createdAsForm = true;
    ExistingPiece& piece = AddPiece(&wanted.key, CodeSection::Constructor, token, token + 1);
    piece.field = field;
    piece.isKnown = true;
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
        const std::size_t value = tokens_[first + 2].begin;
        key.detail = source_.substr(value, tokens_[statement.end - 1].end - value);
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
        return tokens_[index].startsLine != 0 && Indent(index) == Indent(first) &&
               IsBlank(source_.substr(end, EndOfLine(source_, end) - end));
    };
    for (std::size_t index = first + 7; index < constructorEnd_ && close == 0; ++index) {
        const int step = LevelStep(tokens_.Text(index));
        level += step;
        if (step > 0 && open == 0 && isOurs(index))
            open = index;
        else if (tokens_.Are(index, database, ".", "sendeSQL", "(") && tokens_.Are(index + 5, ")", ";"))
            query = index;
        else if (query != 0 && tokens_.Are(index, resultList, "=", database, ".", "ergebnis", "(", ")", ";"))
            result = index;
        else if (step < 0 && result != 0 && (inOrder_ ? level == 0 : isOurs(index)))
            close = index;
    }
    if (open == 0 || open > query)
        return;
    if (query == 0 || result == 0 || close == 0)
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
        const Region& region = regions[static_cast<std::size_t>(piece.section)];
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
        Refuse(field.firstToken, Concatenate("Hier ist ", name, " ein eigenes Feld der Klasse ", field.javaClass,
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
        return Literal(piece.firstArgument) == Concatenate(piece.key->object, method.substr(registration.size()));
    if (method == "fuegeEin") {
        const ExistingField* const button = fields.Find(piece.key->detail);
        return button != nullptr && button->owned && button->javaClass == radioButtonClass;
    }
    // A line that he put into our menu has a handler that we would not have named so.
    if (method == "haengeZeileAn")
        return Literal(piece.lastArgument).ends_with(cMenu::CleanString(Literal(piece.firstArgument)));
    return true;
}

bool ExistingCode::IsAsWanted(const ExistingPiece& piece) {
    if (wantedCodes_.empty())
        for (const GeneratedPiece& wanted : wanted_.pieces)
            wantedCodes_.insert(wanted.code);
    return wantedCodes_.contains(source_.substr(piece.begin, piece.end - piece.begin));
}

std::string_view ExistingCode::Literal(std::size_t token) const {
    return TextOf(tokens_, token);
}

void ExistingCode::CollectRegistered() {
    registered.Reserve(wanted_.methods.Size());
    for (const ExistingPiece& piece : pieces) {
        const bool isMenu = piece.key->member == "haengeZeileAn";
        if (!isMenu && !piece.key->member.starts_with(registration))
            continue;
        std::string_view handler = Literal(piece.lastArgument);
        if (piece.isKnown) {
            const std::string_view code = source_.substr(piece.begin, piece.end - piece.begin);
            const std::size_t end = std::min(code.rfind('"'), code.size() - 1);
            const std::size_t begin = code.substr(0, end).rfind('"') + 1;
            handler = code.substr(begin, end - begin);
        }
        Registration& registration = registered.Add(handler, Registration::Component).first->value;
        if (isMenu)
            registration = Registration::Menu;
    }
}

// --- methods ---

void ExistingCode::ReadMethods() {
    methodOf_.Reserve(wanted_.methods.Size());
    methods_.reserve(wanted_.methods.Size());
    ReadMethods(classOpen_ + 1, constructor_);
    ReadMethods(constructorEnd_ + (constructorCloses_ ? 1 : 0), classEnd_);
    FindMentions();
    for (const auto& [name, number] : methodOf_) {
        const Method& method = methods_[number];
        const bool owned = method.generated && (method.isQuery ? blocks_.database : !method.mentioned);
        const GeneratedPiece* const known = wanted_.Known(tokens_[method.firstToken]);
        if (owned)
            AddPiece(known != nullptr ? &known->key : Keep({name, members::method, {}}), CodeSection::Methods,
                     method.firstToken, method.endToken)
                .isKnown = known != nullptr;
        else
            ownMethods.Add(name, tokens_[method.firstToken].begin);
    }
}

void ExistingCode::ReadMethods(std::size_t first, std::size_t end) {
    int level = 1;
    for (std::size_t index = std::max<std::size_t>(first, 2); index < end; ++index) {
        level += LevelStep(tokens_.Text(index));
        const GeneratedPiece* const known = wanted_.Known(tokens_[index]);
        if (known != nullptr && known->section == CodeSection::Methods)
            AddMethod({known->key.object, index, index + 1, level, false, true});
        if (known != nullptr || !tokens_.Is(index + 1, "(") || tokens_.Is(index - 1, "."))
            continue;
        const std::string_view name = tokens_.Text(index);
        const std::size_t query = tokens_.Is(index - 1, "void") ? Queries().Count() : FindQuery(name);
        const bool isQuery = query < Queries().Count();
        if (!isQuery && !wanted_.methods.Contains(name) && !registered.Contains(name))
            continue;
        Method method{name, index - 2, index, level, isQuery, false};
        method.generated =
            isQuery ? IsGeneratedQuery(index, method.endToken) : IsGeneratedHandler(index, method.endToken);
        if (!method.generated) {
            const std::size_t parameters = ClosingBracket(tokens_, index + 1) - index;
            if (!IsHead(index) || parameters != (isQuery ? ClosingBracket(Queries(), query + 1) - query : 2))
                continue;
        }
        // Deeper ones belong to inner classes, but two half-written lines may only make them look deeper.
        if (inOrder_ && level != 1 && Indent(index) != Indent(constructor_))
            continue;
        AddMethod(method);
    }
}

/// A head whose brace may be missing still.
bool ExistingCode::IsHead(std::size_t name) const {
    const std::size_t close = ClosingBracket(tokens_, name + 1);
    return IsMethodHead(tokens_, name, className_) ||
           ((tokens_.Is(name - 1, "void") || tokens_.Is(name - 2, "public")) && close < tokens_.Count() &&
            !tokens_.Is(close + 1, ";"));
}

void ExistingCode::AddMethod(const Method& method) {
    methods_.push_back(method);
    const auto [place, isNew] = methodOf_.Add(method.name, methods_.size() - 1);
    if (isNew)
        return;
    const Method& other = methods_[place->value];
    if (other.depth == method.depth)
        Refuse(method.firstToken, Concatenate("Die Methode ", method.name, "() steht zweimal da, zuerst in Zeile ",
                                              LineOf(other.firstToken), "."));
    if (method.depth < other.depth)
        place->value = methods_.size() - 1;
}

bool ExistingCode::IsGeneratedHandler(std::size_t name, std::size_t& end) const {
    if (!tokens_.Are(name - 2, "public", "void") || !tokens_.Are(name + 1, "(", ")", "{", "}") ||
        !MayBegin(tokens_, name - 2))
        return false;
    const auto textBetween = [this](std::size_t left, std::size_t right) {
        return source_.substr(tokens_[left].end, tokens_[right].begin - tokens_[left].end);
    };
    const std::string_view body = textBetween(name + 3, name + 4);
    constexpr std::size_t linesOfBody = 2;
    if (!IsBlank(textBetween(name - 2, name - 1)) || !IsBlank(textBetween(name + 2, name + 3)) ||
        LineBreaks(body) > linesOfBody)
        return false;
    // A brace of another depth was put in by the pupil.
    if (tokens_[name + 4].startsLine != 0 && Indent(name + 4) != Indent(name))
        return false;
    const std::size_t* const wanted = wanted_.methods.Find(tokens_.Text(name));
    const std::string_view wantedCode = wanted == nullptr ? std::string_view() : wanted_.pieces[*wanted].code;
    const bool wantedByComponent = wantedCode.find("//") != std::string_view::npos;
    const Registration* const registration = registered.Find(tokens_.Text(name));
    end = name + 5;
    if (IsBlank(body))
        return (registration != nullptr && *registration == Registration::Menu) ||
               (!wantedCode.empty() && !wantedByComponent);
    return Stripped(body) == handlerComment && (wantedByComponent || registration != nullptr);
}

bool ExistingCode::IsGeneratedQuery(std::size_t name, std::size_t& end) const {
    const SourceTokens& queries = Queries();
    const std::size_t first = FindQuery(tokens_.Text(name)) - 2;
    std::size_t index = name - 2;
    std::size_t at = first;
    if (!MayBegin(tokens_, index))
        return false;
    for (int level = 0; at < queries.Count(); ++index, ++at) {
        const bool isSetting = queries.Is(at, "\"?\"");
        if (isSetting ? !tokens_.IsLiteral(index, '"') : !tokens_.Is(index, queries.Text(at)))
            return false;
        if (at > first &&
            !IsBlank(source_.substr(tokens_[index - 1].end, tokens_[index].begin - tokens_[index - 1].end)))
            return false;
        level += LevelStep(queries.Text(at));
        if (level == 0 && queries.Is(at, "}"))
            break;
    }
    end = index + 1;
    // A brace of another depth was put in by the pupil.
    if (tokens_[index].startsLine != 0 && Indent(index) != Indent(name))
        return false;
    const auto lines = [](const SourceTokens& tokens, std::size_t from, std::size_t to) {
        return LineBreaks(tokens.Source().substr(tokens[from].begin, tokens[to].end - tokens[from].begin));
    };
    return lines(tokens_, name - 2, index) <= lines(queries, first, at);
}

/// Looks in all that is not Pirol's for the names of handlers; the library finds them by text, too.
void ExistingCode::FindMentions() {
    std::size_t index = 0;
    const auto passOver = [&](std::size_t first, std::size_t end) {
        for (; index < first; ++index) {
            AddMention(tokens_, index);
            if (const GeneratedPiece* const known = wanted_.Known(tokens_[index])) {
                const SourceTokens inside(known->code, SourceTokens::Comments::WithinLines);
                for (std::size_t inner = 0; inner < inside.Count(); ++inner)
                    AddMention(inside, inner);
            }
        }
        index = std::max(index, end);
    };
    auto method = methods_.begin();
    const auto passOverMethods = [&](std::size_t limit) {
        for (; method != methods_.end() && method->firstToken < limit; ++method)
            if (method->generated)
                passOver(method->firstToken, method->endToken);
    };
    for (const ExistingPiece& piece : pieces) {
        passOverMethods(piece.firstToken);
        passOver(piece.firstToken, piece.endToken);
    }
    passOverMethods(tokens_.Count());
    passOver(tokens_.Count(), tokens_.Count());
}

void ExistingCode::AddMention(const SourceTokens& tokens, std::size_t index) {
    const std::string_view text = tokens.IsLiteral(index, '"') ? TextOf(tokens, index) : tokens.Text(index);
    if (const auto* const method = methodOf_.Find(text))
        methods_[*method].mentioned = true;
    needsDatabaseImport |= text == databaseClass || text == resultClass;
}

/// Mostly they are so already.
void ExistingCode::PutInOrder() {
    const auto isBefore = [](const ExistingPiece& left, const ExistingPiece& right) { return left.begin < right.begin; };
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

void ExistingCode::Refuse(std::size_t token, std::string_view message) const {
    throw UpdateRefusal(LineOf(token), message);
}

std::size_t ExistingCode::LineOf(std::size_t token) const {
    return LineBreaks(source_.substr(0, tokens_[token].begin)) + 1;
}

} // namespace pirol
