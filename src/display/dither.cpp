#include "display/dither.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "platform/rt_error.h"

namespace wh {

namespace {

bool dithering = false;

void pump_events() {
  MSG msg;
  while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {  // W: typed letters stay whole
    if (msg.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(msg.wParam));  // for the real loop
      break;
    }
    TranslateMessage(&msg);
    DispatchMessageW(&msg);
  }
}

// Whole numbers as the platform converts them: to nearest, halves to even.
int whole(double v) { return static_cast<int>(std::lrint(v)); }

struct Tables {
  std::array<int, 766> third{};               // t(s) = s / 3
  std::array<std::array<int, 7>, 511> share{};  // [e + 255], truncated
  Tables() {
    for (int s = 0; s <= 765; ++s) third[s] = whole(s / 3.0);
    static constexpr int weight[7] = {8, 4, 2, 4, 8, 4, 2};
    for (int e = -255; e <= 255; ++e)
      for (int k = 0; k < 7; ++k) share[e + 255][k] = e * weight[k] / 32;  // C++ truncates
  }
};

}  // namespace

void dither_picture(HBITMAP bitmap, int level, int& progress) {
  if (dithering) return;
  dithering = true;
  struct Reset {
    ~Reset() { dithering = false; }
  } reset;

  BITMAP bm{};
  if (!GetObjectA(bitmap, sizeof bm, &bm)) raise(rt_invalid_call);
  if (level == 0) raise(11, "Division by zero");
  const int w = bm.bmWidth;
  const int h = bm.bmHeight;

  HDC dc = CreateCompatibleDC(nullptr);
  if (!dc) raise(rt_out_of_memory);
  HGDIOBJ old = SelectObject(dc, bitmap);
  struct Release {
    HDC dc;
    HGDIOBJ old;
    ~Release() {
      SelectObject(dc, old);
      DeleteDC(dc);
    }
  } release{dc, old};

  BITMAPINFO bi{};
  bi.bmiHeader.biSize = sizeof(bi.bmiHeader);
  bi.bmiHeader.biWidth = w;
  bi.bmiHeader.biHeight = -h;  // top row first
  bi.bmiHeader.biPlanes = 1;
  bi.bmiHeader.biBitCount = 32;
  bi.bmiHeader.biCompression = BI_RGB;
  std::vector<std::uint32_t> source(static_cast<std::size_t>(w) * h);
  if (GetDIBits(dc, bitmap, 0, h, source.data(), &bi, DIB_RGB_COLORS) == 0)
    raise(rt_invalid_call);
  std::vector<std::uint32_t> result(source.size());

  static const Tables t;
  std::vector<int> here(w, 0), next(w, 0);
  progress = 3;
  pump_events();

  auto brightness = [&](std::uint32_t px) {
    return t.third[(px & 0xFF) + ((px >> 8) & 0xFF) + ((px >> 16) & 0xFF)];
  };
  double total = 0;
  for (auto px : source) total += brightness(px);
  const int mean = source.empty() ? 0 : whole(total / static_cast<double>(source.size()));
  progress = 10;
  pump_events();

  constexpr std::uint32_t lit = 0x00A0C0FF;  // blue 255, green 192, red 160
  for (int y = 0; y < h; ++y) {
    for (int x = 0; x < w; ++x) {
      std::size_t i = static_cast<std::size_t>(y) * w + x;
      int value = brightness(source[i]) + whole(here[x] * 10.0 / level);
      value = std::clamp(value, 0, 255);
      int reached = value >= mean ? 255 : 0;
      result[i] = reached ? lit : 0;
      const auto& s = t.share[value - reached + 255];
      if (x + 1 < w) here[x + 1] += s[0];
      if (x + 2 < w) here[x + 2] += s[1];
      for (int k = -2; k <= 2; ++k)
        if (x + k >= 0 && x + k < w) next[x + k] += s[4 + k];
    }
    std::swap(here, next);
    std::fill(next.begin(), next.end(), 0);
    pump_events();
  }

  progress = 100;
  SetDIBits(dc, bitmap, 0, h, result.data(), &bi, DIB_RGB_COLORS);
}

}  // namespace wh
