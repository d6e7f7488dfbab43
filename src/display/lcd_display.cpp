#include "display/lcd_display.h"

#include <algorithm>
#include <cstring>

#include "display/dither.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {

constexpr DWORD kSourceCopy = 0xCC0020;

// Left$ and Right$: a negative count is an invalid call, a long one takes all.
std::string left(const std::string& s, int n) {
  if (n < 0) raise(rt_invalid_call);
  return s.substr(0, std::min<std::size_t>(s.size(), static_cast<std::size_t>(n)));
}
std::string right(const std::string& s, int n) {
  if (n < 0) raise(rt_invalid_call);
  std::size_t k = std::min<std::size_t>(s.size(), static_cast<std::size_t>(n));
  return s.substr(s.size() - k);
}

// InStr: 1-based, 0 when absent, 1 for the empty text.
int instr(const std::string& s, const std::string& what) {
  std::size_t p = s.find(what);
  return p == std::string::npos ? 0 : static_cast<int>(p) + 1;
}

std::string bool_text(bool v) { return v ? "True" : "False"; }

template <class T>
T read_number(const LcdPropertyBag& bag, const char* name, T fallback) {
  auto v = bag.ReadProperty(name);
  if (!v) return fallback;
  try {
    return static_cast<T>(std::stol(*v));
  } catch (const std::exception&) {
    return fallback;
  }
}

bool read_bool(const LcdPropertyBag& bag, const char* name, bool fallback) {
  auto v = bag.ReadProperty(name);
  return v ? *v == "True" : fallback;
}

// Picture bytes: width and height as 32-bit numbers, then 0x00RRGGBB pixels.
std::string picture_bytes(HBITMAP bmp) {
  LcdPixels px = read_lcd_pixels(bmp);
  std::string out(8 + px.bits.size() * 4, '\0');
  std::int32_t wh[2] = {px.width, px.height};
  std::memcpy(out.data(), wh, 8);
  std::memcpy(out.data() + 8, px.bits.data(), px.bits.size() * 4);
  return out;
}

HBITMAP picture_from_bytes(const std::string& bytes) {
  if (bytes.size() < 8) return nullptr;
  std::int32_t wh[2];
  std::memcpy(wh, bytes.data(), 8);
  if (wh[0] <= 0 || wh[1] <= 0 ||
      bytes.size() != 8 + static_cast<std::size_t>(wh[0]) * wh[1] * 4)
    return nullptr;
  std::uint32_t* bits = nullptr;
  HBITMAP bmp = make_dib32(wh[0], wh[1], &bits);
  if (bmp) std::memcpy(bits, bytes.data() + 8, bytes.size() - 8);
  return bmp;
}

}  // namespace

// ---- property bag -------------------------------------------------------

void LcdPropertyBag::WriteProperty(const std::string& name, const std::string& value) {
  values_[name] = value;
}

std::optional<std::string> LcdPropertyBag::ReadProperty(const std::string& name) const {
  auto it = values_.find(name);
  if (it == values_.end()) return std::nullopt;
  return it->second;
}

// Each entry: name, newline, byte count, newline, the bytes.
std::string LcdPropertyBag::Save() const {
  std::string out;
  for (const auto& [name, value] : values_)
    out += name + "\n" + std::to_string(value.size()) + "\n" + value;
  return out;
}

LcdPropertyBag LcdPropertyBag::Load(const std::string& bytes) {
  LcdPropertyBag bag;
  std::size_t p = 0;
  while (p < bytes.size()) {
    std::size_t a = bytes.find('\n', p);
    if (a == std::string::npos) break;
    std::size_t b = bytes.find('\n', a + 1);
    if (b == std::string::npos) break;
    std::size_t n = 0;
    try {
      n = std::stoul(bytes.substr(a + 1, b - a - 1));
    } catch (const std::exception&) {
      break;
    }
    if (b + 1 + n > bytes.size()) break;
    bag.values_[bytes.substr(p, a - p)] = bytes.substr(b + 1, n);
    p = b + 1 + n;
  }
  return bag;
}

// ---- window class -------------------------------------------------------

