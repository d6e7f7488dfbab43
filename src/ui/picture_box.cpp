#include "ui/picture_box.h"

#include <algorithm>

#include "platform/code_pages.h"
#include "ui/events.h"
#include "ui/internal.h"

namespace wh {

PictureBox::PictureBox(Form& form, std::string name, const Place& place, const Options& options)
    : Control(form, std::move(name), place, detail::container_class(), WS_CLIPCHILDREN,
              options.border ? WS_EX_CLIENTEDGE : 0),
      options_(options) {
  own_clicks_ = true;
  fit_surface();
}

int PictureBox::ScaleWidth() const {
  RECT rc{};
  ::GetClientRect(hwnd(), &rc);
  return rc.right;
}

int PictureBox::ScaleHeight() const {
  RECT rc{};
  ::GetClientRect(hwnd(), &rc);
  return rc.bottom;
}

void PictureBox::fit_surface() {
  int w = std::max(ScaleWidth(), 1), h = std::max(ScaleHeight(), 1);
  if (surface_ && w <= surface_size_.cx && h <= surface_size_.cy) return;
  w = std::max<int>(w, surface_size_.cx);
  h = std::max<int>(h, surface_size_.cy);
  HDC screen = ::GetDC(nullptr);
  Bitmap grown(::CreateCompatibleBitmap(screen, w, h));
  ::ReleaseDC(nullptr, screen);
  {
    MemoryDC tmp(mem_.get());  // lets go of `grown` when the block ends
    tmp.select(grown.get());
    RECT all{0, 0, w, h};
    ::FillRect(tmp.get(), &all, solid_brush(BackColor()));
    if (surface_)
      ::BitBlt(tmp.get(), 0, 0, surface_size_.cx, surface_size_.cy, mem_.get(), 0, 0, SRCCOPY);
  }
  mem_.select(grown.get());  // lets go of the old surface before it is deleted
  surface_ = std::move(grown);
  surface_size_ = {w, h};
}

void PictureBox::dirty() { ::InvalidateRect(hwnd(), nullptr, FALSE); }

void PictureBox::Cls() {
  RECT all{0, 0, surface_size_.cx, surface_size_.cy};
  ::FillRect(mem_.get(), &all, solid_brush(BackColor()));
  CurrentX = CurrentY = 0;
  dirty();
}

void PictureBox::FillRect(int x1, int y1, int x2, int y2, COLORREF color) {
  // Both corners are inside, as with a filled Line.
  RECT rc{std::min(x1, x2), std::min(y1, y2), std::max(x1, x2) + 1, std::max(y1, y2) + 1};
  ::FillRect(mem_.get(), &rc, solid_brush(color));
  dirty();
}

void PictureBox::Line(int x1, int y1, int x2, int y2, COLORREF color) {
  Pen pen(::CreatePen(PS_SOLID, 1, to_rgb(color)));
  HGDIOBJ old = ::SelectObject(mem_.get(), pen.get());
  ::MoveToEx(mem_.get(), x1, y1, nullptr);
  ::LineTo(mem_.get(), x2, y2);
  ::SelectObject(mem_.get(), old);
  CurrentX = x2;
  CurrentY = y2;
  dirty();
}

void PictureBox::PSet(int x, int y, COLORREF color) {
  ::SetPixel(mem_.get(), x, y, to_rgb(color));
  CurrentX = x;
  CurrentY = y;
  dirty();
}

void PictureBox::Print(const std::string& text) {
  HDC dc = mem_.get();
  HGDIOBJ old = ::SelectObject(dc, font_handle(Font()));
  ::SetTextColor(dc, to_rgb(ForeColor()));
  ::SetBkColor(dc, to_rgb(BackColor()));
  ::SetBkMode(dc, FontTransparent ? TRANSPARENT : OPAQUE);
  const std::wstring w = wide_text(text);  // GDI's A calls miss UTF-8
  ::TextOutW(dc, CurrentX, CurrentY, w.c_str(), static_cast<int>(w.size()));
  ::SelectObject(dc, old);
  CurrentX = 0;
  CurrentY += TextHeight(text);
  dirty();
}

void PictureBox::PrintAt(int x, int y, const std::string& text) {
  CurrentX = x;
  CurrentY = y;
  Print(text);
}

namespace {
SIZE text_extent(HDC dc, HFONT font, const std::string& text) {
  HGDIOBJ old = ::SelectObject(dc, font);
  SIZE s{0, 0};
  // An empty text still has a line's height.
  const std::wstring probe = wide_text(text.empty() ? " " : text);
  ::GetTextExtentPoint32W(dc, probe.c_str(), static_cast<int>(probe.size()), &s);
  ::SelectObject(dc, old);
  if (text.empty()) s.cx = 0;
  return s;
}
}  // namespace

int PictureBox::TextWidth(const std::string& text) const {
  return text_extent(mem_.get(), font_handle(Font()), text).cx;
}

int PictureBox::TextHeight(const std::string& text) const {
  return text_extent(mem_.get(), font_handle(Font()), text).cy;
}

void PictureBox::picture(Picture pic) {
  picture_ = std::move(pic);
  if (picture_) PaintPicture(picture_, 0, 0);
  dirty();
}

void PictureBox::LoadPicture(const std::string& resource_name) {
  picture(::wh::LoadPicture(resource_name));
}

void PictureBox::PaintPicture(const Picture& pic, int x, int y, int width, int height) {
  if (!pic) return;
  SIZE size = picture_size(pic);
  MemoryDC src(mem_.get());
  src.select(pic->get());
  if (width < 0) width = size.cx;
  if (height < 0) height = size.cy;
  if (width == size.cx && height == size.cy)
    ::BitBlt(mem_.get(), x, y, width, height, src.get(), 0, 0, SRCCOPY);
  else
    ::StretchBlt(mem_.get(), x, y, width, height, src.get(), 0, 0, size.cx, size.cy, SRCCOPY);
  dirty();
}

Picture PictureBox::Image() const {
  HDC screen = ::GetDC(nullptr);
  HBITMAP copy = ::CreateCompatibleBitmap(screen, surface_size_.cx, surface_size_.cy);
  ::ReleaseDC(nullptr, screen);
  MemoryDC dst(mem_.get());
  dst.select(copy);
  ::BitBlt(dst.get(), 0, 0, surface_size_.cx, surface_size_.cy, mem_.get(), 0, 0, SRCCOPY);
  return make_picture(copy);
}

bool PictureBox::paint_background(HDC dc) {
  ::BitBlt(dc, 0, 0, surface_size_.cx, surface_size_.cy, mem_.get(), 0, 0, SRCCOPY);
  return true;
}

bool PictureBox::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  switch (msg) {
    case WM_SIZE:
      fit_surface();
      return false;
    case WM_ERASEBKGND:
      result = 1;
      return true;
    case WM_PRINTCLIENT:
      paint_background(reinterpret_cast<HDC>(wp));
      return true;
    case WM_PAINT: {
      PAINTSTRUCT ps;
      HDC dc = ::BeginPaint(hwnd(), &ps);
      paint_background(dc);
      ::EndPaint(hwnd(), &ps);
      fire(Paint);
      return true;
    }
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
