#!/usr/bin/env python3
"""Draws the pictures of the junk categories' magnifier and of the quick
tip's demonstration: three sample files (a song, a text, a shortcut) and the
drop target they glide to, plain and lit. Writes resources/buttons/*.bmp;
needs ImageMagick."""
import subprocess
import tempfile
from pathlib import Path

import make_skin as skin

OUT = skin.BUTTONS


def picture(name, width, height, mvg, back=skin.WELL):
    with tempfile.TemporaryDirectory() as tmp:
        png = Path(tmp) / "p.png"
        subprocess.run([skin.CONVERT, "-size", f"{width}x{height}", f"xc:{back}",
                        "-draw", mvg, str(png)], check=True)
        skin.to_bmp(png, OUT / f"{name}.bmp")


def page(badge):
    """A file: a page with a folded corner and a badge in the middle."""
    ink = skin.TEXT
    return ("push graphic-context\n"
            f"stroke '{ink}' stroke-width 1.5 fill '{skin.WELL_LIGHT}' "
            "polygon 7,3 20,3 26,9 26,29 7,29\n"
            f"fill none polyline 20,3 20,9 26,9\n" + badge + "pop graphic-context\n")


NOTE = (f"stroke '{skin.ACCENT}' stroke-width 2 fill none line 18,12 18,22\n"
        f"line 18,12 22,14\nfill '{skin.ACCENT}' stroke none circle 15.5,22.5 18,22.5\n")
LOCK = (f"stroke '{skin.ACCENT}' stroke-width 2 fill none path 'M 13,18 L 13,15 A 3.5,3.5 0 0 1 "
        f"20,15 L 20,18'\nfill '{skin.ACCENT}' stroke none rectangle 11,18 22,25\n")
ARROW = (f"fill '{skin.TEXT}' stroke '{skin.ACCENT}' stroke-width 1 rectangle 7,20 16,29\n"
         f"stroke '{skin.ACCENT}' stroke-width 2 fill none path 'M 9,27 Q 9,22 14,22'\n"
         f"fill '{skin.ACCENT}' stroke none polygon 13,19.5 16,22 13,24.5\n")


def main():
    picture("LUPA", 18, 18, skin.place_icon("LUPE", 1, 1, 0.67, skin.ACCENT, skin.WELL))
    picture("TIP_SONG", 32, 32, page(NOTE))
    picture("TIP_SECRET", 32, 32, page(LOCK))
    picture("TIP_LINK", 32, 32, page(ARROW))
    for suffix, lit in (("JOS", False), ("SUS", True)):
        ink, back = (skin.LIT_INK, skin.LIT_BOTTOM) if lit else (skin.TILE_INK, skin.TILE_BOTTOM)
        picture(f"TIP_TRACE_{suffix}", 48, 48,
                skin.tile_mvg((0, 0, 48, 48), lit, 8) + skin.place_icon("HARROW", 8, 8, 4 / 3,
                                                                         ink, back))


if __name__ == "__main__":
    main()
