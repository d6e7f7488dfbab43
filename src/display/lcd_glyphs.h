#pragma once
// The glyph strip of the LCD panel and a plain way to look at 32-bit pixels.
#include <windows.h>

#include <cstdint>
#include <vector>

namespace wh {

constexpr int kLcdCellWidth = 6;
constexpr int kLcdCellHeight = 9;
constexpr int kLcdFirstCode = 32;
constexpr int kLcdLastCode = 126;

// 32 bits per pixel, top row first, as GetDIBits hands them out (0x00RRGGBB).
struct LcdPixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> bits;
  std::uint32_t at(int x, int y) const { return bits[static_cast<std::size_t>(y) * width + x]; }
};

// The strip drawn from the compiled-in font: codes 32..126 in 6 x 9 cells
// from x = 0, one dark column after the last. The caller owns it.
HBITMAP make_lcd_glyph_strip();

// The bitmap resource "LCDGLYPHS" of the module when it has one, else the
// compiled-in strip. The caller owns it.
HBITMAP load_lcd_glyph_strip(HINSTANCE module);

// A copy of any bitmap's pixels; the bitmap must not be selected into a DC.
LcdPixels read_lcd_pixels(HBITMAP bitmap);

// A top-down 32-bit DIB section; the caller owns it. *bits, when asked for,
// points at its pixels.
HBITMAP make_dib32(int width, int height, std::uint32_t** bits = nullptr);

}  // namespace wh
