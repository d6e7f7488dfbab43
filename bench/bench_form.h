#pragma once
// A main form for the benchmarks of one page: the shared controls, and the
// calls that go up to the form doing nothing.
#include "core/main_form.h"

namespace bench {

class BenchForm : public wh::MainForm {
public:
  BenchForm()
      : MainForm({.class_name = "WhBenchForm", .caption = "", .width = wh::skin::window_width,
                  .height = wh::skin::window_height, .popup = true}) {}
  void uninstall_Click() override {}
  void task_Click() override {}
  void splity_Click() override {}
  void dirinfo_Click() override {}
  void kila_Click() override {}
  void shred_Click() override {}
  void Image11_Click() override {}
  void junk_Click() override {}
  void RUN_Click() override {}
  void dupy_Click() override {}
  void del_Click() override {}
  void delall_Click() override {}
  void ref_Click() override {}
  void load_settings() override {}
  void changelanguage(int) override {}
  void hide_section_extras() override {}
};

}  // namespace bench
