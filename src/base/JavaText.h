#pragma once

#include <string>
#include <string_view>

namespace pirol {

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
