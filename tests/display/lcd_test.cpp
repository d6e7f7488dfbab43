#include "display/lcd_display.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "display/dither.h"
#include "display/lcd_glyphs.h"
#include "support/errors.h"

namespace wh {
namespace {

const LcdPixels& strip() {
  static const LcdPixels px = [] {
    HBITMAP b = make_lcd_glyph_strip();
    LcdPixels p = read_lcd_pixels(b);
    DeleteObject(b);
    return p;
  }();
  return px;
}

// True when the 6 x 9 cell at 0-based (col, row) holds the glyph of `code`.
bool cell_shows(const LcdPixels& surface, int col, int row, unsigned char code) {
  const LcdPixels& s = strip();
  for (int y = 0; y < kLcdCellHeight; ++y)
    for (int x = 0; x < kLcdCellWidth; ++x)
      if (surface.at(col * 6 + x, row * 9 + y) != s.at((code - 32) * 6 + x, y)) return false;
  return true;
}

// The whole row of cells against `text`, padded with blanks.
::testing::AssertionResult row_shows(const kaLCDDisplay& lcd, int row, std::string text) {
  LcdPixels surface = lcd.Snapshot();
  text.resize(lcd.TotalCols(), ' ');
  for (int c = 0; c < lcd.TotalCols(); ++c)
    if (!cell_shows(surface, c, row - 1, static_cast<unsigned char>(text[c])))
      return ::testing::AssertionFailure()
             << "row " << row << " column " << c + 1 << " does not show '" << text[c] << "'";
  return ::testing::AssertionSuccess();
}

// The window's width and height.
std::pair<long, long> extent(HWND w) {
  RECT rc;
  GetWindowRect(w, &rc);
  return {rc.right - rc.left, rc.bottom - rc.top};
}

std::string padded(std::string s, std::size_t n = 20) {
  s.resize(n, ' ');
  return s;
}

// The row's text and its pixels both show `text`.
::testing::AssertionResult line_is(const kaLCDDisplay& lcd, int row, const std::string& text) {
  if (lcd.Line(row) != padded(text, lcd.TotalCols()))
    return ::testing::AssertionFailure() << "row " << row << " holds '" << lcd.Line(row) << "'";
  return row_shows(lcd, row, text);
}

class LcdTest : public ::testing::Test {
protected:
  void SetUp() override {
    parent_ = CreateWindowExA(0, "STATIC", "host", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                              nullptr, GetModuleHandleA(nullptr), nullptr);
    ASSERT_NE(nullptr, parent_);
    LcdPropertyBag bag;
    bag.WriteProperty("TotalCols", "20");
    bag.WriteProperty("TotalRows", "5");
    lcd_ = kaLCDDisplay::Create(parent_, 4, 4, 100, &bag);
    ASSERT_NE(nullptr, lcd_);
  }
  void TearDown() override { DestroyWindow(parent_); }

