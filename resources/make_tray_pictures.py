#!/usr/bin/env python3
"""Draws the tray's pictures: the 17 small bitmaps of the tray menu's lines
(the same in both menus) and the two busy icons. Writes
resources/buttons/MENU_<line>.bmp and resources/skin/tray_ram.ico,
tray_harrow.ico; needs ImageMagick."""
import tempfile
from pathlib import Path

import make_skin as skin

# Line by line, as both menus run; None for the separators.
LINES = ["DEZ", "JUNK", "TASK", "SPLIT", "KILLA", "DIRINFO", "SHRED", "RUN", None,
         "CLOSEALL", "HARROW", "CHIP", None, "POWER", "OPTIONS", None, "CLOSE"]
SIZE = 13  # the menus' check-mark place


def glyph(name, ink, back):
    s = f"stroke '{ink}' fill none stroke-width 2 stroke-linecap round stroke-linejoin round\n"
    if name == "CHIP":  # a memory module
        s += "rectangle 2,7 22,17\n"
        for x in (5, 9, 13, 17):
            s += f"fill '{ink}' stroke none rectangle {x},10 {x + 2},14\nstroke '{ink}' fill none\n"
        s += "line 4,17 4,21\nline 8,17 8,21\nline 12,17 12,21\nline 16,17 16,21\nline 20,17 20,21\n"
        return s
    if name == "CLOSEALL":  # two windows, crossed out
        s += "rectangle 7,3 21,14\nrectangle 3,9 17,20\nstroke-width 2.5 line 7,12 13,18\nline 13,12 7,18\n"
        return s
    if name == "CLOSE":
        return s + "stroke-width 3 line 5,5 19,19\nline 19,5 5,19\n"
    return skin.icon_mvg(name, ink, back)


def picture(name, n, lit, out, tmp):
    skin.run("-size", f"{n}x{n}", "xc:none" if out.suffix == ".png" else f"xc:{skin.WELL}",
             tmp / "base.png")
    k = n / 24
    art = (f"push graphic-context\nscale {k},{k}\n" + skin.tile_mvg((0, 0, 24, 24), lit, 5) +
           "pop graphic-context\n")
    if name:
        ink, back = (skin.LIT_INK, skin.LIT_BOTTOM) if lit else (skin.TILE_INK, skin.TILE_BOTTOM)
        art += (f"push graphic-context\ntranslate {n * 0.12},{n * 0.12}\n"
                f"scale {k * 0.76},{k * 0.76}\n{glyph(name, ink, back)}pop graphic-context\n")
    skin.draw(tmp / "base.png", art, out, tmp)


def main():
    with tempfile.TemporaryDirectory() as t:
        tmp = Path(t)
        for line, name in enumerate(LINES):
            picture(name, SIZE, False, tmp / "m.bmp.png", tmp)
            skin.to_bmp(tmp / "m.bmp.png", skin.BUTTONS / f"MENU_{line}.bmp")
        for name, out in (("CHIP", "tray_ram.ico"), ("HARROW", "tray_harrow.ico")):
            sizes = []
            for n in (16, 32):
                picture(name, n, True, tmp / f"i{n}.png", tmp)
                sizes.append(tmp / f"i{n}.png")
            skin.run(*sizes, skin.SKIN / out)


if __name__ == "__main__":
    main()
