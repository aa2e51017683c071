#!/usr/bin/env python3
"""Draws every picture of the designer, in the folders beside this file:

- bitmaps/*.bmp, uncompressed 24-bit: the pieces of the components' look, from the tables below, and the toolbar icons.
  Magenta stands for transparent.
- icons/NAME_3x.png: the marks among those pieces three times as large, for screens with small pixels.
- icons/*_SIZE.png from the drawings icons/*.svg, and the program's own icon icons/pirol.ico.
"""
import math
import pathlib

import raster

FOLDER = pathlib.Path(__file__).parent
ICON_SIZES = (16, 20, 24, 32, 48)
PROGRAM_ICON_SIZES = (16, 24, 32, 48, 64, 128, 256)
TRANSPARENT = (255, 0, 255)

# Swing's cross-platform look. A letter is one pixel of that colour.
COLOURS = {
    "_": TRANSPARENT,
    ".": (255, 255, 255),
    "-": (238, 238, 238),  # faces of scroll bars and headers
    "#": (122, 138, 153),  # outlines
    "X": (51, 51, 51),  # text and arrows
    "B": (99, 130, 191),  # outlines of what is filled
    "A": (163, 184, 204),
    "o": (184, 207, 229),  # inner lines
    # the gradient of marks
    "a": (227, 236, 245), "b": (238, 244, 249), "c": (249, 251, 253), "d": (218, 230, 242), "e": (213, 227, 240),
    "f": (208, 223, 238), "g": (203, 220, 236), "h": (197, 216, 234), "i": (192, 213, 232), "D": (217, 229, 241),
    "E": (207, 223, 238), "F": (198, 217, 234), "G": (189, 210, 231),
    # the gradient of a slider's knob
    "1": (207, 225, 244), "2": (221, 234, 247), "3": (234, 242, 250), "4": (248, 251, 253), "5": (198, 219, 240),
    "6": (194, 216, 237), "7": (190, 212, 234), "8": (186, 209, 231),
    "l": (210, 226, 239),
}

UNCHECKED = """
#############
#bbbbbbbbbbb#
#ccccccccccc#
#ccccccccccc#
#bbbbbbbbbbb#
#aaaaaaaaaaa#
#ddddddddddd#
#eeeeeeeeeee#
#fffffffffff#
#ggggggggggg#
#hhhhhhhhhhh#
#iiiiiiiiiii#
#############
"""

CHECKED = """
#############
#bbbbbbbbbbb#
#ccccccccccc#
#ccccccccXcc#
#bbbbbbbXXbb#
#aaXXaaXXaaa#
#ddXXdXXdddd#
#eeXXXXeeeee#
#ffXXXffffff#
#ggXXggggggg#
#hhhhhhhhhhh#
#iiiiiiiiiii#
#############
"""

INACTIVE = """
____####____
__##aaaa##__
_#bbbbbbbb#_
_#cccccccc#_
#cccccccccc#
#bbbbbbbbbb#
#aaaaaaaaaa#
#DDDDDDDDDD#
_#EEEEEEEE#_
_#FFFFFFFF#_
__##GGGG##__
____####____
"""

ACTIVE = """
____####____
__##aaaa##__
_#bbbbbbbb#_
_#ccXXXXcc#_
#ccXXXXXXcc#
#bbXXXXXXbb#
#aaXXXXXXaa#
#DDXXXXXXDD#
_#EEXXXXEE#_
_#FFFFFFFF#_
__##GGGG##__
____####____
"""

SCROLL_UP = """
#..............
#.-------------
#.-------------
#.-------------
#.-------------
#.-----X-------
#.----XXX------
#.---XXXXX-----
#.--XXXXXXX----
#.-------------
#.-------------
#.-------------
#.-------------
#.-------------
#.-------------
#-#############
"""

SCROLL_DOWN = """
#-#############
#..............
#.-------------
#.-------------
#.-------------
#.-------------
#.-XXXXXXXXX---
#.--XXXXXXX----
#.---XXXXX-----
#.----XXX------
#.-------------
#.-------------
#.-------------
#.-------------
#.-------------
#-#############
"""

SCROLL_LEFT = """
################
...............-
.--------------#
.--------------#
.-------X------#
.------XX------#
.-----XXX------#
.----XXXX------#
.----XXXX------#
.-----XXX------#
.------XX------#
.-------X------#
.--------------#
.--------------#
.--------------#
"""

