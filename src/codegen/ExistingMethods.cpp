#include "codegen/ExistingMethods.h"

#include "base/Text.h"
#include "codegen/DatabaseQueries.h"
#include "codegen/ExistingCode.h"
#include "codegen/SourceLines.h"
#include "codegen/SourceStatement.h"
#include "codegen/UpdateRefusal.h"

#include <algorithm>

namespace pirol {

ExistingMethods::ExistingMethods(const SourceTokens& tokens, const GeneratedCode& wanted, const ClassFrame& frame,
                                 const NameMap<Registration>& registered)
    : tokens_(tokens), source_(tokens.Source()), wanted_(wanted), frame_(frame), registered_(registered) {
    methods_.reserve(wanted.methods.Size());
    methodOf_.Reserve(wanted.methods.Size());
    Read(frame.classOpen + 1, frame.constructor);
    Read(frame.Methods(), frame.classEnd);
}

void ExistingMethods::Read(std::size_t first, std::size_t end) {
    int level = 1;
    for (std::size_t index = first; index < end; ++index) {
        level += LevelStep(tokens_.Text(index));
        const GeneratedPiece* const known = wanted_.Known(tokens_[index]);
        if (known != nullptr && known->section == CodeSection::Methods)
            Add({known->key.object, index, index + 1, level, false, true});
        if (known != nullptr || !tokens_.Is(index + 1, "(") || tokens_.Is(index - 1, "."))
            continue;
        const std::string_view name = tokens_.Text(index);
        const std::size_t query = tokens_.Is(index - 1, "void") ? Queries().Count() : FindQuery(name);
        const bool isQuery = query < Queries().Count();
        if (!isQuery && !wanted_.methods.Contains(name) && !registered_.Contains(name))
            continue;
        ExistingMethod method{name, index - 2, index, level, isQuery, false};
        method.generated =
            isQuery ? IsGeneratedQuery(index, method.endToken) : IsGeneratedHandler(index, method.endToken);
        if (!method.generated) {
            const std::size_t parameters = ClosingBracket(tokens_, index + 1) - index;
            if (!IsHead(index) || parameters != (isQuery ? ClosingBracket(Queries(), query + 1) - query : 2))
                continue;
        }
        // Deeper ones belong to inner classes, but two half-written lines may only make them look deeper.
        if (frame_.inOrder && level != 1 && Indent(tokens_, index) != Indent(tokens_, frame_.constructor))
            continue;
        Add(method);
    }
}

/// A head whose brace may be missing still.
bool ExistingMethods::IsHead(std::size_t name) const {
    const std::size_t close = ClosingBracket(tokens_, name + 1);
    return IsMethodHead(tokens_, name, frame_.className) ||
           ((tokens_.Is(name - 1, "void") || tokens_.Is(name - 2, "public")) && close < tokens_.Count() &&
            !tokens_.Is(close + 1, ";"));
}

void ExistingMethods::Add(const ExistingMethod& method) {
    methods_.push_back(method);
    const auto [place, isNew] = methodOf_.Add(method.name, methods_.size() - 1);
    if (isNew)
        return;
    const ExistingMethod& other = methods_[place->value];
    if (other.depth == method.depth)
        Refuse(tokens_, method.firstToken,
               Concatenate("Die Methode ", method.name, "() steht zweimal da, zuerst in Zeile ",
                           LineOf(tokens_, other.firstToken), "."));
    if (method.depth < other.depth)
        place->value = methods_.size() - 1;
}

bool ExistingMethods::IsGeneratedHandler(std::size_t name, std::size_t& end) const {
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
    if (tokens_.StartsLine(name + 4) && Indent(tokens_, name + 4) != Indent(tokens_, name))
        return false;
    const std::size_t* const wanted = wanted_.methods.Find(tokens_.Text(name));
    const std::string_view wantedCode = wanted == nullptr ? std::string_view() : wanted_.pieces[*wanted].code;
    const bool wantedByComponent = wantedCode.find("//") != std::string_view::npos;
    const Registration* const registration = registered_.Find(tokens_.Text(name));
    end = name + 5;
    if (IsBlank(body))
        return (registration != nullptr && *registration == Registration::Menu) ||
               (!wantedCode.empty() && !wantedByComponent);
    return Stripped(body) == handlerComment && (wantedByComponent || registration != nullptr);
}

bool ExistingMethods::IsGeneratedQuery(std::size_t name, std::size_t& end) const {
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
    if (tokens_.StartsLine(index) && Indent(tokens_, index) != Indent(tokens_, name))
        return false;
    const auto lines = [](const SourceTokens& tokens, std::size_t from, std::size_t to) {
        return LineBreaks(tokens.Source().substr(tokens[from].begin, tokens[to].end - tokens[from].begin));
    };
    return lines(tokens_, name - 2, index) <= lines(queries, first, at);
}

void ExistingMethods::FindMentions(const std::vector<ExistingPiece>& pieces) {
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

void ExistingMethods::AddMention(const SourceTokens& tokens, std::size_t index) {
    const std::string_view text = tokens.IsLiteral(index, '"') ? TextOf(tokens, index) : tokens.Text(index);
    if (const auto* const method = methodOf_.Find(text))
        methods_[*method].mentioned = true;
    mentionsDatabase_ |= text == databaseClass || text == resultClass;
}

} // namespace pirol
