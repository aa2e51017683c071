#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace pirol {

/// A value of the per-user store: text or a 32-bit number.
using RegistryValue = std::variant<std::string, std::int32_t>;

/// The store as a text file, UTF-8, one value a line below the line that names its key:
///
///     [Software\Pirol]
///     "BlueJPath"="/usr/bin/bluej"
///     "GridStyle"=dword:00000001
///
/// Numbers are written in hexadecimal. In names and texts a backslash stands before a backslash, a quotation mark, and
/// the n and r that stand for line feed and carriage return. Key paths hold no line breaks. Lines that say nothing of
/// this kind are skipped; the first proper line with a name counts.

/// The value, or nothing when the text holds none of that name.
std::optional<RegistryValue> FindRegistryValue(std::string_view text, std::string_view key, std::string_view name);

/// The text with the value set. All other lines stay as they are, whatever they say.
std::string WithRegistryValue(std::string_view text, std::string_view key, std::string_view name,
                              const RegistryValue& value);

} // namespace pirol
