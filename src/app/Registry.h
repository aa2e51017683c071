#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// The per-user store of typed values, each addressed by a key path such as "Software\Pirol" and a value name.
/// On Windows the registry below HKEY_CURRENT_USER, with the types REG_SZ and REG_DWORD; elsewhere the file
/// Pirol/registry.conf in the user's configuration folder ($XDG_CONFIG_HOME or ~/.config).
///
/// No operation reports an error: what cannot be read is the default, what cannot be written stays as it was. Texts are
/// UTF-8 and end at the first character of code 0.
namespace pirol::registry {

/// The value if it is there and of the right type, otherwise the default.
std::string ReadText(std::string_view key, std::string_view name, std::string_view defaultText = {});
std::int32_t ReadNumber(std::string_view key, std::string_view name, std::int32_t defaultNumber = 0);

/// Set the value, making the key if there is none; a value of another type is replaced.
void WriteText(std::string_view key, std::string_view name, std::string_view text);
void WriteNumber(std::string_view key, std::string_view name, std::int32_t number);

} // namespace pirol::registry
