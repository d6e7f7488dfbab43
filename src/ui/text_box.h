#pragma once
#include "ui/control.h"

namespace wh {

struct TextBoxOptions {
  bool multi_line = false;
  bool password = false;
  bool scroll_bars = false;  // vertical, for multi-line
  bool border = true;
};

// An edit field. Change fires on every change of the text, typed or set by
// code (not when code sets the text it already has). KeyPress sees each
// typed character (WM_CHAR) and may change it or swallow it with 0; a paste
// is not filtered.
class TextBox : public Control {
public:
  using Options = TextBoxOptions;

  TextBox(Form& form, std::string name, const Place& place, const std::string& text = {},
          const Options& options = {});

  std::string Text() const { return window_text(); }
  void Text(const std::string& text);
  int SelStart() const;
  void SelStart(int v);
  int SelLength() const;
  void SelLength(int v);
  std::string SelText() const;
  void SelText(const std::string& text);  // replaces the selection; fires Change
  bool Locked() const;
  void Locked(bool on);
  void MaxLength(int chars);  // 0: no limit

  Event Change;
  KeyPressEvent KeyPress;
  KeyEvent KeyDown;

  void on_command(int code) override;
  bool on_message(UINT msg, WPARAM wp, LPARAM lp, LRESULT& result) override;

private:
  bool quiet_ = false;  // no Change from EN_CHANGE while code sets the text
};

}  // namespace wh
