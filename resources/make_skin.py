#!/usr/bin/env python3
"""Draws the skin: the main window's picture and outline, every button
picture, the small windows' pictures, the icon, and the layout header that
places the controls on them.

Outputs (all committed, so that the build needs no image tools):
  resources/skin/skin.jpg         JPEG 101, the main window's picture
  resources/skin/skin.rgn         RGN 101, its outline as RGNDATA
  resources/buttons/*.bmp         the lit (SUS) and plain (JOS) buttons
  resources/skin/*.bmp            pictures of choose, Loading and poweroff
  resources/skin/wellharrower.ico the program's icon
  src/core/skin_layout.h          the rectangles, one source for art and code

Needs python3 and ImageMagick (/usr/bin/convert; a stand-in convert may sit
earlier in PATH). Run from anywhere: python3 resources/make_skin.py
"""
import math
import os
import struct
import subprocess
import tempfile
from pathlib import Path

CONVERT = "/usr/bin/convert"
HERE = Path(__file__).resolve().parent
ROOT = HERE.parent
SKIN = HERE / "skin"
BUTTONS = HERE / "buttons"
LAYOUT_H = ROOT / "src" / "core" / "skin_layout.h"
FONT = "DejaVu-Sans"
FONT_BOLD = "DejaVu-Sans-Bold"

# ---------------------------------------------------------------- palette
BODY_TOP = (52, 62, 76)
BODY_BOTTOM = (29, 35, 43)
OUTSIDE = (14, 18, 23)          # never seen: the region cuts it away
EDGE_LIGHT = (120, 138, 160)
EDGE_DARK = (10, 13, 17)
WELL = "#141920"
WELL_LINE = "#0a0d11"
WELL_LIGHT = "#3b4757"
TEXT = "#e3e9f0"
TEXT_DIM = "#7d8da1"
ACCENT = "#59acff"
TILE_TOP, TILE_BOTTOM, TILE_LINE, TILE_INK = "#3e4a5a", "#2b333f", "#4f5d70", "#b8c6d8"
LIT_TOP, LIT_BOTTOM, LIT_LINE, LIT_INK = "#3f8ae0", "#1f5399", "#9fd0ff", "#ffffff"
CLOSE_RED = "#c8524c"

# ---------------------------------------------------------------- layout
W, H = 880, 470
SIDEBAR = (12, 72, 76, 388)                 # the well behind the section buttons
SECTION_ORDER = ["uninstall", "task", "splity", "dirinfo", "kila", "shred", "junk", "RUN",
                 "dupy", "Image11"]
SECTION_ICON = {"uninstall": "DEZ", "task": "TASK", "splity": "SPLIT", "dirinfo": "DIRINFO",
                "kila": "KILLA", "shred": "SHRED", "junk": "JUNK", "RUN": "RUN", "dupy": "DUP",
                "Image11": "OPTIONS"}
TILE_W, TILE_H, TILE_STEP = 64, 34, 38


def section_rect(i):
    return (18, 78 + i * TILE_STEP, TILE_W, TILE_H)


CONTENT = (100, 72, 620, 330)
STRIP = (96, 414, 628, 46)                  # the well under the pages
PROGRESS = (104, 426, 360, 22)              # picProgress
PROGRESS_SMALL = (476, 426, 240, 22)        # Picture16
STRIP_PANEL = (470, 416, 250, 42)           # frame1 and search, over Picture16
LCD = (741, 79, 121, 45)                    # 20 x 5 cells of 6 x 9, one extra column
LCD_BEZEL = (734, 72, 135, 59)
ACTIONS = {"del": (736, 144, 132, 34), "delall": (736, 184, 132, 34),
           "ref": (736, 224, 132, 34)}
EXTRAS_WELL = (732, 266, 140, 140)
EXTRA_W, EXTRA_H = 64, 30


