#pragma once

#include "base/Rectangle.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pirol {

/// Where the main window stood when it was closed, and how wide its panels were. All in pixels.
struct WindowPlace {
    Rectangle box; ///< without the system's frame
    bool isMaximised = false;
    int toolboxWidth = 0; ///< 0 for the usual one, here and below
    int propertiesWidth = 0;
    int captionWidth = 0; ///< of the property list's first column

    bool operator==(const WindowPlace&) const = default;

    /// The place that was kept for screens of this kind; nothing when there is none or it is damaged.
    static std::optional<WindowPlace> Load(std::string_view screens);
    /// Keeps it for them. Failures are silent.
    void Save(std::string_view screens) const;
};

/// A name for the present screens, the same whenever they are set up like this.
std::string ScreensName(std::span<const Rectangle> screens);

/// The place moved and made smaller until it lies on a screen; enough of it to be seen and moved must have been there,
/// else nothing. There is one screen at least.
std::optional<Rectangle> OnScreens(const Rectangle& box, std::span<const Rectangle> screens);

} // namespace pirol
