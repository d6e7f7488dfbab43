#include "ui/text_box.h"

#include <commctrl.h>

#include "platform/code_pages.h"
#include "ui/events.h"

namespace wh {

namespace {
DWORD edit_style(const TextBoxOptions& o) {
  DWORD s = WS_TABSTOP | ES_AUTOHSCROLL;
  if (o.multi_line) s |= ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN;
  if (o.multi_line && o.scroll_bars) s |= WS_VSCROLL;
  if (o.password) s |= ES_PASSWORD;
  return s;
}
}  // namespace

TextBox::TextBox(Form& form, std::string name, const Place& place, const std::string& text,
                 const Options& options)
    : Control(form, std::move(name), place, "EDIT", edit_style(options),
              options.border ? WS_EX_CLIENTEDGE : 0, text) {
  default_colors(system_color(COLOR_WINDOWTEXT), system_color(COLOR_WINDOW));
}

void TextBox::Text(const std::string& text) {
  if (text == Text()) return;
  quiet_ = true;
  window_text(text);
  quiet_ = false;
  fire(Change);
}

int TextBox::SelStart() const {
  DWORD start = 0;
  send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
  return static_cast<int>(start);
}

void TextBox::SelStart(int v) { send(EM_SETSEL, v, v); }

int TextBox::SelLength() const {
  DWORD start = 0, end = 0;
  send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  return static_cast<int>(end - start);
}

void TextBox::SelLength(int v) {
  int start = SelStart();
  send(EM_SETSEL, start, start + v);
}

std::string TextBox::SelText() const {
  // The control counts UTF-16 units, our text is UTF-8.
  const std::wstring w = wide_text(Text());
  const size_t start = static_cast<size_t>(SelStart());
  return start < w.size() ? narrow_text(w.substr(start, static_cast<size_t>(SelLength()))) : "";
}

void TextBox::SelText(const std::string& text) {
  std::string before = Text();
  quiet_ = true;
  send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
  quiet_ = false;
  if (Text() != before) fire(Change);
}

bool TextBox::Locked() const { return (::GetWindowLongA(hwnd(), GWL_STYLE) & ES_READONLY) != 0; }

void TextBox::Locked(bool on) { send(EM_SETREADONLY, on); }

void TextBox::MaxLength(int chars) { send(EM_SETLIMITTEXT, chars); }

void TextBox::on_command(int code) {
  if (code == EN_CHANGE && !quiet_) fire(Change);
}

bool TextBox::on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) {
  switch (msg) {
    case WM_CHAR:
      return key_press(KeyPress, wp, lp, result);
    case WM_KEYDOWN: {
      int key = static_cast<int>(wp);
      fire(KeyDown, key, shift_state());
      if (key == 0 || !::IsWindow(hwnd())) {
        result = 0;
        return true;
      }
      return false;
    }
  }
  return Control::on_message(msg, wp, lp, result);
}

}  // namespace wh
