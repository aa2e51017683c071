#include "app/Preferences.h"

#include "app/Registry.h"
#include "model/Conversions.h"
#include "model/FileAccess.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace pirol {
namespace {

constexpr std::string_view key = "Software\\Pirol";
constexpr std::string_view blueJPathName = "BlueJPath";
constexpr std::string_view gridStyleName = "GridStyle";
constexpr std::string_view gridColorName = "GridColor";

constexpr std::int16_t lastGridStyle = 2;
constexpr std::uint32_t largestColour = 0xFFFFFF;

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

} // namespace

const std::string_view blueJFilter = onWindows ? "BlueJ.exe|BlueJ.exe" : "BlueJ.exe|BlueJ.exe;bluej";

Preferences Preferences::Load() {
    Preferences stored;
    stored.BlueJPath = registry::ReadText(key, blueJPathName);
    // Narrowed as the number was when it was a 16-bit integer from the start: only its lower half counts.
    const auto style = static_cast<std::int16_t>(registry::ReadNumber(key, gridStyleName));
    if (style >= 0 && style <= lastGridStyle)
        stored.GridStyle = style;
    const auto colour = static_cast<std::uint32_t>(registry::ReadNumber(key, gridColorName));
    if (colour <= largestColour)
        stored.GridColor = colour;
    return stored;
}

void Preferences::Save() const {
    registry::WriteNumber(key, gridColorName, static_cast<std::int32_t>(GridColor));
    registry::WriteNumber(key, gridStyleName, GridStyle);
    registry::WriteText(key, blueJPathName, BlueJPath);
}

bool IsBlueJProgram(std::string_view path) {
    std::error_code error;
    return EndsInProgramName(path) && std::filesystem::is_regular_file(PathOf(path), error);
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
