#include "ui/check_box.h"

#include "platform/rt_error.h"
#include "ui/events.h"

namespace wh {

// BS_3STATE, not the auto style: the value changes here, so that a click
// and a Value set take the same road, and grey (2) can be set by code.
CheckBox::CheckBox(Form& form, std::string name, const Place& place, const std::string& caption)
    : Control(form, std::move(name), place, "BUTTON", BS_3STATE | WS_TABSTOP, 0, caption) {}

int CheckBox::Value() const { return static_cast<int>(send(BM_GETCHECK)); }

void CheckBox::Value(int v) {
  if (v < 0 || v > 2) raise(rt_invalid_property);
  if (v == Value()) return;
  send(BM_SETCHECK, static_cast<WPARAM>(v));
  fire(Click);
}

void CheckBox::on_command(int code) {
  if (code != BN_CLICKED) return;
  // A click on a grey box ticks it.
  send(BM_SETCHECK, Value() == 1 ? BST_UNCHECKED : BST_CHECKED);
  fire(Click);
}

}  // namespace wh
