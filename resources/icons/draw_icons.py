#!/usr/bin/env python3
"""Draws the icons of the component and writes the .ico and .bmp files beside this script.

Every picture is a grid of characters, one character a pixel, coloured by PALETTE. Some grids are written
out; the others are drawn from shapes, once for each size. To change an icon, edit it and run the script; the
same text always gives the same bytes.
"""

import struct
from pathlib import Path

# The 16 colours of the oldest displays, in their usual order, as (red, green, blue).
VGA = [
    (0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0),
    (0, 0, 128), (128, 0, 128), (0, 128, 128), (192, 192, 192),
    (128, 128, 128), (255, 0, 0), (0, 255, 0), (255, 255, 0),
    (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255),
]
BLACK, OLIVE, SILVER, GRAY, YELLOW, BLUE, AQUA, WHITE = 0, 3, 7, 8, 11, 12, 14, 15

# Character: full colour, and its counterpart in VGA. The counterpart is chosen by hand because the
# nearest of the 16 colours would turn the light blues grey.
TRANSPARENT = "."
PALETTE = {
    "#": ((44, 56, 72), BLACK),        # outline, dark slate
    "w": ((255, 255, 255), WHITE),     # fill, light tone
    "s": ((206, 215, 227), SILVER),    # fill, shaded tone
    "g": ((143, 156, 173), GRAY),      # thin lines inside a fill
    "l": ((143, 199, 248), AQUA),      # accent, light tone
    "b": ((45, 120, 205), BLUE),       # accent
    "y": ((255, 205, 64), YELLOW),     # filter, light tone: it stands out of grey and of a blue title
    "o": ((214, 148, 20), OLIVE),      # filter, shaded tone
}

# A bitmap has no transparency: hosts that show a toolbox replace this grey by their own background.
TOOLBOX_BACKGROUND = (192, 192, 192)

# A tree with a plate at its root and headed pins as its parts; the blue pin is the chosen one.
COMPONENT_CHOOSER_16 = """
########........
#wwwwww#........
#ssssss#........
########........
...#............
...#..####......
...#..#ww#######
...####wwwwwwww#
...#..#ss#######
...#..####......
...#............
...#..####......
...#..#ll#######
...####llllllll#
......#bb#######
......####......
"""

COMPONENT_CHOOSER_32 = """
##################..............
#wwwwwwwwwwwwwwww#..............
#wwwggwwwwwwggwww#..............
#wwgssgwwwwgssgww#..............
#wwgssgwwwwgssgww#..............
#sssggssssssggsss#..............
#ssssssssssssssss#..............
#ssssssssssssssss#..............
##################..............
....##..........................
....##..........................
....##......######..............
....##......#wwww#############..
....##......#wwww#wwwwwwwwwwww#.
....##......#wwww#wwwwwwwwwwwww#
....#########wwww#wwwwwwwwwwwww#
....#########ssss#sssssssssssss#
....##......#ssss#ssssssssssss#.
....##......#ssss#############..
....##......######..............
....##..........................
....##..........................
....##..........................
....##......######..............
....##......#llll#############..
....##......#llll#llllllllllll#.
....##......#llll#lllllllllllll#
....#########llll#lllllllllllll#
....#########bbbb#bbbbbbbbbbbbb#
............#bbbb#bbbbbbbbbbbb#.
............#bbbb#############..
............######..............
"""

# A window with a page's markup in it.
HTML_DIALOG_16 = """
.##############.
#llllllllllllll#
#bbbbbbbbbwbbwb#
################
#wwwwwwwwwwwwww#
#wwwwwwwwwwwwww#
#wwww#wwbw#wwww#
#www#wwwbww#www#
#ww#wwwbwwww#ww#
#www#wwbwww#www#
#wwww#wbww#wwww#
#wwwwwwwwwwwwww#
#wwwwwwwwwwwwww#
#ssssssssssssss#
#ssssssssssssss#
.##############.
"""

