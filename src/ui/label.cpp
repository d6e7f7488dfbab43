#include "ui/label.h"

#include "platform/code_pages.h"

namespace wh {

// Owner-drawn: a plain static repaints itself on WM_SETTEXT straight
// through GetDC (Wine does), which would bypass a transparent background.
Label::Label(Form& form, std::string name, const Place& place, const std::string& caption,
             const Options& options)
    : Control(form, std::move(name), place, "STATIC", SS_OWNERDRAW | SS_NOTIFY, 0, caption),
      options_(options) {
  own_clicks_ = true;
}

void Label::Caption(const std::string& text) {
  window_text(text);
  ::InvalidateRect(hwnd(), nullptr, FALSE);
}

void Label::transparent(bool on) {
  options_.transparent = on;
  ::InvalidateRect(hwnd(), nullptr, FALSE);
}

void Label::Alignment(LabelAlignment a) {
  options_.alignment = a;
  ::InvalidateRect(hwnd(), nullptr, FALSE);
}

bool Label::on_draw_item(DRAWITEMSTRUCT& d) {
  HDC dc = d.hDC;
  RECT rc;
  ::GetClientRect(hwnd(), &rc);
  int saved = ::SaveDC(dc);
  ::IntersectClipRect(dc, rc.left, rc.top, rc.right, rc.bottom);
  if (options_.transparent)
    paint_parent_background(hwnd(), dc);
  else
    ::FillRect(dc, &rc, solid_brush(BackColor()));
  ::SetBkMode(dc, TRANSPARENT);
  ::SetTextColor(dc, to_rgb(Enabled() ? ForeColor() : system_color(COLOR_GRAYTEXT)));
  ::SelectObject(dc, font_handle(Font()));
  UINT format = options_.alignment == right_justify ? DT_RIGHT
                : options_.alignment == center      ? DT_CENTER
                                                    : DT_LEFT;
  format |= options_.word_wrap ? DT_WORDBREAK : DT_SINGLELINE;
  // GDI's A calls read text in the font's code page, not ours: UTF-16.
  const std::wstring text = wide_text(Caption());
  ::DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &rc, format);
  ::RestoreDC(dc, saved);
  return true;
}

bool Label::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  if (msg == WM_ERASEBKGND) {
    result = 1;
    return true;
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
