#!/usr/bin/env python3
"""Draws the program's icon, a summit that sends, and writes it as PNG in two sizes beside this script.

Only the standard library is used. The drawing lives on a square of side 1 with the origin at the top left.
"""
import math
import pathlib
import struct
import zlib

SKY = (24, 66, 110)
ROCK = (92, 132, 88)
SHADE = (62, 98, 66)
SNOW = (244, 248, 252)
SIGNAL = (250, 190, 64)

SUMMIT = (0.50, 0.40)
SAMPLES = 4  # in each direction of a pixel


def inside_rounded_square(x, y, radius=0.18):
    dx = max(radius - x, x - (1 - radius), 0)
    dy = max(radius - y, y - (1 - radius), 0)
    return dx * dx + dy * dy <= radius * radius


def on_mountain(x, y):
    return y >= SUMMIT[1] and abs(x - SUMMIT[0]) <= (y - SUMMIT[1]) * 0.78 and y <= 0.88


def on_snow(x, y):
    edge = 0.555 + 0.03 * math.cos((x - SUMMIT[0]) * 42)
    return on_mountain(x, y) and y <= edge


def on_signal(x, y):
    dx, dy = x - SUMMIT[0], y - SUMMIT[1]
    distance = math.hypot(dx, dy)
    above = dy < 0 and abs(dx) <= -dy * 1.15
    arcs = any(abs(distance - radius) <= 0.026 for radius in (0.15, 0.26))
    return (above and arcs) or distance <= 0.045


def color_at(x, y):
    if not inside_rounded_square(x, y):
        return None
    if on_signal(x, y):
        return SIGNAL
    if on_snow(x, y):
        return SNOW
    if on_mountain(x, y):
        return ROCK if x < SUMMIT[0] + 0.04 * math.sin(y * 40) else SHADE
    return SKY


def pixel(column, row, size):
    step = 1 / (size * SAMPLES)
    hits = [color_at((column * SAMPLES + i + 0.5) * step, (row * SAMPLES + j + 0.5) * step)
            for i in range(SAMPLES) for j in range(SAMPLES)]
    seen = [color for color in hits if color]
    if not seen:
        return bytes(4)
    mean = [round(sum(color[channel] for color in seen) / len(seen)) for channel in range(3)]
    return bytes(mean + [round(255 * len(seen) / len(hits))])


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(size):
    rows = b"".join(b"\0" + b"".join(pixel(column, row, size) for column in range(size)) for row in range(size))
    header = struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(rows, 9)) +
            chunk(b"IEND", b""))


def main():
    here = pathlib.Path(__file__).resolve().parent
    for size in (48, 256):
        (here / f"brelwin-{size}.png").write_bytes(png(size))


if __name__ == "__main__":
    main()
