#include "display/lcd_glyphs.h"

namespace wh {

namespace {
#include "display/lcd_font.inc"

static_assert(kGlyphFirst == kLcdFirstCode && kGlyphLast == kLcdLastCode);

std::uint32_t dib_colour(COLORREF c) {
  return (std::uint32_t{GetRValue(c)} << 16) | (std::uint32_t{GetGValue(c)} << 8) | GetBValue(c);
}
}  // namespace

HBITMAP make_dib32(int width, int height, std::uint32_t** bits) {
  BITMAPINFO bi{};
  bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
  bi.bmiHeader.biWidth = width;
  bi.bmiHeader.biHeight = -height;  // top-down
  bi.bmiHeader.biPlanes = 1;
  bi.bmiHeader.biBitCount = 32;
  bi.bmiHeader.biCompression = BI_RGB;
  void* p = nullptr;
  HBITMAP bmp = CreateDIBSection(nullptr, &bi, DIB_RGB_COLORS, &p, nullptr, 0);
  if (bits) *bits = static_cast<std::uint32_t*>(p);
  return bmp;
}

HBITMAP make_lcd_glyph_strip() {
  const int width = (kGlyphLast - kGlyphFirst + 1) * kLcdCellWidth + 1;
  std::uint32_t* bits = nullptr;
  HBITMAP strip = make_dib32(width, kLcdCellHeight, &bits);
  if (!strip) return nullptr;
  const std::uint32_t ink = dib_colour(kGlyphInk);
  const std::uint32_t paper = dib_colour(kGlyphPaper);
  for (int y = 0; y < kLcdCellHeight; ++y) {
    for (int x = 0; x < width; ++x) {
      int glyph = x / kLcdCellWidth;
      int cx = x % kLcdCellWidth;
      bool lit = glyph <= kGlyphLast - kGlyphFirst && cx >= 1 && y >= 1 && y <= 7 &&
                 ((kGlyphRows[glyph][y - 1] >> (5 - cx)) & 1);
      bits[y * width + x] = lit ? ink : paper;
    }
  }
  return strip;
}

HBITMAP load_lcd_glyph_strip(HINSTANCE module) {
  // The artwork may replace the strip; programs without resources draw it.
  if (FindResourceA(module, "LCDGLYPHS", MAKEINTRESOURCEA(2) /* RT_BITMAP */)) {
    auto bmp = static_cast<HBITMAP>(
        LoadImageA(module, "LCDGLYPHS", IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
    if (bmp) return bmp;
  }
  return make_lcd_glyph_strip();
}

LcdPixels read_lcd_pixels(HBITMAP bitmap) {
  LcdPixels out;
  BITMAP bm{};
  if (!GetObjectA(bitmap, sizeof bm, &bm)) return out;
  out.width = bm.bmWidth;
  out.height = bm.bmHeight;
  out.bits.resize(static_cast<std::size_t>(bm.bmWidth) * bm.bmHeight);
  BITMAPINFO bi{};
  bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
  bi.bmiHeader.biWidth = bm.bmWidth;
  bi.bmiHeader.biHeight = -bm.bmHeight;
  bi.bmiHeader.biPlanes = 1;
  bi.bmiHeader.biBitCount = 32;
  bi.bmiHeader.biCompression = BI_RGB;
  HDC dc = GetDC(nullptr);
  GetDIBits(dc, bitmap, 0, bm.bmHeight, out.bits.data(), &bi, DIB_RGB_COLORS);
  ReleaseDC(nullptr, dc);
  for (auto& p : out.bits) p &= 0x00FFFFFF;  // the fourth byte is not ours
  return out;
}

}  // namespace wh