def extra_rect(i):
    return (736 + (i % 2) * 68, 270 + (i // 2) * 34, EXTRA_W, EXTRA_H)


MINIMISE = (804, 12, 24, 24)                # Image10
CLOSE = (838, 12, 24, 24)                   # Image1
SHUT = (838, 42, 24, 24)                    # shut_blue / shut_red, the power button
ARMED = (804, 42, 24, 24)                   # Image32, the power-off is armed
POWER_PANEL = (476, 76, 240, 150)           # Frame17, over the page
WAIT_PANEL = (220, 190, 380, 92)            # mark, over the page
TIP_PANEL = (250, 110, 320, 170)            # quicktip, over the page
LOGO_TAB = (0, 0, 318, 60)
CONTROL_TAB = (786, 0, 94, 50)
BODY_TOP_Y = 22
RADIUS = 18
TAB_RADIUS = 16
FILLET = 8

# The small windows.
CHOOSE_W, CHOOSE_H = 160, 56                # three 48 x 48 answers at 8, 56, 104 px
CHOOSE_ICON = 48
LOADING_W, LOADING_H = 360, 196
POWEROFF_W, POWEROFF_H = 360, 180


# ---------------------------------------------------------------- helpers
def run(*args):
    subprocess.run([CONVERT, *map(str, args)], check=True)


def hexrgb(t):
    return "#%02x%02x%02x" % t


def mix(a, b, t):
    return tuple(round(a[i] + (b[i] - a[i]) * t) for i in range(3))


def rgb_of(path):
    """Raw RGB bytes and size of a picture."""
    out = subprocess.run([CONVERT, str(path), "-depth", "8", "rgb:-"], check=True,
                         capture_output=True).stdout
    size = subprocess.run(["/usr/bin/identify", "-format", "%w %h", str(path)], check=True,
                          capture_output=True, text=True).stdout.split()
    return out, int(size[0]), int(size[1])


def write_bmp(path, rgb, width, height):
    """24-bit bottom-up BMP without colour-space blocks: what LoadImage reads everywhere."""
    pad = (4 - width * 3 % 4) % 4
    rows = []
    for y in range(height - 1, -1, -1):
        row = bytearray()
        for x in range(width):
            i = (y * width + x) * 3
            row += bytes((rgb[i + 2], rgb[i + 1], rgb[i]))
        rows.append(bytes(row) + b"\0" * pad)
    data = b"".join(rows)
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), 3780, 3780, 0, 0)
    path.write_bytes(header + info + data)


def to_bmp(png, bmp):
    rgb, w, h = rgb_of(png)
    write_bmp(bmp, rgb, w, h)


# ---------------------------------------------------------------- outline
def in_round_rect(px, py, rect, r):
    left, top, w, h = rect
    right, bottom = left + w, top + h
    if not (left <= px < right and top <= py < bottom):
        return False
    cx = min(max(px, left + r), right - r)
    cy = min(max(py, top + r), bottom - r)
    return (px - cx) ** 2 + (py - cy) ** 2 <= r * r


def inside(x, y):
    """The window's outline at pixel (x, y): a rounded body with two raised
    tabs on top, joined to it by small concave fillets."""
    px, py = x + 0.5, y + 0.5
    if in_round_rect(px, py, (0, BODY_TOP_Y, W, H - BODY_TOP_Y), RADIUS):
        return True
    for tab in (LOGO_TAB, CONTROL_TAB):
        if in_round_rect(px, py, (tab[0], tab[1], tab[2], tab[3] + RADIUS), TAB_RADIUS):
            return True
    # Fillets where a tab's side meets the body's top edge.
    for fx, side in ((LOGO_TAB[0] + LOGO_TAB[2], 1), (CONTROL_TAB[0], -1)):
        x0 = fx if side > 0 else fx - FILLET
        if x0 <= px < x0 + FILLET and BODY_TOP_Y - FILLET <= py < BODY_TOP_Y:
            cx, cy = fx + side * FILLET, BODY_TOP_Y - FILLET
            if (px - cx) ** 2 + (py - cy) ** 2 >= FILLET * FILLET:
                return True
    return False


def make_mask():
    return [[inside(x, y) for x in range(W)] for y in range(H)]


def region_data(mask):
    """RGNDATA: header, then the rectangles, row runs merged into bands."""
    runs_of_row = []
    for row in mask:
        runs, x = [], 0
        while x < W:
            if row[x]:
                s = x
                while x < W and row[x]:
                    x += 1
                runs.append((s, x))
            else:
                x += 1
        runs_of_row.append(tuple(runs))
    rects, y = [], 0
    while y < H:
        runs = runs_of_row[y]
        y2 = y + 1
        while y2 < H and runs_of_row[y2] == runs:
            y2 += 1
        rects += [(a, y, b, y2) for a, b in runs]
        y = y2
    left = min(r[0] for r in rects)
    top = min(r[1] for r in rects)
    right = max(r[2] for r in rects)
    bottom = max(r[3] for r in rects)
    head = struct.pack("<IIII4i", 32, 1, len(rects), len(rects) * 16, left, top, right, bottom)
    return head + b"".join(struct.pack("<4i", *r) for r in rects)


