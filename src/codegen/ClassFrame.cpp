#include "codegen/ClassFrame.h"

#include "base/Text.h"
#include "codegen/DatabaseQueries.h"
#include "codegen/SourceLines.h"
#include "codegen/SourceStatement.h"
#include "codegen/UpdateRefusal.h"
#include "codegen/WordList.h"

#include <algorithm>
#include <iterator>

namespace pirol {
namespace {

constexpr std::string_view baseClass = "EBAnwendung";
/// Methods that the generator calls and pupils anywhere, too.
constexpr std::string_view commonMethods[] = {"haengeAn", "schalteAn", "setzeInhalt", "setzeWert"};
/// What a type declared behind the class begins with, modifiers aside.
constexpr std::string_view typeBegins[] = {"class", "interface", "enum", "@"};
/// A class's head is not longer, and what half-written lines put into a constructor's head.
constexpr std::size_t longestHead = 40;
constexpr std::size_t mostTokensBetween = 400;

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

ClassFrame::ClassFrame(const SourceTokens& tokens, const GeneratedCode& wanted)
    : tokens_(tokens), source_(tokens.Source()), wanted_(wanted) {
    FindClass();
    FindConstructor();
    FindConstructorEnd();
    FindClassEnd();
    SetRegions();
}

void ClassFrame::FindClass() {
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
            Refuse(tokens_, index, "Mehr als eine Klasse erweitert EBAnwendung.");
        found = true;
        classToken = index;
        className = tokens_.Text(index + 1);
        classOpen = at + 1;
        for (std::size_t ahead = at + 2; ahead < at + longestHead; ++ahead)
            if (tokens_.Is(ahead, "{")) {
                classOpen = ahead;
                break;
            }
    }
    if (!found)
        throw UpdateRefusal(1, "Es gibt keine Klasse, die EBAnwendung erweitert.");
    bracesMatch_ = balance == 0;
}

void ClassFrame::FindConstructor() {
    int level = 1;
    int foundLevel = 0;
    for (std::size_t index = classOpen + 1; index < tokens_.Count(); ++index) {
        level += LevelStep(tokens_.Text(index));
        if (!tokens_.Is(index, className) || !tokens_.Are(index + 1, "(", ")"))
            continue;
        const bool begins = MayBegin(tokens_, index) || IsModifier(tokens_.Text(index - 1));
        if (!begins || tokens_.Is(index - 1, "new") || tokens_.Is(index + 3, ";") || tokens_.Is(index + 3, "."))
            continue;
        if (constructor != 0 && level == foundLevel)
            Refuse(tokens_, index,
                   Concatenate("Der Konstruktor ", className, "() steht zweimal da, zuerst in Zeile ",
                               LineOf(tokens_, constructor), "."));
        if (constructor != 0 && level > foundLevel)
            continue;
        constructor = index;
        foundLevel = level;
    }
    if (constructor == 0)
        Refuse(tokens_, classToken, Concatenate("Die Klasse ", className, " hat keinen Konstruktor ohne Parameter."));
    FindConstructorOpen();
    inOrder = foundLevel == 1;
}

/// The brace behind the head; where lines were put in between, the first one as far left that no other head precedes.
void ClassFrame::FindConstructorOpen() {
    constructorOpen = constructor + 2;
    const bool hasThrows = tokens_.Is(constructor + 3, "throws");
    for (std::size_t ahead = constructor + 3; ahead < constructor + mostTokensBetween; ++ahead) {
        if (tokens_.Are(ahead, superCall, "("))
            return;
        if (!tokens_.Is(ahead, "{"))
            continue;
        const bool isSure = ahead == constructor + 3 || hasThrows;
        if (isSure || StandsAsConstructor(ahead))
            constructorOpen = ahead;
        if (isSure || (constructorOpen == ahead && !tokens_.Is(ahead - 1, ")")))
            return;
    }
}

/// The brace that closes the constructor's first one, if nothing speaks against it: none of our methods begins before,
/// no statement of ours stands between it and the next of our methods outside any braces, and the class has one left.
void ClassFrame::FindConstructorEnd() {
    int level = 1;
    std::size_t closing = 0;
    std::size_t index = constructorOpen + 1;
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
            isInMethod = isInMethod || IsMethodHead(tokens_, index, className);
            trusted = (level != 0 && isInMethod) || !isStatement();
            continue;
        }
        trusted = !isKnown;
        if (step < 0 && level == 0)
            closing = index;
        else if (step < 0 && StandsAsConstructor(index))
            outerBrace = index;
        else if (outerBrace != 0 && isStatement())
            outerBrace = 0;
    }
    for (const bool classEnded = level < 0; classEnded && trusted && index < tokens_.Count(); ++index)
        trusted = !IsKnownHead(index);
    trusted =
        trusted && closing != 0 && (level < 0 || isKnown) &&
        ((bracesMatch_ && inOrder && outerBrace == 0) || Indent(tokens_, closing) == Indent(tokens_, constructor));
    inOrder = inOrder && trusted;
    constructorEnd = closing;
    if (!trusted)
        FindBrokenConstructorEnd();
}

