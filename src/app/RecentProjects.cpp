#include "app/RecentProjects.h"

#include "app/Registry.h"
#include "base/Conversions.h"
#include "base/FileAccess.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace pirol::recentprojects {
namespace {

constexpr std::string_view key = "Software\\Pirol";
constexpr std::string_view valueName = "RecentProjects";

void Store(const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths)
        text += path + "\n";
    if (text != registry::ReadText(key, valueName))
        registry::WriteText(key, valueName, text);
}

} // namespace

std::vector<std::string> Load() {
    std::vector<std::string> paths;
    const std::string text = registry::ReadText(key, valueName);
    for (const std::string_view line : Split(text, '\n'))
        if (paths.size() < mostProjects && PathOf(line).is_absolute() &&
            std::find(paths.begin(), paths.end(), line) == paths.end())
            paths.emplace_back(line);
    return paths;
}

void Add(std::string_view path) {
    std::error_code error;
    const std::string absolute = TextOf(std::filesystem::absolute(PathOf(path), error).lexically_normal());
    if (error || absolute.find('\n') != std::string::npos)
        return;
    std::vector<std::string> paths = Load();
    std::erase(paths, absolute);
    paths.insert(paths.begin(), absolute);
    paths.resize(std::min(paths.size(), mostProjects));
    Store(paths);
}

void Forget(std::string_view path) {
    std::vector<std::string> paths = Load();
    std::erase(paths, path);
    Store(paths);
}

void ForgetAll() {
    Store({});
}

} // namespace pirol::recentprojects
