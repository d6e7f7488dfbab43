#include "ui/control.h"

#include <commctrl.h>
#include <windowsx.h>

#include "platform/rt_error.h"
#include "ui/events.h"
#include "ui/form.h"

namespace wh {

namespace {
const char* const control_prop = "WhControl";
}  // namespace

// Subclassed by hand, the object in GWLP_USERDATA: under Wine the common
// controls' SetWindowSubclass reads a window property per message, a trip
// to the server that made a 100-row list fill take 15 ms instead of 0.3.
// The procedure is a Unicode one, so that a typed character reaches the
// control whole: an A procedure gets WM_CHAR in the keyboard's code page,
// one byte at most, and Wine makes "?" of every letter outside it. The
// messages it looks at carry no text; the A calls the program sends are
// converted through our code page as before.
LRESULT CALLBACK control_proc(HWND w, UINT msg, WPARAM wp, LPARAM lp) {
  auto* c = reinterpret_cast<Control*>(::GetWindowLongPtrW(w, GWLP_USERDATA));
  if (!c) return ::DefWindowProcW(w, msg, wp, lp);
  const WNDPROC base = c->base_proc_;
  detail::WindowScope scope;
  if (msg == WM_NCDESTROY) {
    ::SetWindowLongPtrW(w, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(base));
    ::SetWindowLongPtrW(w, GWLP_USERDATA, 0);
    ::RemovePropA(w, control_prop);
    c->window_gone();
    return ::CallWindowProcW(base, w, msg, wp, lp);
  }
  LRESULT result = 0;
  if (c->on_message(msg, wp, lp, result)) return result;
  // A handler may have destroyed the window (a form unloaded from a click).
  if (!::IsWindow(w)) return 0;
  return ::CallWindowProcW(base, w, msg, wp, lp);
}

namespace {

int buttons_of(WPARAM wp) {
  return ((wp & MK_LBUTTON) ? 1 : 0) | ((wp & MK_RBUTTON) ? 2 : 0) | ((wp & MK_MBUTTON) ? 4 : 0);
}

int shift_of(WPARAM wp) {
  return ((wp & MK_SHIFT) ? 1 : 0) | ((wp & MK_CONTROL) ? 2 : 0) |
         (::GetKeyState(VK_MENU) < 0 ? 4 : 0);
}
}  // namespace

int shift_state() {
  return (::GetKeyState(VK_SHIFT) < 0 ? 1 : 0) | (::GetKeyState(VK_CONTROL) < 0 ? 2 : 0) |
         (::GetKeyState(VK_MENU) < 0 ? 4 : 0);
}

namespace detail {
void mouse_message(HWND w, UINT msg, WPARAM wp, LPARAM lp, const MouseEvents& ev) {
  int x = GET_X_LPARAM(lp);
  int y = GET_Y_LPARAM(lp);
  int shift = shift_of(wp);
  int button = 0;
  switch (msg) {
    case WM_MOUSEMOVE:
      fire(ev.move, buttons_of(wp), shift, x, y);
      return;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: button = 1; break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK: button = 2; break;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK: button = 4; break;
    case WM_LBUTTONUP: button = 1; break;
    case WM_RBUTTONUP: button = 2; break;
    case WM_MBUTTONUP: button = 4; break;
    default: return;
  }
  bool up = msg == WM_LBUTTONUP || msg == WM_RBUTTONUP || msg == WM_MBUTTONUP;
  bool dbl = msg == WM_LBUTTONDBLCLK || msg == WM_RBUTTONDBLCLK || msg == WM_MBUTTONDBLCLK;
  if (!up) {
    if (ev.own_clicks) {
      // Held so that the release comes here even off the control.
      ::SetCapture(w);
      ev.pressed = button == 1 && !dbl;
      if (dbl && button == 1) {
        fire(ev.dbl_click);
        return;
      }
    }
    fire(ev.down, button, shift, x, y);
    return;
  }
  bool was_pressed = ev.pressed && button == 1;
  if (button == 1) ev.pressed = false;
  if (ev.own_clicks && !(wp & (MK_LBUTTON | MK_RBUTTON | MK_MBUTTON)) && ::GetCapture() == w)
    ::ReleaseCapture();
  fire(ev.up, button, shift, x, y);
  if (ev.own_clicks && was_pressed && ::IsWindow(w)) {
    RECT rc;
    ::GetClientRect(w, &rc);
    POINT pt{x, y};
    if (::PtInRect(&rc, pt)) fire(ev.click);
  }
}

std::vector<std::string> dropped_files(HDROP drop) {
  std::vector<std::string> files = drop_file_names(drop);
  ::DragFinish(drop);
  return files;
}

std::vector<std::string> drop_file_names(HDROP drop) {
  std::vector<std::string> files;
  UINT n = ::DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < n; ++i) {
    UINT len = ::DragQueryFileA(drop, i, nullptr, 0);
    std::string f(len + 1, '\0');
    ::DragQueryFileA(drop, i, f.data(), len + 1);
    f.resize(len);
    files.push_back(f);
  }
  return files;
}
}  // namespace detail