HTML_DIALOG_32 = """
................................
.##############################.
#llllllllllllllllllllllllllllll#
#llllllllllllllllllllllllllllll#
#bbbbbbbbbbbbbbbbbbwwbbwwbbwwbb#
#bbbbbbbbbbbbbbbbbbwwbbwwbbwwbb#
#bbbbbbbbbbbbbbbbbbbbbbbbbbbbbb#
################################
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
#wwwwwwwwwwwwwwwwbbwwwwwwwwwwww#
#wwwwwwww##wwwwwwbbww##wwwwwwww#
#wwwwwww##wwwwwwbbwwww##wwwwwww#
#wwwwww##wwwwwwwbbwwwww##wwwwww#
#wwwww##wwwwwwwwbbwwwwww##wwwww#
#wwww##wwwwwwwwbbwwwwwwww##wwww#
#www##wwwwwwwwwbbwwwwwwwww##www#
#wwww##wwwwwwwwbbwwwwwwww##wwww#
#wwwww##wwwwwwbbwwwwwwww##wwwww#
#wwwwww##wwwwwbbwwwwwww##wwwwww#
#wwwwwww##wwwwbbwwwwww##wwwwwww#
#wwwwwwww##wwbbwwwwww##wwwwwwww#
#wwwwwwwwwwwwbbwwwwwwwwwwwwwwww#
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
#ssssssssssssssssssssssssssssss#
#ssssssssssssssssssssssssssssss#
#ssssssssssssssssssssssssssssss#
.##############################.
................................
"""

# A pin that holds two mold plates together.
TOOLBOX_16 = """
................
....########....
....#lllbbb#....
....#lllbbb#....
.##############.
.#wwww#lb#wwww#.
.#wwww#lb#wwww#.
.#ssss#lb#ssss#.
.######lb######.
.#wwww#lb#wwww#.
.#wwww#lb#wwww#.
.#ssss#lb#ssss#.
.######lb######.
......#lb#......
......####......
................
"""

# What follows is drawn from shapes. A shape tells whether it holds the point (x, y) of a square of 16 units.


def Box(left, top, right, bottom):
    return lambda x, y: left <= x < right and top <= y < bottom


def Disc(middleX, middleY, radius):
    return lambda x, y: (x - middleX) ** 2 + (y - middleY) ** 2 <= radius**2


def Polygon(*corners):
    edges = list(zip(corners, corners[1:] + corners[:1]))

    def Holds(x, y):
        crossed = [
            (ax, ay, bx, by) for (ax, ay), (bx, by) in edges
            if (ay > y) != (by > y) and x < ax + (bx - ax) * (y - ay) / (by - ay)
        ]
        return len(crossed) % 2 == 1

    return Holds


def UpsideDown(shape):
    return lambda x, y: shape(x, 16 - y)


class Drawing:
    """A grid of `size` pixels a side, drawn shape by shape; the last one covers the others."""

    def __init__(self, size):
        self.size = size
        self.pixels = {}

    def Fill(self, shape, colour):
        self.pixels.update({pixel: colour for pixel in self._Pixels(shape)})

    def Add(self, shape, light, shaded=None, line="#"):
        """A shape with a line of one pixel inside its edge; the right third of each row is shaded."""
        pixels = self._Pixels(shape)
        for x, y in pixels:
            inside = all(p in pixels for p in ((x - 1, y), (x + 1, y), (x, y - 1), (x, y + 1)))
            row = [column for column, other in pixels if other == y]
            right = 3 * x > min(row) + 2 * max(row)
            self.pixels[x, y] = line if not inside else shaded if shaded and right else light

    def Grid(self):
        side = range(self.size)
        return "\n".join("".join(self.pixels.get((x, y), TRANSPARENT) for x in side) for y in side)

    def _Pixels(self, shape):
        unit = 16 / self.size
        side = range(self.size)
        return {(x, y) for y in side for x in side if shape((x + 0.5) * unit, (y + 0.5) * unit)}


