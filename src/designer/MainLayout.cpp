#include "designer/MainLayout.h"

#include "base/Conversions.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace pirol {
namespace {

constexpr int leastPanelWidth = 120;
constexpr int leastFrameWidth = 240;

struct WindowSize {
    int width;
    int height;
};

/// For designed windows of 320 x 240, 640 x 480 and 800 x 600. The first one's height does not follow the pattern of
/// the others; it is meant.
constexpr WindowSize presets[] = {{328, 328}, {648, 546}, {808, 666}};

/// One direction of the canvas in its frame.
struct Span {
    int position;
    bool scrolls;
    std::int16_t maximum;
};

/// Takes the sizes as they were computed, negative ones too.
Span PlaceCanvas(int frameSize, int designedSize) {
    const int room = frameSize - barThickness;
    if (designedSize > frameSize)
        return {0, true, ToInt16((designedSize - room) / static_cast<double>(scrollStep) + 1)};
    return {static_cast<int>(std::nearbyint((room - designedSize) / 2.0)), false, 0};
}

int NotNegative(int size) {
    return std::max(size, 0);
}

} // namespace

PanelWidths PossibleWidths(PanelWidths wanted, int innerWidth) {
    const int room = innerWidth - leastFrameWidth;
    const PanelWidths usual;
    if (room < usual.toolbar + usual.properties)
        return usual;
    PanelWidths panels;
    panels.toolbar = std::clamp(wanted.toolbar, leastPanelWidth, room - leastPanelWidth);
    panels.properties = std::clamp(wanted.properties, leastPanelWidth, room - panels.toolbar);
    return panels;
}

MainLayout LayOutMainWindow(int innerWidth, int innerHeight, int designedWidth, int designedHeight,
                            PanelWidths panels) {
    const int frameWidth = innerWidth - panels.toolbar - panels.properties;
    const int frameHeight = innerHeight - 2 * rowHeight;
    const int height = NotNegative(frameHeight);
    const int barLeft = NotNegative(frameWidth - barThickness);
    const int barTop = NotNegative(frameHeight - barThickness);
    const Span across = PlaceCanvas(frameWidth, designedWidth);
    const Span down = PlaceCanvas(frameHeight, designedHeight);
    return {
        .frame = {panels.toolbar, rowHeight, NotNegative(frameWidth), height},
        .toolbar = {0, rowHeight, panels.toolbar, height},
        .headings = {0, 0, innerWidth, rowHeight},
        .status = {0, innerHeight - rowHeight, innerWidth, rowHeight},
        .list = {innerWidth - panels.properties, rowHeight, panels.properties, height},
        .canvas = {across.position, down.position, designedWidth, designedHeight},
        .vertical = {{barLeft, 0, barThickness, barTop}, down.scrolls, down.maximum},
        .horizontal = {{0, barTop, barLeft, barThickness}, across.scrolls, across.maximum},
    };
}

std::int16_t ScrolledPosition(int barValue) {
    return ToInt16(-ToInt16(barValue * scrollStep));
}

int BarValueToShow(int begin, int end, int room, int barValue, int barMaximum) {
    const int last = std::max(begin, 0) / scrollStep;                          // beyond, the beginning is hidden
    const int first = (std::max(end - room, 0) + scrollStep - 1) / scrollStep; // before, the end is hidden
    return std::clamp(std::min(std::max(barValue, first), last), 0, barMaximum);
}

std::optional<Rectangle> WindowPreset(int entry, int screenWidth, int screenHeight) {
    if (entry < 0 || entry >= static_cast<int>(std::size(presets)))
        return std::nullopt;
    const WindowSize size = presets[entry];
    return Rectangle{(screenWidth - size.width) / 2, (screenHeight - size.height) / 2, size.width, size.height};
}

} // namespace pirol
