#pragma once
// A small main form for the tests of one page: the shared controls, and the
// calls that go up to the form recorded by name. A test hands a call on to
// its page by putting a handler under that name.
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/main_form.h"

namespace wh::test {

// The rows of a list, from row `from` on.
template <class List>
std::vector<std::string> rows(const List& list, int from = 0) {
  std::vector<std::string> out;
  for (int i = from; i < list.ListCount(); ++i) out.push_back(list.List(i));
  return out;
}

// The first row showing exactly `text`; -1 when none does.
template <class List>
int row_of(const List& list, const std::string& text) {
  for (int i = 0; i < list.ListCount(); ++i)
    if (list.List(i) == text) return i;
  return -1;
}

class TestForm : public MainForm {
public:
  TestForm()
      : MainForm({.class_name = "WhTestForm", .caption = "", .width = skin::window_width,
                  .height = skin::window_height, .popup = true}) {}

  std::vector<std::string> calls;
  std::map<std::string, std::function<void()>> handlers;
  std::function<void(int)> on_changelanguage;

  void uninstall_Click() override { up("uninstall_Click"); }
  void task_Click() override { up("task_Click"); }
  void splity_Click() override { up("splity_Click"); }
  void dirinfo_Click() override { up("dirinfo_Click"); }
  void kila_Click() override { up("kila_Click"); }
  void shred_Click() override { up("shred_Click"); }
  void Image11_Click() override { up("Image11_Click"); }
  void junk_Click() override { up("junk_Click"); }
  void RUN_Click() override { up("RUN_Click"); }
  void dupy_Click() override { up("dupy_Click"); }
  void del_Click() override { up("del_Click"); }
  void delall_Click() override { up("delall_Click"); }
  void ref_Click() override { up("ref_Click"); }
  void load_settings() override { up("load_settings"); }
  void hide_section_extras() override { up("hide_section_extras"); }
  void changelanguage(int language) override {
    calls.push_back("changelanguage:" + std::to_string(language));
    if (on_changelanguage) on_changelanguage(language);
  }

private:
  void up(const std::string& name) {
    calls.push_back(name);
    auto h = handlers.find(name);
    if (h != handlers.end() && h->second) h->second();
  }
};

}  // namespace wh::test
