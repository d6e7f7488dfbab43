// The work of one hover on the panel: Clear plus five WriteText lines on a
// 20 x 5 control, against a plain baseline that fills the same surface and
// draws the same five lines with TextOutA. Prints the best time per hover of
// a few rounds and the ratio; the panel is timed hidden and, for reference,
// on screen, where each call also repaints the window, the baseline in a
// memory DC and on the shown window. Also prints "figure lcd_hover_hidden|
// lcd_hover_screen|fill_textout|fill_textout_screen <us> us".
//   bench_lcd_write [hovers_per_round] [rounds]
#include <windows.h>

#include "bench_clock.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "display/lcd_display.h"

namespace {

using bench::now_us;

const char* const kLines[5] = {"Free space C: 12 GB", "CPU load: 17%", "RAM free: 212 MB",
                               "Shred a file or a", "folder, 3 passes"};

template <class F>
double best_per_call(int calls, int rounds, F&& work) {
  double best = 1e300;
  for (int r = 0; r < rounds; ++r) {
    double t0 = now_us();
    for (int i = 0; i < calls; ++i) work();
    best = std::min(best, (now_us() - t0) / calls);
  }
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  int calls = argc > 1 ? std::max(1, std::atoi(argv[1])) : 2000;
  int rounds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;

  HWND parent = CreateWindowExA(0, "STATIC", "bench", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200,
                                nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
  wh::LcdPropertyBag bag;
  bag.WriteProperty("TotalCols", "20");
  bag.WriteProperty("TotalRows", "5");
  wh::kaLCDDisplay* lcd = wh::kaLCDDisplay::Create(parent, 0, 0, 1, &bag);
  if (!lcd) {
    std::fprintf(stderr, "the panel could not be made\n");
    return 1;
  }
  auto hover = [&] {
    lcd->Clear();
    for (const char* line : kLines) lcd->WriteText(line);
  };
  double panel = best_per_call(calls, rounds, hover);
  // On screen every call also repaints the window at once.
  ShowWindow(parent, SW_SHOWNOACTIVATE);
  double shown = best_per_call(std::max(1, calls / 10), rounds, hover);
  ShowWindow(parent, SW_HIDE);

  // Baseline: the same surface size, one fill and five lines of a stock font.
  HDC screen = GetDC(nullptr);
  HDC dc = CreateCompatibleDC(screen);
  HBITMAP bmp = CreateCompatibleBitmap(screen, 121, 45);
  ReleaseDC(nullptr, screen);
  HGDIOBJ old_bmp = SelectObject(dc, bmp);
  HGDIOBJ old_font = SelectObject(dc, GetStockObject(ANSI_FIXED_FONT));
  RECT all{0, 0, 121, 45};
  SetBkMode(dc, TRANSPARENT);
  double plain = best_per_call(calls, rounds, [&] {
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    for (int i = 0; i < 5; ++i)
      TextOutA(dc, 0, i * 9, kLines[i], static_cast<int>(std::strlen(kLines[i])));
  });
  SelectObject(dc, old_font);
  SelectObject(dc, old_bmp);
  DeleteObject(bmp);
  DeleteDC(dc);

  // The same on the shown window, each call put on the screen at once, as
  // the panel does: the fair anchor for the shown panel.
  ShowWindow(parent, SW_SHOWNOACTIVATE);
  HDC wdc = GetDC(parent);
  SelectObject(wdc, GetStockObject(ANSI_FIXED_FONT));
  SetBkMode(wdc, TRANSPARENT);
  double plain_shown = best_per_call(std::max(1, calls / 10), rounds, [&] {
    FillRect(wdc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    GdiFlush();
    for (int i = 0; i < 5; ++i) {
      TextOutA(wdc, 0, i * 9, kLines[i], static_cast<int>(std::strlen(kLines[i])));
      GdiFlush();
    }
  });
  ReleaseDC(parent, wdc);
  DestroyWindow(parent);

  std::printf("hover (Clear + 5 WriteText), best of %d rounds of %d:\n", rounds, calls);
  std::printf("  kaLCDDisplay        %9.2f us per hover (hidden)\n", panel);
  std::printf("  kaLCDDisplay        %9.2f us per hover (on screen)\n", shown);
  std::printf("  FillRect + TextOutA %9.2f us per hover (memory DC)\n", plain);
  std::printf("  FillRect + TextOutA %9.2f us per hover (on screen)\n", plain_shown);
  std::printf("  ratio               %9.2f (hidden panel / baseline)\n",
              plain > 0 ? panel / plain : 0.0);
  std::printf("figure lcd_hover_hidden %.3f us\n", panel);
  std::printf("figure lcd_hover_screen %.3f us\n", shown);
  std::printf("figure fill_textout %.3f us\n", plain);
  std::printf("figure fill_textout_screen %.3f us\n", plain_shown);
  return 0;
}
