#include "ui/form.h"

#include <set>

#include "platform/rt_error.h"
#include "ui/events.h"
#include "ui/timer.h"

namespace wh {

namespace {
void register_class(const std::string& name, WNDPROC proc, HICON icon) {
  static std::set<std::string> done;
  if (done.count(name)) return;
  WNDCLASSA wc{};
  wc.style = CS_DBLCLKS;
  wc.lpfnWndProc = proc;
  wc.hInstance = ::GetModuleHandleA(nullptr);
  wc.hIcon = icon;
  wc.hCursor = ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  wc.hbrBackground = nullptr;  // painted in WM_PAINT with the picture
  wc.lpszClassName = name.c_str();
  if (::RegisterClassA(&wc)) done.insert(name);
}

RECT window_rect(HWND w) {
  RECT rc{};
  ::GetWindowRect(w, &rc);
  return rc;
}

void paint_form_background(HWND w, HDC dc, const Picture& pic, COLORREF back) {
  RECT rc;
  ::GetClientRect(w, &rc);
  SIZE size = picture_size(pic);
  if (pic) {
    MemoryDC mem(dc);
    mem.select(pic->get());
    ::BitBlt(dc, 0, 0, size.cx, size.cy, mem.get(), 0, 0, SRCCOPY);
  }
  // Only what the picture leaves uncovered gets the back colour.
  int saved = ::SaveDC(dc);
  ::ExcludeClipRect(dc, 0, 0, size.cx, size.cy);
  ::FillRect(dc, &rc, solid_brush(back));
  ::RestoreDC(dc, saved);
}
}  // namespace

Form::Form(const FormOptions& o) {
  register_class(o.class_name, proc, o.icon);
  DWORD style = WS_CLIPCHILDREN |
                (o.popup ? WS_POPUP : WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX);
  DWORD ex = (o.tool_window ? WS_EX_TOOLWINDOW : 0) | (o.topmost ? WS_EX_TOPMOST : 0);
  // CW_USEDEFAULT means nothing to a popup; it would land at 0,0 anyway.
  int left = o.left, top = o.top;
  if (o.popup && left == CW_USEDEFAULT) left = top = 0;
  ::CreateWindowExA(ex, o.class_name.c_str(), o.caption.c_str(), style, left, top, o.width,
                    o.height, o.owner, nullptr, ::GetModuleHandleA(nullptr), this);
  if (!hwnd_) raise(rt_out_of_memory);
  detail::form_created();
}

Form::~Form() {
  // No event of a half-destroyed form may run.
  MouseDown = MouseMove = MouseUp = nullptr;
  Click = DblClick = Resize = Paint = nullptr;
  QueryUnload = nullptr;
  Unload = nullptr;
  OLEDragDrop = OLEDragOver = nullptr;
  revoke_ole_drags();
  timers_.clear();
  by_name_.clear();
  controls_.clear();
  if (hwnd_) ::DestroyWindow(hwnd_);
}

LRESULT CALLBACK Form::proc(HWND w, UINT msg, WPARAM wp, LPARAM lp) {
  Form* f;
  if (msg == WM_NCCREATE) {
    f = static_cast<Form*>(reinterpret_cast<CREATESTRUCTA*>(lp)->lpCreateParams);
    f->hwnd_ = w;
    ::SetWindowLongPtrA(w, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(f));
  } else {
    f = reinterpret_cast<Form*>(::GetWindowLongPtrA(w, GWLP_USERDATA));
  }
  if (!f) return ::DefWindowProcA(w, msg, wp, lp);
  detail::WindowScope scope;
  if (msg == WM_NCDESTROY) {
    f->revoke_ole_drags();
    ::SetWindowLongPtrA(w, GWLP_USERDATA, 0);
    f->hwnd_ = nullptr;
    detail::form_destroyed();
    return ::DefWindowProcA(w, msg, wp, lp);
  }
  return f->handle(msg, wp, lp);
}

bool Form::route_child_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  switch (msg) {
    case WM_COMMAND:
      if (lp) {
        if (Control* c = Control::from_hwnd(reinterpret_cast<HWND>(lp))) {
          c->on_command(HIWORD(wp));
          result = 0;
          return true;
        }
      }
      return false;
    case WM_NOTIFY: {
      auto* n = reinterpret_cast<NMHDR*>(lp);
      if (Control* c = Control::from_hwnd(n->hwndFrom)) return c->on_notify(*n, result);
      return false;
    }
    case WM_DRAWITEM: {
      auto* d = reinterpret_cast<DRAWITEMSTRUCT*>(lp);
      if (d->CtlType == ODT_MENU) return false;
      if (Control* c = Control::from_hwnd(d->hwndItem)) {
        if (c->on_draw_item(*d)) {
          result = TRUE;
          return true;
        }
      }
      return false;
    }
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLORSCROLLBAR: {
      HWND child = reinterpret_cast<HWND>(lp);
      Control* c = Control::from_hwnd(child);
      // A combo's edit and list ask through the combo.
      if (!c) c = Control::from_hwnd(::GetParent(child));
      if (!c) return false;
      if (HBRUSH b = c->on_ctl_color(reinterpret_cast<HDC>(wp))) {
        result = reinterpret_cast<LRESULT>(b);
        return true;
      }
      return false;
    }
  }
  return false;
}