Control::Control(Form& form, std::string name, const Place& place, const char* window_class,
                 DWORD style, DWORD ex_style, const std::string& text)
    : form_(form), name_(std::move(name)) {
  HWND parent = form.hwnd();
  if (place.container) {
    if (!place.container->is_container()) raise(rt_invalid_property, "Invalid container");
    parent = place.container->hwnd();
  }
  hwnd_ = ::CreateWindowExA(ex_style, window_class, text.c_str(),
                            style | WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, place.left, place.top,
                            place.width, place.height, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(form.next_id())),
                            ::GetModuleHandleA(nullptr), nullptr);
  if (!hwnd_) raise(rt_out_of_memory);
  ::SetPropA(hwnd_, control_prop, this);
  ::SetWindowLongPtrW(hwnd_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  base_proc_ = reinterpret_cast<WNDPROC>(
      ::SetWindowLongPtrW(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(control_proc)));
  send(WM_SETFONT, reinterpret_cast<WPARAM>(font_handle(font_)), FALSE);
}

Control::~Control() {
  if (!hwnd_) return;
  // Cut the object loose first: destroying may still send notifications.
  ::SetWindowLongPtrW(hwnd_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(base_proc_));
  ::SetWindowLongPtrW(hwnd_, GWLP_USERDATA, 0);
  ::RemovePropA(hwnd_, control_prop);
  ::DestroyWindow(hwnd_);
}

Control* Control::from_hwnd(HWND w) {
  return w ? static_cast<Control*>(::GetPropA(w, control_prop)) : nullptr;
}

