// The real program on the screen. A shot of the whole screen shows the shaped
// window over a backdrop of one colour, its buttons as their pictures are, a
// button lit under the mouse with its help on the panel, and a drag of the
// bare surface with the real mouse that stores the place (which the next
// start reads: the window test's). The shots are kept as
// C:\wh\artefacts\window.bmp and window_lit.bmp for people to look at.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "program.h"
#include "support/scratch.h"
#include "support/form_test.h"
#include "core/settings.h"
#include "core/skin_layout.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::Program;
using wh::test::pump_for;

namespace {

const char* const artefacts = "C:\\wh\\artefacts";
constexpr COLORREF backdrop = RGB(255, 0, 255);

// A window of one colour under the program's, so that what the program does
// not paint is known.
class Backdrop {
public:
  Backdrop() {
    WNDCLASSA wc{};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hbrBackground = CreateSolidBrush(backdrop);
    wc.lpszClassName = "WhTestBackdrop";
    RegisterClassA(&wc);
    w_ = CreateWindowExA(WS_EX_TOOLWINDOW, "WhTestBackdrop", "", WS_POPUP | WS_VISIBLE, 0, 0,
                         GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), nullptr,
                         nullptr, GetModuleHandleA(nullptr), nullptr);
    UpdateWindow(w_);
    pump_for(200);
  }
  ~Backdrop() { DestroyWindow(w_); }

private:
  HWND w_;
};

// A bitmap's pixels as 0x00RRGGBB, top row first.
std::vector<uint32_t> pixels(HBITMAP bitmap, int width, int height) {
  BITMAPINFO bi{};
  bi.bmiHeader.biSize = sizeof bi.bmiHeader;
  bi.bmiHeader.biWidth = width;
  bi.bmiHeader.biHeight = -height;
  bi.bmiHeader.biPlanes = 1;
  bi.bmiHeader.biBitCount = 32;
  std::vector<uint32_t> out(static_cast<size_t>(width) * height);
  HDC dc = GetDC(nullptr);
  GetDIBits(dc, bitmap, 0, height, out.data(), &bi, DIB_RGB_COLORS);
  ReleaseDC(nullptr, dc);
  for (uint32_t& v : out) v &= 0xFFFFFF;
  return out;
}

struct Shot {
  int width = 0, height = 0;
  std::vector<uint32_t> px;
  uint32_t at(int x, int y) const { return px[static_cast<size_t>(y) * width + x]; }
};

Shot screen_shot() {
  Shot s{GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), {}};
  HDC screen = GetDC(nullptr);
  HBITMAP copy = CreateCompatibleBitmap(screen, s.width, s.height);
  HDC mem = CreateCompatibleDC(screen);
  HGDIOBJ old = SelectObject(mem, copy);
  BitBlt(mem, 0, 0, s.width, s.height, screen, 0, 0, SRCCOPY | CAPTUREBLT);
  SelectObject(mem, old);
  DeleteDC(mem);
  ReleaseDC(nullptr, screen);
  s.px = pixels(copy, s.width, s.height);
  DeleteObject(copy);
  return s;
}

uint32_t rgb(COLORREF c) { return (GetRValue(c) << 16) | (GetGValue(c) << 8) | GetBValue(c); }

// A part of the shot as a top-down 32-bit BMP file: 0x00RRGGBB is its
// blue, green, red, unused byte order already.
void save_bmp(const Shot& s, const RECT& r, const std::string& path) {
  const int w = r.right - r.left, h = r.bottom - r.top;
  auto bytes = [](const void* p, size_t n) { return std::string(static_cast<const char*>(p), n); };
  std::string data;
  for (int y = 0; y < h; ++y)
    data += bytes(&s.px[static_cast<size_t>(r.top + y) * s.width + r.left], w * 4);
  BITMAPFILEHEADER fh{};
  BITMAPINFOHEADER ih{};
  fh.bfType = 0x4D42;
  fh.bfOffBits = sizeof fh + sizeof ih;
  fh.bfSize = fh.bfOffBits + static_cast<DWORD>(data.size());
  ih.biSize = sizeof ih;
  ih.biWidth = w;
  ih.biHeight = -h;
  ih.biPlanes = 1;
  ih.biBitCount = 32;
  ih.biSizeImage = static_cast<DWORD>(data.size());
  test::write_file(path, bytes(&fh, sizeof fh) + bytes(&ih, sizeof ih) + data);
}

