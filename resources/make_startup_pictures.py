#!/usr/bin/env python3
"""Draws the start-up manager's pictures: the umbrella (backup off and on),
the two restore pictures (registry, services) and the restore panel's two
buttons. Writes resources/buttons/*.bmp; needs ImageMagick."""
import subprocess
import tempfile
from pathlib import Path

import make_skin as skin

OUT = skin.BUTTONS


def picture(name, width, height, mvg, lit=False):
    with tempfile.TemporaryDirectory() as tmp:
        png = Path(tmp) / "p.png"
        subprocess.run([skin.CONVERT, "-size", f"{width}x{height}", f"xc:{skin.WELL}",
                        "-draw", skin.tile_mvg((0, 0, width, height), lit) + mvg, str(png)],
                       check=True)
        skin.to_bmp(png, OUT / f"{name}.bmp")


def label(text, x, y, size, ink):
    return (f"push graphic-context\nfont '{skin.FONT_BOLD}' font-size {size} fill '{ink}' "
            f"stroke none text-anchor middle text {x},{y} '{text}'\npop graphic-context\n")


def umbrella(open_):
    ink = skin.LIT_INK if open_ else skin.TILE_INK
    if open_:
        canopy = ("fill '%s' stroke none path 'M 14,17 A 18,12 0 0 1 50,17 "
                  "Q 44,14 38,17 Q 32,14 26,17 Q 20,14 14,17 Z'\n" % ink)
        shaft = (f"fill none stroke '{ink}' stroke-width 2 line 32,6 32,24\n"
                 f"path 'M 32,24 Q 32,28 28,27'\n")
    else:
        canopy = f"fill '{ink}' stroke none polygon 32,4 36,20 28,20\n"
        shaft = (f"fill none stroke '{ink}' stroke-width 2 line 32,20 32,25\n"
                 f"path 'M 32,25 Q 32,28 28,27'\n")
    return "push graphic-context\n" + canopy + shaft + "pop graphic-context\n"


def restore_arrow(cx, cy, r, ink):
    return (f"push graphic-context\nfill none stroke '{ink}' stroke-width 3 "
            f"path 'M {cx - r},{cy} A {r},{r} 0 1 1 {cx},{cy + r}'\n"
            f"fill '{ink}' stroke none polygon {cx - r - 5},{cy - 1} {cx - r + 5},{cy - 1} "
            f"{cx - r},{cy + 6}\npop graphic-context\n")


def main():
    ink = skin.TILE_INK
    picture("UMBRELLA_CLOSED", 64, 30, umbrella(False))
    picture("UMBRELLA_OPEN", 64, 30, umbrella(True), lit=True)
    picture("RESTORE_REGISTRY", 76, 56, restore_arrow(38, 22, 11, skin.ACCENT)
            + label("Registry", 38, 50, 11, ink))
    picture("RESTORE_SERVICES", 76, 56, restore_arrow(38, 22, 11, skin.ACCENT)
            + label("Services", 38, 50, 11, ink))
    picture("BACKUP_RESTORE", 72, 50, restore_arrow(36, 20, 9, skin.ACCENT)
            + label("Restore", 36, 45, 10, ink))
    cross = (f"push graphic-context\nfill none stroke '{skin.CLOSE_RED}' stroke-width 3 "
             f"line 28,11 44,27 line 44,11 28,27\npop graphic-context\n")
    picture("BACKUP_FORGET", 72, 50, cross + label("Forget", 36, 45, 10, ink))


if __name__ == "__main__":
    main()
