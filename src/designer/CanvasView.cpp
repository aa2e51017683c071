#include "designer/CanvasView.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace pirol {
namespace {

constexpr std::size_t mostDigits = 4;

std::int64_t FloorOfRatio(std::int64_t dividend, std::int64_t divisor) {
    const std::int64_t ratio = dividend / divisor;
    return dividend % divisor < 0 ? ratio - 1 : ratio;
}

int Clamped(std::int64_t pixels) {
    constexpr std::int64_t far = 1 << 24; // beyond every window, and far from overflow
    return static_cast<int>(std::clamp(pixels, -far, far));
}

} // namespace

void CanvasView::SetZoom(int percent) {
    zoom_ = std::clamp(percent, leastZoom, mostZoom);
}

int CanvasView::NextZoom(bool larger) const {
    const auto* const next = std::upper_bound(std::begin(zoomSteps), std::end(zoomSteps), zoom_);
    if (larger)
        return next == std::end(zoomSteps) ? zoom_ : *next;
    const auto* const present = std::lower_bound(std::begin(zoomSteps), std::end(zoomSteps), zoom_);
    return present == std::begin(zoomSteps) ? zoom_ : *std::prev(present);
}

int CanvasView::ToScreen(int design) const {
    return Clamped(FloorOfRatio(std::int64_t{design} * zoom_ + 50, 100));
}

Rectangle CanvasView::ToScreen(const Rectangle& box) const {
    if (box.width <= 0 || box.height <= 0)
        return {};
    const int left = ToScreen(box.left);
    const int top = ToScreen(box.top);
    return {left, top, std::max(ToScreen(box.Right()) - left, 1), std::max(ToScreen(box.Bottom()) - top, 1)};
}

int CanvasView::ToDesign(int screen) const {
    return Clamped(FloorOfRatio((2 * std::int64_t{screen} + 1) * 100, 2 * std::int64_t{zoom_}));
}

Rectangle CanvasView::ToDesign(const Rectangle& area) const {
    const auto begin = [this](int screen) { return Clamped(FloorOfRatio(std::int64_t{screen} * 100, zoom_)); };
    const auto end = [this](int screen) { return Clamped(-FloorOfRatio(std::int64_t{screen} * -100, zoom_)); };
    const int left = begin(area.left);
    const int top = begin(area.top);
    return {left, top, end(area.Right()) - left, end(area.Bottom()) - top};
}

int CanvasView::ScrollFrom(int zoomBefore, int scrolledBefore, int distance) const {
    const std::int64_t place = std::int64_t{scrolledBefore} + distance;
    return Clamped(FloorOfRatio(2 * place * zoom_ + zoomBefore, 2 * std::int64_t{zoomBefore}) - distance);
}

std::optional<int> ZoomFromText(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    text.remove_prefix(begin);
    const std::size_t digits = std::min(text.find_first_not_of("0123456789"), text.size());
    const std::string_view rest = text.substr(digits);
    if (digits == 0 || digits > mostDigits || rest.find_first_not_of(" %") != std::string_view::npos)
        return std::nullopt;
    int percent = 0;
    for (const char digit : text.substr(0, digits))
        percent = 10 * percent + (digit - '0');
    return percent;
}

} // namespace pirol
