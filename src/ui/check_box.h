#pragma once
#include "ui/control.h"

namespace wh {

// Value 0 clear, 1 ticked, 2 grey. Click fires when the value changes, by
// the user or by code; setting the present value fires nothing.
class CheckBox : public Control {
public:
  CheckBox(Form& form, std::string name, const Place& place, const std::string& caption = {});

  int Value() const;
  void Value(int v);  // raises 380 outside 0..2
  std::string Caption() const { return window_text(); }
  void Caption(const std::string& text) { window_text(text); }

  void on_command(int code) override;
};

}  // namespace wh
