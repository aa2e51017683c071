#pragma once

#include "base/Rectangle.h"

#include <optional>
#include <string_view>

namespace pirol {

/// How large the canvas shows the designed window, and which pixel of the screen belongs to which of the design. Both
/// count from the canvas's upper left corner. At 100 percent they are the same.
class CanvasView {
  public:
    static constexpr int leastZoom = 25;
    static constexpr int usualZoom = 100;
    static constexpr int mostZoom = 400;

    /// In percent.
    int Zoom() const { return zoom_; }
    double Factor() const { return zoom_ / 100.0; }
    /// Takes the nearest possible zoom.
    void SetZoom(int percent);
    /// The next larger or smaller usual zoom; the present one at either end.
    int NextZoom(bool larger) const;

    /// Where on the screen a pixel of the design begins, and where a rectangle lies. An empty one stays empty.
    int ToScreen(int design) const;
    Rectangle ToScreen(const Rectangle& box) const;
    /// The pixel of the design that is seen at the middle of a pixel of the screen.
    int ToDesign(int screen) const;
    /// The smallest rectangle of whole pixels of the design that covers the area of the screen.
    Rectangle ToDesign(const Rectangle& area) const;

    /// How far to scroll when the zoom has been another one before, so that what is seen at the given distance from the
    /// viewport's edge stays there.
    int ScrollFrom(int zoomBefore, int scrolledBefore, int distance) const;

  private:
    int zoom_ = usualZoom;
};

/// The zooms that a step leads to and that are offered, ascending, in percent.
inline constexpr int zoomSteps[] = {25, 33, 50, 67, 75, 100, 125, 150, 200, 300, 400};

/// The percentage that a user has typed ("150", "150 %"); nothing when it is no whole number of up to four digits.
std::optional<int> ZoomFromText(std::string_view text);

} // namespace pirol
