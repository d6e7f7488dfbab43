#pragma once
// Section 2: the task manager's processes and windows.
#include <cstdint>
#include <string>

#include "core/main_form.h"

namespace wh {

// Harrow All leaves a process row alone when, in upper case, it holds
// "KERNEL", "MPREXE", "EXPLORER.EXE" or the program's own exe name.
bool spared_by_harrow_all(const std::string& row, const std::string& own_exe);

class TaskPage {
public:
  // `frame1` is the strip panel that the junk section shows too.
  TaskPage(MainForm& form, Frame& frame1);
  virtual ~TaskPage() = default;

  Label& Label_processes;  // "Running Processes"
  Label& Label_windows;    // "Visible Windows"
  ListBox& List2;  // the processes; ItemData the process number
  ListBox& List3;  // the windows; row i is task_list->windows[i]
  ImageButton& frogsus;
  Frame& frame1;

  void enter();  // task_Click
  void del_block();
  // Every process but the spared ones, with errors ignored.
  void delall_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);
  // Reads both lists again, keeping the selected positions. Section 2 only.
  void Timer1_Timer();

  // Rebuilds List2. Virtual, with killem, so that a test can hand Harrow
  // All a list of its own instead of the machine's processes.
  virtual void afis_tasks();
  virtual void killem(uint32_t pid, const std::string& row);

  // The single delete's protection: the row's upper-case name contained in
  // "KERNEL32.DLL MPREXE.EXE" (so "32.DLL" is protected too).
  static bool protected_from_delete(const std::string& row);
  // A shell folder window: a path, or one of the four shell names in any
  // case. It gets ALT+F4 instead of losing its process.
  static bool shell_window_title(const std::string& title);

private:
  MainForm& form_;
};

}  // namespace wh
