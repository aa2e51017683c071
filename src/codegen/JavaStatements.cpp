#include "codegen/JavaStatements.h"

#include "codegen/JavaSyntax.h"
#include "codegen/WordList.h"

#include <algorithm>

namespace pirol {
namespace {

/// More than a program of ten thousand components in one array has.
constexpr std::size_t mostTokens = 262'144;
/// Three times as many as a generated program of a hundred thousand components has.
constexpr std::size_t mostTokensOfSource = 24'000'000;
/// What a parenthesis without an end may hold.
constexpr std::size_t mostOpenTokens = 100;
/// Blocks deeper than this are counted only.
constexpr std::size_t mostScopes = 1000;

constexpr std::string_view modifiers[] = {
    "abstract", "final", "native", "private", "protected", "public", "static", "strictfp", "synchronized",
};

JavaHead ClassHead(const JavaStatement& statement, std::size_t keyword) {
    JavaHead head{.kind = JavaHead::Class, .name = statement[keyword + 1].text};
    std::size_t base = keyword + 2;
    while (base < statement.Size() && !statement[base].IsWord("extends"))
        ++base;
    for (++base; base < statement.Size() && statement[base].IsWord(); base += 2) {
        head.base = statement[base].text;
        if (!statement.HasSign(base + 1, "."))
            break;
    }
    return head;
}

/// The head "x = {", "Knopf[] x = new Knopf[] {" or, without a variable, "new Knopf[] {".
std::optional<JavaHead> ElementsHead(const JavaStatement& statement) {
    std::size_t end = statement.Size();
    while (end >= 2 && statement[end - 1].IsSign("]") && statement[end - 2].IsSign("["))
        end -= 2;
    const bool hasType = end != statement.Size();
    while (hasType && end > 0 && (statement[end - 1].IsSign(".") || statement[end - 1].IsWord()) &&
           !statement[end - 1].IsWord("new"))
        --end;
    if (hasType && (end == 0 || !statement[end - 1].IsWord("new")))
        return std::nullopt;
    end -= hasType ? 1 : 0;
    const bool isAssigned = end > 0 && statement[end - 1].IsSign("=");
    if (!isAssigned && !hasType)
        return std::nullopt;
    return JavaHead{.kind = JavaHead::Elements, .nameToken = isAssigned ? end - 1 : 0};
}

/// Whether a type stands among a method's modifiers and annotations.
bool HasType(JavaTokens before) {
    for (std::size_t index = 0; index < before.size(); ++index)
        if (before[index].IsWord() && !Contains(modifiers, before[index].text) &&
            (index == 0 || !before[index - 1].IsSign("@")))
            return true;
    return false;
}

/// The head "public void name(int x) throws Y {" or "public Name() {".
std::optional<JavaHead> MethodHead(const JavaStatement& statement) {
    std::size_t end = statement.Size();
    for (std::size_t index = 1; index < statement.Size(); ++index)
        if (statement[index].IsWord("throws") && statement[index - 1].IsSign(")"))
            end = index;
    if (end == 0 || !statement[end - 1].IsSign(")"))
        return std::nullopt;
    const std::size_t open = statement.Partner(end - 1);
    if (open == JavaStatement::none || open == 0 || !statement[open - 1].IsWord() ||
        IsJavaKeyword(statement[open - 1].text))
        return std::nullopt;
    const JavaTokens before = statement.All().first(open - 1);
    const bool isCode = std::any_of(before.begin(), before.end(), [](const JavaToken& token) {
        return token.IsWord("new") || token.IsSign("=") || token.IsSign("->");
    });
    if (isCode || (!before.empty() && before.back().IsSign(".")))
        return std::nullopt;
    return JavaHead{.kind = HasType(before) ? JavaHead::Method : JavaHead::Constructor,
                    .name = statement[open - 1].text,
                    .parameters = statement.Arguments(open).size(),
                    .nameToken = open - 1};
}

bool IsBracket(const JavaToken& token, std::string_view brackets) {
    return token.kind == TokenKind::Sign && token.text.size() == 1 &&
           brackets.find(token.text.front()) != std::string_view::npos;
}

/// How many commas stand outside of brackets.
std::size_t CountCommas(const JavaStatement& statement) {
    std::size_t commas = 0;
    for (std::size_t index = 0; index < statement.Size(); ++index) {
        if (IsBracket(statement[index], "([") && statement.Partner(index) != JavaStatement::none)
            index = statement.Partner(index);
        commas += statement[index].IsSign(",") ? 1 : 0;
    }
    return commas;
}

} // namespace

std::vector<JavaTokens> JavaStatement::Arguments(std::size_t bracket) const {
    std::vector<JavaTokens> arguments;
    const std::size_t close = Partner(bracket) != none ? Partner(bracket) : std::min(Size(), bracket + mostOpenTokens);
    std::size_t begin = bracket + 1;
    for (std::size_t index = begin; index <= close; ++index) {
        if (index == close || tokens_[index].IsSign(",")) {
            arguments.push_back(All().subspan(begin, index - begin));
            begin = index + 1;
        } else if (Partner(index) != none && Partner(index) > index) {
            index = std::min(Partner(index), close - 1);
        }
    }
    if (arguments.size() == 1 && arguments.front().empty())
        arguments.clear();
    return arguments;
}

JavaHead HeadOf(const JavaStatement& statement) {
    if (statement.End() != '{')
        return {};
    for (std::size_t index = 0; index + 1 < statement.Size(); ++index)
        if (statement[index + 1].IsWord() && (index == 0 || !statement[index - 1].IsSign(".")) &&
            (statement[index].IsWord("class") || statement[index].IsWord("interface") ||
             statement[index].IsWord("enum")))
            return ClassHead(statement, index);
    if (const std::optional<JavaHead> elements = ElementsHead(statement))
        return *elements;
    if (const std::optional<JavaHead> method = MethodHead(statement))
        return *method;
    return {.kind = JavaHead::Block};
}

JavaVariable VariableBefore(const JavaStatement& statement, std::size_t token) {
    JavaVariable variable;
    std::size_t end = token;
    while (end > 0 && statement[end - 1].IsSign("]") && statement.Partner(end - 1) != JavaStatement::none) {
        const std::size_t open = statement.Partner(end - 1);
        if (open + 1 < end - 1) // what is empty belongs to a declaration, as in "Knopf x[] = ..."
            variable.indices.push_back(statement.All().subspan(open + 1, end - open - 2));
        end = open;
    }
    std::reverse(variable.indices.begin(), variable.indices.end());
    if (end == 0 || !statement[end - 1].IsWord())
        return {};
    variable.name = statement[--end].text;
    while (end >= 2 && statement[end - 1].IsSign(".") && statement[end - 2].IsWord())
        end -= 2;
    variable.begin = end;
    return variable;
}

/// Takes a source apart and knows in which class, method and block it is.
class StatementWalk {
  public:
    StatementWalk(std::string_view source, const StatementVisitor& visit) : tokenizer_(source), visit_(visit) {}