// How many pixels of a button on the screen differ from a picture resource.
int differences(const Shot& s, const RECT& window, const skin::Rect& at, const char* resource) {
  Picture picture = LoadPicture(resource);
  const std::vector<uint32_t> pic = pixels(picture->get(), at.width, at.height);
  int n = 0;
  for (int y = 0; y < at.height; ++y)
    for (int x = 0; x < at.width; ++x) {
      n += s.at(window.left + at.left + x, window.top + at.top + y) !=
           pic[static_cast<size_t>(y) * at.width + x];
    }
  return n;
}

// The mouse as the hardware moves it: a move, or a press or a release.
void mouse(DWORD flags, int x = 0, int y = 0) {
  INPUT in{};
  in.type = INPUT_MOUSE;
  in.mi.dwFlags = flags;
  if (flags & MOUSEEVENTF_MOVE) {
    in.mi.dwFlags |= MOUSEEVENTF_ABSOLUTE;
    in.mi.dx = MulDiv(x, 65535, GetSystemMetrics(SM_CXSCREEN) - 1);
    in.mi.dy = MulDiv(y, 65535, GetSystemMetrics(SM_CYSCREEN) - 1);
  }
  SendInput(1, &in, sizeof in);
  pump_for(60);
}

RECT rect_of(HWND w) {
  RECT r{};
  GetWindowRect(w, &r);
  return r;
}

class Screen : public test::StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "7");  // no first-run window
  }
};

TEST_F(Screen, TheShapedWindowItsLitButtonAndADragThatIsStored) {
  Backdrop behind;
  mouse(MOUSEEVENTF_MOVE, 3, 3);
  Program program;
  HWND w = program.main_window(20000, true);
  ASSERT_NE(nullptr, w);
  pump_for(800);
  const RECT r = rect_of(w);
  ASSERT_EQ(skin::window_width, r.right - r.left);
  ASSERT_EQ(skin::window_height, r.bottom - r.top);

  const Shot plain = screen_shot();
  save_bmp(plain, r, std::string(artefacts) + "\\window.bmp");
  // Outside the outline the backdrop shows; inside, the skin.
  const uint32_t magenta = rgb(backdrop);
  for (POINT p : {POINT{r.left, r.top}, {r.right - 1, r.top}, {r.left, r.bottom - 1},
                  {r.right - 1, r.bottom - 1}, {(r.left + r.right) / 2, r.top + 3}})
    EXPECT_EQ(magenta, plain.at(p.x, p.y)) << p.x << "," << p.y;
  EXPECT_NE(magenta, plain.at(r.left + 40, r.top + 40));
  EXPECT_NE(magenta, plain.at((r.left + r.right) / 2, (r.top + r.bottom) / 2));
  EXPECT_EQ(0, differences(plain, r, skin::del, "DELETE_JOS"));

  // Under the mouse the Harrow button lights and its help shows.
  mouse(MOUSEEVENTF_MOVE, r.left + skin::del.left + 60, r.top + skin::del.top + 17);
  pump_for(500);
  const Shot lit = screen_shot();
  save_bmp(lit, r, std::string(artefacts) + "\\window_lit.bmp");
  EXPECT_EQ(0, differences(lit, r, skin::del, "DELETE_SUS"));
  EXPECT_GT(differences(lit, r, skin::del, "DELETE_JOS"), skin::del.width * skin::del.height / 4);
  int ink = 0;
  for (int y = 0; y < skin::lcd.height; ++y)
    for (int x = 0; x < skin::lcd.width; ++x)
      ink += lit.at(r.left + skin::lcd.left + x, r.top + skin::lcd.top + y) != 0;
  EXPECT_GT(ink, 50) << "the help is written on the panel";

  // A drag of the bare surface between the two tabs.
  const int x0 = r.left + 500, y0 = r.top + 45;
  mouse(MOUSEEVENTF_MOVE, x0, y0);
  mouse(MOUSEEVENTF_LEFTDOWN);
  for (int step = 1; step <= 4; ++step) mouse(MOUSEEVENTF_MOVE, x0 + step * 15, y0 + step * 10);
  mouse(MOUSEEVENTF_LEFTUP);
  pump_for(300);
  const RECT moved = rect_of(w);
  EXPECT_EQ(r.left + 60, moved.left);
  EXPECT_EQ(r.top + 40, moved.top);
  EXPECT_EQ(std::to_string(moved.left * 15), setting("left"));
  EXPECT_EQ(std::to_string(moved.top * 15), setting("top"));
}

}  // namespace
