#!/usr/bin/env python3
"""Turns a 24-bit BMP picture (as the window driver takes them) into a PNG.

    bmp_to_png.py PICTURE.bmp PICTURE.png
"""
import struct
import sys
import zlib


def png_chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data) & 0xFFFFFFFF)


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: bmp_to_png.py PICTURE.bmp PICTURE.png")
    data = open(sys.argv[1], "rb").read()
    offset = struct.unpack_from("<I", data, 10)[0]
    width, height = struct.unpack_from("<ii", data, 18)
    if struct.unpack_from("<H", data, 28)[0] != 24:
        sys.exit("bmp_to_png.py: only 24-bit pictures")
    row_size = (width * 3 + 3) & ~3
    rows = []
    for row in range(height):  # bottom row first in the BMP
        start = offset + (height - 1 - row) * row_size
        bgr = data[start:start + width * 3]
        rgb = bytearray(width * 3)
        rgb[0::3], rgb[1::3], rgb[2::3] = bgr[2::3], bgr[1::3], bgr[0::3]
        rows.append(b"\0" + bytes(rgb))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    with open(sys.argv[2], "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n" + png_chunk(b"IHDR", header) + png_chunk(b"IDAT", zlib.compress(b"".join(rows)))
                  + png_chunk(b"IEND", b""))


if __name__ == "__main__":
    main()
