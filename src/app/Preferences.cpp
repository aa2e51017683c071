#include "app/Preferences.h"

#include "app/Registry.h"
#include "base/Conversions.h"
#include "base/FileAccess.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace pirol {
namespace {

constexpr std::string_view key = "Software\\Pirol";
constexpr std::string_view blueJPathName = "BlueJPath";
constexpr std::string_view jdkPathName = "JdkPath";
constexpr std::string_view sumPathName = "SumPath";
constexpr std::string_view gridStyleName = "GridStyle";
constexpr std::string_view gridColorName = "GridColor";
constexpr std::string_view looksForUpdatesName = "UpdateWeekly";
constexpr std::string_view appearanceName = "Appearance";

constexpr std::string_view programName = "bluej.exe";
#ifdef _WIN32
constexpr bool onWindows = true;
#else
constexpr bool onWindows = false;
#endif

bool EndsInProgramName(std::string_view path) {
    if (LowerCase(path.substr(path.size() - std::min(path.size(), programName.size()))) == programName)
        return true;
    return !onWindows && PathOf(path).filename() == "bluej";
}

bool IsBlueJProgram(std::string_view path) {
    std::error_code error;
    return EndsInProgramName(path) && std::filesystem::is_regular_file(PathOf(path), error);
}

Appearance AppearanceOf(std::int32_t stored) {
    const auto appearance = static_cast<Appearance>(stored);
    return appearance == Appearance::Light || appearance == Appearance::Dark ? appearance : Appearance::System;
}

} // namespace

const std::string_view blueJFilter = onWindows ? "BlueJ.exe|BlueJ.exe" : "BlueJ.exe|BlueJ.exe;bluej";

Preferences Preferences::Load() {
    Preferences stored;
    stored.BlueJPath = registry::ReadText(key, blueJPathName);
    stored.JdkPath = registry::ReadText(key, jdkPathName);
    stored.SumPath = registry::ReadText(key, sumPathName);
    // Only the lower half of the stored number counts. A style that the dialog does not offer stays: it draws no marks.
    stored.GridStyle = static_cast<std::int16_t>(registry::ReadNumber(key, gridStyleName));
    stored.GridColor = static_cast<std::uint32_t>(registry::ReadNumber(key, gridColorName));
    stored.LooksForUpdates = registry::ReadNumber(key, looksForUpdatesName) == 1;
    stored.Look = AppearanceOf(registry::ReadNumber(key, appearanceName));
    return stored;
}

void Preferences::Save() const {
    registry::WriteNumber(key, gridColorName, static_cast<std::int32_t>(GridColor));
    registry::WriteNumber(key, gridStyleName, GridStyle);
    registry::WriteText(key, blueJPathName, BlueJPath);
    // Nobody who has not chosen them finds them in his store.
    for (const auto& [name, path] : {std::pair{jdkPathName, &JdkPath}, {sumPathName, &SumPath}})
        if (*path != registry::ReadText(key, name))
            registry::WriteText(key, name, *path);
    if (LooksForUpdates || registry::ReadNumber(key, looksForUpdatesName) != 0)
        registry::WriteNumber(key, looksForUpdatesName, LooksForUpdates ? 1 : 0);
    if (Look != AppearanceOf(registry::ReadNumber(key, appearanceName)))
        registry::WriteNumber(key, appearanceName, static_cast<std::int32_t>(Look));
}

std::string BlueJPathAfterBrowsing(std::string_view current, std::string_view chosen) {
    return std::string(IsBlueJProgram(chosen) ? chosen : current);
}

std::optional<std::string_view> BlueJPathWarning(std::string_view path) {
    if (IsBlueJProgram(path))
        return std::nullopt;
    return "Der BlueJ - Pfad ist fehlerhaft.\r\nEinige Funktionen können daher nicht arbeiten";
}

} // namespace pirol
