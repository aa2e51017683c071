#pragma once

#include "codegen/JavaNumbers.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pirol {

/// The text of string literals, joined by + or a single one: what stands between the quotes as typed, escapes included,
/// as designs hold it and the generator writes it. Nothing for any other expression, or a text too long for Java.
std::optional<std::string> TextOf(JavaTokens expression);

/// A file name from a string literal, its doubled backslashes made single, as the generator doubles them again. Nothing
/// for other escapes, which it could not write.
std::optional<std::string> FileNameOf(JavaTokens expression);

/// A whole number of 16 bits, rounded half to even; nothing when the expression cannot be read.
std::optional<std::int16_t> NumberOf(JavaTokens expression, const JavaConstants& constants);

/// The number of an alignment, given as a number or as in Ausrichtung.MITTE.
std::optional<std::int16_t> AlignmentOf(JavaTokens expression, const JavaConstants& constants);

/// A variable with the numbers of its indices, as "x" or "x[1]"; nothing when an index cannot be read.
std::optional<std::string> KeyOf(const JavaVariable& variable, const JavaConstants& constants);

/// An object that a statement makes.
struct JavaCreation {
    std::string_view className = {};
    std::size_t token = 0;          ///< where "new" stands
    std::size_t arguments = 0;      ///< where the parenthesis opens
    std::string_view variable = {}; ///< what it is assigned to; empty for nothing
    std::optional<std::string> key; ///< the same with its indices, of an array's element too; nothing when computed
};

/// The objects that a statement makes, in order. Linear in its tokens.
std::vector<JavaCreation> CreationsIn(const JavaStatement& statement, const JavaPlace& place,
                                      const JavaConstants& constants);

} // namespace pirol
