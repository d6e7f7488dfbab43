#include "ui/list_box.h"

#include <commctrl.h>

#include "platform/code_pages.h"
#include "platform/rt_error.h"
#include "ui/events.h"

namespace wh {

namespace {
constexpr int rt_bad_index = 381;

DWORD list_style(const ListBoxOptions& o) {
  // WS_HSCROLL from the start: LB_SETHORIZONTALEXTENT, which the program
  // sends itself, shows a bar only when the style is there.
  DWORD s = LBS_NOTIFY | LBS_HASSTRINGS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL |
            WS_TABSTOP;
  if (o.sorted) s |= LBS_SORT;
  if (o.multi_select == multi_simple) s |= LBS_MULTIPLESEL;
  if (o.multi_select == multi_extended) s |= LBS_EXTENDEDSEL;
  return s;
}
}  // namespace

ListBox::ListBox(Form& form, std::string name, const Place& place, const Options& options)
    : ListBox(form, std::move(name), place, options, 0) {}

ListBox::ListBox(Form& form, std::string name, const Place& place, const Options& options,
                 DWORD extra_style)
    : Control(form, std::move(name), place, "LISTBOX", list_style(options) | extra_style,
              options.border ? WS_EX_CLIENTEDGE : 0),
      options_(options) {
  default_colors(system_color(COLOR_WINDOWTEXT), system_color(COLOR_WINDOW));
}

void ListBox::check_row(int index) const {
  if (index < 0 || index >= rows()) raise(rt_bad_index, "Invalid property array index");
}

void ListBox::AddItem(const std::string& text) {
  new_index_ = static_cast<int>(send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

void ListBox::AddItem(const std::string& text, int index) {
  if (index < 0 || index > rows()) raise(rt_invalid_call);
  new_index_ =
      static_cast<int>(send(LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(text.c_str())));
}

void ListBox::RemoveItem(int index) {
  if (index < 0 || index >= rows()) raise(rt_invalid_call);
  send(LB_DELETESTRING, index);
}

void ListBox::Clear() {
  send(LB_RESETCONTENT);
  new_index_ = -1;
  forget_current();
}

int ListBox::ListCount() const { return rows(); }

std::string ListBox::List(int index) const {
  if (index < 0 || index >= rows()) return {};
  int n = static_cast<int>(send(LB_GETTEXTLEN, index));
  std::string s(n + 1, '\0');
  n = static_cast<int>(send(LB_GETTEXT, index, reinterpret_cast<LPARAM>(s.data())));
  s.resize(n > 0 ? n : 0);
  return s;
}

void ListBox::List(int index, const std::string& text) {
  check_row(index);
  LRESULT data = send(LB_GETITEMDATA, index);
  bool selected = send(LB_GETSEL, index) > 0;
  int top = TopIndex();
  Batch batch(*this);
  send(LB_DELETESTRING, index);
  // Inserting keeps the place even in a sorted list, as the row is replaced.
  send(LB_INSERTSTRING, index, reinterpret_cast<LPARAM>(text.c_str()));
  send(LB_SETITEMDATA, index, data);
  if (selected) {
    if (multi())
      send(LB_SETSEL, TRUE, index);
    else
      send(LB_SETCURSEL, index);
  }
  send(LB_SETTOPINDEX, top);
}

ListBox::Batch::Batch(ListBox& list) : list_(list) {
  if (list_.batch_depth_++ == 0) list_.send(WM_SETREDRAW, FALSE);
}

ListBox::Batch::~Batch() {
  if (--list_.batch_depth_ > 0) return;
  list_.send(WM_SETREDRAW, TRUE);
  ::InvalidateRect(list_.hwnd(), nullptr, TRUE);
}

long ListBox::ItemData(int index) const {
  check_row(index);
  return static_cast<long>(send(LB_GETITEMDATA, index));
}

void ListBox::ItemData(int index, long value) {
  check_row(index);
  send(LB_SETITEMDATA, index, static_cast<LPARAM>(value));
}

bool ListBox::Selected(int index) const {
  check_row(index);
  return send(LB_GETSEL, index) > 0;
}

void ListBox::Selected(int index, bool on) {
  check_row(index);
  if (Selected(index) == on) return;
  if (multi()) {
    send(LB_SETSEL, on, index);
    // Selecting a row also makes it the current one, as a click would.
    if (on) {
      send(LB_SETCARETINDEX, index, FALSE);
      current_set_ = true;
    }
  } else
    send(LB_SETCURSEL, on ? index : -1);
  fire(Click);
}

int ListBox::SelCount() const {
  if (multi()) return static_cast<int>(send(LB_GETSELCOUNT));
  return send(LB_GETCURSEL) >= 0 ? 1 : 0;
}

int ListBox::ListIndex() const {
  if (!multi()) return static_cast<int>(send(LB_GETCURSEL));
  // The caret row, selected or not; the control reports row 0 even when
  // nothing was ever chosen, hence the flag.
  if (!current_set_ || rows() == 0) return -1;
  return static_cast<int>(send(LB_GETCARETINDEX));
}

void ListBox::ListIndex(int index) {
  if (index < -1 || index >= rows()) raise(rt_invalid_property);
  if (index == ListIndex()) return;
  if (multi()) {
    // Moves the focus rectangle only; what is selected stays.
    send(LB_SETCARETINDEX, index < 0 ? 0 : index, FALSE);
    current_set_ = index >= 0;
  } else {
    send(LB_SETCURSEL, index);
  }
  fire(Click);
}

int ListBox::TopIndex() const { return static_cast<int>(send(LB_GETTOPINDEX)); }

void ListBox::TopIndex(int index) { send(LB_SETTOPINDEX, index); }

int ListBox::TextHeight(const std::string& text) const {
  HDC dc = ::GetDC(hwnd());
  HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(send(WM_GETFONT)));
  SIZE size{};
  const std::wstring w = wide_text(text);
  ::GetTextExtentPoint32W(dc, w.c_str(), static_cast<int>(w.size()), &size);
  ::SelectObject(dc, old);
  ::ReleaseDC(hwnd(), dc);
  return size.cy;
}

void ListBox::ToolTipText(const std::string& text) {
  if (text == tip_text_ && tip_window_) return;
  tip_text_ = text;
  TOOLINFOA ti{};
  ti.cbSize = TTTOOLINFOA_V1_SIZE;
  ti.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  ti.hwnd = hwnd();
  ti.uId = reinterpret_cast<UINT_PTR>(hwnd());
  ti.lpszText = tip_text_.data();
  if (!tip_window_) {
    static const bool ready = [] {
      INITCOMMONCONTROLSEX icc{sizeof icc, ICC_WIN95_CLASSES};
      return ::InitCommonControlsEx(&icc) != FALSE;
    }();
    (void)ready;
    tip_window_ = ::CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                    WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                    CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, hwnd(), nullptr,
                                    ::GetModuleHandleA(nullptr), nullptr);
    ::SendMessageA(tip_window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&ti));
  } else {
    ::SendMessageA(tip_window_, TTM_UPDATETIPTEXTA, 0, reinterpret_cast<LPARAM>(&ti));
  }
}

void ListBox::on_command(int code) {
  if (code == LBN_SELCHANGE) {
    current_set_ = true;
    fire(Click);
  } else if (code == LBN_DBLCLK) {
    fire(DblClick);
  } else if (code == LBN_SETFOCUS) {
    fire(GotFocus);
  }
}

bool ListBox::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  switch (msg) {
    case WM_KEYDOWN: {
      int key = static_cast<int>(wp);
      fire(KeyDown, key, shift_state());
      if (key == 0 || !::IsWindow(hwnd())) {
        result = 0;
        return true;
      }
      break;
    }
    case WM_CHAR:
      if (key_press(KeyPress, wp, lp, result)) return true;
      break;
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