void kaLCDDisplay::Register() {
  static const bool done = [] {
    WNDCLASSA wc{};
    wc.style = CS_HREDRAW | CS_VREDRAW;
    wc.lpfnWndProc = WndProc;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wc.lpszClassName = ClassName;
    return RegisterClassA(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
  }();
  (void)done;
}

kaLCDDisplay* kaLCDDisplay::Create(HWND parent, int x, int y, int id,
                                   const LcdPropertyBag* saved) {
  Register();
  DWORD style = parent ? WS_CHILD | WS_VISIBLE : WS_POPUP;
  HMENU menu = parent ? reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)) : nullptr;
  HWND hwnd = CreateWindowExA(0, ClassName, "", style, x, y, 1, 1, parent, menu,
                              GetModuleHandleA(nullptr), const_cast<LcdPropertyBag*>(saved));
  return hwnd ? FromWindow(hwnd) : nullptr;
}

kaLCDDisplay* kaLCDDisplay::FromWindow(HWND window) {
  char name[32] = {};
  if (!window || !GetClassNameA(window, name, sizeof name) || std::strcmp(name, ClassName) != 0)
    return nullptr;
  return reinterpret_cast<kaLCDDisplay*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

LRESULT CALLBACK kaLCDDisplay::WndProc(HWND hwnd, UINT msg, WPARAM wp, LPARAM lp) {
  if (msg == WM_NCCREATE) {
    try {
      SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new kaLCDDisplay(hwnd)));
    } catch (...) {
      return FALSE;
    }
    return DefWindowProcA(hwnd, msg, wp, lp);
  }
  auto* self = reinterpret_cast<kaLCDDisplay*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
  if (!self) return DefWindowProcA(hwnd, msg, wp, lp);

  // Errors must not unwind through user32's frames; the caller of a method
  // gets them, a message handler drops them.
  try {
    switch (msg) {
      case WM_CREATE: {
        auto* cs = reinterpret_cast<CREATESTRUCTA*>(lp);
        if (auto* bag = static_cast<const LcdPropertyBag*>(cs->lpCreateParams))
          self->UserControl_ReadProperties(*bag);
        else
          self->UserControl_InitProperties();
        return 0;
      }
      case WM_SIZE:
        self->UserControl_Resize();
        return 0;
      case WM_ERASEBKGND:
        return 1;
      case WM_PAINT: {
        PAINTSTRUCT ps;
        HDC dc = BeginPaint(hwnd, &ps);
        BitBlt(dc, 0, 0, self->surface_w_, self->surface_h_, self->surface_dc_.get(), 0, 0,
               kSourceCopy);
        EndPaint(hwnd, &ps);
        return 0;
      }
      case WM_TIMER:
        // A tick that arrives after the timer was switched off is dropped.
        if (wp == self->tmrWrite.id && self->tmrWrite.enabled) self->tmrWrite_Timer();
        if (wp == self->tmrProcessCommands.id && self->tmrProcessCommands.enabled)
          self->tmrProcessCommands_Timer();
        return 0;
      case WM_NCDESTROY:
        SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
        delete self;
        return DefWindowProcA(hwnd, msg, wp, lp);
    }
  } catch (...) {
    if (msg == WM_CREATE) return -1;
    return 0;
  }
  return DefWindowProcA(hwnd, msg, wp, lp);
}

// ---- life ---------------------------------------------------------------

kaLCDDisplay::kaLCDDisplay(HWND hwnd)
    : hwnd_(hwnd), sep255_(1, static_cast<char>(255)), sep254_(1, static_cast<char>(254)) {
  queue_.Init();
  strip_.reset(load_lcd_glyph_strip(GetModuleHandleA(nullptr)));
  strip_dc_.reset(CreateCompatibleDC(nullptr));
  if (!strip_.get() || !strip_dc_.get()) raise(rt_out_of_memory);
  strip_old_ = SelectObject(strip_dc_.get(), strip_.get());
  make_surface(1, 1);
}

kaLCDDisplay::~kaLCDDisplay() {
  set_timer(tmrWrite, false);
  set_timer(tmrProcessCommands, false);
  SelectObject(strip_dc_.get(), strip_old_);
  if (surface_dc_.get()) SelectObject(surface_dc_.get(), surface_old_);
}

