#!/usr/bin/env python3
"""Writes the button bitmaps (24-bit BMP) named as the program loads them.

Plain ("JOS") and lit ("SUS") forms of each button. Run from this folder;
the output is committed so that the build needs no image tools.
"""
import struct
from pathlib import Path

BUTTONS = {  # resource stem -> (width, height, hue as r, g, b)
    "DEZ": (64, 48, (70, 110, 160)),
    "TASK": (64, 48, (70, 140, 110)),
    "SPLIT": (64, 48, (150, 110, 60)),
    "DIRINFO": (64, 48, (120, 90, 150)),
    "KILLA": (64, 48, (90, 90, 100)),
    "SHRED": (64, 48, (160, 70, 70)),
    "JUNK": (64, 48, (110, 140, 60)),
    "RUN": (64, 48, (60, 130, 150)),
    "DUP": (64, 48, (150, 120, 70)),
    "PICIOR": (64, 48, (100, 100, 130)),
    "DELETE": (56, 24, (150, 60, 60)),
    "DELETEALL": (56, 24, (170, 80, 50)),
    "REFRESH": (56, 24, (60, 120, 80)),
}


def bmp(width, height, pixel):
    row_pad = (4 - width * 3 % 4) % 4
    rows = []
    for y in range(height - 1, -1, -1):  # bottom-up
        row = bytearray()
        for x in range(width):
            r, g, b = pixel(x, y)
            row += bytes((b, g, r))
        rows.append(bytes(row) + b"\0" * row_pad)
    data = b"".join(rows)
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    return header + info + data


def button(width, height, hue, lit):
    def pixel(x, y):
        edge = x in (0, width - 1) or y in (0, height - 1)
        inner = x in (1, width - 2) or y in (1, height - 2)
        shade = 1.0 - 0.35 * y / height
        base = [min(255, int(c * shade * (1.45 if lit else 1.0))) for c in hue]
        if edge:
            return (20, 20, 24)
        if inner:
            return (230, 230, 235) if lit else (150, 150, 160)
        return tuple(base)
    return bmp(width, height, pixel)


def main():
    out = Path(__file__).resolve().parent / "buttons"
    out.mkdir(exist_ok=True)
    for stem, (w, h, hue) in BUTTONS.items():
        sep = "" if stem == "SPLIT" else "_"  # the split button's names have no underscore
        for suffix, lit in (("JOS", False), ("SUS", True)):
            (out / f"{stem}{sep}{suffix}.bmp").write_bytes(button(w, h, hue, lit))


if __name__ == "__main__":
    main()
