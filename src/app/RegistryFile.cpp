// The store of systems that have no registry.
#ifndef _WIN32

#include "app/RegistryStore.h"
#include "base/FileAccess.h"
#include "base/UserFolder.h"

#include <filesystem>

namespace pirol::registry {
namespace {

namespace fs = std::filesystem;

/// The store's file; an empty path when the user has no folder for it.
fs::path StoreFile() {
    const fs::path folder = UserFolder("XDG_CONFIG_HOME", ".config");
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
