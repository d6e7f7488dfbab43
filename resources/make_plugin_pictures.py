#!/usr/bin/env python3
"""Draws the plug-in pictures of section 8: the button without plug-ins
(PLUGINS_NONE) and with some (PLUGINS_FOUND), and the panel's close cross
(PLUGINS_CLOSE). Writes resources/buttons/*.bmp; needs ImageMagick."""
import make_skin as skin
from make_startup_pictures import picture


def plug(ink):
    # A mains plug lying on its side, the cord to the left.
    return (f"push graphic-context\nfill '{ink}' stroke none "
            f"roundrectangle 24,8 40,22 3,3 rectangle 40,11 48,13 rectangle 40,17 48,19\n"
            f"fill none stroke '{ink}' stroke-width 2 path 'M 24,15 Q 18,15 16,20 T 8,24'\n"
            f"pop graphic-context\n")


def main():
    picture("PLUGINS_NONE", 64, 30, plug(skin.TILE_INK))
    picture("PLUGINS_FOUND", 64, 30, plug(skin.LIT_INK), lit=True)
    cross = (f"push graphic-context\nfill none stroke '{skin.CLOSE_RED}' stroke-width 2 "
             f"line 4,4 12,12 line 12,4 4,12\npop graphic-context\n")
    picture("PLUGINS_CLOSE", 16, 16, cross)


if __name__ == "__main__":
    main()
