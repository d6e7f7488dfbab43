#include "ui/image_button.h"

namespace wh {

ImageButton::ImageButton(Form& form, std::string name, const Place& place, const Options& options)
    : Control(form, std::move(name), place, "STATIC", SS_OWNERDRAW | SS_NOTIFY), options_(options) {
  own_clicks_ = true;
}

void ImageButton::picture(Picture pic) {
  picture_ = std::move(pic);
  ::InvalidateRect(hwnd(), nullptr, FALSE);
}

void ImageButton::LoadPicture(const std::string& resource_name) {
  picture(::wh::LoadPicture(resource_name));
}

void ImageButton::Stretch(bool on) {
  options_.stretch = on;
  ::InvalidateRect(hwnd(), nullptr, FALSE);
}

bool ImageButton::on_draw_item(DRAWITEMSTRUCT& d) {
  HDC dc = d.hDC;
  RECT rc;
  ::GetClientRect(hwnd(), &rc);
  int saved = ::SaveDC(dc);
  ::IntersectClipRect(dc, rc.left, rc.top, rc.right, rc.bottom);
  SIZE size = picture_size(picture_);
  // Where the picture doesn't reach, the container shows through.
  if (!picture_ || (!options_.stretch && (size.cx < rc.right || size.cy < rc.bottom)))
    paint_parent_background(hwnd(), dc);
  if (picture_) {
    MemoryDC mem(dc);
    mem.select(picture_->get());
    if (options_.stretch)
      ::StretchBlt(dc, 0, 0, rc.right, rc.bottom, mem.get(), 0, 0, size.cx, size.cy, SRCCOPY);
    else
      ::BitBlt(dc, 0, 0, size.cx, size.cy, mem.get(), 0, 0, SRCCOPY);
  }
  ::RestoreDC(dc, saved);
  return true;
}

bool ImageButton::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  if (msg == WM_ERASEBKGND) {
    result = 1;
    return true;
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
