#pragma once

#include <string>
#include <string_view>

namespace pirol {

/// What Java says, in German. All texts are UTF-8.

/// An error that the compiler found: its own key ("compiler.err.expected"), what stands at the place, and its English
/// words, which are given where there is no German text for the key.
std::string CompileErrorText(std::string_view key, std::string_view place, std::string_view words);

/// Something thrown while the program ran: its class ("java.lang.ArithmeticException") and message, which may be empty.
std::string ExceptionText(std::string_view javaClass, std::string_view message);

} // namespace pirol
