#pragma once

#include "codegen/SourceTokens.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// No call of the generator has more.
constexpr std::size_t mostArguments = 12;

/// The arguments between two brackets.
struct SourceArguments {
    /// A letter for each: n number, s text, c character, i name, x anything else; "?" when they cannot be told apart.
    std::string kinds;
    std::array<std::size_t, mostArguments> begins{}; ///< the token with which each begins
    std::size_t close = 0;                           ///< the bracket behind them

    std::size_t First() const { return begins.front(); }
    std::size_t Last() const { return kinds.empty() ? 0 : begins[kinds.size() - 1]; }
};

/// A statement of one of the forms in which the generator writes them: "a = new Class(...);", "a = b.method(...);",
/// "a.method(...);" and "super(...);".
struct SourceStatement {
    std::string_view assigned;     ///< the variable that gets a value
    std::string_view createdClass; ///< behind "new"
    std::string_view object;       ///< the variable whose method is called
    std::string_view method;       ///< "super" for that call
    SourceArguments arguments;
    std::size_t end; ///< the token behind the semicolon
};

/// The statement that begins with a token; nothing when there is none of these forms, or a very long one. When a text
/// holds a quote, so that the literals go on behind it, the statement ends with a line that ends in ");".
std::optional<SourceStatement> ReadStatement(const SourceTokens& tokens, std::size_t first);

/// True when a statement or declaration may begin with this token: it begins its line, or the one before ends with
/// ";", "{" or "}".
bool MayBegin(const SourceTokens& tokens, std::size_t index);

/// A declared variable.
struct SourceDeclaration {
    std::string_view javaClass;
    std::string_view name;
    std::size_t token;     ///< its name
    bool alone = false;    ///< nothing is declared beside it and it gets no value
    bool hasValue = false; ///< it gets one at once
};

/// The variables declared from a token on and the token behind; none when no declaration begins there.
std::vector<SourceDeclaration> ReadDeclarations(const SourceTokens& tokens, std::size_t first, std::size_t& end);

/// Whether the token is the name in the head of a method or of a constructor of the given class.
bool IsMethodHead(const SourceTokens& tokens, std::size_t index, std::string_view className);

/// The bracket that closes the one at the token, or `Count()` when it is far away.
std::size_t ClosingBracket(const SourceTokens& tokens, std::size_t open);

bool IsModifier(std::string_view word);

/// The first word of the head in which a token stands: words before it in its line.
std::size_t FirstOfHead(const SourceTokens& tokens, std::size_t index);
/// How many blanks and tabs stand before the first word of a head, or before a brace.
std::size_t Indent(const SourceTokens& tokens, std::size_t index);

/// What stands between the quotes of a literal.
std::string_view TextOf(const SourceTokens& tokens, std::size_t literal);

} // namespace pirol