def base_picture(mask, path):
    """Body gradient with a bevelled rim, as a PPM for ImageMagick to draw on."""
    def at(x, y):
        return 0 <= x < W and 0 <= y < H and mask[y][x]

    out = bytearray()
    for y in range(H):
        body = mix(BODY_TOP, BODY_BOTTOM, y / H)
        for x in range(W):
            if not mask[y][x]:
                out += bytes(OUTSIDE)
                continue
            ring = 0
            for d in (1, 2):
                if not (at(x - d, y) and at(x + d, y) and at(x, y - d) and at(x, y + d)):
                    ring = d
                    break
            if ring == 1:
                # The rim catches the light from above.
                out += bytes(mix(EDGE_LIGHT, EDGE_DARK, min(1.0, y / (H * 0.8))))
            elif ring == 2:
                out += bytes(mix(body, EDGE_DARK, 0.45))
            else:
                out += bytes(body)
    path.write_bytes(b"P6 %d %d 255\n" % (W, H) + bytes(out))


# ---------------------------------------------------------------- icons
# Each icon is MVG in a 24 x 24 box, drawn with the given ink; `back` is the
# colour behind it, for cut-outs.
def icon_mvg(name, ink, back):
    s = f"stroke '{ink}' fill none stroke-width 2 stroke-linecap round stroke-linejoin round\n"
    if name == "DEZ":  # a package with a minus badge
        s += "polygon 3,9 7,5 18,5 14,9\npolygon 3,9 14,9 14,20 3,20\npolygon 14,9 18,5 18,16 14,20\n"
        s += f"fill '{ink}' stroke '{back}' stroke-width 1.5 circle 18.5,18.5 18.5,13\n"
        s += f"stroke '{back}' stroke-width 2 line 15.5,18.5 21.5,18.5\n"
    elif name == "TASK":  # a screen with a pulse
        s += "roundrectangle 2,4 22,19 2,2\nline 8,22 16,22\n"
        s += "polyline 5,12 8,12 10,8 13,16 15,11 19,11\n"
    elif name == "SPLIT":  # a page cut in two
        s += "polyline 5,9 5,3 14,3 19,8 19,9\npolyline 14,3 14,8 19,8\n"
        s += "polyline 5,15 5,21 19,21 19,15\n"
        s += "stroke-dasharray 2,2 stroke-width 1.5 line 1,12 23,12\n"
    elif name == "DIRINFO":  # a pie of the disk
        s += "circle 12,12 12,3\n"
        s += f"fill '{ink}' stroke none path 'M 12,12 L 12,3 A 9,9 0 0,1 19.8,16.5 Z'\n"
    elif name == "KILLA":  # a floppy disk
        s += "polygon 3,3 18,3 21,6 21,21 3,21\n"
        s += f"fill '{ink}' stroke none rectangle 7,3 16,9\n"
        s += f"fill '{back}' rectangle 12,4.5 14,7.5\n"
        s += f"stroke '{ink}' fill none roundrectangle 6,13 18,21 1,1\n"
    elif name == "SHRED":  # a page going into a shredder
        s += "polyline 7,10 7,2 17,2 17,10\nline 10,5 14,5\nline 10,7.5 14,7.5\n"
        s += f"fill '{ink}' stroke none roundrectangle 2,10 22,14 1,1\n"
        s += f"stroke '{ink}' stroke-width 1.5 fill none line 6,16.5 6,22\nline 9.5,16.5 9.5,20\n"
        s += "line 13,16.5 13,22\nline 16.5,16.5 16.5,20\n"
    elif name == "JUNK":  # a bin
        s += "line 3,6 21,6\npolyline 9,6 9,3 15,3 15,6\npolygon 5,6 19,6 17.5,21 6.5,21\n"
        s += "line 10,10 10,17\nline 14,10 14,17\n"
    elif name == "RUN":  # start: a play mark in a ring
        s += "circle 12,12 12,3\n"
        s += f"fill '{ink}' stroke-width 1 polygon 10,8 16.5,12 10,16\n"
    elif name == "DUP":  # two pages
        s += "polyline 8,6 8,2 17,2 21,6 21,16 16,16\n"
        s += f"fill '{back}' polygon 3,8 12,8 16,12 16,22 3,22\n"
        s += f"fill none line 6,15 13,15\nline 6,18 13,18\n"
    elif name == "OPTIONS":  # a gear
        pts = []
        for k in range(32):
            a = k * math.pi / 16
            r = 10 if (k % 4) in (0, 1) else 7.2
            pts.append("%.2f,%.2f" % (12 + r * math.cos(a + 0.2), 12 + r * math.sin(a + 0.2)))
        s += f"fill '{ink}' stroke none polygon {' '.join(pts)}\n"
        s += f"fill '{back}' circle 12,12 12,8.5\n"
    elif name == "HARROW":  # a harrow: the beam, its slanting tines and the drawbar
        s += "stroke-width 2 line 12,10 21,2\n"
        s += "stroke-width 2.5 line 2.5,10.5 19.5,10.5\nstroke-width 1.8\n"
        for x in (4, 8.3, 12.6, 17):
            s += f"line {x},11 {x - 2.5},20.5\n"
    elif name == "REFRESH":  # a turning arrow
        s += "path 'M 19,12 A 7,7 0 1,1 16.9,7'\n"
        s += f"fill '{ink}' stroke none polygon 20.5,2.5 21,10.5 13.5,8.5\n"
    elif name == "FOOT":  # the print of a foot: ball, heel and toes
        s += "path 'M 9,9 C 8,13 9.5,15.5 9.5,18 C 9.5,21.5 14.5,21.5 14.5,18 C 14.5,15 17,13 16,9 "
        s += "C 15,6 10,6 9,9 Z'\n"
        for (x, y, r) in ((8.2, 4.6, 1.7), (11.2, 3.2, 1.5), (14, 3.2, 1.4), (16.4, 4.4, 1.2),
                          (18.1, 6.4, 1.0)):
            s += f"fill '{ink}' stroke none circle {x},{y} {x + r},{y}\n"
        s += f"stroke '{ink}' fill none\n"
    elif name == "QM":  # a question mark: the sizes are not known
        s += "stroke-width 2.5 path 'M 7.5,8 C 7.5,2.5 16.5,2.5 16.5,8 C 16.5,11.5 12,11.5 12,15.5'\n"
        s += f"fill '{ink}' stroke none circle 12,20 13.6,20\n"
    elif name == "LUPE":  # a magnifying glass
        s += "circle 10,10 10,3.5\nstroke-width 3 line 14.8,14.8 21,21\n"
    elif name == "XFOLDER":  # a folder with a cross: delete what was left
        s += "polygon 2,6 9,6 11,8 22,8 22,20 2,20\n"
        s += "stroke-width 2.2 line 9,11 15,17\nline 15,11 9,17\n"
    elif name == "WEB":
        s += "circle 12,12 12,3\nellipse 12,12 4,9 0,360\nline 3,12 21,12\n"
        s += "stroke-width 1.5 path 'M 5,7 Q 12,9 19,7'\npath 'M 5,17 Q 12,15 19,17'\n"
    elif name == "MAIL":
        s += "roundrectangle 2,5 22,19 2,2\npolyline 3,6 12,13 21,6\n"
    elif name == "POST":  # an envelope with a stamp
        s += "rectangle 2,5 22,19\nline 2,5 22,19\nline 22,5 2,19\n"
    elif name == "POWER":
        s += "path 'M 7.5,6.5 A 8,8 0 1,0 16.5,6.5'\nline 12,3 12,11\n"
    else:
        raise ValueError(name)
    return s


