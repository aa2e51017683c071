#pragma once

#include "base/Rectangle.h"
#include "controls/Control.h"
#include "ui/canvas/PictureFile.h"

class QColor;
class QPainter;
class QRect;

namespace pirol {

/// Components in the look they have in the running program, composed of the resources' bitmaps. Coordinates are those
/// of the painter, one unit per pixel of the designed window. Nothing is painted outside the given rectangles, and
/// captions of any length cost no more than what is seen of them.

/// Fills an area with its edges on whole pixels of the screen, at every zoom; a line of one pixel is equally thick
/// everywhere and never vanishes.
void FillSharply(QPainter& painter, const QRect& box, const QColor& colour);
/// The outline of a rectangle, one pixel inside it, in the same way.
void FrameSharply(QPainter& painter, const QRect& box, const QColor& colour);

/// Paints the control at its own position and size. `pictures` gives what the components for pictures show.
void PaintControl(QPainter& painter, const Control& control, const PictureSource& pictures);

/// What only the designer shows of a component, painted below all components: a white ground under letters that have
/// none, and a pale outline around what would not be seen.
void PaintDesignAid(QPainter& painter, const Control& control);

/// The border of the selected component, inside its rectangle.
void PaintSelectionBorder(QPainter& painter, const Rectangle& component);

/// The lighter border of a component that is selected beside its leader.
void PaintMemberBorder(QPainter& painter, const Rectangle& component);

/// Around the component that the keyboard has reached.
void PaintReachedBorder(QPainter& painter, const Rectangle& component);

/// One of the handles around the selected component.
void PaintOuterHandle(QPainter& painter, const Rectangle& handle);

/// The handle that resizes the selected component.
void PaintResizeHandle(QPainter& painter, const Rectangle& handle);

} // namespace pirol
