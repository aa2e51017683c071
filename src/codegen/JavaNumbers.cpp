#include "codegen/JavaNumbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace pirol {
namespace {

/// Of a source with more names than this none is taken for a constant.
constexpr std::size_t mostNames = 100'000;
constexpr int deepestExpression = 100;

constexpr std::string_view wholeTypes[] = {"int", "long", "short", "byte"};
constexpr std::string_view fractionTypes[] = {"double", "float"};
constexpr std::string_view assignments[] = {"=", "+=", "-=", "*=", "/=", "%=", "&=", "|=", "^=", "<<=", ">>="};

template <class List>
bool IsOneOf(const List& list, const JavaToken& token) {
    return std::find(std::begin(list), std::end(list), token.text) != std::end(list);
}

bool IsNumberType(const JavaToken& token) {
    return token.IsWord() && (IsOneOf(wholeTypes, token) || IsOneOf(fractionTypes, token));
}

std::optional<JavaNumber> InRange(double value, bool isWhole) {
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    if (!(std::abs(value) <= most))
        return std::nullopt;
    return JavaNumber{value, isWhole};
}

template <class Number, class... Format>
std::optional<JavaNumber> Parse(std::string_view digits, bool isWhole, Format... format) {
    Number number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, format...);
    if (error != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return InRange(static_cast<double>(number), isWhole);
}

std::optional<JavaNumber> ReadNumber(std::string_view literal) {
    constexpr std::size_t longest = 64;
    if (literal.size() > longest)
        return std::nullopt;
    std::string digits(literal);
    std::erase(digits, '_');
    const auto startsWith = [&](const char* lower, const char* upper) {
        return digits.starts_with(lower) || digits.starts_with(upper);
    };
    const int base = startsWith("0x", "0X") ? 16 : startsWith("0b", "0B") ? 2 : 10;
    if (digits.back() == 'l' || digits.back() == 'L')
        digits.pop_back();
    if (base != 10)
        return Parse<std::int64_t>(std::string_view(digits).substr(2), true, base);
    if (digits.find_first_not_of("0123456789") == std::string::npos)
        return Parse<std::int64_t>(digits, true, digits.front() == '0' ? 8 : 10);
    if (std::string_view("dDfF").find(digits.back()) != std::string_view::npos)
        digits.pop_back();
    return Parse<double>(digits, false);
}

/// Reads an expression from left to right; what cannot be read makes all of it unreadable.
class ExpressionReader {
  public:
    ExpressionReader(JavaTokens expression, const JavaConstants& constants)
        : rest_(expression), constants_(constants) {}

    std::optional<JavaNumber> Read() {
        const std::optional<JavaNumber> sum = ReadOperations(sumSigns);
        return rest_.empty() ? sum : std::nullopt;
    }

  private:
    static constexpr std::string_view sumSigns = "+-";
    static constexpr std::string_view productSigns = "*/%";

    /// Products between signs of a sum, or factors between signs of a product.
    std::optional<JavaNumber> ReadOperations(std::string_view signs) {
        const bool isSum = signs == sumSigns;
        const auto readOperand = [&] { return isSum ? ReadOperations(productSigns) : ReadFactor(); };
        std::optional<JavaNumber> left = readOperand();
        while (left && !rest_.empty() && IsSignOf(signs)) {
            const char sign = Take().text.front();
            const std::optional<JavaNumber> right = readOperand();
            left = right ? Calculate(*left, sign, *right) : std::nullopt;
        }
        return left;
    }

    std::optional<JavaNumber> ReadFactor() {
        if (rest_.empty() || ++depth_ > deepestExpression)
            return std::nullopt;
        std::optional<JavaNumber> factor;
        if (IsSignOf(sumSigns)) {
            const bool isNegative = Take().IsSign("-");
            factor = ReadFactor();
            if (factor && isNegative)
                factor->value = -factor->value;
        } else if (rest_.front().IsSign("(")) {
            Take();
            factor = IsCast() ? ReadCast() : ReadInParentheses();
        } else if (rest_.front().kind == TokenKind::Number) {
            factor = ReadNumber(Take().text);
        } else if (rest_.front().IsWord()) {
            factor = ReadConstant();
        }
        --depth_;
        return factor;
    }

    bool IsCast() const { return rest_.size() > 1 && IsNumberType(rest_[0]) && rest_[1].IsSign(")"); }

    std::optional<JavaNumber> ReadCast() {
        const bool isWhole = IsOneOf(wholeTypes, Take());
        Take();
        const std::optional<JavaNumber> factor = ReadFactor();
        if (!factor)
            return std::nullopt;
        return JavaNumber{isWhole ? std::trunc(factor->value) : factor->value, isWhole};
    }

