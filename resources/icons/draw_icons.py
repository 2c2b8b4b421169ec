#!/usr/bin/env python3
"""Draws the icons of the component and writes the .ico and .bmp files beside this script.

Every picture is a grid of characters, one character a pixel, coloured by PALETTE. To change an icon,
edit its grid and run the script; the same grids always give the same bytes.
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
BLACK, SILVER, GRAY, RED, BLUE, AQUA, WHITE = 0, 7, 8, 9, 12, 14, 15

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
    "r": ((224, 49, 49), RED),         # off
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

# A dimension line between its arrows, and the table to choose from with the chosen row in blue.
DIMENSION_CHOOSER_16 = """
################
#wwwwwwwwwwwwww#
#w#wwbwwwwbww#w#
#w#wbbwwwwbbw#w#
#w#bbbbbbbbbb#w#
#w#wbbwwwwbbw#w#
#w#wwbwwwwbww#w#
#wwwwwwwwwwwwww#
################
#ssssgssssgssss#
#ssssgssssgssss#
#llllgllllgllll#
#llllgllllgllll#
#wwwwgwwwwgwwww#
#wwwwgwwwwgwwww#
################
"""

DIMENSION_CHOOSER_32 = """
################################
#ww#wwwwwwwwwwwwwwwwwwwwwwww#ww#
#ww#wwwwwbbwwwwwwwwwwbbwwwww#ww#
#ww#wwwbbbbwwwwwwwwwwbbbbwww#ww#
#ww#wbbbbbbwwwwwwwwwwbbbbbbw#ww#
#ww#bbbbbbbbbbbbbbbbbbbbbbbb#ww#
#ww#wbbbbbbwwwwwwwwwwbbbbbbw#ww#
#ww#wwwbbbbwwwwwwwwwwbbbbwww#ww#
#ww#wwwwwbbwwwwwwwwwwbbwwwww#ww#
#ww#wwwwwwwwwwwwwwwwwwwwwwww#ww#
#wwwwwwwwwwwwwwwwwwwwwwwwwwwwww#
################################
#sssssssssgsssssssssgssssssssss#
#ss#####ssgss#####ssgss######ss#
#ss#####ssgss#####ssgss######ss#
#sssssssssgsssssssssgssssssssss#
#gggggggggggggggggggggggggggggg#
#wwwwwwwwwgwwwwwwwwwgwwwwwwwwww#
#wwgggggwwgwwgggggwwgwwggggggww#
#wwgggggwwgwwgggggwwgwwggggggww#
#wwwwwwwwwgwwwwwwwwwgwwwwwwwwww#
#gggggggggggggggggggggggggggggg#
#lllllllllglllllllllgllllllllll#
#llbbbbbllgllbbbbbllgllbbbbbbll#
#llbbbbbllgllbbbbbllgllbbbbbbll#
#lllllllllglllllllllgllllllllll#
#gggggggggggggggggggggggggggggg#
#wwwwwwwwwgwwwwwwwwwgwwwwwwwwww#
#wwgggggwwgwwgggggwwgwwggggggww#
#wwgggggwwgwwgggggwwgwwggggggww#
#wwwwwwwwwgwwwwwwwwwgwwwwwwwwww#
################################
"""

# A person. Light inside a dark outline, so that it reads on white and on the colour of a selected row.
USER_ROW_16 = """
................
......####......
.....#wwww#.....
....#wwwwws#....
....#wwwwws#....
....#wwwwss#....
.....#wsss#.....
.....######.....
...##lllllb##...
..#lllllllllb#..
..#lllllllllb#..
..#lllllllllb#..
..#llllllllbb#..
..#lllllllbbb#..
..############..
................
"""

# Short on top and an arrow up, the outline of the usual ascending triangle.
SORT_ASCENDING_16 = """
................
...#....####....
..#l#...#ww#....
.#llb#..#ss#....
#lllbb#.####....
##llb##.........
.#llb#..######..
.#llb#..#wwww#..
.#llb#..#ssss#..
.#llb#..######..
.#llb#..........
.#llb#..########
.#llb#..#wwwwww#
.#llb#..#ssssss#
.#####..########
................
"""

SORT_DESCENDING_16 = """
................
.#####..########
.#llb#..#wwwwww#
.#llb#..#ssssss#
.#llb#..########
.#llb#..........
.#llb#..######..
.#llb#..#wwww#..
.#llb#..#ssss#..
.#llb#..######..
##llb##.........
#lllbb#.####....
.#llb#..#ww#....
..#b#...#ss#....
...#....####....
................
"""

FILTER_16 = """
................
.##############.
#llllllllllllbb#
#llllllllllbbbb#
.##############.
..#llllllllbb#..
...#llllllbb#...
....#llllbb#....
.....#llbb#.....
......#lb#......
......#lb#......
......#lb#......
......#lb#......
......#l#.......
......##........
................
"""

FILTER_32 = """
................................
.##############################.
#lllllllllllllllllllllllllbbbbb#
#lllllllllllllllllllllllbbbbbbb#
#lllllllllllllllllllllbbbbbbbbb#
#lllllllllllllllllllbbbbbbbbbbb#
.##############################.
...#llllllllllllllllbbbbbbbb#...
....#lllllllllllllllbbbbbbb#....
.....#lllllllllllllbbbbbbb#.....
......#llllllllllllbbbbbb#......
.......#lllllllllllbbbbb#.......
........#lllllllllbbbbb#........
.........#llllllllbbbb#.........
..........#lllllllbbb#..........
...........#lllllbbb#...........
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbbb#............
............#lllbb##............
............#lll##..............
............#l##................
............##..................
................................
"""

FILTER_OFF_16 = """
................
.############...
#wwwwwwwwwwss#..
#wwwwwwwwssss#..
.############...
..#wwwwwwss#....
...#wwwwss#.....
....#wwss#......
.....#ws#.......
.....#ws#rr...rr
.....#ws#rrr.rrr
.....#ws#.rrrrr.
.....#ws#..rrr..
.....#w#..rrrrr.
.....##..rrr.rrr
.........rr...rr
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

ICONS = {
    "component_chooser": [COMPONENT_CHOOSER_16, COMPONENT_CHOOSER_32],
    "dimension_chooser": [DIMENSION_CHOOSER_16, DIMENSION_CHOOSER_32],
    "user_row": [USER_ROW_16],
    "sort_ascending": [SORT_ASCENDING_16],
    "sort_descending": [SORT_DESCENDING_16],
    "filter": [FILTER_16, FILTER_32],
    "filter_off": [FILTER_OFF_16],
    "html_dialog": [HTML_DIALOG_16, HTML_DIALOG_32],
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
