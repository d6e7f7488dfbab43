#pragma once
#include "ui/control.h"

namespace wh {

// One of a group: the option buttons of the same container. Selecting one
// (user or code) clears the others and fires its Click; the cleared ones
// fire nothing, and selecting the selected one fires nothing.
class OptionButton : public Control {
public:
  OptionButton(Form& form, std::string name, const Place& place, const std::string& caption = {});

  bool Value() const;
  void Value(bool v);
  std::string Caption() const { return window_text(); }
  void Caption(const std::string& text) { window_text(text); }

  void on_command(int code) override;

private:
  void clear_siblings();
};

}  // namespace wh