    std::optional<JavaNumber> ReadInParentheses() {
        const std::optional<JavaNumber> sum = ReadOperations(sumSigns);
        if (rest_.empty() || !Take().IsSign(")"))
            return std::nullopt;
        return sum;
    }

    /// A name, perhaps behind "this" or a class.
    std::optional<JavaNumber> ReadConstant() {
        std::string_view name = Take().text;
        while (rest_.size() > 1 && rest_[0].IsSign(".") && rest_[1].IsWord()) {
            Take();
            name = Take().text;
        }
        return constants_.Find(name);
    }

    static std::optional<JavaNumber> Calculate(const JavaNumber& left, char sign, const JavaNumber& right) {
        const bool isWhole = left.isWhole && right.isWhole;
        switch (sign) {
        case '+':
            return InRange(left.value + right.value, isWhole);
        case '-':
            return InRange(left.value - right.value, isWhole);
        case '*':
            return InRange(left.value * right.value, isWhole);
        default:
            break;
        }
        if (right.value == 0)
            return std::nullopt;
        if (sign == '%')
            return JavaNumber{std::fmod(left.value, right.value), isWhole};
        const double quotient = left.value / right.value;
        return InRange(isWhole ? std::trunc(quotient) : quotient, isWhole);
    }

    bool IsSignOf(std::string_view signs) const {
        return rest_.front().kind == TokenKind::Sign && rest_.front().text.size() == 1 &&
               signs.find(rest_.front().text) != std::string_view::npos;
    }

    const JavaToken& Take() {
        const JavaToken& token = rest_.front();
        rest_ = rest_.subspan(1);
        return token;
    }

    JavaTokens rest_;
    const JavaConstants& constants_;
    int depth_ = 0;
};

} // namespace

std::optional<JavaNumber> Evaluate(JavaTokens expression, const JavaConstants& constants) {
    return ExpressionReader(expression, constants).Read();
}

void JavaConstants::Read(const JavaStatement& statement) {
    const auto counts = [&](std::size_t place) {
        return statement.HasSign(place, "++") || statement.HasSign(place, "--");
    };
    for (std::size_t index = 0; index < statement.Size(); ++index) {
        if (!statement[index].IsWord())
            continue;
        const bool hasNext = index + 1 < statement.Size();
        if (IsNumberType(statement[index]) && hasNext && statement[index + 1].IsWord())
            index = ReadDeclarations(statement, index);
        else if ((hasNext && IsOneOf(assignments, statement[index + 1])) || counts(index + 1) ||
                 (index > 0 && counts(index - 1)))
            Declare(statement[index].text, std::nullopt);
    }
}

/// Reads "int a = 1, b = 2", a method's parameter or what a loop counts, and gives its last token.
std::size_t JavaConstants::ReadDeclarations(const JavaStatement& statement, std::size_t type) {
    // What a loop or a method declares in its parentheses changes from turn to turn.
    const bool isStatement = type == 0 || statement[type - 1].IsWord();
    std::size_t name = type + 1;
    for (;;) {
        std::size_t end = name + 1;
        std::optional<JavaNumber> number;
        if (statement.HasSign(end, "=")) {
            while (end < statement.Size() && !statement[end].IsSign(",") && !statement[end].IsSign(")"))
                end = (statement.Partner(end) == JavaStatement::none ? end : statement.Partner(end)) + 1;
            if (isStatement)
                number = Evaluate(statement.All().subspan(name + 2, end - name - 2), *this);
        }
        const bool keepsFraction = IsOneOf(fractionTypes, statement[type]);
        if (number && !keepsFraction && !number->isWhole)
            number.reset();
        if (number)
            number->isWhole = !keepsFraction;
        Declare(statement[name].text, number);
        const bool goesOn = statement.HasSign(end, ",") && end + 1 < statement.Size() && statement[end + 1].IsWord() &&
                            (end + 2 == statement.Size() || !statement[end + 2].IsWord());
        if (!goesOn)
            return end - 1;
        name = end + 1;
    }
}

void JavaConstants::Declare(std::string_view name, const std::optional<JavaNumber>& number) {
    if (numbers_.size() == mostNames && !numbers_.contains(name))
        return;
    const auto [place, isNew] = numbers_.try_emplace(name, number);
    if (!isNew && place->second != number)
        place->second.reset();
}

std::optional<JavaNumber> JavaConstants::Find(std::string_view name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() || numbers_.size() == mostNames ? std::nullopt : found->second;
}

} // namespace pirol