    UnreadLines Run() {
        while (ReadStatement()) {
            const JavaHead head = HeadOf(statement_);
            if (head.kind == JavaHead::Method || head.kind == JavaHead::Constructor)
                LeaveMethod();
            visit_(statement_, head, scopes_.empty() ? JavaPlace() : scopes_.back().place);
            if (!scopes_.empty() && scopes_.back().kind == JavaHead::Elements)
                scopes_.back().place.element += CountCommas(statement_);
            if (statement_.End() == '{')
                Open(head);
            else if (statement_.End() == '}')
                Close();
        }
        return {tokenizer_.OpenComment(), tooLong_};
    }

  private:
    struct Scope {
        JavaHead::Kind kind;
        bool isAnonymous; ///< the body of a class without a name
        JavaPlace place;  ///< of the statements in it
    };

    bool ReadStatement() {
        statement_.tokens_.clear();
        statement_.partners_.clear();
        statement_.isCut_ = false;
        statement_.end_ = 0;
        open_.clear();
        bool any = false;
        while (const std::optional<JavaToken> token = tokenizer_.Next()) {
            if (++tokensOfSource_ > mostTokensOfSource) {
                tooLong_ = token->line;
                return false;
            }
            any = true;
            if (IsBracket(*token, ";{}")) {
                statement_.end_ = token->text.front();
                break;
            }
            if (statement_.Size() == mostTokens)
                statement_.isCut_ = true;
            else
                Add(*token);
        }
        return any;
    }

    void Add(const JavaToken& token) {
        const std::size_t place = statement_.Size();
        statement_.tokens_.push_back(token);
        statement_.partners_.push_back(JavaStatement::none);
        if (IsBracket(token, "([")) {
            open_.push_back(place);
        } else if (IsBracket(token, ")]") && !open_.empty()) {
            const std::size_t open = open_.back();
            if (statement_.tokens_[open].IsSign(token.text == ")" ? "(" : "[")) {
                statement_.partners_[open] = place;
                statement_.partners_[place] = open;
                open_.pop_back();
            }
        }
    }

    /// Where a method begins no other can still be open, unless it is one of a class without a name.
    void LeaveMethod() {
        while (!scopes_.empty() && scopes_.back().kind != JavaHead::Class && !scopes_.back().isAnonymous)
            scopes_.pop_back();
    }

    void Open(const JavaHead& head) {
        if (scopes_.size() == mostScopes) {
            ++scopesBeyond_;
            return;
        }
        Scope scope{head.kind, false, {}};
        if (!scopes_.empty())
            scope.place = {.className = scopes_.back().place.className, .method = scopes_.back().place.method};
        if (head.kind == JavaHead::Class)
            scope.place = {.className = head.name};
        else if (head.kind == JavaHead::Method || head.kind == JavaHead::Constructor)
            scope.place.method = head.kind == JavaHead::Method ? head.name : std::string_view();
        else if (head.kind == JavaHead::Elements)
            scope.place.array = VariableBefore(statement_, head.nameToken).name;
        else
            OpenBlock(scope);
        scopes_.push_back(scope);
    }

    void OpenBlock(Scope& scope) const {
        const JavaTokens tokens = statement_.All();
        const auto isComma = [](const JavaToken& token) { return token.IsSign(","); };
        const bool isInArray =
            !scopes_.empty() && scopes_.back().kind == JavaHead::Elements && !scopes_.back().place.row;
        if (isInArray && std::all_of(tokens.begin(), tokens.end(), isComma)) {
            scope.kind = JavaHead::Elements;
            scope.place.array = scopes_.back().place.array;
            scope.place.row = scopes_.back().place.element;
        }
        const auto isNew = [](const JavaToken& token) { return token.IsWord("new"); };
        scope.isAnonymous = std::any_of(tokens.begin(), tokens.end(), isNew);
    }

    void Close() {
        if (scopesBeyond_ > 0)
            --scopesBeyond_;
        else if (!scopes_.empty())
            scopes_.pop_back();
    }

    JavaTokenizer tokenizer_;
    const StatementVisitor& visit_;
    JavaStatement statement_;
    std::vector<std::size_t> open_; // brackets of the statement that wait for their partners
    std::vector<Scope> scopes_;
    std::size_t scopesBeyond_ = 0;
    std::size_t tokensOfSource_ = 0;
    std::size_t tooLong_ = 0;
};

UnreadLines ForEachStatement(std::string_view source, const StatementVisitor& visit) {
    return StatementWalk(source, visit).Run();
}

} // namespace pirol