void kaLCDDisplay::make_surface(int width, int height) {
  width = std::max(width, 1);
  height = std::max(height, 1);
  if (surface_.get() && width == surface_w_ && height == surface_h_) return;
  if (!surface_dc_.get()) {
    surface_dc_.reset(CreateCompatibleDC(nullptr));
    if (!surface_dc_.get()) raise(rt_out_of_memory);
  }
  std::uint32_t* bits = nullptr;
  HBITMAP bmp = make_dib32(width, height, &bits);
  if (!bmp) raise(rt_out_of_memory);
  HGDIOBJ prev = SelectObject(surface_dc_.get(), bmp);
  if (!surface_.get()) surface_old_ = prev;
  surface_.reset(bmp);  // the old one is no longer selected
  surface_bits_ = bits;
  surface_w_ = width;
  surface_h_ = height;
}

LcdPixels kaLCDDisplay::Snapshot() const {
  GdiFlush();
  LcdPixels px;
  px.width = surface_w_;
  px.height = surface_h_;
  px.bits.assign(surface_bits_, surface_bits_ + static_cast<std::size_t>(surface_w_) * surface_h_);
  for (auto& p : px.bits) p &= 0x00FFFFFF;
  return px;
}

// ---- properties ---------------------------------------------------------

void kaLCDDisplay::UserControl_InitProperties() {
  auto_size_ = false;
  mode_ = 0;
  picture_.reset();
  scrollable_ = true;
  total_cols_ = 16;
  total_rows_ = 2;
  write_speed_ = 0;
  Repaint();
}

void kaLCDDisplay::UserControl_ReadProperties(const LcdPropertyBag& bag) {
  auto_size_ = read_bool(bag, "AutoSize", false);
  mode_ = read_number<std::int32_t>(bag, "Mode", 0);
  auto pic = bag.ReadProperty("Picture");
  picture_.reset(pic ? picture_from_bytes(*pic) : nullptr);
  scrollable_ = read_bool(bag, "Scrollable", true);
  // A size below one cell is passed over, as the designer passes it over.
  total_cols_ = read_number<std::int16_t>(bag, "TotalCols", 16);
  total_rows_ = read_number<std::int16_t>(bag, "TotalRows", 2);
  if (total_cols_ < 1) total_cols_ = 16;
  if (total_rows_ < 1) total_rows_ = 2;
  write_speed_ = read_number<std::int16_t>(bag, "WriteSpeed", 0);
  Repaint();
}

void kaLCDDisplay::UserControl_WriteProperties(LcdPropertyBag& bag) const {
  if (auto_size_) bag.WriteProperty("AutoSize", bool_text(auto_size_));
  if (mode_ != 0) bag.WriteProperty("Mode", std::to_string(mode_));
  if (picture_.get()) bag.WriteProperty("Picture", picture_bytes(picture_.get()));
  if (!scrollable_) bag.WriteProperty("Scrollable", bool_text(scrollable_));
  if (total_cols_ != 16) bag.WriteProperty("TotalCols", std::to_string(total_cols_));
  if (total_rows_ != 2) bag.WriteProperty("TotalRows", std::to_string(total_rows_));
  if (write_speed_ != 0) bag.WriteProperty("WriteSpeed", std::to_string(write_speed_));
}

void kaLCDDisplay::AutoSize(bool value) {
  auto_size_ = value;
  Repaint();
}

void kaLCDDisplay::Mode(std::int32_t value) {
  mode_ = value;
  Repaint();
}

void kaLCDDisplay::Picture(HBITMAP value) {
  HBITMAP copy = nullptr;
  if (value) {
    BITMAP bm{};
    if (!GetObjectA(value, sizeof bm, &bm)) raise(rt_invalid_property);
    copy = picture_from_bytes(picture_bytes(value));
    if (!copy) raise(rt_out_of_memory);
  }
  picture_.reset(copy);
  Repaint();
}

void kaLCDDisplay::Scrollable(bool value) {
  scrollable_ = value;
  Repaint();
}

void kaLCDDisplay::TotalCols(std::int16_t value) {
  if (user_mode_) raise(rt_set_not_at_runtime);
  if (value < 1) return;
  total_cols_ = value;
  Repaint();
}

void kaLCDDisplay::TotalRows(std::int16_t value) {
  if (user_mode_) raise(rt_set_not_at_runtime);
  if (value < 1) return;
  total_rows_ = value;
  Repaint();
}

