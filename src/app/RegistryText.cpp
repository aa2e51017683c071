#include "app/RegistryText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace pirol {
namespace {

constexpr std::string_view numberMark = "dword:";
constexpr std::size_t numberDigits = 8;

struct Escape {
    char character;
    char letter; // stands for it behind a backslash
};

constexpr Escape escapes[] = {{'\\', '\\'}, {'"', '"'}, {'\n', 'n'}, {'\r', 'r'}};

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char character : text) {
        const auto* escape = std::find_if(std::begin(escapes), std::end(escapes),
                                          [character](const Escape& e) { return e.character == character; });
        if (escape == std::end(escapes))
            quoted += character;
        else
            quoted.append({'\\', escape->letter});
    }
    return quoted += '"';
}

std::optional<char> Unescaped(char letter) {
    for (const Escape& escape : escapes)
        if (escape.letter == letter)
            return escape.character;
    return std::nullopt;
}

/// Cuts a quoted text off the front of the rest and gives it; nothing when no whole one stands there.
std::optional<std::string> NextQuoted(std::string_view& rest) {
    if (!rest.starts_with('"'))
        return std::nullopt;
    std::string text;
    for (std::size_t i = 1; i < rest.size(); ++i) {
        if (rest[i] == '"') {
            rest.remove_prefix(i + 1);
            return text;
        }
        if (rest[i] != '\\') {
            text += rest[i];
            continue;
        }
        const std::optional<char> character = ++i < rest.size() ? Unescaped(rest[i]) : std::nullopt;
        if (!character)
            return std::nullopt;
        text += *character;
    }
    return std::nullopt;
}

std::optional<RegistryValue> ReadNumberValue(std::string_view text) {
    if (!text.starts_with(numberMark))
        return std::nullopt;
    text.remove_prefix(numberMark.size());
    std::uint32_t number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, 16);
    if (error != std::errc() || stop != end || text.size() > numberDigits)
        return std::nullopt;
    return static_cast<std::int32_t>(number);
}

/// The value of a line when it is one of that name.
std::optional<RegistryValue> ReadLine(std::string_view line, std::string_view name) {
    if (NextQuoted(line) != name || !line.starts_with('='))
        return std::nullopt;
    line.remove_prefix(1);
    if (auto text = NextQuoted(line); text && line.empty())
        return *text;
    return ReadNumberValue(line);
}

std::string LineOf(std::string_view name, const RegistryValue& value) {
    const std::string start = Quoted(name) + "=";
    if (const auto* text = std::get_if<std::string>(&value))
        return start + Quoted(*text);
    char digits[numberDigits];
    const auto number = static_cast<std::uint32_t>(std::get<std::int32_t>(value));
    const char* end = std::to_chars(std::begin(digits), std::end(digits), number, 16).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    return start + std::string(numberMark) + std::string(numberDigits - length, '0') + std::string(digits, length);
}

/// Where a value stands in the text, or where it can be put.
struct Place {
    std::optional<RegistryValue> value;
    std::size_t begin = 0; // of the value's line
    std::size_t end = 0;   // of that line or, without one, of the last line below the key; 0: there is no such key
};

Place FindPlace(std::string_view text, std::string_view key, std::string_view name) {
    Place place;
    bool inKey = false;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::size_t next = end + 1;
        // All of them: writing a value behind this line would take one off, and the line might become a heading.
        while (end > begin && text[end - 1] == '\r')
            --end;
        const std::string_view line = text.substr(begin, end - begin);
        if (line.starts_with('[') && line.ends_with(']'))
            inKey = line.substr(1, line.size() - 2) == key;
        if (inKey && !line.empty()) {
            place.value = ReadLine(line, name);
            place.begin = begin;
            place.end = end;
            if (place.value)
                return place;
        }
        begin = next;
    }
    return place;
}

} // namespace

std::optional<RegistryValue> FindRegistryValue(std::string_view text, std::string_view key, std::string_view name) {
    return FindPlace(text, key, name).value;
}

std::string WithRegistryValue(std::string_view text, std::string_view key, std::string_view name,
                              const RegistryValue& value) {
    const Place place = FindPlace(text, key, name);
    const std::string line = LineOf(name, value);
    std::string changed(text);
    if (place.value)
        return changed.replace(place.begin, place.end - place.begin, line);
    if (place.end > 0)
        return changed.insert(place.end, "\n" + line);
    if (!text.empty())
        changed += text.ends_with('\n') ? "\n" : "\n\n";
    return changed.append("[").append(key).append("]\n").append(line).append("\n");
}

} // namespace pirol