  HWND parent_ = nullptr;
  kaLCDDisplay* lcd_ = nullptr;
};

TEST(LcdGlyphs, EveryCodeHasItsOwnGlyph) {
  const LcdPixels& s = strip();
  ASSERT_EQ(95 * 6 + 1, s.width);
  ASSERT_EQ(9, s.height);
  std::set<std::string> seen;
  for (int code = 32; code <= 126; ++code) {
    std::string cell;
    int lit = 0;
    for (int y = 0; y < 9; ++y)
      for (int x = 0; x < 6; ++x) {
        bool on = s.at((code - 32) * 6 + x, y) != 0;
        // Dots only inside the 5 x 7 box: the 7-wide copies rely on it.
        if (x == 0 || y == 0 || y == 8) {
          EXPECT_FALSE(on) << "code " << code;
        }
        lit += on;
        cell += on ? '#' : '.';
      }
    EXPECT_EQ(code == 32, lit == 0) << "code " << code;
    EXPECT_TRUE(seen.insert(cell).second) << "code " << code << " looks like another";
  }
}

TEST(LcdGlyphs, ResourceStripMatchesTheCompiledFont) {
  // Without the resource the strip is drawn from the table; with it, the
  // bitmap made by the same script must hold the same pixels.
  HBITMAP drawn = load_lcd_glyph_strip(GetModuleHandleA("kernel32.dll"));
  EXPECT_EQ(strip().bits, read_lcd_pixels(drawn).bits);
  DeleteObject(drawn);
  if (!FindResourceA(nullptr, "LCDGLYPHS", MAKEINTRESOURCEA(2)))
    GTEST_SKIP() << "this program carries no resources";
  HBITMAP loaded = load_lcd_glyph_strip(GetModuleHandleA(nullptr));
  LcdPixels px = read_lcd_pixels(loaded);
  DeleteObject(loaded);
  EXPECT_EQ(strip().width, px.width);
  EXPECT_EQ(strip().bits, px.bits);
}

TEST(LcdDisplay, DefaultsSaveAndRestore) {
  HWND parent = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200, nullptr,
                                nullptr, nullptr, nullptr);
  kaLCDDisplay* lcd = kaLCDDisplay::Create(parent, 0, 0);
  ASSERT_NE(nullptr, lcd);
  // Defaults of 16 x 2 cells; none of them is written out.
  EXPECT_EQ((std::pair<long, long>{16 * 6 + 1, 2 * 9}), extent(lcd->hwnd()));
  LcdPropertyBag empty;
  lcd->UserControl_WriteProperties(empty);
  EXPECT_TRUE(empty.Empty());

  std::uint32_t* bits = nullptr;
  HBITMAP pic = make_dib32(3, 2, &bits);
  for (int i = 0; i < 6; ++i) bits[i] = 0x00102030u * (i + 1);
  lcd->UserMode(false);
  lcd->TotalCols(12);
  lcd->TotalRows(3);
  lcd->Picture(pic);
  lcd->Scrollable(false);
  lcd->AutoSize(true);
  lcd->WriteSpeed(40);
  LcdPropertyBag saved;
  lcd->UserControl_WriteProperties(saved);
  std::string bytes = saved.Save();