SCROLL_RIGHT = """
################
-..............-
#.-------------#
#.-------------#
#.----X--------#
#.----XX-------#
#.----XXX------#
#.----XXXX-----#
#.----XXXX-----#
#.----XXX------#
#.----XX-------#
#.----X--------#
#.-------------#
#.-------------#
#.-------------#
"""

KNOB_LYING = """
_XXXXXXXXXXXXX_
X1111111111111X
X2222222222222X
X3333333333333X
X4444444444444X
X.............X
X.............X
X4444444444444X
X3333333333333X
_X22222222222X_
__X111111111X__
___X5555555X___
____X66666X____
_____X777X_____
______X8X______
_______X_______
"""

KNOB_UPRIGHT = """
_XXXXXXXX_______
X1234..43X______
X1234..432X_____
X1234..4321X____
X1234..43215X___
X1234..432156X__
X1234..4321567X_
X1234..43215678X
X1234..4321567X_
X1234..432156X__
X1234..43215X___
X1234..4321X____
X1234..432X_____
X1234..43X______
_XXXXXXXX_______
"""

# What is stretched along an edge is one pixel long.
PIECES = {
    "BUTTON_OL": "##\n#_", "BUTTON_OR": "##\n_#", "BUTTON_UL": "#_\n##", "BUTTON_UR": "_#\n##",
    "BUTTON_L": "#", "BUTTON_R": "#", "BUTTON_O": "#", "BUTTON_U": "#",
    "CHECKBOX_CHECKED": CHECKED, "CHECKBOX_UNCHECKED": UNCHECKED,
    "option_active": ACTIVE, "option_inactive": INACTIVE,
    "SCROLL_UP": SCROLL_UP, "SCROLL_DOWN": SCROLL_DOWN, "SCROLL_LEFT": SCROLL_LEFT, "SCROLL_RIGHT": SCROLL_RIGHT,
    "SCROLL_BAR_V": "#o-------------", "SCROLL_BAR_H": "#\no" + "\n-" * 13,
    "SLIDER_H": KNOB_LYING, "SLIDER_H_LEFT": "\n".join("BBBBBB"), "SLIDER_H_BAR": "\n".join("B.loAB"),
    "SLIDER_H_RIGHT": "\n".join("######"),
    "SLIDER_V": KNOB_UPRIGHT, "SLIDER_V_TOP": "######", "SLIDER_V_BAR": "B.loAB", "SLIDER_V_BOTTOM": "BBBBBB",
    "PROGRESS_CORNER_LT": "#", "PROGRESS_CORNER_LB": "#", "PROGRESS_CORNER_RT": "#", "PROGRESS_CORNER_RB": "#",
    "PROGRESS_BORDER_LEFT": "#", "PROGRESS_BORDER_RIGHT": "#",
    "PROGRESS_FILLED_TOP": "#\nB", "PROGRESS_FILLED_BOTTOM": "A\n#",
    "PROGRESS_UNFILLED_TOP": "#\no", "PROGRESS_UNFILLED_BOTTOM": ".\n#",
    "TABLE_HEADER": "\n".join("#." + "-" * 17 + "#"), "TABLE_SEPERATOR": "\n".join("#" * 20),
}

# Pieces that show stairs when their pixels are enlarged. Those with straight lines only are smoothed, the others drawn.
SMOOTHED = ("SCROLL_UP", "SCROLL_DOWN", "SCROLL_LEFT", "SCROLL_RIGHT", "SLIDER_H", "SLIDER_V")
TICK = "3,5 5,5 5,7.2 9.2,3 9.2,5.4 4.8,10 3,10"

# The drawing of each bitmap on the toolbar; the larger sizes are icons of the drawing's name.
TOOLBAR = ("LABEL", "BUTTON", "TEXT", "FIELD", "ROWFIELD", "PASSWORD", "CHECK", "OPTION", "COMBO", "SLIDER", "PROGRESS",
           "TABLE", "PICTURE", "SOUND", "MOVIE")


def from_letters(text):
    return [[COLOURS[letter] for letter in line] for line in text.strip("\n").split("\n")]