/// Where braces do not tell: behind the last statement of ours and before the next method, the first brace as far left
/// as the constructor's head, or else the last one that begins a line.
void ClassFrame::FindBrokenConstructorEnd() {
    std::size_t lowest = constructorOpen;
    std::size_t limit = constructorOpen + 1;
    std::size_t ownHead = 0;
    std::size_t outerBrace = 0;
    std::size_t block = 0;                   // the database's "if" until it closes
    std::size_t lastBrace = tokens_.Count(); // behind the last statement of ours
    for (; limit < tokens_.Count() && !IsKnownHead(limit); ++limit) {
        if (tokens_.Is(limit, "}") && tokens_.StartsLine(limit)) {
            lastBrace = limit;
            if (StandsAsConstructor(limit))
                outerBrace = limit;
        }
        RememberHandler(limit);
        if (tokens_.Are(limit, "if", "(", connectMethod))
            block = limit;
        const bool closesBlock = block != 0 && tokens_.Is(limit, "}") && tokens_.StartsLine(limit) &&
                                 Indent(tokens_, limit) == Indent(tokens_, block);
        if (closesBlock)
            block = 0;
        if (closesBlock || LooksLikeStatement(limit)) {
            lowest = limit;
            lastBrace = tokens_.Count();
            ownHead = 0; // it stands in the constructor, where no method should
        } else if (ownHead == 0 && outerBrace > lowest && IsMethodHead(tokens_, limit, className)) {
            ownHead = limit;
        }
    }
    limit = ownHead != 0 ? ownHead : limit;
    limit = limit < tokens_.Count() ? FirstOfHead(tokens_, limit) : lastBrace;
    constructorEnd = limit;
    constructorCloses = false;
    for (std::size_t index = limit; index-- > lowest + 1;) {
        if (!tokens_.Is(index, "}") || !tokens_.StartsLine(index))
            continue;
        if (!constructorCloses || Indent(tokens_, index) == Indent(tokens_, constructor))
            constructorEnd = index;
        constructorCloses = true;
    }
}

void ClassFrame::FindClassEnd() {
    int level = 1;
    classEnd = tokens_.Count();
    std::size_t lastBrace = tokens_.Count();
    for (std::size_t index = constructorEnd + (constructorCloses ? 1 : 0); index < tokens_.Count(); ++index) {
        const int step = LevelStep(tokens_.Text(index));
        level += step;
        if (wanted_.Known(tokens_[index]) != nullptr)
            lastBrace = tokens_.Count(); // its braces are no tokens, so the class's must come behind
        if (step >= 0)
            continue;
        if (tokens_.StartsLine(index))
            lastBrace = index;
        if (level != 0)
            continue;
        std::size_t next = index + 1;
        while (IsModifier(tokens_.Text(next)))
            ++next;
        if (next == tokens_.Count() || Contains(typeBegins, tokens_.Text(next))) {
            classEnd = index;
            return;
        }
    }
    inOrder = false;
    // As far left as the constructor it closes a method, and the class's is missing.
    const bool closesMethod =
        StandsAsConstructor(lastBrace) && Indent(tokens_, classToken) < Indent(tokens_, constructor);
    classEnd = closesMethod ? tokens_.Count() : lastBrace;
}

