#include "designer/ComponentLook.h"

#include "controls/dEtikett.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace pirol {
namespace {

constexpr int knobLength = 15; // along the track
constexpr int knobDepth = 16;
constexpr int trackDepth = 6;
constexpr int trackOffset = 5; // of the track from the knob's flat side

/// Of the fonts that Java calls "Dialog", for a size of 1 pixel.
constexpr double ascentShare = 0.928;
constexpr double descentShare = 0.236;
constexpr int usualTextSize = 12;

constexpr int smallestThumb = 15;
constexpr int smallestColumn = 15;

/// Both ends of the thumb's way overlap the buttons by their border.
constexpr int ThumbWay(int barLength) {
    return barLength - 2 * scrollButtonLength + 2;
}

/// The share of the way from minimum to maximum at which the value lies, from 0 to 1.
double ShareOf(int value, int minimum, int maximum) {
    if (minimum >= maximum)
        return 0;
    return static_cast<double>(std::clamp(value, minimum, maximum) - minimum) / (maximum - minimum);
}

int Rounded(double value) {
    return static_cast<int>(std::floor(value + 0.5));
}

Rectangle Turned(const Rectangle& box) {
    return {box.top, box.left, box.height, box.width};
}

constexpr std::u16string_view ellipsis = u"...";

/// How many characters fit into the width one after another.
std::size_t Fitting(std::u16string_view text, int width, const Advance& advance) {
    std::size_t count = 0;
    for (int used = 0; count < text.size(); ++count) {
        used += advance(text[count]);
        if (used > width)
            break;
    }
    return count;
}

} // namespace

SliderLook LookOf(const dRegler& slider) {
    const bool upright = slider.Height > slider.Width;
    const int length = upright ? slider.Height : slider.Width;
    const int depth = upright ? slider.Width : slider.Height;
    const int begin = knobLength / 2;
    const int wayLength = length - 2 * begin;
    const int side = (depth - knobDepth - 1) / 2;

    // Values grow to the right, or upwards.
    const double share = ShareOf(slider.Value, slider.Min, slider.Max);
    const int way = std::clamp(Rounded((upright ? 1 - share : share) * wayLength), 0, std::max(wayLength - 1, 0));

    const Rectangle track{begin, side + trackOffset, std::max(wayLength - 1, 0), trackDepth};
    const Rectangle filled = upright ? Rectangle{begin + way, track.top, std::max(track.width - way, 0), trackDepth}
                                     : Rectangle{begin, track.top, std::min(way, track.width), trackDepth};
    const Rectangle knob{way, side, knobLength, knobDepth};
    if (upright)
        return {true, Turned(track), Turned(filled), Turned(knob)};
    return {false, track, filled, knob};
}

int FilledWidth(const dFortschritt& bar) {
    return Rounded(ShareOf(bar.Value, bar.Min, bar.Max) * std::max(bar.Width - 2, 0));
}

std::vector<int> ColumnWidths(std::size_t columns, int width) {
    std::vector<int> widths(columns);
    for (std::size_t column = 0; column < columns; ++column) {
        const double share = static_cast<double>(width) / static_cast<double>(columns - column);
        widths[column] = std::max(Rounded(share), smallestColumn);
        width = std::max(width - widths[column], 0);
    }
    return widths;
}

std::optional<Thumb> ScrollThumb(int barLength, int visible, int total) {
    const int way = ThumbWay(barLength);
    if (total <= visible || visible <= 0)
        return std::nullopt;
    const int length = std::max(static_cast<int>(static_cast<double>(way) * visible / total), smallestThumb);
    if (length >= way)
        return std::nullopt;
    return Thumb{scrollButtonLength - 1, length};
}

int LongestUsefulTotal(int barLength, int visible) {
    return std::max(ThumbWay(barLength), 0) * std::max(visible, 0) / smallestThumb + 1;
}

std::optional<int> BaselineOf(const Control& control) {
    using enum ComponentKind;
    constexpr ComponentKind oneLine[] = {Label, Button, TextField, Password, CheckBox, ComboBox};
    if (std::find(std::begin(oneLine), std::end(oneLine), control.Kind()) == std::end(oneLine))
        return std::nullopt;
    const int fontSize = control.Kind() == Label ? static_cast<const dEtikett&>(control).FontSize : usualTextSize;
    const int size = fontSize == dEtikett::defaultFontSize ? usualTextSize : std::max(fontSize, 1);
    const int ascent = static_cast<int>(size * ascentShare + 0.95); // rounded as Java does
    const int descent = static_cast<int>(size * descentShare + 0.95);
    return control.Top + (control.Height - ascent - descent) / 2 + ascent;
}

std::u16string FittedText(std::u16string_view text, int width, const Advance& advance) {
    if (Fitting(text, width, advance) == text.size())
        return std::u16string(text);
    for (const char16_t point : ellipsis)
        width -= advance(point);
    std::u16string fitted(text.substr(0, width > 0 ? Fitting(text, width, advance) : 0));
    return fitted.append(ellipsis);
}

std::size_t WrapPoint(std::u16string_view text, int width, const Advance& advance) {
    const std::size_t fitting = Fitting(text, width, advance);
    if (fitting == text.size())
        return fitting;
    for (std::size_t last = fitting + 1; last > 0; --last)
        if (text[last - 1] == u' ')
            return last;
    return std::max<std::size_t>(fitting, 1);
}

} // namespace pirol
