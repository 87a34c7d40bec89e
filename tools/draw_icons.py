#!/usr/bin/env python3
"""Draws the program's icon (a page of text with a spark of lightning, at
16, 32 and 48 pixels) and its link cursor (a pointing hand), and writes them
as Windows .ico and .cur files.

    draw_icons.py ICON_FILE CURSOR_FILE
"""
import struct
import sys

ICON_SIZES = (16, 32, 48)
SAMPLES = 4  # per pixel and axis, for smooth edges

PAPER = (255, 255, 255)
EDGE = (70, 80, 100)
FOLD = (205, 212, 226)
LINE = (120, 140, 175)
BOLT = (245, 160, 20)
BOLT_EDGE = (170, 80, 0)

HAND = """
.....XX..........
....XooX.........
....XooX.........
....XooX.........
....XooX.........
....XooXXX.......
....XooXooXXX....
....XooXooXooXX..
.XX.XooXooXooXoX.
XooXXooooooooXooX
XoooXoooooooooooX
.XooXoooooooooooX
..XoXoooooooooooX
..XooooooooooooX.
...XoooooooooooX.
...XooooooooooX..
....XoooooooooX..
....XoooooooooX..
.....XooooooooX..
.....XXXXXXXXXX..
"""
HAND_HOTSPOT = (5, 0)
CURSOR_SIZE = 32


def inside_polygon(x, y, points):
    crossing = False
    for (x1, y1), (x2, y2) in zip(points, points[1:] + points[:1]):
        if (y1 > y) != (y2 > y) and x < x1 + (y - y1) * (x2 - x1) / (y2 - y1):
            crossing = not crossing
    return crossing


BOLT_SHAPE = [(0.62, 0.38), (0.40, 0.70), (0.55, 0.70), (0.46, 0.98), (0.80, 0.58), (0.64, 0.58), (0.76, 0.38)]


def grow(points, amount):
    cx = sum(p[0] for p in points) / len(points)
    cy = sum(p[1] for p in points) / len(points)
    return [(cx + (x - cx) * (1 + amount), cy + (y - cy) * (1 + amount)) for x, y in points]


BOLT_OUTLINE = grow(BOLT_SHAPE, 0.18)


def icon_colour(u, v):
    """The colour at (u, v) of the unit square, or None where it is clear."""
    if inside_polygon(u, v, BOLT_SHAPE):
        return BOLT
    if inside_polygon(u, v, BOLT_OUTLINE):
        return BOLT_EDGE
    left, right, top, bottom, fold = 0.14, 0.80, 0.04, 0.96, 0.20
    if not (left <= u <= right and top <= v <= bottom):
        return None
    if u - (right - fold) > v - top:  # cut corner
        return None
    edge = 0.045
    if u - (right - fold) > v - top - edge * 1.4:
        return EDGE
    if u < left + edge or u > right - edge or v < top + edge or v > bottom - edge:
        return EDGE
    if u > right - fold and v < top + fold:
        return FOLD
    for line in range(5):
        y = 0.30 + line * 0.12
        if y <= v <= y + 0.05 and left + 0.12 <= u <= right - (0.30 if line < 2 else 0.12) - (0.28 if line >= 1 else 0):
            return LINE
    return PAPER


def draw_icon(size):
    pixels = []
    for row in range(size):
        for column in range(size):
            red = green = blue = alpha = 0.0
            for sy in range(SAMPLES):
                for sx in range(SAMPLES):
                    colour = icon_colour((column + (sx + 0.5) / SAMPLES) / size, (row + (sy + 0.5) / SAMPLES) / size)
                    if colour is not None:
                        red, green, blue, alpha = red + colour[0], green + colour[1], blue + colour[2], alpha + 1
            pixels.append((round(red / alpha), round(green / alpha), round(blue / alpha),
                           round(255 * alpha / SAMPLES ** 2)) if alpha else (0, 0, 0, 0))
    return pixels


def draw_hand():
    art = [line for line in HAND.strip("\n").split("\n")]
    pixels = []
    for row in range(CURSOR_SIZE):
        for column in range(CURSOR_SIZE):
            mark = art[row][column] if row < len(art) and column < len(art[row]) else "."
            pixels.append({"X": (0, 0, 0, 255), "o": (255, 255, 255, 255)}.get(mark, (0, 0, 0, 0)))
    return pixels


def bitmap(size, pixels):
    """A 32-bit device-independent bitmap with its (empty) mask, as icon and
    cursor files hold their images: bottom row first."""
    header = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, 0, 0, 0, 0, 0)
    rows = []
    for row in reversed(range(size)):
        rows.append(b"".join(struct.pack("BBBB", b, g, r, a) for r, g, b, a in pixels[row * size:(row + 1) * size]))
    mask_row = b"\0" * (((size + 31) // 32) * 4)
    return header + b"".join(rows) + mask_row * size


def icon_file(kind, images):
    """kind 1: icon, 2: cursor. images: (size, pixels, hotspot or None)."""
    data = struct.pack("<HHH", 0, kind, len(images))
    offset = 6 + 16 * len(images)
    bodies = []
    for size, pixels, hotspot in images:
        body = bitmap(size, pixels)
        first, second = hotspot if hotspot else (1, 32)
        data += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, first, second, len(body), offset)
        offset += len(body)
        bodies.append(body)
    return data + b"".join(bodies)


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: draw_icons.py ICON_FILE CURSOR_FILE")
    with open(sys.argv[1], "wb") as out:
        out.write(icon_file(1, [(size, draw_icon(size), None) for size in ICON_SIZES]))
    with open(sys.argv[2], "wb") as out:
        out.write(icon_file(2, [(CURSOR_SIZE, draw_hand(), HAND_HOTSPOT)]))


if __name__ == "__main__":
    main()
