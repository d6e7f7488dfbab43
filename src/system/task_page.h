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

  ListBox& List2;  // the processes
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

  // Rebuilds List2. Virtual, with killem, so that a test can hand Harrow
  // All a list of its own instead of the machine's processes.
  virtual void afis_tasks();
  virtual void killem(uint32_t pid, const std::string& row);

private:
  MainForm& form_;
};

}  // namespace wh