void kaLCDDisplay::WriteSpeed(std::int16_t value) {
  if (queue_.Count() > 0 || tmrWrite.enabled) {
    queue_command(1, std::to_string(value));
    return;
  }
  write_speed_ = value;
  set_write_interval();
}

// ---- drawing ------------------------------------------------------------

void kaLCDDisplay::set_timer(Timer& t, bool on) {
  if (on)
    SetTimer(hwnd_, t.id, t.interval, nullptr);
  else if (t.enabled)
    KillTimer(hwnd_, t.id);
  t.enabled = on;
}

void kaLCDDisplay::set_write_interval() {
  // A negative speed never starts the timer; keep its interval sane anyway.
  tmrWrite.interval = write_speed_ == 0 ? 1u : static_cast<UINT>(std::max<int>(1, write_speed_));
  if (tmrWrite.enabled) set_timer(tmrWrite, true);
}

void kaLCDDisplay::Refresh() {
  // Under Wine both calls cost a server round trip even for a hidden window,
  // where they change nothing; the surface is painted when it shows.
  if (!IsWindowVisible(hwnd_)) return;
  InvalidateRect(hwnd_, nullptr, FALSE);
  UpdateWindow(hwnd_);
}

void kaLCDDisplay::UserControl_Resize() {
  if (resizing_) return;
  resizing_ = true;
  struct Done {
    bool& flag;
    ~Done() { flag = false; }
  } done{resizing_};

  int w = total_cols_ * kLcdCellWidth + 1;
  int h = total_rows_ * kLcdCellHeight;
  if (mode_ == 1 && picture_.get() && auto_size_) {
    BITMAP bm{};
    GetObjectA(picture_.get(), sizeof bm, &bm);
    w = bm.bmWidth;
    h = bm.bmHeight;
  }
  RECT rc{};
  GetWindowRect(hwnd_, &rc);
  if (rc.right - rc.left != w || rc.bottom - rc.top != h)
    SetWindowPos(hwnd_, nullptr, 0, 0, w, h, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  make_surface(w, h);
}

void kaLCDDisplay::copy_glyph(unsigned char code, int col0, int row0, int width) {
  // Codes below 32 point left of the strip: nothing usable lands in the cell.
  BitBlt(surface_dc_.get(), col0 * kLcdCellWidth, row0 * kLcdCellHeight, width, kLcdCellHeight,
         strip_dc_.get(), (code - kLcdFirstCode) * kLcdCellWidth, 0, kSourceCopy);
}

// Full repaints copy 7 wide so the column right of each cell is painted too.
void kaLCDDisplay::paint_all_cells() {
  for (int r = 0; r < total_rows_; ++r) {
    const std::string& line = lines_[r];
    for (int c = 0; c < total_cols_; ++c) {
      unsigned char ch = c < static_cast<int>(line.size()) ? line[c] : ' ';
      copy_glyph(ch, c, r, kLcdCellWidth + 1);
    }
  }
}

void kaLCDDisplay::Repaint() {
  if (mode_ == 0) {
    UserControl_Resize();
    lines_.assign(total_rows_, std::string(total_cols_, ' '));
    paint_all_cells();
  } else if (mode_ == 1) {
    UserControl_Resize();
    RECT all{0, 0, surface_w_, surface_h_};
    FillRect(surface_dc_.get(), &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    if (picture_.get()) {
      dither_picture(picture_.get(), 15, progress_);
      BITMAP bm{};
      GetObjectA(picture_.get(), sizeof bm, &bm);
      HDC dc = CreateCompatibleDC(nullptr);
      HGDIOBJ old = SelectObject(dc, picture_.get());
      BitBlt(surface_dc_.get(), 0, 0, std::min<int>(surface_w_, bm.bmWidth),
             std::min<int>(surface_h_, bm.bmHeight), dc, 0, 0, kSourceCopy);
      SelectObject(dc, old);
      DeleteDC(dc);
    }
  }
  Refresh();
  set_write_interval();
}

void kaLCDDisplay::queue_command(int number, const std::string& arguments) {
  queue_.Add(std::to_string(number) + sep255_ + arguments);
}

// ---- the panel's work ---------------------------------------------------

void kaLCDDisplay::Clear() {
  if (mode_ == 1) return;
  if (tmrWrite.enabled) return queue_command(2);
  lines_.assign(total_rows_, std::string(total_cols_, ' '));
  for (int r = 0; r < total_rows_; ++r)
    for (int c = 0; c < total_cols_; ++c) copy_glyph(' ', c, r, kLcdCellWidth + 1);
  Refresh();
  current_row_ = 0;
}

std::string kaLCDDisplay::place_text(int row, std::string text, int align, int col) {
  if (row < 1 || row > total_rows_) raise(rt_subscript);
  // One cell per character: a character above code 126 (a whole UTF-8
  // sequence, or a byte that starts none) becomes one blank.
  std::string cells;
  cells.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); at += utf8::char_size(text, at)) {
    const auto c = static_cast<unsigned char>(text[at]);
    cells += c > 126 ? ' ' : static_cast<char>(c);
  }
  text = std::move(cells);
  const int cols = total_cols_;
  const int free = std::max(0, cols - static_cast<int>(text.size()));
  // With the default col of 1 the line keeps its last column: 19 of 20 show.
  text = left(text, cols - col);
  std::string& line = lines_[row - 1];
  switch (align) {
    case 0:
      line = left(line, col - 1) + text + (free - col + 1 > 0 ? right(line, free - col + 1) : "");
      break;
    case 1:
      line = left(line, free / 2) + text + right(line, free - free / 2);
      break;
    case 2:
      line = left(line, free - col + 1) + text + right(line, col - 1);
      break;
  }
  return text;
}