def place_icon(name, x, y, scale, ink, back):
    return (f"push graphic-context\ntranslate {x},{y}\nscale {scale},{scale}\n"
            f"{icon_mvg(name, ink, back)}pop graphic-context\n")


def tile_mvg(rect, lit, radius=6):
    """A button tile; plain tiles sit flat, lit ones glow."""
    x, y, w, h = rect
    top, bottom, line = (LIT_TOP, LIT_BOTTOM, LIT_LINE) if lit else (TILE_TOP, TILE_BOTTOM,
                                                                        TILE_LINE)
    return (f"push graphic-context\nstroke none fill '{bottom}' "
            f"roundrectangle {x + .5},{y + .5} {x + w - 1.5},{y + h - 1.5} {radius},{radius}\n"
            f"fill '{top}' roundrectangle {x + 1.5},{y + 1.5} {x + w - 2.5},{y + h / 2} "
            f"{radius - 1},{radius - 1}\n"
            f"fill '{bottom}' rectangle {x + 1.5},{y + h / 2 - 2} {x + w - 2.5},{y + h / 2 + .5}\n"
            f"fill none stroke '{line}' stroke-width 1 "
            f"roundrectangle {x + .5},{y + .5} {x + w - 1.5},{y + h - 1.5} {radius},{radius}\n"
            f"pop graphic-context\n")


def well_mvg(rect, radius=8, fill=WELL):
    x, y, w, h = rect
    return (f"push graphic-context\nfill '{fill}' stroke '{WELL_LINE}' stroke-width 1 "
            f"roundrectangle {x + .5},{y + .5} {x + w - .5},{y + h - .5} {radius},{radius}\n"
            f"fill none stroke '{WELL_LIGHT}' "
            f"path 'M {x + radius},{y + h + .5} L {x + w - radius},{y + h + .5}'\n"
            f"pop graphic-context\n")