LRESULT Form::handle(UINT msg, WPARAM wp, LPARAM lp) {
  LRESULT result = 0;
  if (route_child_message(msg, wp, lp, result)) return result;
  switch (msg) {
    case WM_ERASEBKGND:
      return 1;  // all of it in WM_PAINT
    case WM_PRINTCLIENT:
      paint_form_background(hwnd_, reinterpret_cast<HDC>(wp), picture_, back_);
      return 0;
    case WM_PAINT: {
      PAINTSTRUCT ps;
      HDC dc = ::BeginPaint(hwnd_, &ps);
      paint_form_background(hwnd_, dc, picture_, back_);
      ::EndPaint(hwnd_, &ps);
      fire(Paint);
      return 0;
    }
    case WM_SIZE:
      fire(Resize);
      return 0;
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
                            {MouseDown, MouseMove, MouseUp, Click, DblClick, true, pressed_});
      return 0;
    case WM_DROPFILES: {
      auto files = detail::dropped_files(reinterpret_cast<HDROP>(wp));
      fire(OLEDragDrop, files);
      return 0;
    }
    case WM_CLOSE:
      close_request(unload_control_menu);
      return 0;
    case WM_QUERYENDSESSION:
      return close_request(unload_windows) ? TRUE : FALSE;
  }
  return ::DefWindowProcA(hwnd_, msg, wp, lp);
}

bool Form::close_request(int mode) {
  if (!hwnd_) return true;
  int cancel = 0;
  fire(QueryUnload, cancel, mode);
  if (cancel || !hwnd_) return !cancel;
  fire(Unload, cancel);
  if (cancel) return false;
  if (hwnd_) ::DestroyWindow(hwnd_);
  return true;
}

void Form::unload() { close_request(unload_code); }

int Form::Left() const { return window_rect(hwnd_).left; }
int Form::Top() const { return window_rect(hwnd_).top; }
int Form::Width() const {
  RECT rc = window_rect(hwnd_);
  return rc.right - rc.left;
}
int Form::Height() const {
  RECT rc = window_rect(hwnd_);
  return rc.bottom - rc.top;
}
void Form::Move(int left, int top, int width, int height) {
  ::SetWindowPos(hwnd_, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}
void Form::Left(int v) { ::SetWindowPos(hwnd_, nullptr, v, Top(), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE); }
void Form::Top(int v) { ::SetWindowPos(hwnd_, nullptr, Left(), v, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE); }
void Form::Width(int v) { ::SetWindowPos(hwnd_, nullptr, 0, 0, v, Height(), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE); }
void Form::Height(int v) { ::SetWindowPos(hwnd_, nullptr, 0, 0, Width(), v, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE); }

int Form::ScaleWidth() const {
  RECT rc{};
  ::GetClientRect(hwnd_, &rc);
  return rc.right;
}
int Form::ScaleHeight() const {
  RECT rc{};
  ::GetClientRect(hwnd_, &rc);
  return rc.bottom;
}

std::string Form::Caption() const {
  int n = ::GetWindowTextLengthA(hwnd_);
  std::string s(n + 1, '\0');
  n = ::GetWindowTextA(hwnd_, s.data(), n + 1);
  s.resize(n > 0 ? n : 0);
  return s;
}

void Form::Caption(const std::string& text) { ::SetWindowTextA(hwnd_, text.c_str()); }

bool Form::Visible() const { return hwnd_ && ::IsWindowVisible(hwnd_); }

void Form::Visible(bool v) {
  if (!v) {
    ::ShowWindow(hwnd_, SW_HIDE);
    return;
  }
  int cmd = SW_SHOW;
  if (pending_state_ >= 0) {
    cmd = pending_state_ == 1 ? SW_SHOWMINIMIZED : pending_state_ == 2 ? SW_SHOWMAXIMIZED
                                                                         : SW_SHOWNORMAL;
    pending_state_ = -1;
  }
  ::ShowWindow(hwnd_, cmd);
}

int Form::WindowState() const {
  if (pending_state_ >= 0) return pending_state_;
  return ::IsIconic(hwnd_) ? 1 : ::IsZoomed(hwnd_) ? 2 : 0;
}

void Form::WindowState(int state) {
  if (state < 0 || state > 2) raise(rt_invalid_property);
  // ShowWindow would also show a hidden window; a hidden one takes the
  // state when it is next shown (restore from the tray: normal, then visible).
  if (!::IsWindowVisible(hwnd_)) {
    pending_state_ = state;
    return;
  }
  ::ShowWindow(hwnd_, state == 1 ? SW_MINIMIZE : state == 2 ? SW_MAXIMIZE : SW_RESTORE);
}

void Form::TopMost(bool on) {
  ::SetWindowPos(hwnd_, on ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Form::SetFocus() {
  if (!::IsWindowVisible(hwnd_) || !::IsWindowEnabled(hwnd_)) raise(rt_invalid_call);
  ::SetForegroundWindow(hwnd_);
  ::SetFocus(hwnd_);
}

void Form::Refresh() {
  ::InvalidateRect(hwnd_, nullptr, TRUE);
  ::UpdateWindow(hwnd_);
}

void Form::picture(Picture pic) {
  picture_ = std::move(pic);
  ::InvalidateRect(hwnd_, nullptr, TRUE);
}

void Form::BackColor(COLORREF c) {
  back_ = c;
  ::InvalidateRect(hwnd_, nullptr, TRUE);
}

void Form::OLEDropMode(bool accept) {
  ::DragAcceptFiles(hwnd_, accept);
  if (accept) accept_ole_drags();
}

Control* Form::find(const std::string& name) const {
  auto it = by_name_.find(name);
  return it == by_name_.end() ? nullptr : it->second;
}

Timer* Form::find_timer(const std::string& name) const {
  for (auto& t : timers_)
    if (t->Name() == name) return t.get();
  return nullptr;
}

Timer& Form::add_timer(const std::string& name, unsigned interval, bool enabled) {
  timers_.push_back(std::make_unique<Timer>(name, interval, enabled));
  return *timers_.back();
}

void Form::adopt(std::unique_ptr<Control> c) {
  by_name_[c->Name()] = c.get();
  controls_.push_back(std::move(c));
}

}  // namespace wh
