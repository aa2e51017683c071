#pragma once

#include "base/Rectangle.h"

#include <cstdint>
#include <optional>

namespace pirol {

/// Where the parts of the main window lie inside it and how far the canvas scrolls. All in pixels.
struct MainLayout {
    /// How a scroll bar is set up; its value begins at 0.
    struct Bar {
        Rectangle box; ///< within the frame
        bool enabled = false;
        std::int16_t maximum = 0; ///< in steps of scrollStep pixels
    };

    Rectangle frame;    ///< holds the canvas and both bars
    Rectangle toolbar;  ///< left of the frame
    Rectangle headings; ///< the row above frame, toolbar and list
    Rectangle status;   ///< the row below
    Rectangle list;     ///< the property list in the column at the right edge
    Rectangle canvas;   ///< within the frame, before any scrolling
    Bar vertical;
    Bar horizontal;
};

constexpr int toolbarWidth = 150;
constexpr int propertyColumnWidth = 220;
/// The columns beside the canvas, which the user can make wider and narrower.
struct PanelWidths {
    int toolbar = toolbarWidth;
    int properties = propertyColumnWidth;

    bool operator==(const PanelWidths&) const = default;
};

/// The widths that a user asks for, as far as they make sense in a window of that inner width: nothing becomes too
/// narrow to be used. In a window that is too narrow for any others they are the usual ones.
PanelWidths PossibleWidths(PanelWidths wanted, int innerWidth);

constexpr int rowHeight = 20; ///< of the headings and of the status bar
constexpr int barThickness = 20;
constexpr int scrollStep = 8; ///< pixels per step of a scroll bar

/// Lays out a main window of the given inner size around a canvas of the designed window's size.
/// A canvas that fits is centred in what the scroll bars leave of the frame; one that does not begins at 0. The whole
/// frame decides whether it fits, so a canvas that is too large by up to one bar's thickness is centred and lies under
/// the bar. Sizes that would be negative in a small window come out as 0.
MainLayout LayOutMainWindow(int innerWidth, int innerHeight, int designedWidth, int designedHeight,
                            PanelWidths panels = {});

/// The canvas's left or top when its scroll bar stands at a value.
/// Raises RuntimeError::Overflow when that is outside the 16-bit range.
std::int16_t ScrolledPosition(int barValue);

/// The value nearest to a scroll bar's present one at which the pixels from `begin` to `end` of the canvas lie within
/// the room that the frame leaves; their beginning comes first when they do not fit.
int BarValueToShow(int begin, int end, int room, int barValue, int barMaximum);

/// The outer size and position that a preset of the window menu (0 to 2) gives the main window on a screen of that
/// size; nothing for any other number.
std::optional<Rectangle> WindowPreset(int entry, int screenWidth, int screenHeight);

} // namespace pirol