def text_mvg(x, y, text, size, color, font=FONT_BOLD, gravity="NorthWest"):
    safe = text.replace("'", "\\'")
    return (f"push graphic-context\nfont '{font}' font-size {size} fill '{color}' stroke none "
            f"gravity {gravity} text {x},{y} '{safe}'\npop graphic-context\n")


def draw(base, mvg, out, tmp, extra=()):
    # The MVG goes inline: Debian's ImageMagick policy refuses "@file".
    run(base, *extra, "-draw", mvg, out)


# ---------------------------------------------------------------- the main window
def main_window(tmp):
    mask = make_mask()
    (SKIN / "skin.rgn").write_bytes(region_data(mask))
    base_picture(mask, tmp / "base.ppm")

    m = ""
    # Logo tab.
    m += place_icon("HARROW", 16, 10, 1.6, ACCENT, hexrgb(BODY_TOP))
    m += text_mvg(62, 9, "Wellharrower", 24, TEXT)
    m += text_mvg(64, 40, "clean-up  \u00b7  maintenance  \u00b7  care", 10, TEXT_DIM, FONT)
    # Window buttons on their tab.
    for rect, glyph, ring in ((MINIMISE, "min", TILE_LINE), (CLOSE, "close", CLOSE_RED)):
        x, y, w, h = rect
        cx, cy = x + w / 2 - .5, y + h / 2 - .5
        m += (f"push graphic-context\nfill '{TILE_BOTTOM}' stroke '{ring}' stroke-width 1.5 "
              f"circle {cx},{cy} {cx + 10.5},{cy}\n")
        m += f"stroke '{TEXT}' stroke-width 2 stroke-linecap round\n"
        if glyph == "min":
            m += f"line {cx - 4.5},{cy + 3} {cx + 4.5},{cy + 3}\n"
        else:
            m += f"line {cx - 4},{cy - 4} {cx + 4},{cy + 4}\nline {cx + 4},{cy - 4} {cx - 4},{cy + 4}\n"
        m += "pop graphic-context\n"
    # Wells: section bar, page, strip under it, LCD bezel, extras.
    m += well_mvg(SIDEBAR, 10)
    cx, cy, cw, ch = CONTENT
    m += well_mvg((cx - 4, cy - 4, cw + 8, ch + 8), 6)
    m += well_mvg(STRIP, 6)
    m += well_mvg(EXTRAS_WELL, 8, "#171d25")
    bx, by, bw, bh = LCD_BEZEL
    m += (f"push graphic-context\nfill '#0b0e12' stroke '#5a6a80' stroke-width 1 "
          f"roundrectangle {bx + .5},{by + .5} {bx + bw - .5},{by + bh - .5} 7,7\n"
          f"fill '#000000' stroke '#26303c' "
          f"rectangle {LCD[0] - 1.5},{LCD[1] - 1.5} {LCD[0] + LCD[2] + .5},{LCD[1] + LCD[3] + .5}\n"
          f"pop graphic-context\n")
    # The Options button has no pictures of its own: it lives in the skin.
    r = section_rect(SECTION_ORDER.index("Image11"))
    m += tile_mvg(r, False)
    m += place_icon("OPTIONS", r[0] + (r[2] - 24) / 2, r[1] + (r[3] - 24) / 2, 1, TILE_INK,
                    TILE_BOTTOM)
    # Signature under the right column.
    m += text_mvg(736, 428, "Wellharrower 1.0", 11, TEXT_DIM, FONT)
    m += text_mvg(736, 444, "one window, ten tools", 9, "#56657a", FONT)
    draw(tmp / "base.ppm", m, tmp / "skin.png", tmp)
    run(tmp / "skin.png", "-sampling-factor", "1x1", "-quality", "94", "-strip",
        SKIN / "skin.jpg")
    # Buttons are cut from the same picture, so that they sit seamlessly on it.
    return tmp / "skin.png"