def DimensionChooser(size):
    """A sheet with a headed pin on it, and the dimension line between its arrows above the pin."""
    drawing = Drawing(size)
    line = size // 16 * 16 / size
    drawing.Add(Box(0, 0, 16, 16), "w")
    for x in (2, 14 - line):
        drawing.Fill(Box(x, 2, x + line, 9), "g")
    drawing.Fill(Box(3, 4, 13, 4 + line), "#")
    arrow = Polygon((2 + line, 4 + line / 2), (5.1 + line, 2), (5.1 + line, 6 + line))
    for head in (arrow, lambda x, y: arrow(16 - x, y)):
        drawing.Fill(head, "#")
    drawing.Add(Box(5, 9, 14, 13), "l", "b")
    drawing.Add(Box(2, 8, 6, 14), "l")
    return drawing.Grid()


def UserRow(size):
    """A person. Light inside a dark outline: it reads on white and on the colour of a selected row."""
    drawing = Drawing(size)
    shoulders = Disc(8, 15.5, 7)
    drawing.Add(lambda x, y: y < 15 and shoulders(x, y), "l", "b")
    drawing.Add(Disc(8, 5, 4), "w", "s")
    return drawing.Grid()


def Sort(size, turned=lambda shape: shape):
    """Short on top and an arrow up, the outline of the usual ascending triangle; turned for descending."""
    drawing = Drawing(size)
    arrow = Polygon((4, 0), (8.5, 5.5), (6, 5.5), (6, 15), (2, 15), (2, 5.5), (-0.5, 5.5))
    drawing.Add(turned(arrow), "l", "b")
    for bar in range(3):
        drawing.Add(turned(Box(9, 1 + 5 * bar, 12 + 2 * bar, 5 + 5 * bar)), "w", "s")
    return drawing.Grid()


FUNNEL = ((0, 1), (16, 1), (16, 4), (10, 10), (10, 13), (6, 15.5), (6, 10), (0, 4))


def SampleHost(size):
    """A window with a headed pin in it."""
    drawing = Drawing(size)
    drawing.Add(Box(0, 1, 16, 15), "w")
    drawing.Add(Box(0, 1, 16, 5), "b")
    drawing.Add(Box(5, 8, 14, 12), "l", "b")
    drawing.Add(Box(2, 6.5, 5.5, 13.5), "w", "s")
    return drawing.Grid()


def Filter(size):
    drawing = Drawing(size)
    drawing.Add(Polygon(*FUNNEL), "y", "o")
    return drawing.Grid()


def FilterOff(size):
    """The funnel without its colour, and a cross: no colour at all, so that what is greyed keeps no tint."""
    drawing = Drawing(size)
    drawing.Add(Polygon(*((x * 0.85, y * 0.9) for x, y in FUNNEL)), "w", "s")

    def Cross(x, y):
        x, y = abs(x - 11.5), abs(y - 11.5)
        return abs(x - y) < 2.3 and max(x, y) < 4.5

    drawing.Add(Cross, "#", line="w")
    return drawing.Grid()


SIZES = (16, 20, 24, 32)

ICONS = {
    "component_chooser": [COMPONENT_CHOOSER_16, COMPONENT_CHOOSER_32],
    "dimension_chooser": [DimensionChooser(size) for size in SIZES],
    "user_row": [UserRow(size) for size in SIZES],
    "sort_ascending": [Sort(size) for size in SIZES],
    "sort_descending": [Sort(size, UpsideDown) for size in SIZES],
    "filter": [Filter(size) for size in SIZES],
    "filter_off": [FilterOff(size) for size in SIZES],
    "html_dialog": [HTML_DIALOG_16, HTML_DIALOG_32],
    "sample_host": [SampleHost(size) for size in SIZES],
}
TOOLBOX = TOOLBOX_16


