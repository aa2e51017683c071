#pragma once

#include "app/RegistryText.h"

namespace pirol::registry {

/// The platform's store under the four operations of the registry. Raises what goes wrong with files and memory.

/// The value with its own type; nothing when there is none or one of another type than text and number.
std::optional<RegistryValue> ReadValue(std::string_view key, std::string_view name);

/// Sets the value, making the key if there is none.
void WriteValue(std::string_view key, std::string_view name, const RegistryValue& value);

} // namespace pirol::registry
