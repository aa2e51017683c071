#pragma once

#include "base/Rectangle.h"
#include "controls/dFortschritt.h"
#include "controls/dRegler.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace pirol {

/// Where the parts of components lie in the running program, in whole pixels from the component's top left corner.
/// The canvas draws them there, so that a design and its program coincide.

/// The line a slider's knob moves on, and the knob.
struct SliderLook {
    bool upright;     ///< higher than wide
    Rectangle track;  ///< with its outline
    Rectangle filled; ///< the part of the track on the minimum's side of the knob's middle
    Rectangle knob;
};

/// A start value outside minimum and maximum stands for the nearer one; without a range the knob lies at the minimum.
SliderLook LookOf(const dRegler& slider);

/// How many pixels of the inside are filled, from the left; the inside leaves out a border of one pixel.
int FilledWidth(const dFortschritt& bar);

/// How a table's columns share the width. A column has at least 15 pixels, so many columns need more than there is.
std::vector<int> ColumnWidths(std::size_t columns, int width);

/// The row of the window on which the letters of a component's text stand, when the text is one line in the middle of
/// its height.
std::optional<int> BaselineOf(const Control& control);

/// The length of the button at either end of a scroll bar that has room for both.
constexpr int scrollButtonLength = 16;

/// Where the thumb of a scroll bar of this length is when nothing is scrolled; nothing when everything is visible or
/// the bar is too short. `visible` and `total` are lengths of what is scrolled, in one unit.
struct Thumb {
    int begin;
    int length;
    bool operator==(const Thumb&) const = default;
};
std::optional<Thumb> ScrollThumb(int barLength, int visible, int total);
/// From this total on the thumb has its least length; nothing needs to be measured beyond.
int LongestUsefulTotal(int barLength, int visible);

/// How wide a font draws a character.
using Advance = std::function<int(char16_t)>;

/// The text as one line of the width shows it: whole, or as many characters as fit before "...", or, where not even one
/// fits, "..." alone. Reads no more of the text than the width can hold.
std::u16string FittedText(std::u16string_view text, int width, const Advance& advance);

/// The number of characters on the first line of a text that wraps at words; a word wider than the line is cut. At
/// least one character unless the text is empty. The blanks at a line's end may hang over.
std::size_t WrapPoint(std::u16string_view text, int width, const Advance& advance);

} // namespace pirol