  kaLCDDisplay* copy = kaLCDDisplay::Create(parent, 0, 40, 2, nullptr);
  copy->UserControl_ReadProperties(LcdPropertyBag::Load(bytes));
  EXPECT_TRUE(copy->AutoSize());
  EXPECT_FALSE(copy->Scrollable());
  EXPECT_EQ(12, copy->TotalCols());
  EXPECT_EQ(3, copy->TotalRows());
  EXPECT_EQ(40, copy->WriteSpeed());
  ASSERT_NE(nullptr, copy->Picture());
  EXPECT_EQ(read_lcd_pixels(lcd->Picture()).bits, read_lcd_pixels(copy->Picture()).bits);
  EXPECT_EQ(12 * 6 + 1, extent(copy->hwnd()).first);  // AutoSize counts in mode 1 only
  DeleteObject(pic);
  DestroyWindow(parent);
}

TEST_F(LcdTest, WritesLinesAndScrollsWhenFull) {
  lcd_->Clear();
  EXPECT_EQ(0, lcd_->current_row());
  lcd_->WriteText("Hello");
  EXPECT_TRUE(line_is(*lcd_, 1, "Hello"));

  for (const char* t : {"two", "three", "four", "five"}) lcd_->WriteText(t);
  EXPECT_EQ(5, lcd_->current_row());
  lcd_->WriteText("six");
  EXPECT_EQ(5, lcd_->current_row());
  const char* const shown[] = {"two", "three", "four", "five", "six"};
  for (int r = 1; r <= 5; ++r) EXPECT_TRUE(line_is(*lcd_, r, shown[r - 1]));

  lcd_->Clear();
  for (int r = 1; r <= 5; ++r) EXPECT_TRUE(line_is(*lcd_, r, ""));
  // A named row moves the next write.
  lcd_->WriteText("third", 0, 3);
  EXPECT_EQ(3, lcd_->current_row());
  lcd_->WriteText("fourth");
  EXPECT_TRUE(line_is(*lcd_, 4, "fourth"));
  EXPECT_TRUE(line_is(*lcd_, 1, ""));
}

TEST_F(LcdTest, PlacesTextInTheLine) {
  lcd_->Clear();
  // The cut keeps TotalCols - col characters: 19 of 25 on a 20-column panel.
  lcd_->WriteText("ABCDEFGHIJKLMNOPQRSTUVWXY");
  EXPECT_EQ("ABCDEFGHIJKLMNOPQRS", lcd_->Line(1));
  EXPECT_TRUE(row_shows(*lcd_, 1, "ABCDEFGHIJKLMNOPQRS"));

  lcd_->WriteText("a\xE9z\x7F!");
  EXPECT_TRUE(line_is(*lcd_, 2, "a z !"));

  lcd_->WriteText("abc", 1);
  EXPECT_EQ(std::string(8, ' ') + "abc" + std::string(9, ' '), lcd_->Line(3));
  lcd_->WriteText("abc", 2);
  EXPECT_TRUE(line_is(*lcd_, 4, std::string(17, ' ') + "abc"));

  // A column keeps what lies left of it.
  lcd_->WriteText("XY", 0, 3, 4);
  EXPECT_TRUE(line_is(*lcd_, 3, std::string(3, ' ') + "XY" + std::string(3, ' ') + "abc"));

  EXPECT_THROW(lcd_->WriteText("x", 0, 6), RuntimeError);
}

TEST_F(LcdTest, ANameInAnyScriptTakesOneCellPerCharacter) {
  lcd_->Clear();
  // "Școala ți 学校 😀 x": each letter without a glyph is one blank, the
  // cut and the free columns count characters, not UTF-8 bytes.
  const std::string name = "\xC8\x98" "coala \xC8\x9Bi \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80 x";
  lcd_->WriteText(name);
  EXPECT_TRUE(line_is(*lcd_, 1, " coala  i      x"));
  lcd_->WriteText(name, 2);
  EXPECT_TRUE(line_is(*lcd_, 2, "     coala  i      x"));
  // Twenty-five two-byte letters, cut to 19 cells as plain text is.
  std::string long_name;
  for (int i = 0; i < 25; ++i) long_name += "\xC4\x83";
  lcd_->WriteText(long_name + "end");
  EXPECT_EQ(std::string(19, ' '), lcd_->Line(3));
  lcd_->WriteText("ab" + long_name.substr(0, 16) + "cdefghijklm");
  EXPECT_EQ("ab        cdefghijk", lcd_->Line(4));
  EXPECT_TRUE(row_shows(*lcd_, 4, "ab        cdefghijk"));
}

TEST_F(LcdTest, WithoutScrollingAFullPanelDropsText) {
  lcd_->Scrollable(false);
  lcd_->Clear();
  for (const char* t : {"1", "2", "3", "4", "5"}) lcd_->WriteText(t);
  LcdPixels before = lcd_->Snapshot();
  lcd_->WriteText("6");
  lcd_->WriteText("row two", 0, 2);  // dropped as well: the test comes first
  EXPECT_EQ(padded("2"), lcd_->Line(2));
  EXPECT_EQ(padded("5"), lcd_->Line(5));
  EXPECT_EQ(before.bits, lcd_->Snapshot().bits);
}

TEST_F(LcdTest, PictureModeIgnoresText) {
  lcd_->WriteText("keep");
  lcd_->Mode(1);
  LcdPixels before = lcd_->Snapshot();
  std::int16_t row = lcd_->current_row();
  lcd_->Clear();
  lcd_->WriteText("gone");
  EXPECT_EQ(before.bits, lcd_->Snapshot().bits);
  EXPECT_EQ(row, lcd_->current_row());
  EXPECT_EQ(padded("keep"), lcd_->Line(1));
  EXPECT_EQ(padded(""), lcd_->Line(2));
}

TEST_F(LcdTest, SizeIsReadOnlyAtRunTime) {
  EXPECT_EQ(382, test::error_of([&] { lcd_->TotalCols(30); }));
  EXPECT_THROW(lcd_->TotalRows(3), RuntimeError);
  EXPECT_EQ(20, lcd_->TotalCols());
  EXPECT_EQ(5, lcd_->TotalRows());

  lcd_->UserMode(false);
  lcd_->TotalCols(0);  // ignored at design time
  EXPECT_EQ(20, lcd_->TotalCols());
  lcd_->TotalCols(30);
  EXPECT_EQ(181, extent(lcd_->hwnd()).first);
  EXPECT_EQ(30u, lcd_->Line(1).size());
}

TEST_F(LcdTest, SlowWriteLosesWhatArrivesMeanwhile) {
  lcd_->Clear();
  lcd_->WriteSpeed(50);
  lcd_->WriteText("first");
  ASSERT_TRUE(lcd_->WriteTimerOn());
  EXPECT_EQ(padded("first"), lcd_->Line(1));
  EXPECT_TRUE(row_shows(*lcd_, 1, ""));  // nothing drawn before the first tick

  lcd_->WriteText("second");
  lcd_->Clear();
  lcd_->WriteSpeed(0);
  EXPECT_EQ(3, lcd_->CommandQueue().Count());
  EXPECT_EQ(50, lcd_->WriteSpeed());

  // Drive the timer by hand: one letter a tick.
  for (int i = 1; i <= 5; ++i) {
    SendMessageA(lcd_->hwnd(), WM_TIMER, 1, 0);
    EXPECT_TRUE(row_shows(*lcd_, 1, std::string("first").substr(0, i))) << "tick " << i;
  }
  EXPECT_FALSE(lcd_->WriteTimerOn());
  EXPECT_TRUE(lcd_->CommandTimerOn());
  SendMessageA(lcd_->hwnd(), WM_TIMER, 2, 0);
  SendMessageA(lcd_->hwnd(), WM_TIMER, 1, 0);

  // Nothing took the queue out: "second" and the clear never happen.
  EXPECT_EQ(3, lcd_->CommandQueue().Count());
  EXPECT_TRUE(line_is(*lcd_, 1, "first"));
  EXPECT_TRUE(line_is(*lcd_, 2, ""));

  // And with commands waiting, the speed can no longer change.
  lcd_->WriteSpeed(0);
  EXPECT_EQ(50, lcd_->WriteSpeed());
}

// --- dithering --------------------------------------------------------------

HBITMAP bitmap_of(int w, int h, const std::vector<std::uint32_t>& px) {
  std::uint32_t* bits = nullptr;
  HBITMAP b = make_dib32(w, h, &bits);
  std::copy(px.begin(), px.end(), bits);
  return b;
}

std::vector<int> lit_map(HBITMAP b) {
  std::vector<int> out;
  for (std::uint32_t p : read_lcd_pixels(b).bits) {
    EXPECT_TRUE(p == 0 || p == 0x00A0C0FFu) << std::hex << p;
    out.push_back(p != 0);
  }
  return out;
}

std::uint32_t rgb(int r, int g, int b) {
  return static_cast<std::uint32_t>(r << 16 | g << 8 | b);
}

TEST(LcdDither, KnownBitmapsGiveKnownPixels) {
  // Grey 100 everywhere: the mean is 100; the first pixel lights and pushes
  // -155 to the right, so the next two fall dark and the fourth lights.
  HBITMAP row = bitmap_of(4, 1, std::vector<std::uint32_t>(4, rgb(100, 100, 100)));
  int progress = 0;
  dither_picture(row, 15, progress);
  EXPECT_EQ(100, progress);
  EXPECT_EQ((std::vector<int>{1, 0, 0, 1}), lit_map(row));
  DeleteObject(row);

  std::vector<std::uint32_t> px;
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 5; ++x)
      px.push_back(rgb((x * 50 + y * 30) % 256, (x * 20 + 60) % 256,
                       (255 - x * 40 - y * 50 + 256) % 256));
  HBITMAP block = bitmap_of(5, 3, px);
  dither_picture(block, 15, progress);
  EXPECT_EQ((std::vector<int>{0, 1, 0, 1, 1,  //
                              0, 1, 0, 0, 1,  //
                              0, 1, 0, 1, 0}),
            lit_map(block));
  DeleteObject(block);
}

