#!/usr/bin/env python3
"""Draws every picture of the designer, in the folders beside this file:

- bitmaps/*.bmp, uncompressed 24-bit: the pieces of the components' look, from the tables below, and the toolbar icons.
  Magenta stands for transparent.
- icons/*_SIZE.png from the drawings icons/*.svg, and the program's own icon icons/pirol.ico.
"""
import pathlib

import raster

FOLDER = pathlib.Path(__file__).parent
ICON_SIZES = (16, 24, 32, 48)
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
    "BUTTON_OL": "##\n#.", "BUTTON_OR": "##\n.#", "BUTTON_UL": "#.\n##", "BUTTON_UR": ".#\n##",
    "BUTTON_L": "#.", "BUTTON_R": ".#", "BUTTON_O": "#\n.", "BUTTON_U": ".\n#",
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

# The drawing of each bitmap on the toolbar; the larger sizes are icons of the drawing's name.
TOOLBAR = ("LABEL", "BUTTON", "TEXT", "FIELD", "ROWFIELD", "PASSWORD", "CHECK", "OPTION", "COMBO", "SLIDER", "PROGRESS",
           "TABLE", "PICTURE", "SOUND", "MOVIE")


def from_letters(text):
    return [[COLOURS[letter] for letter in line] for line in text.strip("\n").split("\n")]


def without_alpha(rows):
    """A bitmap has no half transparent pixels: what is at least half covered gets its colour."""
    return [[pixel[:3] if pixel[3] >= 128 else TRANSPARENT for pixel in row] for row in rows]


def main():
    bitmaps, icons = FOLDER / "bitmaps", FOLDER / "icons"
    bitmaps.mkdir(exist_ok=True)
    for name, text in PIECES.items():
        raster.write_bmp(bitmaps / f"{name}.bmp", from_letters(text))
    for name in TOOLBAR:
        raster.write_bmp(bitmaps / f"{name}.bmp", without_alpha(raster.render(icons / f"{name.lower()}.svg", 16)))
    raster.write_bmp(bitmaps / "MENU.bmp", without_alpha(raster.render(icons / "menu.svg", 20)))
    for drawing in sorted(icons.glob("*.svg")):
        sizes = PROGRAM_ICON_SIZES if drawing.stem == "pirol" else ICON_SIZES
        pictures = [raster.render(drawing, size) for size in sizes]
        for size, rows in zip(sizes, pictures):
            (icons / f"{drawing.stem}_{size}.png").write_bytes(raster.png_bytes(rows))
        if drawing.stem == "pirol":
            (icons / "pirol.ico").write_bytes(raster.ico_bytes(pictures))


if __name__ == "__main__":
    main()
