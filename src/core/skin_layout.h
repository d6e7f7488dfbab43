#pragma once
// Where everything sits on the skin. Written by resources/make_skin.py from
// the same numbers that draw the pictures; change them there, not here.

namespace wh::skin {

struct Rect {
  int left, top, width, height;
};

inline constexpr int window_width = 880;
inline constexpr int window_height = 470;

// The section buttons, top to bottom; the Options button is part of the
// picture and has no pictures of its own.
inline constexpr Rect uninstall = {18, 78, 64, 34};
inline constexpr Rect task = {18, 116, 64, 34};
inline constexpr Rect splity = {18, 154, 64, 34};
inline constexpr Rect dirinfo = {18, 192, 64, 34};
inline constexpr Rect kila = {18, 230, 64, 34};
inline constexpr Rect shred = {18, 268, 64, 34};
inline constexpr Rect junk = {18, 306, 64, 34};
inline constexpr Rect RUN = {18, 344, 64, 34};
inline constexpr Rect dupy = {18, 382, 64, 34};
inline constexpr Rect Image11 = {18, 420, 64, 34};

// The frame's own buttons, drawn in the picture.
inline constexpr Rect Image10 = {804, 12, 24, 24};  // minimise / tray
inline constexpr Rect Image1 = {838, 12, 24, 24};  // close
// The power button under them, the armed mark beside it, and the
// panel of the scheduled power-off over the page.
inline constexpr Rect shut = {838, 42, 24, 24};
inline constexpr Rect Image32 = {804, 42, 24, 24};
inline constexpr Rect Frame17 = {476, 76, 240, 150};

// The action buttons.
inline constexpr Rect del = {736, 144, 132, 34};
inline constexpr Rect delall = {736, 184, 132, 34};
inline constexpr Rect ref = {736, 224, 132, 34};

// The LCD panel: 20 columns and 5 rows of 6 x 9 pixels and one column more.
inline constexpr Rect lcd = {741, 79, 121, 45};

// Every section's page, and what lies over it now and then.
inline constexpr Rect content = {100, 72, 620, 330};
inline constexpr Rect wait_panel = {220, 190, 380, 92};
inline constexpr Rect tip_panel = {250, 110, 320, 170};

// The strip under the pages: the progress bars.
inline constexpr Rect progress = {104, 426, 360, 22};
inline constexpr Rect progress_small = {476, 426, 240, 22};
// The panels some sections put over the small bar (frame1, search).
inline constexpr Rect strip_panel = {470, 416, 250, 42};

// The small extras of the sections, two to a row beside the pages.
inline constexpr int extra_count = 8;
inline constexpr Rect extras[extra_count] = {
    {736, 270, 64, 30},
    {804, 270, 64, 30},
    {736, 304, 64, 30},
    {804, 304, 64, 30},
    {736, 338, 64, 30},
    {804, 338, 64, 30},
    {736, 372, 64, 30},
    {804, 372, 64, 30},
};

// Colours of the skin, for controls that sit on it (0x00bbggrr).
inline constexpr unsigned long well_color = 0x201914;
inline constexpr unsigned long body_color = 0x2b231d;
inline constexpr unsigned long text_color = 0xf0e9e3;
inline constexpr unsigned long accent_color = 0xffac59;

// The small windows.
inline constexpr int choose_width = 160;
inline constexpr int choose_height = 56;
inline constexpr int loading_width = 360;
inline constexpr int loading_height = 196;
inline constexpr int poweroff_width = 360;
inline constexpr int poweroff_height = 180;

}  // namespace wh::skin