def without_alpha(rows):
    """A bitmap has no half transparent pixels: what is at least half covered gets its colour."""
    return [[pixel[:3] if pixel[3] >= 128 else TRANSPARENT for pixel in row] for row in rows]


def three_times(rows):
    """Enlarges pixel art without stairs: a pixel's corner takes the colour of both its neighbours there when they agree
    and those opposite differ."""
    height, width = len(rows), len(rows[0])
    at = lambda x, y: rows[min(max(y, 0), height - 1)][min(max(x, 0), width - 1)]
    large = [[None] * (3 * width) for _ in range(3 * height)]
    for y in range(height):
        for x in range(width):
            centre, up, down = at(x, y), at(x, y - 1), at(x, y + 1)
            left, right = at(x - 1, y), at(x + 1, y)
            for j, vertical in enumerate((up, centre, down)):
                for i, horizontal in enumerate((left, centre, right)):
                    corner = i != 1 and j != 1 and vertical == horizontal and up != down and left != right
                    large[3 * y + j][3 * x + i] = vertical if corner else centre
    return large


def with_alpha(rows):
    return [[(0, 0, 0, 0) if pixel == TRANSPARENT else (*pixel, 255) for pixel in row] for row in rows]


def hexadecimal(letter):
    return "#%02x%02x%02x" % COLOURS[letter]


def drawn_checkbox(checked):
    rows = UNCHECKED.split()
    strips = "".join(f'<rect x="1" y="{y}" width="11" height="1" fill="{hexadecimal(rows[y][1])}"/>'
                     for y in range(1, 12))
    tick = f'<polygon points="{TICK}" fill="{hexadecimal("X")}"/>' if checked else ""
    return (f'<svg viewBox="0 0 13 13"><rect width="13" height="13" fill="{hexadecimal("#")}"/>{strips}{tick}</svg>')


def drawn_option(active):
    rows = INACTIVE.split()
    radius = 4.9
    edge = lambda y: math.sqrt(max(radius ** 2 - (y - 6) ** 2, 0))
    strips = ""
    for top in range(1, 11):
        heights = [top + i / 4 for i in range(5)]
        points = [f"{6 - edge(y):.3f},{y}" for y in heights] + [f"{6 + edge(y):.3f},{y}" for y in reversed(heights)]
        strips += f'<polygon points="{" ".join(points)}" fill="{hexadecimal(rows[top][5])}"/>'
    dot = f'<circle cx="6" cy="6" r="3" fill="{hexadecimal("X")}"/>' if active else ""
    return f'<svg viewBox="0 0 12 12"><circle cx="6" cy="6" r="6" fill="{hexadecimal("#")}"/>{strips}{dot}</svg>'


def main():
    bitmaps, icons = FOLDER / "bitmaps", FOLDER / "icons"
    bitmaps.mkdir(exist_ok=True)
    for name, text in PIECES.items():
        raster.write_bmp(bitmaps / f"{name}.bmp", from_letters(text))
    large = {name: with_alpha(three_times(from_letters(PIECES[name]))) for name in SMOOTHED}
    large["CHECKBOX_CHECKED"] = raster.render(drawn_checkbox(True), 39)
    large["CHECKBOX_UNCHECKED"] = raster.render(drawn_checkbox(False), 39)
    large["option_active"] = raster.render(drawn_option(True), 36)
    large["option_inactive"] = raster.render(drawn_option(False), 36)
    for name, rows in large.items():
        (icons / f"{name}_3x.png").write_bytes(raster.png_bytes(rows))
    for name in TOOLBAR:
        raster.write_bmp(bitmaps / f"{name}.bmp", without_alpha(raster.render((icons / f"{name.lower()}.svg").read_text(), 16)))
    raster.write_bmp(bitmaps / "MENU.bmp", without_alpha(raster.render((icons / "menu.svg").read_text(), 20)))
    for drawing in sorted(icons.glob("*.svg")):
        sizes = PROGRAM_ICON_SIZES if drawing.stem == "pirol" else ICON_SIZES
        pictures = [raster.render(drawing.read_text(), size) for size in sizes]
        for size, rows in zip(sizes, pictures):
            (icons / f"{drawing.stem}_{size}.png").write_bytes(raster.png_bytes(rows))
        if drawing.stem == "pirol":
            (icons / "pirol.ico").write_bytes(raster.ico_bytes(pictures))


if __name__ == "__main__":
    main()
