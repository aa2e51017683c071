#include "app/Registry.h"

#include "app/RegistryStore.h"

#include <exception>

namespace pirol::registry {
namespace {

std::string_view BeforeZero(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

template <class Value>
std::optional<Value> Read(std::string_view key, std::string_view name) {
    try {
        const std::optional<RegistryValue> value = ReadValue(key, name);
        if (value && std::holds_alternative<Value>(*value))
            return std::get<Value>(*value);
    } catch (const std::exception&) {
        // Preferences that cannot be read must not keep the program from starting.
    }
    return std::nullopt;
}

void Write(std::string_view key, std::string_view name, const RegistryValue& value) {
    try {
        WriteValue(key, name, value);
    } catch (const std::exception&) {
        // The preferences hold for this run. Losing them for the next one is no reason to disturb the user.
    }
}

} // namespace

std::string ReadText(std::string_view key, std::string_view name, std::string_view defaultText) {
    return std::string(BeforeZero(Read<std::string>(key, name).value_or(std::string(defaultText))));
}

std::int32_t ReadNumber(std::string_view key, std::string_view name, std::int32_t defaultNumber) {
    return Read<std::int32_t>(key, name).value_or(defaultNumber);
}

void WriteText(std::string_view key, std::string_view name, std::string_view text) {
    Write(key, name, std::string(BeforeZero(text)));
}

void WriteNumber(std::string_view key, std::string_view name, std::int32_t number) {
    Write(key, name, number);
}

} // namespace pirol::registry
