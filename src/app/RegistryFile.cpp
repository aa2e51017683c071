// The store of systems that have no registry.
#ifndef _WIN32

#include "app/RegistryStore.h"
#include "model/FileAccess.h"

#include <cstdlib>
#include <filesystem>

namespace pirol::registry {
namespace {

namespace fs = std::filesystem;

fs::path FolderFrom(const char* variable) {
    const char* value = std::getenv(variable);
    const fs::path folder = value == nullptr ? "" : value;
    // A relative path would mean another folder after every change of the working directory.
    return folder.is_absolute() ? folder : fs::path();
}

/// The store's file; an empty path when the user has no folder for it.
fs::path StoreFile() {
    fs::path folder = FolderFrom("XDG_CONFIG_HOME");
    if (folder.empty() && !FolderFrom("HOME").empty())
        folder = FolderFrom("HOME") / ".config";
    return folder.empty() ? folder : folder / "Pirol" / "registry.conf";
}

} // namespace

std::optional<RegistryValue> ReadValue(std::string_view key, std::string_view name) {
    const fs::path file = StoreFile();
    // Anything but an ordinary file is not ours, and reading a pipe would wait for its other end.
    if (!fs::is_regular_file(file))
        return std::nullopt;
    return FindRegistryValue(ReadFileBytes(file), key, name);
}

void WriteValue(std::string_view key, std::string_view name, const RegistryValue& value) {
    const fs::path file = StoreFile();
    if (file.empty())
        return;
    // A store that is there but cannot be read must not be replaced by one that has lost all its other values.
    const std::string text = fs::exists(file) ? ReadFileBytes(file) : std::string();
    fs::create_directories(file.parent_path());
    ReplaceFileBytes(file, WithRegistryValue(text, key, name, value));
}

} // namespace pirol::registry

#endif
