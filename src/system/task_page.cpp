#include "system/task_page.h"

#include "core/globals.h"
#include "core/tasks.h"
#include "core/text.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "ui/events.h"

#include <initializer_list>
#include <vector>
#include "platform/rt_error.h"

namespace wh {

namespace {
clsApplicazioni& tasks() {
  if (!task_list) raise(rt_object_not_set);  // a start with paths makes none
  return *task_list;
}
// The table fills this page's window list.
clsApplicazioni& tasks(ListBox& List3) {
  clsApplicazioni& table = tasks();
  table.List3 = &List3;
  return table;
}
}  // namespace

bool spared_by_harrow_all(const std::string& row, const std::string& own_exe) {
  const std::string name = ucase(row);
  for (const std::string& kept : {std::string("KERNEL"), std::string("MPREXE"),
                                  std::string("EXPLORER.EXE"), ucase(own_exe) + ".EXE"})
    if (name.find(kept) != std::string::npos) return true;
  return false;
}

namespace {
// Two lists side by side under their captions. A caption reaches down to
// its list: a gap would show the lists of other sections underneath.
Place half(int which, bool caption) {
  const Place p = page_place();
  const int w = (p.width - 10) / 2;
  const int x = p.left + which * (w + 10);
  if (caption) return Place{x, p.top, w, 20};
  return Place{x, p.top + 20, w, p.height - 20};
}
}  // namespace

TaskPage::TaskPage(MainForm& form, Frame& frame1_panel)
    : Label_processes(form.add<Label>("Label_processes", half(0, true), "Running Processes")),
      Label_windows(form.add<Label>("Label_windows", half(1, true), "Visible Windows")),
      List2(form.add<ListBox>("List2", half(0, false),
                              ListBox::Options{.multi_select = multi_extended})),
      List3(form.add<ListBox>("List3", half(1, false),
                              ListBox::Options{.multi_select = multi_extended})),
      frogsus(form.add<ImageButton>("frogsus", extra_place(0))),
      frame1(frame1_panel),
      form_(form) {
  frogsus.LoadPicture("FROG_JOS");
  frogsus.Visible(false);
  for (Control* c : std::initializer_list<Control*>{&Label_processes, &Label_windows, &List2, &List3})
    c->Visible(false);
  form.Timer1.Tick = [this] { Timer1_Timer(); };
}

void TaskPage::enter() {
  if (ActiveSection == 2) return;
  form_.hide_section_extras();
  frame1.Visible(true);
  frogsus.Visible(true);
  // Over the lists of other sections that sit on the form itself.
  for (Control* c : std::initializer_list<Control*>{&Label_processes, &Label_windows, &List2, &List3}) {
    c->Visible(true);
    c->ZOrder(0);
  }
  form_.light_section_button(form_.task);
  ActiveSection = 2;
  form_.action_buttons(true, true, true);
  afis_tasks();
  tasks(List3).RefreshTaskList(form_.hwnd(), true);
}

bool TaskPage::protected_from_delete(const std::string& row) {
  return std::string("KERNEL32.DLL MPREXE.EXE").find(ucase(file_system().GetFileName(row))) !=
         std::string::npos;
}

bool TaskPage::shell_window_title(const std::string& title) {
  if (title.find('\\') != std::string::npos) return true;
  const std::string t = ucase(title);
  for (const char* name : {"NETWORK NEI", "MY COMP", "MY DOCUMENTS", "MY PICTURES"})
    if (t.find(name) != std::string::npos) return true;
  return false;
}

void TaskPage::del_block() {
  for (int row = 0; row < List2.ListCount(); ++row) {
    if (!List2.Selected(row)) continue;
    const std::string text = List2.List(row);
    if (protected_from_delete(text)) continue;
    if (!active_process) raise(rt_object_not_set);
    killem(active_process->th32ProcessID(row + 1), text);
  }
  afis_tasks();
  clsApplicazioni& table = tasks(List3);
  for (int row = 0; row < List3.ListCount(); ++row) {
    if (!List3.Selected(row)) continue;
    const std::string title = List3.List(row);
    if (!shell_window_title(title)) {
      if (row >= table.NumTasks()) raise(rt_subscript);
      terminate_process(window_process_id(table.windows[static_cast<size_t>(row)].hwnd), 0);
      do_events();
    } else {
      // The shell owns such windows: close the window, keep the process.
      ignore_errors([&] {
        HWND window = nullptr;
        check(activate_window(title, window));
        send_alt_f4(window);
      });
    }
  }
  table.RefreshTaskList(form_.hwnd(), true);
  form_.ref_Click();
}

void TaskPage::Timer1_Timer() {
  if (ActiveSection != 2) return;
  std::vector<bool> kept2, kept3;
  for (int row = 0; row < List2.ListCount(); ++row) kept2.push_back(List2.Selected(row));
  for (int row = 0; row < List3.ListCount(); ++row) kept3.push_back(List3.Selected(row));
  afis_tasks();
  tasks(List3).RefreshTaskList(form_.hwnd(), true);
  for (size_t row = 0; row < kept2.size() && static_cast<int>(row) < List2.ListCount(); ++row)
    if (kept2[row]) List2.Selected(static_cast<int>(row), true);
  for (size_t row = 0; row < kept3.size() && static_cast<int>(row) < List3.ListCount(); ++row)
    if (kept3[row]) List3.Selected(static_cast<int>(row), true);
}

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
  tasks(List3).RefreshTaskList(form_.hwnd(), true);
}

void TaskPage::hide_extras() {
  frogsus.Visible(false);
  for (Control* c : std::initializer_list<Control*>{&Label_processes, &Label_windows, &List2, &List3})
    c->Visible(false);
}

void TaskPage::leave_for_options() {
  frogsus.Visible(false);
  form_.plain_section_button(form_.task);
}

void TaskPage::captions(int language) {
  Label_processes.Caption(language == 1 ? "Running Processes" : "Procese active");
  Label_windows.Caption(language == 1 ? "Visible Windows" : "Ferestre vizibile");
}

void TaskPage::afis_tasks() {
  const int kept = List2.ListIndex();
  {
    // Emptied and filled unseen, drawn once: Timer1 refills it while shown.
    ListBox::Batch batch(List2);
    List2.Clear();
    if (!active_process) raise(rt_object_not_set);
    const int count = active_process->GetActiveProcess();
    for (int i = 0; i < count; ++i) {
      List2.AddItem(file_system().GetFileName(active_process->szexeFile(i)));
      List2.ItemData(List2.ListCount() - 1, static_cast<long>(active_process->th32ProcessID(i)));
    }
    // Row 0 is the idle pseudo-process: row i is now snapshot position i + 1.
    if (List2.ListCount() > 0) List2.RemoveItem(0);
  }
  // Back to where the list was, in view, without a selection.
  if (kept >= 0 && kept < List2.ListCount()) {
    List2.Selected(kept, true);
    List2.Selected(kept, false);
  }
}
void TaskPage::killem(uint32_t pid, const std::string& row) { wh::killem(pid, row); }

}  // namespace wh
