// The store of systems that have a registry: the current user's part of it.
#ifdef _WIN32

#include "app/RegistryStore.h"

#include <windows.h>
#include <cstring>

namespace pirol::registry {
namespace {

std::wstring Wide(std::string_view utf8) {
    const int size = static_cast<int>(utf8.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Utf8(std::wstring_view wide) {
    const int size = static_cast<int>(wide.size());
    const int length = WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(), length, nullptr, nullptr);
    return utf8;
}

/// An open key of the current user, closed at the end. A key that could not be opened holds no handle, and every
/// operation on it fails.
class Key {
  public:
    Key() = default;
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (handle_ != nullptr)
            RegCloseKey(handle_);
    }

    HKEY Handle() const { return handle_; }
    HKEY* Target() { return &handle_; }

  private:
    HKEY handle_ = nullptr;
};

RegistryValue TextValue(std::string_view bytes) {
    std::wstring wide(bytes.size() / sizeof(wchar_t), L'\0');
    std::memcpy(wide.data(), bytes.data(), wide.size() * sizeof(wchar_t));
    return Utf8(wide);
}

RegistryValue NumberValue(std::string_view bytes) {
    std::int32_t number = 0;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

void SetValue(const Key& key, std::string_view name, DWORD type, const void* data, std::size_t size) {
    RegSetValueExW(key.Handle(), Wide(name).c_str(), 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
}

} // namespace

std::optional<RegistryValue> ReadValue(std::string_view key, std::string_view name) {
    Key open;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, Wide(key).c_str(), 0, KEY_QUERY_VALUE, open.Target()) != ERROR_SUCCESS)
        return std::nullopt;
    const std::wstring wideName = Wide(name);
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(open.Handle(), wideName.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
        return std::nullopt;
    std::string bytes(size, '\0');
    auto* buffer = reinterpret_cast<BYTE*>(bytes.data());
    if (RegQueryValueExW(open.Handle(), wideName.c_str(), nullptr, &type, buffer, &size) != ERROR_SUCCESS)
        return std::nullopt;
    bytes.resize(size);
    if (type == REG_SZ)
        return TextValue(bytes);
    if (type == REG_DWORD && size == sizeof(std::int32_t))
        return NumberValue(bytes);
    return std::nullopt;
}

void WriteValue(std::string_view key, std::string_view name, const RegistryValue& value) {
    Key open;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, Wide(key).c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, open.Target(),
                        nullptr) != ERROR_SUCCESS)
        return;
    if (const auto* text = std::get_if<std::string>(&value)) {
        const std::wstring wide = Wide(*text);
        SetValue(open, name, REG_SZ, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
    } else {
        const std::int32_t number = std::get<std::int32_t>(value);
        SetValue(open, name, REG_DWORD, &number, sizeof number);
    }
}

} // namespace pirol::registry

#endif
