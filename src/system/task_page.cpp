#include "system/task_page.h"

#include "core/globals.h"
#include "core/tasks.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/rt_error.h"

namespace wh {

namespace {
clsApplicazioni& tasks() {
  if (!task_list) raise(rt_object_not_set);  // a start with paths makes none
  return *task_list;
}
}  // namespace

bool spared_by_harrow_all(const std::string& row, const std::string& own_exe) {
  const std::string name = ucase(row);
  for (const std::string& kept : {std::string("KERNEL"), std::string("MPREXE"),
                                  std::string("EXPLORER.EXE"), ucase(own_exe) + ".EXE"})
    if (name.find(kept) != std::string::npos) return true;
  return false;
}

TaskPage::TaskPage(MainForm& form, Frame& frame1_panel)
    : List2(form.add<ListBox>("List2", page_place(),
                              ListBox::Options{.multi_select = multi_extended})),
      frogsus(form.add<ImageButton>("frogsus", extra_place(0))),
      frame1(frame1_panel),
      form_(form) {
  frogsus.Visible(false);
}

void TaskPage::enter() {
  if (ActiveSection == 2) return;
  form_.hide_section_extras();
  frame1.Visible(true);
  frogsus.Visible(true);
  form_.light_section_button(form_.task);
  ActiveSection = 2;
  form_.action_buttons(true, true, true);
  afis_tasks();
  tasks().RefreshTaskList(form_.hwnd(), true);
}

void TaskPage::del_block() {}

void TaskPage::delall_block() {
  ignore_errors([&] { afis_tasks(); });
  // The first row is never touched; a row's process sits one further on
  // in the snapshot.
  for (int row = 1; row < List2.ListCount(); ++row) {
    ignore_errors([&] {
      const std::string text = List2.List(row);
      if (spared_by_harrow_all(text, app_exe_name())) return;
      if (!active_process) raise(rt_object_not_set);
      killem(active_process->th32ProcessID(row + 1), text);
    });
  }
}

void TaskPage::ref_block() {
  afis_tasks();
  tasks().RefreshTaskList(form_.hwnd(), true);
}

void TaskPage::hide_extras() { frogsus.Visible(false); }

void TaskPage::leave_for_options() {
  frogsus.Visible(false);
  form_.plain_section_button(form_.task);
}

void TaskPage::captions(int) {}

void TaskPage::afis_tasks() {}
void TaskPage::killem(uint32_t pid, const std::string& row) { wh::killem(pid, row); }

}  // namespace wh