void kaLCDDisplay::WriteText(std::string text, std::int16_t align, std::int16_t row,
                             std::int16_t col) {
  if (mode_ == 1) return;
  int next = current_row_ + 1;
  if (next > total_rows_) {
    if (!scrollable_) return;
    if (row <= 0) {
      ScrollUp();
      next = current_row_ + 1;
    }
  }
  const int target = row > 0 ? row : next;

  if (write_speed_ > 0) {
    if (tmrWrite.enabled) {
      return queue_command(0, text + sep254_ + std::to_string(align) + sep254_ +
                                  std::to_string(row) + sep254_ + std::to_string(col));
    }
    std::string placed = place_text(target, std::move(text), align, col);
    current_row_ = static_cast<std::int16_t>(target);
    current_text_ = placed;
    write_pos_ = static_cast<std::int16_t>(instr(lines_[target - 1], placed));
    write_end_ = static_cast<std::int16_t>(write_pos_ + placed.size());
    set_timer(tmrWrite, true);
    return;
  }

  place_text(target, std::move(text), align, col);
  current_row_ = static_cast<std::int16_t>(target);
  const std::string& line = lines_[target - 1];
  for (int c = 0; c < total_cols_; ++c) {
    unsigned char ch = c < static_cast<int>(line.size()) ? line[c] : ' ';
    copy_glyph(ch, c, target - 1, kLcdCellWidth);
  }
  Refresh();
  if (queue_.Count() > 0) set_timer(tmrProcessCommands, true);
}

void kaLCDDisplay::ScrollUp() {
  if (tmrWrite.enabled) return queue_command(3);
  if (total_rows_ < 2) return;
  for (int r = 0; r + 1 < total_rows_; ++r) lines_[r] = lines_[r + 1];
  lines_.back().assign(total_cols_, ' ');
  paint_all_cells();
  Refresh();
  --current_row_;
}

void kaLCDDisplay::tmrWrite_Timer() {
  if (current_row_ < 1 || current_row_ > total_rows_) {
    set_timer(tmrWrite, false);
    return;
  }
  const std::string& line = lines_[current_row_ - 1];
  int offset = instr(line, current_text_) - 1;
  if (write_pos_ < write_end_) {
    int i = write_pos_ - offset - 1;
    bool inside = i >= 0 && i < static_cast<int>(current_text_.size());
    unsigned char ch = inside ? current_text_[i] : ' ';
    copy_glyph(ch, write_pos_ - 1, current_row_ - 1, kLcdCellWidth);
    ++write_pos_;
    Refresh();
  }
  if (write_pos_ >= write_end_) {
    set_timer(tmrWrite, false);
    set_timer(tmrProcessCommands, true);
  }
}

}  // namespace wh