def button_pictures(skin_png, tmp):
    def cut(rect, mvg_fn, out):
        x, y, w, h = rect
        part = tmp / (out.stem + "_base.png")
        run(skin_png, "-crop", f"{w}x{h}+{x}+{y}", "+repage", part)
        draw(part, mvg_fn(w, h), tmp / (out.stem + ".png"), tmp)
        to_bmp(tmp / (out.stem + ".png"), out)

    for i, name in enumerate(SECTION_ORDER):
        if name == "Image11":
            continue
        stem = SECTION_ICON[name]
        sep = "" if stem == "SPLIT" else "_"  # the split button's names have no underscore
        for suffix, lit in (("JOS", False), ("SUS", True)):
            def art(w, h, lit=lit, stem=stem):
                ink, back = (LIT_INK, LIT_BOTTOM) if lit else (TILE_INK, TILE_BOTTOM)
                return tile_mvg((0, 0, w, h), lit) + place_icon(stem, (w - 24) / 2, (h - 24) / 2,
                                                                1, ink, back)
            cut(section_rect(i), art, BUTTONS / f"{stem}{sep}{suffix}.bmp")

    labels = {"del": ("DELETE", "HARROW", "HARROW"), "delall": ("DELETEALL", "HARROW",
                                                                "HARROW ALL"),
              "ref": ("REFRESH", "REFRESH", "REFRESH")}
    for name, (stem, icon, label) in labels.items():
        for suffix, lit in (("JOS", False), ("SUS", True)):
            def art(w, h, lit=lit, icon=icon, label=label):
                ink, back = (LIT_INK, LIT_BOTTOM) if lit else (TILE_INK, TILE_BOTTOM)
                return (tile_mvg((0, 0, w, h), lit, 7) +
                        place_icon(icon, 10, (h - 18) / 2, 0.75, ink, back) +
                        text_mvg(36, (h - 14) / 2 - 1, label, 11, ink))
            cut(ACTIONS[name], art, BUTTONS / f"{stem}_{suffix}.bmp")

    # The foot of section 1 sits among the extras.
    for suffix, lit in (("JOS", False), ("SUS", True)):
        def art(w, h, lit=lit):
            ink, back = (LIT_INK, LIT_BOTTOM) if lit else (TILE_INK, TILE_BOTTOM)
            foot = place_icon("FOOT", (w - 24) / 2, (h - 24) / 2 + 1, 1, ink, back)
            if lit:  # the filled sole: one at a time
                foot = foot.replace("path 'M 9,9", f"fill '{ink}' path 'M 9,9")
            return tile_mvg((0, 0, w, h), lit) + foot
        cut(extra_rect(0), art, BUTTONS / f"PICIOR_{suffix}.bmp")

    # The other extras of section 1: sizes, sizes unknown, sizes shown, folder.
    for stem, icon in (("PIE", "DIRINFO"), ("QM", "QM"), ("LUPE", "LUPE"),
                       ("XFOLDER", "XFOLDER")):
        def art(w, h, icon=icon):
            return tile_mvg((0, 0, w, h), False) + place_icon(icon, (w - 24) / 2, (h - 24) / 2,
                                                              1, TILE_INK, TILE_BOTTOM)
        cut(extra_rect(0), art, BUTTONS / f"{stem}.bmp")


