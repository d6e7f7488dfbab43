#include "ui/frame.h"

#include "platform/code_pages.h"
#include "ui/internal.h"

namespace wh {

Frame::Frame(Form& form, std::string name, const Place& place, const std::string& caption,
             const Options& options)
    : Control(form, std::move(name), place, detail::container_class(), WS_CLIPCHILDREN, 0,
              caption),
      options_(options) {
  own_clicks_ = true;
}

void Frame::Caption(const std::string& text) {
  window_text(text);
  ::InvalidateRect(hwnd(), nullptr, TRUE);
}

bool Frame::paint_background(HDC dc) {
  RECT rc;
  ::GetClientRect(hwnd(), &rc);
  ::FillRect(dc, &rc, solid_brush(BackColor()));
  if (!options_.border) return true;
  HGDIOBJ old_font = ::SelectObject(dc, font_handle(Font()));
  const std::wstring text = wide_text(Caption());  // GDI's A calls miss UTF-8
  SIZE ext{0, 0};
  ::GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &ext);
  RECT edge = rc;
  edge.top += ext.cy / 2;
  ::DrawEdge(dc, &edge, EDGE_ETCHED, BF_RECT);
  if (!text.empty()) {
    RECT label{8, 0, 8 + ext.cx + 4, ext.cy};
    ::FillRect(dc, &label, solid_brush(BackColor()));
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, to_rgb(Enabled() ? ForeColor() : system_color(COLOR_GRAYTEXT)));
    ::TextOutW(dc, 10, 0, text.c_str(), static_cast<int>(text.size()));
  }
  ::SelectObject(dc, old_font);
  return true;
}

bool Frame::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  switch (msg) {
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
      return true;
    }
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
