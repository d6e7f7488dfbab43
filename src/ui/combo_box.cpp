#include "ui/combo_box.h"

#include <algorithm>

#include "platform/rt_error.h"
#include "ui/events.h"

namespace wh {

namespace {
DWORD combo_style(const ComboBoxOptions& o) {
  DWORD s = WS_VSCROLL | WS_TABSTOP | CBS_AUTOHSCROLL |
            (o.style == dropdown_list ? CBS_DROPDOWNLIST : CBS_DROPDOWN);
  if (o.sorted) s |= CBS_SORT;
  return s;
}

Place with_drop_height(Place p, int drop) {
  p.height = std::max(p.height, drop);
  return p;
}
}  // namespace

// The window's height is that of the open list; the closed box takes the
// height of its font, as the designer's combo does.
ComboBox::ComboBox(Form& form, std::string name, const Place& place, const Options& options)
    : Control(form, std::move(name), with_drop_height(place, options.drop_height), "COMBOBOX",
              combo_style(options)),
      options_(options) {
  default_colors(system_color(COLOR_WINDOWTEXT), system_color(COLOR_WINDOW));
}

void ComboBox::Move(int left, int top, int width, int height) {
  Control::Move(left, top, width, std::max(height, options_.drop_height));
}

void ComboBox::AddItem(const std::string& text) {
  new_index_ = static_cast<int>(send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

void ComboBox::AddItem(const std::string& text, int index) {
  if (index < 0 || index > ListCount()) raise(rt_invalid_call);
  new_index_ =
      static_cast<int>(send(CB_INSERTSTRING, index, reinterpret_cast<LPARAM>(text.c_str())));
  last_index_ = static_cast<int>(send(CB_GETCURSEL));
}

void ComboBox::RemoveItem(int index) {
  if (index < 0 || index >= ListCount()) raise(rt_invalid_call);
  send(CB_DELETESTRING, index);
  last_index_ = static_cast<int>(send(CB_GETCURSEL));
}

void ComboBox::Clear() {
  // Empties the edit part too.
  quiet_ = true;
  send(CB_RESETCONTENT);
  quiet_ = false;
  new_index_ = last_index_ = -1;
}

int ComboBox::ListCount() const { return static_cast<int>(send(CB_GETCOUNT)); }

std::string ComboBox::List(int index) const {
  if (index < 0 || index >= ListCount()) return {};
  int n = static_cast<int>(send(CB_GETLBTEXTLEN, index));
  std::string s(n + 1, '\0');
  n = static_cast<int>(send(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(s.data())));
  s.resize(n > 0 ? n : 0);
  return s;
}

int ComboBox::ListIndex() const { return static_cast<int>(send(CB_GETCURSEL)); }

void ComboBox::ListIndex(int index) {
  if (index < -1 || index >= ListCount()) raise(rt_invalid_property);
  quiet_ = true;
  send(CB_SETCURSEL, index);
  quiet_ = false;
  if (index == last_index_) return;
  last_index_ = index;
  fire(Click);
}

long ComboBox::ItemData(int index) const {
  if (index < 0 || index >= ListCount()) raise(381, "Invalid property array index");
  return static_cast<long>(send(CB_GETITEMDATA, index));
}

void ComboBox::ItemData(int index, long value) {
  if (index < 0 || index >= ListCount()) raise(381, "Invalid property array index");
  send(CB_SETITEMDATA, index, static_cast<LPARAM>(value));
}

std::string ComboBox::Text() const { return window_text(); }

void ComboBox::Text(const std::string& text) {
  if (options_.style == dropdown_list) {
    int row = static_cast<int>(send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                    reinterpret_cast<LPARAM>(text.c_str())));
    if (row < 0) raise(383, "'Text' property is read-only");
    ListIndex(row);
    return;
  }
  if (text == Text()) return;
  quiet_ = true;
  window_text(text);
  quiet_ = false;
  fire(Change);
}

void ComboBox::on_command(int code) {
  if (code == CBN_SELCHANGE) {
    int index = ListIndex();
    if (index == last_index_) return;
    last_index_ = index;
    fire(Click);
  } else if (code == CBN_EDITCHANGE && !quiet_) {
    fire(Change);
  }
}

bool ComboBox::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  if (msg == WM_KEYDOWN) {
    int key = static_cast<int>(wp);
    fire(KeyDown, key, shift_state());
    if (key == 0 || !::IsWindow(hwnd())) {
      result = 0;
      return true;
    }
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
