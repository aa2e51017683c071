"""Turns small SVG drawings into pixels, and pixels into BMP, PNG and ICO files.

Understands what the drawings beside it use: rect, circle, ellipse, line, polyline, polygon and path (M L H V C Q Z in
both cases) with fill, stroke, stroke-width and opacity. Strokes have round ends and corners.
"""
import math
import re
import struct
import zlib
from xml.etree import ElementTree

SCANS_PER_PIXEL = 8  # scan lines that are averaged for one row of pixels; columns are covered exactly
CURVE_STEPS = 16


def write_bmp(path, rows):
    """Writes rows of (red, green, blue) pixels, top row first, as an uncompressed 24-bit BMP."""
    height, width = len(rows), len(rows[0])
    padding = b"\0" * (-3 * width % 4)
    data = b"".join(b"".join(bytes((b, g, r)) for r, g, b in row) + padding for row in reversed(rows))
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    path.write_bytes(header + info + data)


def png_bytes(rows):
    """The PNG file of rows of (red, green, blue, alpha) pixels."""

    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    data = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(data, 9))
            + chunk(b"IEND", b""))


def ico_bytes(pictures):
    """The ICO file that holds the pictures, each a list of rows of (red, green, blue, alpha) pixels, as PNGs."""
    files = [png_bytes(rows) for rows in pictures]
    offset = 6 + 16 * len(files)
    directory = struct.pack("<HHH", 0, 1, len(files))
    for rows, content in zip(pictures, files):
        side = len(rows) % 256  # 256 is written as 0
        directory += struct.pack("<BBBBHHII", side, side, 0, 0, 1, 32, len(content), offset)
        offset += len(content)
    return directory + b"".join(files)


def render(svg, size):
    """Draws the text of a square SVG file as rows of (red, green, blue, alpha) pixels."""
    root = ElementTree.fromstring(svg)
    left, top, width, _ = (float(word) for word in root.get("viewBox").split())
    pixels = [[(0.0, 0.0, 0.0, 0.0)] * size for _ in range(size)]
    scale = size / width
    for element in root:
        outlines, closed = _outlines(element)
        outlines = [[((x - left) * scale, (y - top) * scale) for x, y in points] for points in outlines]
        opacity = float(element.get("opacity", "1"))
        if element.get("fill", "#000000") != "none" and closed:
            _paint(pixels, outlines, element.get("fill", "#000000"), opacity)
        if element.get("stroke", "none") != "none":
            pen = float(element.get("stroke-width", "1")) * scale
            _paint(pixels, _stroked(outlines, pen), element.get("stroke"), opacity)
    return [[tuple(round(255 * channel) for channel in pixel) for pixel in row] for row in pixels]


def _outlines(element):
    """The element's outlines as lists of points, and whether they can be filled."""
    kind = element.tag.split("}")[-1]
    number = lambda name: float(element.get(name, "0"))
    if kind == "rect":
        return [_rounded(number("x"), number("y"), number("width"), number("height"), number("rx"))], True
    if kind in ("circle", "ellipse"):
        rx, ry = (number("r"),) * 2 if kind == "circle" else (number("rx"), number("ry"))
        return [_arc(number("cx"), number("cy"), rx, ry, 0, 360, closed=True)], True
    if kind == "line":
        return [[(number("x1"), number("y1")), (number("x2"), number("y2"))]], False
    if kind in ("polyline", "polygon"):
        values = [float(word) for word in element.get("points").replace(",", " ").split()]
        points = list(zip(values[::2], values[1::2]))
        return [points + points[:1] if kind == "polygon" else points], kind == "polygon"
    if kind == "path":
        return _path(element.get("d")), True
    raise ValueError(f"no such element: {kind}")