def PixelRows(grid):
    """The grid's rows from top to bottom. Raises ValueError unless the grid is square and well coloured."""
    rows = grid.split()
    for number, row in enumerate(rows, 1):
        if len(row) != len(rows):
            raise ValueError(f"row {number} has {len(row)} pixels instead of {len(rows)}: {row}")
        unknown = set(row) - set(PALETTE) - {TRANSPARENT}
        if unknown:
            raise ValueError(f"row {number} has characters without a colour {sorted(unknown)}: {row}")
    return rows


def PackedRow(values, bitsPerValue):
    """Values packed from the highest bit on, filled up to the four bytes that a bitmap row is aligned to."""
    bits = "".join(format(value, f"0{bitsPerValue}b") for value in values)
    bits += "0" * (-len(bits) % 32)
    return int(bits, 2).to_bytes(len(bits) // 8, "big")


def InfoHeader(width, height, bitsPerPixel):
    return struct.pack("<IiiHHIIiiII", 40, width, height, 1, bitsPerPixel, 0, 0, 0, 0, 0, 0)


def IconImage(rows, bitsPerPixel):
    """One image of an icon: header, colours and the mask, whose set bits are the transparent pixels."""
    size = len(rows)
    # An icon's header counts the rows of the colours and of the mask together.
    image = InfoHeader(size, 2 * size, bitsPerPixel)
    if bitsPerPixel == 4:
        image += b"".join(struct.pack("<BBBB", blue, green, red, 0) for red, green, blue in VGA)
    for row in reversed(rows):
        if bitsPerPixel == 4:
            # Transparent pixels must be black: their colour is combined with the background by XOR.
            image += PackedRow([BLACK if p == TRANSPARENT else PALETTE[p][1] for p in row], 4)
        else:
            for pixel in row:
                red, green, blue = (0, 0, 0) if pixel == TRANSPARENT else PALETTE[pixel][0]
                image += struct.pack("<BBBB", blue, green, red, 0 if pixel == TRANSPARENT else 255)
    for row in reversed(rows):
        image += PackedRow([int(pixel == TRANSPARENT) for pixel in row], 1)
    return image


def Icon(grids):
    """The bytes of an .ico file: 16 pixels wide in 16 colours, then every grid in full colour."""
    pictures = [PixelRows(grid) for grid in grids]
    images = [(pictures[0], 4)] + [(rows, 32) for rows in pictures]
    directory = struct.pack("<HHH", 0, 1, len(images))
    body = b""
    offset = len(directory) + 16 * len(images)
    for rows, bitsPerPixel in images:
        image = IconImage(rows, bitsPerPixel)
        colours = 16 if bitsPerPixel == 4 else 0
        directory += struct.pack("<BBBBHHII", len(rows), len(rows), colours, 0, 1, bitsPerPixel,
                                 len(image), offset + len(body))
        body += image
    return directory + body


def Bitmap(grid):
    """The bytes of a 24-bit .bmp file."""
    rows = PixelRows(grid)
    pixels = b""
    for row in reversed(rows):
        for pixel in row:
            red, green, blue = TOOLBOX_BACKGROUND if pixel == TRANSPARENT else PALETTE[pixel][0]
            pixels += struct.pack("<BBB", blue, green, red)
        pixels += bytes(-3 * len(row) % 4)
    header = InfoHeader(len(rows), len(rows), 24)
    start = 14 + len(header)
    return struct.pack("<2sIHHI", b"BM", start + len(pixels), 0, 0, start) + header + pixels


def Main():
    folder = Path(__file__).resolve().parent
    for name, grids in ICONS.items():
        (folder / f"{name}.ico").write_bytes(Icon(grids))
    (folder / "toolbox.bmp").write_bytes(Bitmap(TOOLBOX))


if __name__ == "__main__":
    Main()
