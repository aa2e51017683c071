#pragma once

#include "base/Colour.h"

namespace pirol::tokens {

/// What all windows are made of: lengths, sizes of type and colours. Forms use these instead of numbers of their own.
/// Lengths are pixels at 100 percent.

constexpr int unit = 4; ///< all distances are multiples of it, but the smallest
constexpr int hairGap = unit / 2;
constexpr int gap = 2 * unit;
constexpr int margin = 3 * unit;
constexpr int wideGap = 4 * unit;
constexpr int radius = unit;  ///< of rounded corners
constexpr int focusWidth = 2; ///< of the ring around what has the keyboard
constexpr int hairline = 1;

constexpr int smallIcon = 16; ///< in menus, lists and buttons
constexpr int toolIcon = 20;  ///< in the tool bar
constexpr int kindIcon = 24;  ///< in the toolbox

/// The scale of type, as factors of the system's own size.
constexpr double headingScale = 1.2;
constexpr double titleScale = 1.5;

/// One set of colours. What is written on what has a contrast of at least 4.5 to 1; outlines and rings at least 3 to 1.
struct Colours {
    Colour window; ///< of forms
    Colour base;   ///< of fields and lists
    Colour row;    ///< every second row
    Colour text;   ///< on window, base, row, button, hover, pressed
    Colour quiet;  ///< less important text on window and base
    Colour disabled;
    Colour button;
    Colour hover;
    Colour pressed;
    Colour line;          ///< between things, decoration only
    Colour outline;       ///< of fields and boxes
    Colour selection;     ///< behind chosen rows and marked text
    Colour selectionText; ///< on selection
    Colour accent;        ///< the one colour that draws the eye
    Colour accentText;    ///< on accent
    Colour focus;         ///< the ring
    Colour link;
    Colour surround; ///< around the designed window
    Colour tip;
    Colour tipText; ///< on tip
    Colour error;   ///< text on base
    Colour note;    ///< text on base
};

constexpr Colours light = {
    .window = {246, 246, 244},
    .base = {255, 255, 255},
    .row = {249, 249, 247},
    .text = {31, 35, 40},
    .quiet = {91, 98, 107},
    .disabled = {150, 155, 162},
    .button = {255, 255, 255},
    .hover = {234, 233, 229},
    .pressed = {222, 220, 214},
    .line = {217, 217, 213},
    .outline = {134, 140, 148},
    .selection = {255, 227, 160},
    .selectionText = {31, 35, 40},
    .accent = {242, 176, 30},
    .accentText = {31, 35, 40},
    .focus = {173, 112, 0},
    .link = {26, 95, 180},
    .surround = {228, 229, 227},
    .tip = {44, 48, 54},
    .tipText = {245, 245, 243},
    .error = {176, 0, 32},
    .note = {30, 80, 160},
};

constexpr Colours dark = {
    .window = {40, 42, 46},
    .base = {28, 30, 33},
    .row = {33, 35, 39},
    .text = {232, 233, 235},
    .quiet = {169, 174, 182},
    .disabled = {112, 118, 126},
    .button = {53, 56, 61},
    .hover = {62, 66, 72},
    .pressed = {73, 78, 85},
    .line = {66, 70, 77},
    .outline = {127, 133, 142},
    .selection = {96, 76, 20},
    .selectionText = {255, 255, 255},
    .accent = {242, 176, 30},
    .accentText = {31, 35, 40},
    .focus = {242, 176, 30},
    .link = {138, 180, 248},
    .surround = {22, 23, 25},
    .tip = {70, 74, 81},
    .tipText = {245, 245, 243},
    .error = {255, 138, 128},
    .note = {140, 190, 255},
};

/// For who asks the desktop for high contrast: text at least 7 to 1, outlines and rings at least 4.5 to 1.
constexpr Colours contrastLight = {
    .window = {255, 255, 255},
    .base = {255, 255, 255},
    .row = {255, 255, 255},
    .text = {0, 0, 0},
    .quiet = {50, 50, 50},
    .disabled = {105, 105, 105},
    .button = {255, 255, 255},
    .hover = {230, 230, 230},
    .pressed = {205, 205, 205},
    .line = {90, 90, 90},
    .outline = {0, 0, 0},
    .selection = {255, 214, 90},
    .selectionText = {0, 0, 0},
    .accent = {242, 176, 30},
    .accentText = {0, 0, 0},
    .focus = {0, 70, 190},
    .link = {0, 50, 160},
    .surround = {210, 210, 210},
    .tip = {0, 0, 0},
    .tipText = {255, 255, 255},
    .error = {150, 0, 20},
    .note = {0, 55, 130},
};

constexpr Colours contrastDark = {
    .window = {0, 0, 0},
    .base = {0, 0, 0},
    .row = {0, 0, 0},
    .text = {255, 255, 255},
    .quiet = {215, 215, 215},
    .disabled = {150, 150, 150},
    .button = {0, 0, 0},
    .hover = {45, 45, 45},
    .pressed = {70, 70, 70},
    .line = {190, 190, 190},
    .outline = {255, 255, 255},
    .selection = {96, 74, 0},
    .selectionText = {255, 255, 255},
    .accent = {255, 200, 60},
    .accentText = {0, 0, 0},
    .focus = {255, 214, 90},
    .link = {150, 195, 255},
    .surround = {40, 40, 40},
    .tip = {255, 255, 255},
    .tipText = {0, 0, 0},
    .error = {255, 160, 150},
    .note = {160, 205, 255},
};

} // namespace pirol::tokens
