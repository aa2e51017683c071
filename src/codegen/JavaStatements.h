#pragma once

#include "codegen/JavaTokens.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace pirol {

using JavaTokens = std::span<const JavaToken>;

/// The tokens up to a ";", "{" or "}" of a source: a statement, the head of a block, or what stands before a block's
/// end.
class JavaStatement {
  public:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    JavaTokens All() const { return tokens_; }
    std::size_t Size() const { return tokens_.size(); }
    const JavaToken& operator[](std::size_t index) const { return tokens_[index]; }
    /// What ended it: ';', '{', '}', or 0 for the end of the source.
    char End() const { return end_; }
    /// JavaTokens were left out, because there were too many.
    bool IsCut() const { return isCut_; }

    /// Where the other one of a pair of parentheses or square brackets stands, or `none`.
    std::size_t Partner(std::size_t bracket) const { return partners_[bracket]; }

    bool HasWord(std::size_t index, std::string_view word) const {
        return index < Size() && tokens_[index].IsWord(word);
    }
    bool HasSign(std::size_t index, std::string_view sign) const {
        return index < Size() && tokens_[index].IsSign(sign);
    }
    /// What stands between the commas of a parenthesis or bracket; of one that nobody closed, what follows up to the
    /// statement's end, as far as that is near. Linear in the tokens outside inner brackets.
    std::vector<JavaTokens> Arguments(std::size_t bracket) const;

  private:
    friend class StatementWalk;

    std::vector<JavaToken> tokens_;
    std::vector<std::size_t> partners_;
    char end_ = 0;
    bool isCut_ = false;
};

/// What a statement that ends in "{" opens.
struct JavaHead {
    enum Kind { NoHead, Class, Method, Constructor, Elements, Block };

    Kind kind = NoHead;
    std::string_view name = {}; ///< of a class or method
    std::string_view base = {}; ///< the class that a class extends, without its packages
    std::size_t parameters = 0; ///< of a method
    std::size_t nameToken = 0;  ///< where a method's name stands, or the variable whose array elements follow
};

JavaHead HeadOf(const JavaStatement& statement);

/// Where a statement stands.
struct JavaPlace {
    std::string_view className = {};               ///< the innermost class; empty outside of any
    std::string_view method = {};                  ///< the innermost method; empty outside of any, and in a constructor
    std::string_view array = {};                   ///< the array between whose braces it stands, if anywhere
    std::optional<std::size_t> row = std::nullopt; ///< the outer index where that array holds arrays
    std::size_t element = 0;                       ///< the index of the statement's first element
};

using StatementVisitor = std::function<void(const JavaStatement&, const JavaHead&, const JavaPlace&)>;

/// What could not be taken apart: the line of a comment without an end, and the one from which on the source was too
/// long; 0 for none.
struct UnreadLines {
    std::size_t openComment = 0;
    std::size_t tooLong = 0;
};

/// Calls `visit` for every statement of a source in order.
/// Missing and surplus braces do not spoil more than the method they stand in: a method's head ends the one before.
/// Linear in the length; never holds more than one statement, which is cut when it has very many tokens. A source of
/// far more tokens than any program has is read up to there.
UnreadLines ForEachStatement(std::string_view source, const StatementVisitor& visit);

/// A variable as an expression names it, "this" and classes left out: "x" for x, "x[1]" for this.x[1].
struct JavaVariable {
    std::string_view name;           ///< empty when it is no variable
    std::vector<JavaTokens> indices; ///< the expressions between square brackets
    std::size_t begin = 0;           ///< where the expression begins
};

/// The variable whose expression ends right before a token.
JavaVariable VariableBefore(const JavaStatement& statement, std::size_t token);

} // namespace pirol