# ---------------------------------------------------------------- small windows
def small_windows(tmp):
    # choose: three answers and the wait panel.
    bg = hexrgb(BODY_BOTTOM)
    run("-size", f"{CHOOSE_W}x{CHOOSE_H}", f"gradient:{hexrgb(BODY_TOP)}-{bg}", tmp / "cb.png")
    rim = (f"fill none stroke '{hexrgb(EDGE_LIGHT)}' stroke-width 1 "
           f"rectangle .5,.5 {CHOOSE_W - 1.5},{CHOOSE_H - 1.5}\n")
    draw(tmp / "cb.png", rim, tmp / "choose_back.png", tmp)
    to_bmp(tmp / "choose_back.png", SKIN / "choose_back.bmp")
    for i, (icon, out) in enumerate((("DEZ", "choose_harrow"), ("SPLIT", "choose_split"),
                                     ("SHRED", "choose_shred"))):
        x = 8 + i * 48
        part = tmp / f"{out}_base.png"
        run(tmp / "choose_back.png", "-crop", f"48x48+{x}+4", "+repage", part)
        art = tile_mvg((2, 2, 44, 44), False, 8) + place_icon(icon, 8, 8, 4 / 3, TILE_INK,
                                                               TILE_BOTTOM)
        draw(part, art, tmp / f"{out}.png", tmp)
        to_bmp(tmp / f"{out}.png", SKIN / f"{out}.bmp")
    wait = place_icon("SHRED", 10, 12, 4 / 3, ACCENT, bg)
    draw(tmp / "choose_back.png", wait, tmp / "choose_wait.png", tmp)
    to_bmp(tmp / "choose_wait.png", SKIN / "choose_wait.bmp")

    # Loading: a title strip for its caption, a banner, and the two flags.
    run("-size", f"{LOADING_W}x{LOADING_H}", f"xc:{bg}", "-size", f"{LOADING_W}x60",
        f"gradient:{hexrgb(BODY_TOP)}-{bg}", "-geometry", "+0+28", "-composite", tmp / "lb.png")
    banner = (f"stroke none fill '{WELL}' rectangle 0,0 {LOADING_W - 1},27\n"
              f"stroke '{hexrgb(EDGE_LIGHT)}' fill none rectangle .5,.5 {LOADING_W - 1.5},"
              f"{LOADING_H - 1.5}\nstroke '{WELL_LINE}' line 1,27.5 {LOADING_W - 2},27.5\n" +
              place_icon("HARROW", 16, 38, 1.5, ACCENT, hexrgb(BODY_TOP)) +
              text_mvg(58, 36, "Wellharrower", 20, TEXT) +
              text_mvg(60, 64, "Choose the language you want to work in", 10, TEXT_DIM, FONT) +
              f"stroke '{WELL_LIGHT}' line 12,88 {LOADING_W - 12},88\n")
    draw(tmp / "lb.png", banner, tmp / "loading_back.png", tmp)
    to_bmp(tmp / "loading_back.png", SKIN / "loading_back.bmp")
    flags = {
        "flag_en": "fill '#ffffff' rectangle 0,0 31,21\nfill '#cf1f2e' rectangle 13,0 18,21\n"
                   "rectangle 0,8 31,13\n",
        "flag_ro": "fill '#002b7f' rectangle 0,0 10,21\nfill '#fcd116' rectangle 11,0 20,21\n"
                   "fill '#ce1126' rectangle 21,0 31,21\n",
    }
    for name, art in flags.items():
        run("-size", "32x22", "xc:#000000", tmp / "f.png")
        draw(tmp / "f.png", "stroke none\n" + art +
             "fill none stroke '#0a0d11' stroke-width 1 rectangle .5,.5 31.5,21.5\n",
             tmp / f"{name}.png", tmp, ("+antialias",))
        to_bmp(tmp / f"{name}.png", SKIN / f"{name}.bmp")
    run("-size", "96x30", f"xc:{hexrgb(BODY_BOTTOM)}", tmp / "ok0.png")
    draw(tmp / "ok0.png", tile_mvg((0, 0, 96, 30), True, 7) + text_mvg(0, 0, "OK", 12, LIT_INK,
                                                                       FONT_BOLD, "Center"),
         tmp / "ok.png", tmp)
    to_bmp(tmp / "ok.png", SKIN / "loading_ok.bmp")

    # poweroff: the panel and its three buttons.
    run("-size", f"{POWEROFF_W}x{POWEROFF_H}", f"gradient:{hexrgb(BODY_TOP)}-{bg}",
        tmp / "pb.png")
    art = (place_icon("POWER", 16, 14, 1.5, ACCENT, hexrgb(BODY_TOP)) +
           text_mvg(58, 14, "Wellharrower", 18, TEXT) +
           f"stroke '{WELL_LIGHT}' line 12,56 {POWEROFF_W - 12},56\n")
    draw(tmp / "pb.png", art, tmp / "poweroff_back.png", tmp)
    to_bmp(tmp / "poweroff_back.png", SKIN / "poweroff_back.bmp")
    for i, (icon, label, out) in enumerate((("WEB", "Web page", "poweroff_web"),
                                            ("MAIL", "E-mail", "poweroff_mail"),
                                            ("POST", "Post", "poweroff_post"))):
        x = 16 + i * 112
        part = tmp / f"{out}_base.png"
        run(tmp / "poweroff_back.png", "-crop", f"104x34+{x}+132", "+repage", part)
        draw(part, tile_mvg((0, 0, 104, 34), False, 7) +
             place_icon(icon, 10, 8, .75, TILE_INK, TILE_BOTTOM) +
             text_mvg(34, 9, label, 11, TILE_INK), tmp / f"{out}.png", tmp)
        to_bmp(tmp / f"{out}.png", SKIN / f"{out}.bmp")

    # The icon: the harrow on a rounded tile, at the sizes the shell asks for.
    sizes = []
    for n in (16, 32, 48):
        run("-size", f"{n}x{n}", "xc:none", tmp / f"i{n}a.png")
        k = n / 24
        art = (f"push graphic-context\nscale {k},{k}\n" + tile_mvg((0, 0, 24, 24), True, 5) +
               "pop graphic-context\n" +
               place_icon("HARROW", n * 0.12, n * 0.16, n / 24 * 0.76, LIT_INK, LIT_BOTTOM))
        draw(tmp / f"i{n}a.png", art, tmp / f"i{n}.png", tmp)
        sizes.append(tmp / f"i{n}.png")
    run(*sizes, SKIN / "wellharrower.ico")


