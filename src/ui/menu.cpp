#include "ui/menu.h"

#include "ui/dialogs.h"
#include "ui/events.h"
#include "ui/form.h"

namespace wh {

Menu::Menu(Form& form, std::string name, const std::string& caption)
    : form_(form), name_(std::move(name)), menu_(::CreatePopupMenu()) {
  HMENU bar = ::GetMenu(form.hwnd());
  if (!bar) {
    bar = ::CreateMenu();
    ::SetMenu(form.hwnd(), bar);
  }
  ::AppendMenuA(bar, MF_POPUP | MF_STRING, reinterpret_cast<UINT_PTR>(menu_), caption.c_str());
}

MenuItem& Menu::add(const std::string& name, const std::string& caption) {
  auto item = std::make_unique<MenuItem>();
  item->name = name;
  item->id = static_cast<UINT>(form_.next_id());
  ::AppendMenuA(menu_, MF_STRING, item->id, caption.c_str());
  items_.push_back(std::move(item));
  return *items_.back();
}

void Menu::separator(const std::string& name) {
  auto item = std::make_unique<MenuItem>();
  item->name = name;
  item->id = static_cast<UINT>(form_.next_id());
  ::AppendMenuA(menu_, MF_SEPARATOR, item->id, nullptr);
  items_.push_back(std::move(item));
}

MenuItem* Menu::find(const std::string& name) const {
  for (const auto& item : items_)
    if (item->name == name) return item.get();
  return nullptr;
}

void Menu::PopupMenu() {
  const int id = dialogs().popup_menu(menu_, form_.hwnd());
  if (id == 0) return;
  for (const auto& item : items_)
    if (static_cast<int>(item->id) == id) {
      fire(item->Click);
      return;
    }
}

}  // namespace wh
