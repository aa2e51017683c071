#pragma once

#include "base/Rectangle.h"
#include "controls/Control.h"

class QPainter;

namespace pirol {

/// Components in the look they have in the running program, composed of the resources' bitmaps. Coordinates are those
/// of the painter, one unit per pixel of the designed window. Nothing is painted outside the given rectangles, and
/// captions of any length cost no more than what is seen of them.

/// Paints the control at its own position and size.
void PaintControl(QPainter& painter, const Control& control);

/// The border of the selected component, inside its rectangle.
void PaintSelectionBorder(QPainter& painter, const Rectangle& component);

/// The handle that resizes the selected component.
void PaintResizeHandle(QPainter& painter, const Rectangle& handle);

} // namespace pirol