bool Control::Visible() const {
  return (::GetWindowLongA(hwnd_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void Control::Visible(bool v) { ::ShowWindow(hwnd_, v ? SW_SHOWNA : SW_HIDE); }

bool Control::Enabled() const { return hwnd_ && ::IsWindowEnabled(hwnd_); }

void Control::Enabled(bool v) { ::EnableWindow(hwnd_, v); }

void Control::Move(int left, int top, int width, int height) {
  ::MoveWindow(hwnd_, left, top, width, height, TRUE);
}

namespace {
RECT rect_in_parent(HWND w) {
  RECT rc{};
  ::GetWindowRect(w, &rc);
  ::MapWindowPoints(nullptr, ::GetParent(w), reinterpret_cast<POINT*>(&rc), 2);
  return rc;
}
}  // namespace

int Control::Left() const { return rect_in_parent(hwnd_).left; }
int Control::Top() const { return rect_in_parent(hwnd_).top; }
int Control::Width() const {
  RECT rc = rect_in_parent(hwnd_);
  return rc.right - rc.left;
}
int Control::Height() const {
  RECT rc = rect_in_parent(hwnd_);
  return rc.bottom - rc.top;
}
void Control::Left(int v) { Move(v, Top(), Width(), Height()); }
void Control::Top(int v) { Move(Left(), v, Width(), Height()); }
void Control::Width(int v) { Move(Left(), Top(), v, Height()); }
void Control::Height(int v) { Move(Left(), Top(), Width(), v); }

void Control::SetFocus() {
  // The focus can't go to a control that can't be seen or used; the
  // program counts on the error (a start in the tray skips the rest of a
  // section's entry that way).
  if (!::IsWindowVisible(hwnd_) || !::IsWindowEnabled(hwnd_)) raise(rt_invalid_call);
  ::SetFocus(hwnd_);
}

void Control::Refresh() {
  ::InvalidateRect(hwnd_, nullptr, TRUE);
  ::UpdateWindow(hwnd_);
}

void Control::ZOrder(int position) {
  ::SetWindowPos(hwnd_, position == 0 ? HWND_TOP : HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Control::Font(const FontDesc& f) {
  font_ = f;
  send(WM_SETFONT, reinterpret_cast<WPARAM>(font_handle(font_)), TRUE);
}

void Control::ForeColor(COLORREF c) {
  fore_ = c;
  has_fore_ = true;
  ::InvalidateRect(hwnd_, nullptr, TRUE);
}

void Control::BackColor(COLORREF c) {
  back_ = c;
  has_back_ = true;
  ::InvalidateRect(hwnd_, nullptr, TRUE);
}

void Control::OLEDropMode(bool accept) {
  ::DragAcceptFiles(hwnd_, accept);
  if (accept) form_.accept_ole_drags();
}


bool Control::key_press(const KeyPressEvent& handler, WPARAM wp, LPARAM lp, LRESULT& result) {
  int ascii = static_cast<int>(wp);
  fire(handler, ascii);
  if (ascii == 0 || !::IsWindow(hwnd())) {
    result = 0;
    return true;
  }
  if (ascii != static_cast<int>(wp)) {
    result = ::CallWindowProcW(base_proc_, hwnd(), WM_CHAR, static_cast<WPARAM>(ascii), lp);
    return true;
  }
  return false;
}

std::string Control::window_text() const {
  int n = ::GetWindowTextLengthA(hwnd_);
  std::string s(n + 1, '\0');
  n = ::GetWindowTextA(hwnd_, s.data(), n + 1);
  s.resize(n > 0 ? n : 0);
  return s;
}

void Control::window_text(const std::string& text) { ::SetWindowTextA(hwnd_, text.c_str()); }

HBRUSH Control::on_ctl_color(HDC dc) {
  if (!has_fore_ && !has_back_) return nullptr;
  ::SetTextColor(dc, to_rgb(fore_));
  ::SetBkColor(dc, to_rgb(back_));
  return solid_brush(back_);
}

bool Control::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  switch (msg) {
    case WM_NCHITTEST:
      if (own_clicks_) {
        // Statics answer HTTRANSPARENT, which would send the mouse to the
        // form beneath: no hover, no clicks.
        result = HTCLIENT;
        return true;
      }
      return false;
    case WM_MOUSEMOVE:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
      detail::mouse_message(hwnd_, msg, wp, lp,
                            {MouseDown, MouseMove, MouseUp, Click, DblClick, own_clicks_, pressed_});
      return own_clicks_;
    case WM_DROPFILES: {
      auto files = detail::dropped_files(reinterpret_cast<HDROP>(wp));
      fire(OLEDragDrop, files);
      result = 0;
      return true;
    }
  }
  return false;
}

void paint_parent_background(HWND child, HDC dc) {
  HWND parent = ::GetParent(child);
  POINT origin{0, 0};
  ::MapWindowPoints(child, parent, &origin, 1);
  RECT rc;
  ::GetClientRect(child, &rc);
  int saved = ::SaveDC(dc);
  // Statics have CS_PARENTDC: without this clip the parent's picture would
  // be drawn over the siblings too.
  ::IntersectClipRect(dc, rc.left, rc.top, rc.right, rc.bottom);
  ::OffsetViewportOrgEx(dc, -origin.x, -origin.y, nullptr);
  ::SendMessageA(parent, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT | PRF_ERASEBKGND);
  ::RestoreDC(dc, saved);
}

}  // namespace wh
