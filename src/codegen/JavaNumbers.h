#pragma once

#include "codegen/JavaStatements.h"

#include <optional>
#include <string_view>
#include <unordered_map>

namespace pirol {

/// What an expression of numbers gives.
struct JavaNumber {
    double value;
    bool isWhole; ///< an int, whose division leaves out the fraction

    bool operator==(const JavaNumber&) const = default;
};

/// The variables of a source that always have the value they are declared with: declared with a readable number,
/// nowhere with another one, and never assigned or counted up or down.
class JavaConstants {
  public:
    /// Takes note of what a statement declares and assigns.
    void Read(const JavaStatement& statement);

    std::optional<JavaNumber> Find(std::string_view name) const;

  private:
    std::size_t ReadDeclarations(const JavaStatement& statement, std::size_t type);
    void Declare(std::string_view name, const std::optional<JavaNumber>& number);

    std::unordered_map<std::string_view, std::optional<JavaNumber>> numbers_; // nothing: not a constant
};

/// The value of an expression of literals, constants, + - * / %, parentheses and casts to number types; nothing when it
/// is anything else, nests very deeply, divides by 0, or leaves Java's range of ints.
std::optional<JavaNumber> Evaluate(JavaTokens expression, const JavaConstants& constants);

} // namespace pirol
