#pragma once

#include "base/Rectangle.h"

#include <cstdint>
#include <vector>

namespace pirol {

/// The distance of the grid's points and of the positions that snapping allows, in pixels.
constexpr int gridSpacing = 10;

/// Rounds a pixel value to whole pixels (halves to even) and, with the grid on, to the nearest multiple of 10.
/// Negative values move towards zero: -7 becomes 0. Kept so that designs drawn past the left edge stay put.
/// Raises RuntimeError::Overflow when the result leaves the 16-bit range.
std::int16_t SnapToGrid(double pixels, bool gridOn);

/// How a grid point is marked, by the number that the preferences hold; any other number stands for no marks.
enum class GridStyle { Dots = 0, Crosses = 1, Lines = 2 };

/// What to fill with the grid's colour, as rectangles of whole pixels: the marks of the grid on a canvas of the given
/// size and the outline along its edge. Only those that reach into `dirty` are listed, lines cut to it.
std::vector<Rectangle> GridMarks(int gridStyle, int width, int height, const Rectangle& dirty);

} // namespace pirol
