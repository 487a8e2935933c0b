"""PNG files of 8-bit RGB or RGBA without interlacing (PNG, third edition), as rows of RGB bytes."""

import struct
import zlib


def _paeth(left, up, corner):
    guess = left + up - corner
    by_left, by_up, by_corner = abs(guess - left), abs(guess - up), abs(guess - corner)
    return left if by_left <= by_up and by_left <= by_corner else up if by_up <= by_corner else corner


def _restored(kind, row, above, size):
    if kind == 0:
        return row
    if kind == 2:
        return bytearray((a + b) & 255 for a, b in zip(row, above))
    for i in range(len(row)):
        left = row[i - size] if i >= size else 0
        corner = above[i - size] if i >= size else 0
        row[i] = (row[i] + (left if kind == 1 else (left + above[i]) // 2 if kind == 3 else
                            _paeth(left, above[i], corner))) & 255
    return row


def rows(path):
    with open(path, "rb") as file:
        data = file.read()
    packed = b""
    at = 8
    while at < len(data):
        length, kind = struct.unpack(">I4s", data[at:at + 8])
        part = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            width, height, depth, colour, _, _, interlaced = struct.unpack(">IIBBBBB", part)
            if depth != 8 or colour not in (2, 6) or interlaced:
                raise ValueError("%s is another kind of PNG" % path)
        elif kind == b"IDAT":
            packed += part
        at += 12 + length
    size = 3 if colour == 2 else 4
    raw = zlib.decompress(packed)
    above = bytearray(width * size)
    found = []
    for y in range(height):
        start = y * (width * size + 1)
        above = _restored(raw[start], bytearray(raw[start + 1:start + 1 + width * size]), above, size)
        row = bytearray(width * 3)
        for channel in range(3):
            row[channel::3] = above[channel::size]
        found.append(bytes(row))
    return found


def first_difference(one, other):
    """Where two pictures differ first, and how; None when they don't."""
    if len(one) != len(other) or len(one[0]) != len(other[0]):
        return "%d x %d and %d x %d" % (len(one[0]) // 3, len(one), len(other[0]) // 3, len(other))
    for y, (a, b) in enumerate(zip(one, other)):
        if a != b:
            x = next(i for i in range(len(a)) if a[i] != b[i]) // 3
            return "at %d,%d: %s and %s" % (x, y, a[3 * x:3 * x + 3].hex(), b[3 * x:3 * x + 3].hex())
    return None