/// Whether a token begins its line as far left as the constructor's head.
bool ClassFrame::StandsAsConstructor(std::size_t index) const {
    return tokens_.StartsLine(index) && Indent(tokens_, index) == Indent(tokens_, constructor);
}

bool ClassFrame::IsKnownHead(std::size_t index) {
    if (const GeneratedPiece* const known = wanted_.Known(tokens_[index]))
        return known->section == CodeSection::Methods;
    if (!tokens_.Is(index + 1, "(") || tokens_.Is(index - 1, "."))
        return false;
    const std::string_view name = tokens_.Text(index);
    if (!tokens_.Is(index - 1, "void"))
        return tokens_.Is(index - 2, "public") && FindQuery(name) < Queries().Count();
    return tokens_.Is(index + 2, ")") && !tokens_.Is(index + 3, ";") &&
           (wanted_.methods.Contains(name) || IsNamedHandler(name));
}

/// Remembers a statement that registers a handler: that one's head ends the constructor.
void ClassFrame::RememberHandler(std::size_t index) {
    if (!tokens_.Is(index, "(") || !tokens_.Is(index - 2, "."))
        return;
    if (tokens_.Text(index - 1).starts_with(registration))
        handlerTokens_.push_back(index + 1);
    else if (tokens_.Is(index - 1, "haengeZeileAn"))
        handlerTokens_.push_back(index + 3);
}

bool ClassFrame::IsNamedHandler(std::string_view name) {
    for (; !handlerTokens_.empty(); handlerTokens_.pop_back())
        namedHandlers_.insert(TextOf(tokens_, handlerTokens_.back()));
    return namedHandlers_.contains(name);
}

bool ClassFrame::LooksLikeStatement(std::size_t index) const {
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
bool ClassFrame::LooksLikeCall(std::size_t index) const {
    if (!MayBegin(tokens_, index))
        return false;
    if (tokens_.Is(index + 1, ".") && tokens_.Is(index + 3, "("))
        return GeneratedCalls().contains(tokens_.Text(index + 2));
    return tokens_.Are(index, "if", "(", connectMethod) || tokens_.Are(index, superCall, "(");
}

void ClassFrame::SetRegions() {
    const auto positionOf = [this](std::size_t token) {
        return token < tokens_.Count() ? tokens_[token].begin : source_.size();
    };
    Region& imports = regions[static_cast<std::size_t>(CodeSection::Imports)];
    imports.end = AboveComments(LineStart(source_, positionOf(FirstOfHead(tokens_, classToken)), 0), 0);
    Region& declarations = regions[static_cast<std::size_t>(CodeSection::Fields)];
    declarations.begin = BehindToken(classOpen);
    declarations.end = AboveComments(
        LineStart(source_, positionOf(FirstOfHead(tokens_, constructor)), declarations.begin), declarations.begin);
    Region& statements = regions[static_cast<std::size_t>(CodeSection::Constructor)];
    statements.begin = BehindToken(constructorOpen);
    statements.end = LineStart(source_, positionOf(constructorEnd), statements.begin);
    Region& methods = regions[static_cast<std::size_t>(CodeSection::Methods)];
    methods.begin = statements.end;
    if (constructorCloses) {
        methods.begin = BehindToken(constructorEnd);
        const std::size_t behind = BehindLine(source_, methods.begin);
        if (IsBlank(source_.substr(methods.begin, behind - methods.begin)))
            methods.begin = behind;
    }
    methods.end = LineStart(source_, positionOf(classEnd), methods.begin);
}

/// Behind a token's line when nothing else stands in it, and directly behind the token otherwise.
std::size_t ClassFrame::BehindToken(std::size_t index) const {
    const std::size_t end = tokens_[index].end;
    const std::size_t endOfLine = EndOfLine(source_, end);
    const bool isLast = index + 1 >= tokens_.Count() || tokens_[index + 1].begin >= endOfLine;
    return isLast ? BehindLine(source_, end) : end;
}

/// The empty line above a head, with the comments between them: a new declaration must not come between a comment and
/// what it is about.
std::size_t ClassFrame::AboveComments(std::size_t position, std::size_t lowest) const {
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

} // namespace pirol
