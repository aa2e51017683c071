#include "base/Conversions.h"

#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace pirol {
namespace {

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

/// Sign, digits and at most one comma or point; no exponent, no grouping.
bool HasNumberShape(std::string_view text) {
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    const auto digits = std::count_if(text.begin(), text.end(), IsDigit);
    const auto marks = std::count_if(text.begin(), text.end(), [](char c) { return c == ',' || c == '.'; });
    return digits > 0 && marks <= 1 && digits + marks == static_cast<std::ptrdiff_t>(text.size());
}

/// A fraction of exactly one half goes to the even neighbour, every other to the nearer one.
/// Works on the digits themselves, so that no fraction is too long to be told from one half.
bool RoundsUp(std::string_view fraction, bool odd) {
    if (fraction.empty() || fraction.front() != '5')
        return !fraction.empty() && fraction.front() > '5';
    return odd || fraction.find_first_not_of('0', 1) != std::string_view::npos;
}

} // namespace

std::int16_t ToInt16(std::string_view text) {
    // Nearly all numbers in files are plain; everything else goes the slower way below.
    std::int16_t plain = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), plain);
    if (error == std::errc() && end == text.data() + text.size())
        return plain;

    text = Trim(text);
    if (!HasNumberShape(text))
        throw RuntimeError(RuntimeError::TypeMismatch);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+')
        text.remove_prefix(1);
    const std::size_t mark = std::min(text.find_first_of(",."), text.size());
    const std::string_view whole = text.substr(0, mark);
    const std::string_view fraction = text.substr(std::min(mark + 1, text.size()));

    int value = 0;
    if (std::from_chars(whole.data(), whole.data() + whole.size(), value).ec == std::errc::result_out_of_range ||
        value > std::numeric_limits<std::uint16_t>::max())
        throw RuntimeError(RuntimeError::Overflow);
    if (RoundsUp(fraction, value % 2 != 0))
        ++value;
    return ToInt16(negative ? -value : value);
}

std::int16_t ToInt16(double value) {
    // The default rounding mode of the floating-point unit: halves to even.
    const double rounded = std::nearbyint(value);
    constexpr std::numeric_limits<std::int16_t> range;
    if (!(rounded >= range.min() && rounded <= range.max()))
        throw RuntimeError(RuntimeError::Overflow);
    return static_cast<std::int16_t>(rounded);
}

std::int16_t ToInt16(int value) {
    constexpr std::numeric_limits<std::int16_t> range;
    if (value < range.min() || value > range.max())
        throw RuntimeError(RuntimeError::Overflow);
    return static_cast<std::int16_t>(value);
}

bool IsNumeric(std::string_view text) {
    return HasNumberShape(Trim(text));
}

bool ConvertToBoolean(std::string_view text) {
    // Longer texts cannot match; the limit spares lower-casing a huge field.
    if (text.size() > 4)
        return false;
    const std::string lower = LowerCase(text);
    return lower == "wahr" || lower == "true" || lower == "-1";
}

std::string_view FlagText(bool flag) {
    return flag ? "Wahr" : "Falsch";
}

std::vector<std::string_view> Split(std::string_view text, char separator, std::size_t mostPieces) {
    std::vector<std::string_view> pieces;
    const auto separators = static_cast<std::size_t>(std::count(text.begin(), text.end(), separator));
    pieces.reserve(std::min(separators + 1, mostPieces));
    while (pieces.size() < mostPieces) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return pieces;
}

std::vector<std::string> ListItems(std::string_view list) {
    std::vector<std::string> items;
    if (list.empty())
        return items;
    // Reserved exactly: a damaged file may hold a list of millions.
    items.reserve(static_cast<std::size_t>(std::count(list.begin(), list.end(), fieldSeparator)) + 1);
    for (std::size_t end = list.find(fieldSeparator); end != std::string_view::npos; end = list.find(fieldSeparator)) {
        items.emplace_back(list.substr(0, end));
        list.remove_prefix(end + 1);
    }
    items.emplace_back(list);
    return items;
}

std::string JoinList(const std::vector<std::string>& items) {
    std::string list;
    for (const std::string& item : items) {
        if (&item != &items.front())
            list += fieldSeparator;
        list += item;
    }
    return list;
}

std::string SingleLine(std::string_view text) {
    constexpr char separators[] = {'\r', '\n', fieldSeparator, itemSeparator};
    std::string line(text);
    for (char& character : line)
        if (std::find(std::begin(separators), std::end(separators), character) != std::end(separators))
            character = ' ';
    return line;
}

std::string_view TrimLeft(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string_view Trim(std::string_view text) {
    text = TrimLeft(text);
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string ReplaceAll(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    result.reserve(text.size());
    std::size_t begin = 0;
    for (std::size_t hit = text.find(what); hit != std::string_view::npos; hit = text.find(what, begin)) {
        result.append(text, begin, hit - begin).append(with);
        begin = hit + what.size();
    }
    return result.append(text, begin);
}

std::string Excerpt(std::string_view text) {
    constexpr std::size_t mostBytes = 60;
    std::string excerpt = Shortened(text, mostBytes);
    for (char& character : excerpt)
        if ((character >= 0 && character < ' ') || character == '\x7F')
            character = ' ';
    return excerpt;
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& character : lower)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return lower;
}

} // namespace pirol
