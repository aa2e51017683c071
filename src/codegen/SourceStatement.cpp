#include "codegen/SourceStatement.h"

#include "codegen/JavaSyntax.h"
#include "codegen/SourceLines.h"
#include "codegen/WordList.h"

#include <algorithm>

namespace pirol {
namespace {

/// No statement of the generator is longer; what a half-written source leaves open ends here.
constexpr std::size_t mostTokensAhead = 64;

constexpr std::string_view modifiers[] = {"abstract", "final",        "private",   "protected", "public",
                                          "static",   "synchronized", "transient", "volatile"};
constexpr std::string_view primitiveTypes[] = {"boolean", "byte", "char",  "double", "float",
                                               "int",     "long", "short", "void"};

bool IsOneOf(std::string_view sign, std::string_view signs) {
    return sign.size() == 1 && signs.find(sign.front()) != std::string_view::npos;
}

/// Names are told from keywords by the few that can stand before a bracket or a name.
bool IsName(const SourceTokens& tokens, std::size_t index) {
    return tokens.IsWord(index) && !IsJavaKeyword(tokens.Text(index));
}

bool IsType(const SourceTokens& tokens, std::size_t index) {
    return IsName(tokens, index) || Contains(primitiveTypes, tokens.Text(index));
}

char KindOf(const SourceTokens& tokens, std::size_t first, std::size_t end) {
    if (end - first == 2 && tokens.Is(first, "-") && tokens.IsNumber(first + 1))
        return 'n';
    if (end - first != 1)
        return 'x';
    if (tokens.IsNumber(first))
        return 'n';
    if (tokens.IsLiteral(first, '"'))
        return 's';
    if (tokens.IsLiteral(first, '\''))
        return 'c';
    return IsName(tokens, first) ? 'i' : 'x';
}

/// The arguments behind an opening bracket.
std::optional<SourceArguments> ReadArguments(const SourceTokens& tokens, std::size_t open) {
    SourceArguments arguments;
    int depth = 0;
    std::size_t begin = open + 1;
    for (std::size_t index = begin; index < tokens.Count() && index < open + mostTokensAhead; ++index) {
        const std::string_view text = tokens.Text(index);
        if (IsOneOf(text, ";{}") || tokens[index].closed == 0)
            return std::nullopt;
        const bool ends = depth == 0 && IsOneOf(text, ",)");
        if (ends && (index > begin || !arguments.kinds.empty() || text == ",")) {
            if (arguments.kinds.size() == mostArguments)
                return std::nullopt;
            arguments.begins[arguments.kinds.size()] = begin;
            arguments.kinds += KindOf(tokens, begin, index);
            begin = index + 1;
        }
        if (ends && text == ")") {
            arguments.close = index;
            return arguments;
        }
        depth += IsOneOf(text, "([") ? 1 : 0;
        depth -= IsOneOf(text, ")]") ? 1 : 0;
    }
    return std::nullopt;
}

/// The end of a line that ends in ");" though its literals are not what they should be.
std::size_t EndOfOddLine(const SourceTokens& tokens, std::size_t first) {
    const std::string_view source = tokens.Source();
    if (!tokens.StartsLine(first))
        return first;
    const std::size_t end = EndOfLine(source, tokens[first].begin);
    if (!source.substr(0, end).ends_with(");"))
        return first;
    return tokens.From(end);
}

} // namespace

bool IsModifier(std::string_view word) {
    return Contains(modifiers, word);
}

bool MayBegin(const SourceTokens& tokens, std::size_t index) {
    return tokens.StartsLine(index) || IsOneOf(tokens.Text(index - 1), ";{}");
}

std::optional<SourceStatement> ReadStatement(const SourceTokens& tokens, std::size_t first) {
    if (!tokens.IsWord(first))
        return std::nullopt;
    SourceStatement statement{};
    std::size_t bracket = first;
    if (tokens.Are(first, "super", "(")) {
        statement.method = tokens.Text(bracket++);
    } else {
        if (tokens.Is(first + 1, "=")) {
            statement.assigned = tokens.Text(first);
            bracket += 2;
        }
        if (tokens.Is(bracket, "new")) {
            statement.createdClass = tokens.Text(bracket + 1);
            bracket += 2;
        } else if (tokens.IsWord(bracket) && tokens.Is(bracket + 1, ".") && tokens.IsWord(bracket + 2)) {
            statement.object = tokens.Text(bracket);
            statement.method = tokens.Text(bracket + 2);
            bracket += 3;
        } else {
            return std::nullopt;
        }
    }
    if (!tokens.Is(bracket, "("))
        return std::nullopt;
    std::optional<SourceArguments> arguments = ReadArguments(tokens, bracket);
    if (arguments && tokens.Is(arguments->close + 1, ";")) {
        statement.end = arguments->close + 2;
        statement.arguments = *arguments;
        return statement;
    }
    statement.end = EndOfOddLine(tokens, first);
    statement.arguments.kinds = "?";
    return statement.end > bracket ? std::optional(statement) : std::nullopt;
}

std::vector<SourceDeclaration> ReadDeclarations(const SourceTokens& tokens, std::size_t first, std::size_t& end) {
    std::vector<SourceDeclaration> declarations;
    std::size_t index = first;
    while (IsModifier(tokens.Text(index)) && index < first + mostTokensAhead)
        ++index;
    if (!IsType(tokens, index))
        return declarations;
    for (; tokens.Is(index + 1, ".") && tokens.IsWord(index + 2) && index < first + mostTokensAhead; index += 2)
        if (tokens.StartsLine(index + 2))
            return declarations; // a half-written line
    const std::string_view javaClass = tokens.Text(index++);
    if (tokens.Is(index, "<"))
        while (index < first + mostTokensAhead && !IsOneOf(tokens.Text(index), ";{}(=") &&
               !tokens.Text(index).empty() &&
               !(tokens.Is(index, ">") && !tokens.Is(index + 1, ">") && !tokens.Is(index + 1, ",")))
            ++index;
    while (IsOneOf(tokens.Text(index), ">[]") && index < first + mostTokensAhead)
        ++index;
    // Each round takes a name and what its value is, up to the next comma of the declaration.
    for (end = index; IsName(tokens, index); index = end + 1) {
        if (!IsOneOf(tokens.Text(index + 1), ";=,["))
            return declarations;
        declarations.push_back({javaClass, tokens.Text(index), index, false, tokens.Is(index + 1, "=")});
        int depth = 0;
        for (end = index + 1; end < first + 4 * mostTokensAhead; ++end) {
            const std::string_view text = tokens.Text(end);
            if (text.empty() || text == ";" || (text == "," && depth == 0))
                break;
            depth += IsOneOf(text, "([{") ? 1 : 0;
            depth -= IsOneOf(text, ")]}") ? 1 : 0;
        }
        if (!tokens.Is(end, ","))
            break;
    }
    if (declarations.size() == 1 && tokens.Is(declarations[0].token + 1, ";"))
        declarations[0].alone = true;
    ++end;
    return declarations;
}

std::size_t ClosingBracket(const SourceTokens& tokens, std::size_t open) {
    int depth = 0;
    for (std::size_t index = open; index < tokens.Count() && index < open + mostTokensAhead; ++index) {
        const std::string_view text = tokens.Text(index);
        if (IsOneOf(text, ";{}"))
            break;
        depth += text == "(" ? 1 : 0;
        depth -= text == ")" ? 1 : 0;
        if (depth == 0)
            return index;
    }
    return tokens.Count();
}

bool IsMethodHead(const SourceTokens& tokens, std::size_t index, std::string_view className) {
    if (!tokens.Is(index + 1, "(") || !IsName(tokens, index))
        return false;
    const std::string_view before = tokens.Text(index - 1);
    const bool isConstructor =
        tokens.Is(index, className) && (IsModifier(before) || (MayBegin(tokens, index) && before != "new"));
    if (!isConstructor && !IsType(tokens, index - 1) && !IsOneOf(before, ">]"))
        return false;
    const std::size_t close = ClosingBracket(tokens, index + 1);
    return tokens.Is(close + 1, "{") || tokens.Is(close + 1, "throws");
}

std::size_t Indent(const SourceTokens& tokens, std::size_t index) {
    const std::size_t begin = tokens[FirstOfHead(tokens, index)].begin;
    return begin - LineStart(tokens.Source(), begin, 0);
}

std::size_t FirstOfHead(const SourceTokens& tokens, std::size_t index) {
    while (!tokens.StartsLine(index) && tokens.IsWord(index - 1))
        --index;
    return index;
}

std::string_view TextOf(const SourceTokens& tokens, std::size_t literal) {
    const std::string_view text = tokens.Text(literal);
    return text.size() < 2 ? std::string_view() : text.substr(1, text.size() - 2);
}

} // namespace pirol
