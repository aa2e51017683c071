#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pirol {

/// Which colours the windows have. The numbers are stored.
enum class Appearance : std::int32_t { System, Light, Dark };

/// What a user prefers for all projects. It is kept in the per-user store and read once, when the program starts.
struct Preferences {
    std::string BlueJPath;        ///< the BlueJ program's file, UTF-8; empty when not known
    std::int16_t GridStyle = 0;   ///< 0, 1 or 2: the option chosen in the dialog; any other draws no marks
    std::uint32_t GridColor = 0;  ///< red in the low byte, then green and blue; 0 is black
    std::string JdkPath = {};     ///< the Java that tests programs, UTF-8; empty for the one that Pirol finds
    std::string SumPath = {};     ///< the library's archive or folder, UTF-8; empty for the one that Pirol finds
    bool LooksForUpdates = false; ///< once a week, after the start
    Appearance Look = Appearance::System;

    bool operator==(const Preferences&) const = default;

    /// Reads the stored preferences. What is missing, of the wrong type or out of its range is as above.
    static Preferences Load();
    /// Stores them. Failures are silent.
    void Save() const;
};

/// The filter of the dialog in which the user looks for BlueJ.
extern const std::string_view blueJFilter;

/// The path for the dialog's field after the user has looked for BlueJ: the chosen one if it is right, else the old
/// one. Right is an existing file whose path ends in "bluej.exe", in any case. Where the system is not Windows, BlueJ's
/// program is called "bluej" and that name is right too.
std::string BlueJPathAfterBrowsing(std::string_view current, std::string_view chosen);

/// What to tell the user who accepts this path, lines of CR LF; nothing when it is right. It only warns: the path is
/// kept whatever it is.
std::optional<std::string_view> BlueJPathWarning(std::string_view path);

} // namespace pirol
