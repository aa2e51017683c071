#pragma once

#include <charconv>
#include <concepts>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

namespace pirol {

/// Appends texts and whole numbers one after another; numbers in decimal without grouping.
template <class... Pieces>
void Append(std::string& out, const Pieces&... pieces) {
    const auto appendOne = [&out](const auto& piece) {
        if constexpr (std::integral<std::remove_cvref_t<decltype(piece)>>) {
            char digits[24];
            out.append(digits, std::to_chars(digits, digits + sizeof digits, piece).ptr);
        } else {
            out += std::string_view(piece);
        }
    };
    (appendOne(pieces), ...);
}

template <class... Pieces>
std::string Concatenate(const Pieces&... pieces) {
    const auto mostCharacters = [](const auto& piece) {
        if constexpr (std::integral<std::remove_cvref_t<decltype(piece)>>)
            return std::size_t{std::numeric_limits<std::remove_cvref_t<decltype(piece)>>::digits10} + 2;
        else
            return std::string_view(piece).size();
    };
    std::string text;
    text.reserve((mostCharacters(pieces) + ...));
    Append(text, pieces...);
    return text;
}

/// A Java string literal of the text exactly as typed. Quotes and backslashes in it are not escaped, on purpose: pupils
/// see in the program what they typed, and may type escapes themselves.
std::string Quoted(std::string_view text);

/// A Java string literal of a file name: every backslash is doubled.
std::string QuotedFileName(std::string_view fileName);

/// One statement of a method body: eight blanks, the object, the call, CR LF.
/// `arguments` is the text between the parentheses.
std::string CallStatement(std::string_view object, std::string_view method, std::string_view arguments);

/// The statement that registers the handler method object + suffix for the event of that suffix.
std::string HandlerRegistration(std::string_view object, std::string_view suffix);

/// The empty handler method object + suffix with its comment line, followed by an empty line.
std::string HandlerStub(std::string_view object, std::string_view suffix);

/// The declaration line of a field, indented by four blanks.
std::string FieldDeclaration(std::string_view javaClass, std::string_view object);

} // namespace pirol
