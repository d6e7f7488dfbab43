#include "ui/option_button.h"

#include "ui/events.h"

namespace wh {

// BS_RADIOBUTTON, not the auto style: the auto one groups by WS_GROUP and
// tab order, the program groups by container.
OptionButton::OptionButton(Form& form, std::string name, const Place& place,
                           const std::string& caption)
    : Control(form, std::move(name), place, "BUTTON", BS_RADIOBUTTON | WS_TABSTOP, 0, caption) {}

bool OptionButton::Value() const { return send(BM_GETCHECK) == BST_CHECKED; }

void OptionButton::Value(bool v) {
  if (v == Value()) return;
  if (!v) {
    send(BM_SETCHECK, BST_UNCHECKED);
    return;
  }
  clear_siblings();
  send(BM_SETCHECK, BST_CHECKED);
  fire(Click);
}

void OptionButton::clear_siblings() {
  for (HWND w = ::GetWindow(parent_hwnd(), GW_CHILD); w; w = ::GetWindow(w, GW_HWNDNEXT)) {
    if (w == hwnd()) continue;
    if (auto* o = dynamic_cast<OptionButton*>(Control::from_hwnd(w)))
      o->send(BM_SETCHECK, BST_UNCHECKED);
  }
}

void OptionButton::on_command(int code) {
  if (code == BN_CLICKED) Value(true);
}

}  // namespace wh
