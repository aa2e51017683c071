#include "app/WindowPlace.h"

#include "app/Registry.h"
#include "base/Conversions.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

#include <algorithm>
#include <array>

namespace pirol {
namespace {

constexpr std::string_view key = "Software\\Pirol\\Window";
constexpr int leastSize = 200;
constexpr int leastSeen = 60; ///< pixels of the window, in both directions
constexpr int widestPanel = 2000;

/// The numbers of a text, all of them within 16 bits.
std::optional<std::array<int, 8>> Numbers(std::string_view text) {
    std::array<int, 8> numbers = {};
    const std::vector<std::string_view> words = Split(text, ' ');
    if (words.size() != numbers.size())
        return std::nullopt;
    try {
        std::transform(words.begin(), words.end(), numbers.begin(),
                       [](std::string_view word) { return ToInt16(word); });
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
    return numbers;
}

} // namespace

std::optional<WindowPlace> WindowPlace::Load(std::string_view screens) {
    const auto numbers = Numbers(registry::ReadText(key, screens));
    if (!numbers)
        return std::nullopt;
    const auto [left, top, width, height, isMaximised, toolbox, properties, captions] = *numbers;
    const auto isPanel = [](int panel) { return panel >= 0 && panel <= widestPanel; };
    if (width < leastSize || height < leastSize || !isPanel(toolbox) || !isPanel(properties) || !isPanel(captions))
        return std::nullopt;
    return WindowPlace{{left, top, width, height}, isMaximised != 0, toolbox, properties, captions};
}

void WindowPlace::Save(std::string_view screens) const {
    const std::string text =
        Concatenate(box.left, " ", box.top, " ", box.width, " ", box.height, " ", isMaximised ? 1 : 0, " ",
                    toolboxWidth, " ", propertiesWidth, " ", captionWidth);
    if (text != registry::ReadText(key, screens))
        registry::WriteText(key, screens, text);
}

std::string ScreensName(std::span<const Rectangle> screens) {
    std::string name;
    for (const Rectangle& screen : screens)
        Append(name, name.empty() ? "" : " ", screen.width, "x", screen.height, "+", screen.left, "+", screen.top);
    return name;
}

std::optional<Rectangle> OnScreens(const Rectangle& box, std::span<const Rectangle> screens) {
    const auto seen = [&box](const Rectangle& screen) {
        const int across = std::min(box.Right(), screen.Right()) - std::max(box.left, screen.left);
        const int down = std::min(box.Bottom(), screen.Bottom()) - std::max(box.top, screen.top);
        return std::min(across, down);
    };
    const auto screen = std::max_element(screens.begin(), screens.end(),
                                         [&](const Rectangle& a, const Rectangle& b) { return seen(a) < seen(b); });
    if (seen(*screen) < leastSeen)
        return std::nullopt;
    Rectangle place = box;
    place.width = std::min(place.width, screen->width);
    place.height = std::min(place.height, screen->height);
    place.left = std::clamp(place.left, screen->left, screen->Right() - place.width);
    place.top = std::clamp(place.top, screen->top, screen->Bottom() - place.height);
    return place;
}

} // namespace pirol