# ---------------------------------------------------------------- layout header
def layout_header():
    def rect(r):
        return "{%d, %d, %d, %d}" % r

    lines = [
        "#pragma once",
        "// Where everything sits on the skin. Written by resources/make_skin.py from",
        "// the same numbers that draw the pictures; change them there, not here.",
        "",
        "namespace wh::skin {",
        "",
        "struct Rect {",
        "  int left, top, width, height;",
        "};",
        "",
        f"inline constexpr int window_width = {W};",
        f"inline constexpr int window_height = {H};",
        "",
        "// The section buttons, top to bottom; the Options button is part of the",
        "// picture and has no pictures of its own.",
    ]
    for i, name in enumerate(SECTION_ORDER):
        lines.append(f"inline constexpr Rect {name} = {rect(section_rect(i))};")
    lines += [
        "",
        "// The frame's own buttons, drawn in the picture.",
        f"inline constexpr Rect Image10 = {rect(MINIMISE)};  // minimise / tray",
        f"inline constexpr Rect Image1 = {rect(CLOSE)};  // close",
        "// The power button under them, the armed mark beside it, and the",
        "// panel of the scheduled power-off over the page.",
        f"inline constexpr Rect shut = {rect(SHUT)};",
        f"inline constexpr Rect Image32 = {rect(ARMED)};",
        f"inline constexpr Rect Frame17 = {rect(POWER_PANEL)};",
        "",
        "// The action buttons.",
    ]
    for name, r in ACTIONS.items():
        lines.append(f"inline constexpr Rect {name} = {rect(r)};")
    lines += [
        "",
        "// The LCD panel: 20 columns and 5 rows of 6 x 9 pixels and one column more.",
        f"inline constexpr Rect lcd = {rect(LCD)};",
        "",
        "// Every section's page, and what lies over it now and then.",
        f"inline constexpr Rect content = {rect(CONTENT)};",
        f"inline constexpr Rect wait_panel = {rect(WAIT_PANEL)};",
        f"inline constexpr Rect tip_panel = {rect(TIP_PANEL)};",
        "",
        "// The strip under the pages: the progress bars.",
        f"inline constexpr Rect progress = {rect(PROGRESS)};",
        f"inline constexpr Rect progress_small = {rect(PROGRESS_SMALL)};",
        "// The panels some sections put over the small bar (frame1, search).",
        f"inline constexpr Rect strip_panel = {rect(STRIP_PANEL)};",
        "",
        "// The small extras of the sections, two to a row beside the pages.",
        "inline constexpr int extra_count = 8;",
        "inline constexpr Rect extras[extra_count] = {",
    ]
    lines += ["    " + rect(extra_rect(i)) + "," for i in range(8)]
    lines += [
        "};",
        "",
        "// Colours of the skin, for controls that sit on it (0x00bbggrr).",
        "inline constexpr unsigned long well_color = 0x%06x;" % bgr(WELL),
        "inline constexpr unsigned long body_color = 0x%06x;" % bgr(hexrgb(BODY_BOTTOM)),
        "inline constexpr unsigned long text_color = 0x%06x;" % bgr(TEXT),
        "inline constexpr unsigned long accent_color = 0x%06x;" % bgr(ACCENT),
        "",
        "// The small windows.",
        f"inline constexpr int choose_width = {CHOOSE_W};",
        f"inline constexpr int choose_height = {CHOOSE_H};",
        f"inline constexpr int loading_width = {LOADING_W};",
        f"inline constexpr int loading_height = {LOADING_H};",
        f"inline constexpr int poweroff_width = {POWEROFF_W};",
        f"inline constexpr int poweroff_height = {POWEROFF_H};",
        "",
        "}  // namespace wh::skin",
        "",
    ]
    LAYOUT_H.write_text("\n".join(lines))


def bgr(color):
    r, g, b = int(color[1:3], 16), int(color[3:5], 16), int(color[5:7], 16)
    return (b << 16) | (g << 8) | r


def main():
    SKIN.mkdir(exist_ok=True)
    BUTTONS.mkdir(exist_ok=True)
    with tempfile.TemporaryDirectory() as t:
        tmp = Path(t)
        skin_png = main_window(tmp)
        button_pictures(skin_png, tmp)
        small_windows(tmp)
        if os.environ.get("SKIN_PREVIEW"):
            run(skin_png, os.environ["SKIN_PREVIEW"])
    layout_header()


if __name__ == "__main__":
    main()
