#pragma once
// The menus of a form's menu bar. A form that is never shown can carry
// menus only to pop them up.
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "ui/control.h"

namespace wh {

class Form;

struct MenuItem {
  std::string name;
  UINT id = 0;
  Event Click;
};

class Menu {
public:
  // A new menu at the end of the form's bar.
  Menu(Form& form, std::string name, const std::string& caption);
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;

  MenuItem& add(const std::string& name, const std::string& caption);
  void separator(const std::string& name);

  const std::string& Name() const { return name_; }
  HMENU handle() const { return menu_; }
  // Items and separators in their order.
  const std::vector<std::unique_ptr<MenuItem>>& items() const { return items_; }
  MenuItem* find(const std::string& name) const;

  // At the pointer, through the dialog service; the chosen item's Click
  // runs before this returns.
  void PopupMenu();

private:
  Form& form_;
  std::string name_;
  HMENU menu_;
  std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace wh
