#include "codegen/JavaValues.h"

#include "base/Conversions.h"
#include "base/Text.h"
#include "codegen/JavaSyntax.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace pirol {
namespace {

/// Whether an octal escape at the text's end would take a digit that follows for its own.
bool EndsInOctalEscape(std::string_view text) {
    constexpr std::size_t longestEscape = 3;
    const std::string_view end = text.substr(text.size() - std::min(text.size(), longestEscape));
    const std::size_t backslash = end.rfind('\\');
    return backslash != std::string_view::npos &&
           end.find_first_not_of("01234567", backslash + 1) == std::string_view::npos;
}

/// The element's place in the array whose braces stand around a statement.
std::string ElementKey(const JavaPlace& place, std::size_t commasBefore) {
    std::string key(place.array);
    if (place.row)
        Append(key, "[", *place.row, "]");
    Append(key, "[", place.element + commasBefore, "]");
    return key;
}

} // namespace

std::optional<std::string> TextOf(JavaTokens expression) {
    std::string text;
    for (std::size_t index = 0; index < expression.size(); ++index) {
        const JavaToken& token = expression[index];
        const bool isSign = index % 2 == 1;
        if (isSign ? !token.IsSign("+") : token.kind != TokenKind::Text)
            return std::nullopt;
        if (isSign)
            continue;
        if (EndsInOctalEscape(text) && text.back() != '\\' && !token.text.empty() && token.text.front() >= '0' &&
            token.text.front() <= '7')
            return std::nullopt;
        if (text.size() + token.text.size() > longestConstant)
            return std::nullopt;
        text += token.text;
    }
    if (expression.size() % 2 == 0)
        return std::nullopt;
    // Only a damaged file has such codes in a text, and they separate fields in project files.
    if (text.find_first_of(std::string_view("\0\1", 2)) != std::string::npos)
        text = SingleLine(text);
    return text;
}

std::optional<std::string> FileNameOf(JavaTokens expression) {
    const std::optional<std::string> text = TextOf(expression);
    if (!text)
        return std::nullopt;
    for (std::size_t index = text->find('\\'); index != std::string::npos; index = text->find('\\', index + 2))
        if (!std::string_view(*text).substr(index + 1).starts_with('\\'))
            return std::nullopt;
    return ReplaceAll(*text, "\\\\", "\\");
}

std::optional<std::int16_t> NumberOf(JavaTokens expression, const JavaConstants& constants) {
    const std::optional<JavaNumber> number = Evaluate(expression, constants);
    const double rounded = number ? std::nearbyint(number->value) : std::numeric_limits<double>::infinity();
    using Limits = std::numeric_limits<std::int16_t>;
    if (rounded < Limits::min() || rounded > Limits::max())
        return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}

std::optional<std::int16_t> AlignmentOf(JavaTokens expression, const JavaConstants& constants) {
    constexpr std::string_view names[] = {"links", "mitte", "rechts"};
    const std::string last = expression.empty() ? std::string() : LowerCase(expression.back().text);
    const auto* const found = std::find(std::begin(names), std::end(names), last);
    if (found == std::end(names))
        return NumberOf(expression, constants);
    return static_cast<std::int16_t>(found - std::begin(names));
}

std::optional<std::string> KeyOf(const JavaVariable& variable, const JavaConstants& constants) {
    std::string key(variable.name);
    for (const JavaTokens index : variable.indices) {
        const std::optional<JavaNumber> number = Evaluate(index, constants);
        if (!number || !number->isWhole || number->value < 0)
            return std::nullopt;
        Append(key, "[", static_cast<std::int32_t>(number->value), "]");
    }
    return key;
}

std::vector<JavaCreation> CreationsIn(const JavaStatement& statement, const JavaPlace& place,
                                      const JavaConstants& constants) {
    std::vector<JavaCreation> creations;
    std::size_t commas = 0;
    std::size_t endOfBrackets = 0; // the element's own tokens stand outside of all brackets
    for (std::size_t index = 0; index < statement.Size(); ++index) {
        const bool isOutside = index >= endOfBrackets;
        if (isOutside && statement.Partner(index) != JavaStatement::none)
            endOfBrackets = statement.Partner(index);
        commas += isOutside && statement[index].IsSign(",") ? 1 : 0;
        if (!statement[index].IsWord("new"))
            continue;
        std::size_t name = index + 1;
        while (statement.HasSign(name + 1, "."))
            name += 2;
        if (!statement.HasSign(name + 1, "(") || !statement[name].IsWord())
            continue;
        JavaCreation creation{.className = statement[name].text, .token = index, .arguments = name + 1, .key = ""};
        if (index > 0 && statement[index - 1].IsSign("=")) {
            const JavaVariable variable = VariableBefore(statement, index - 1);
            creation.variable = variable.name;
            creation.key = KeyOf(variable, constants);
        } else if (isOutside && !place.array.empty()) {
            creation.variable = place.array;
            creation.key = ElementKey(place, commas);
        }
        creations.push_back(std::move(creation));
    }
    return creations;
}

} // namespace pirol