struct Reentry {
  HBITMAP other = nullptr;
  int inner_progress = -1;
  int* outer_progress = nullptr;
  int seen_outer = -1;
};
Reentry* reentry = nullptr;

LRESULT CALLBACK reentry_proc(HWND h, UINT m, WPARAM w, LPARAM l) {
  if (m == WM_APP && reentry) {
    reentry->seen_outer = *reentry->outer_progress;
    dither_picture(reentry->other, 15, reentry->inner_progress);
    return 0;
  }
  return DefWindowProcA(h, m, w, l);
}

TEST(LcdDither, CallDuringItsOwnPumpReturnsAtOnce) {
  WNDCLASSA wc{};
  wc.lpfnWndProc = reentry_proc;
  wc.hInstance = GetModuleHandleA(nullptr);
  wc.lpszClassName = "LcdDitherReentry";
  RegisterClassA(&wc);
  HWND w = CreateWindowExA(0, wc.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                           wc.hInstance, nullptr);
  ASSERT_NE(nullptr, w);

  int progress = 0;
  Reentry r;
  r.other = bitmap_of(2, 2, std::vector<std::uint32_t>(4, rgb(200, 200, 200)));
  r.outer_progress = &progress;
  reentry = &r;
  HBITMAP main = bitmap_of(3, 3, std::vector<std::uint32_t>(9, rgb(50, 90, 10)));
  PostMessageA(w, WM_APP, 0, 0);
  dither_picture(main, 15, progress);
  reentry = nullptr;

  EXPECT_EQ(3, r.seen_outer);  // the first pump comes after progress 3
  EXPECT_EQ(-1, r.inner_progress);
  EXPECT_EQ(std::vector<std::uint32_t>(4, rgb(200, 200, 200)), read_lcd_pixels(r.other).bits);
  EXPECT_EQ(100, progress);

  // The flag is down again afterwards.
  dither_picture(r.other, 15, r.inner_progress);
  EXPECT_EQ(100, r.inner_progress);
  DeleteObject(main);
  DeleteObject(r.other);
  DestroyWindow(w);
}

TEST_F(LcdTest, PictureModeShowsTheDitheredPicture) {
  std::vector<std::uint32_t> px;
  for (int i = 0; i < 8 * 4; ++i) px.push_back(i % 3 ? rgb(250, 250, 250) : rgb(5, 5, 5));
  HBITMAP pic = bitmap_of(8, 4, px);
  lcd_->Picture(pic);
  lcd_->AutoSize(true);
  lcd_->Mode(1);
  EXPECT_EQ(100, lcd_->DitherProgress());
  EXPECT_EQ((std::pair<long, long>{8, 4}), extent(lcd_->hwnd()));
  LcdPixels shown = lcd_->Snapshot();
  for (std::size_t i = 0; i < px.size(); ++i)
    EXPECT_EQ(i % 3 ? 0x00A0C0FFu : 0u, shown.bits[i]) << "pixel " << i;
  DeleteObject(pic);

  lcd_->Mode(0);
  EXPECT_EQ((std::pair<long, long>{121, 45}), extent(lcd_->hwnd()));
}

}  // namespace
}  // namespace wh
