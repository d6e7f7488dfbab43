#!/usr/bin/env python3
"""Draws the pictures of the power-off controls and the RAM frog: the power
button plain (blue) and lit (red), the armed mark, the folders button of the
download watch, the add and remove buttons of the folder list, and the frog
tile with its lit form. The small round ones sit on the skin, so their
background is cut from the skin's own picture at their place.
Writes resources/buttons/*.bmp; needs ImageMagick."""
import subprocess
import tempfile
from pathlib import Path

import make_skin as skin

OUT = skin.BUTTONS
SKIN_JPG = skin.SKIN / "skin.jpg"


def on_skin(name, rect, mvg):
    x, y, w, h = rect
    with tempfile.TemporaryDirectory() as tmp:
        png = Path(tmp) / "p.png"
        subprocess.run([skin.CONVERT, str(SKIN_JPG), "-crop", f"{w}x{h}+{x}+{y}", "+repage",
                        "-draw", mvg, str(png)], check=True)
        skin.to_bmp(png, OUT / f"{name}.bmp")


def tile(name, width, height, mvg, lit=False):
    with tempfile.TemporaryDirectory() as tmp:
        png = Path(tmp) / "p.png"
        subprocess.run([skin.CONVERT, "-size", f"{width}x{height}", f"xc:{skin.WELL}",
                        "-draw", skin.tile_mvg((0, 0, width, height), lit) + mvg, str(png)],
                       check=True)
        skin.to_bmp(png, OUT / f"{name}.bmp")


def ring(ring_ink, fill):
    return (f"push graphic-context\nfill '{fill}' stroke '{ring_ink}' stroke-width 1.5 "
            f"circle 12,12 12,1.5\npop graphic-context\n")


def clock(ink):
    return (f"push graphic-context\nfill none stroke '{ink}' stroke-width 2 "
            f"stroke-linecap round circle 12,12 12,4\nline 12,12 12,7.5\nline 12,12 15.5,14\n"
            f"pop graphic-context\n")


def folder(x, y, ink):
    return (f"push graphic-context\ntranslate {x},{y}\nfill none stroke '{ink}' stroke-width 2 "
            f"stroke-linejoin round polygon 2,5 8,5 10,7 20,7 20,18 2,18\npop graphic-context\n")


def badge(x, y, plus, ink, back):
    s = (f"push graphic-context\nfill '{ink}' stroke '{back}' stroke-width 1.5 "
         f"circle {x},{y} {x + 6},{y}\nstroke '{back}' stroke-width 2 "
         f"line {x - 3},{y} {x + 3},{y}\n")
    if plus:
        s += f"line {x},{y - 3} {x},{y + 3}\n"
    return s + "pop graphic-context\n"


def chip(ink):
    s = (f"push graphic-context\nfill none stroke '{ink}' stroke-width 2 "
         f"roundrectangle 20,8 44,22 2,2\nstroke-width 1.5\n")
    for x in (24, 29, 34, 39):
        s += f"line {x},4 {x},8\nline {x},22 {x},26\n"
    return (s + f"font '{skin.FONT_BOLD}' font-size 8 fill '{ink}' stroke none "
            f"text-anchor middle text 32,18 'RAM'\npop graphic-context\n")


def main():
    red, blue = skin.CLOSE_RED, skin.ACCENT
    on_skin("SHUT_BLUE", skin.SHUT, ring(blue, skin.WELL) + skin.place_icon(
        "POWER", 4, 4, 16 / 24, blue, skin.WELL))
    on_skin("SHUT_RED", skin.SHUT, ring(red, red) + skin.place_icon(
        "POWER", 4, 4, 16 / 24, "#ffffff", red))
    on_skin("ARMED", skin.ARMED, ring(red, skin.WELL) + clock(red))
    ink = skin.TILE_INK
    tile("FOLDERS", 64, 30, folder(13, 3, ink) + clock(ink).replace(
        "circle 12,12 12,4", "circle 44,16 44,9").replace(
        "line 12,12 12,7.5", "line 44,16 44,11.5").replace("line 12,12 15.5,14", "line 44,16 47,18"))
    tile("ADDF", 64, 30, folder(16, 3, ink) + badge(40, 19, True, skin.ACCENT, skin.TILE_BOTTOM))
    tile("SUBF", 64, 30, folder(16, 3, ink) + badge(40, 19, False, red, skin.TILE_BOTTOM))
    for name, lines in (("POWEROFF_EN", ("The PC is shutting down...",
                                         "Thank you for using Wellharrower!")),
                        ("POWEROFF_RO", ("PC-ul se opreste...",
                                         "Va multumim ca folositi Wellharrower!"))):
        with tempfile.TemporaryDirectory() as tmp:
            png = Path(tmp) / "p.png"
            mvg = "".join(skin.text_mvg(18, 74 + 26 * i, line, 14 if i == 0 else 12,
                                        skin.TEXT if i == 0 else skin.TEXT_DIM)
                          for i, line in enumerate(lines))
            subprocess.run([skin.CONVERT, str(skin.SKIN / "poweroff_back.bmp"), "-draw", mvg,
                            str(png)], check=True)
            skin.to_bmp(png, skin.SKIN / f"{name.lower()}.bmp")
    tile("FROG_JOS", 64, 30, chip(ink))
    tile("FROG_SUS", 64, 30, chip(skin.LIT_INK), lit=True)


if __name__ == "__main__":
    main()