def _arc(cx, cy, rx, ry, begin, end, closed=False):
    steps = max(4, CURVE_STEPS * abs(end - begin) // 90)
    points = [(cx + rx * math.cos(math.radians(begin + (end - begin) * i / steps)),
               cy + ry * math.sin(math.radians(begin + (end - begin) * i / steps))) for i in range(steps + 1)]
    return points[:-1] + points[:1] if closed else points


def _rounded(x, y, width, height, radius):
    if not radius:
        return [(x, y), (x + width, y), (x + width, y + height), (x, y + height), (x, y)]
    points = []
    for cx, cy, begin in ((x + width - radius, y + radius, -90), (x + width - radius, y + height - radius, 0),
                          (x + radius, y + height - radius, 90), (x + radius, y + radius, 180)):
        points += _arc(cx, cy, radius, radius, begin, begin + 90)
    return points + points[:1]


def _path(text):
    """The sub-paths of a path's commands, with curves cut into lines."""
    counts = {"M": 2, "L": 2, "H": 1, "V": 1, "C": 6, "Q": 4, "Z": 0}
    words = re.findall(r"[A-Za-z]|-?(?:\d+\.?\d*|\.\d+)", text)
    outlines, command, x, y, i = [], "", 0.0, 0.0, 0
    while i < len(words):
        if words[i].isalpha():
            command, i = words[i], i + 1
        count = counts[command.upper()]
        values = [float(word) for word in words[i:i + count]]
        i += count
        if command.islower():
            values = [value + ((x, y)[j % 2] if command != "v" else y) for j, value in enumerate(values)]
        kind = command.upper()
        if kind == "M":
            outlines.append([tuple(values)])
            command = "l" if command == "m" else "L"
        elif kind == "Z":
            outlines[-1].append(outlines[-1][0])
        elif kind == "H":
            outlines[-1].append((values[0], y))
        elif kind == "V":
            outlines[-1].append((x, values[0]))
        else:
            corners = [(x, y)] + list(zip(values[::2], values[1::2]))
            steps = 1 if kind == "L" else CURVE_STEPS
            outlines[-1] += [_on_curve(corners, step / steps) for step in range(1, steps + 1)]
        x, y = outlines[-1][-1]
    return outlines


def _on_curve(corners, t):
    while len(corners) > 1:
        corners = [(a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1])) for a, b in zip(corners, corners[1:])]
    return corners[0]


def _stroked(outlines, pen):
    """Polygons that together cover the lines drawn with a round pen; all turn the same way, so that none cuts out
    another."""
    half = pen / 2
    pieces = []
    for points in outlines:
        for (x1, y1), (x2, y2) in zip(points, points[1:]):
            length = math.hypot(x2 - x1, y2 - y1)
            if length > 0:
                dx, dy = half * (x2 - x1) / length, half * (y2 - y1) / length
                pieces.append([(x1 + dy, y1 - dx), (x2 + dy, y2 - dx), (x2 - dy, y2 + dx), (x1 - dy, y1 + dx)])
        pieces += [_arc(x, y, half, half, 0, 360, closed=True) for x, y in points]
    return pieces


def _paint(pixels, polygons, colour, opacity):
    """Lays a colour ("#rrggbb") over the pixels inside the polygons, by the non-zero rule."""
    paint = tuple(int(colour[i:i + 2], 16) / 255 for i in (1, 3, 5))
    for y, row in enumerate(pixels):
        coverage = [0.0] * len(row)
        for scan in range(SCANS_PER_PIXEL):
            _cover(coverage, polygons, y + (scan + 0.5) / SCANS_PER_PIXEL)
        for x, share in enumerate(coverage):
            if share > 0:
                row[x] = _over(row[x], paint, min(1.0, share / SCANS_PER_PIXEL) * opacity)


def _cover(coverage, polygons, scan):
    """Adds to each column how much of it one scan line covers inside the polygons."""
    crossings = []
    for points in polygons:
        for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
            if (y1 <= scan) != (y2 <= scan):
                crossings.append((x1 + (scan - y1) * (x2 - x1) / (y2 - y1), 1 if y2 > y1 else -1))
    crossings.sort()
    winding = 0
    for (begin, turn), (end, _) in zip(crossings, crossings[1:]):
        winding += turn
        if winding:
            for column in range(max(0, math.floor(begin)), min(len(coverage), math.ceil(end))):
                coverage[column] += max(0.0, min(end, column + 1) - max(begin, column))


def _over(below, paint, alpha):
    whole = alpha + below[3] * (1 - alpha)
    return tuple((paint[i] * alpha + below[i] * below[3] * (1 - alpha)) / whole for i in range(3)) + (whole,)
