#pragma once
// The process and window tables of the task manager. In the core because
// the floppy tool's watch and the index-file cleaner use them too.
#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/processes.h"

namespace wh {

class ListBox;

class clsApplicazioni {
public:
  // One visible top-level window of the last refresh.
  struct Window {
    std::string title;
    HWND hwnd = nullptr;
  };
  std::vector<Window> windows;
  // The task manager's window list, when it exists; row i is windows[i].
  ListBox* List3 = nullptr;
  int NumTasks() const { return static_cast<int>(windows.size()); }

  // Rebuilds the table of visible windows other than `own`, and List3 when
  // `fill_list` is true.
  void RefreshTaskList(HWND own, bool fill_list);
};

class clsActiveProcess {
public:
  // A new snapshot; the number of processes in it.
  int GetActiveProcess();
  // Name and number at a position of the last snapshot, from 0 (the idle
  // pseudo-process); 9 outside it.
  std::string szexeFile(int position) const;
  uint32_t th32ProcessID(int position) const;
  // A snapshot handed in instead of the machine's (tests of Harrow All).
  void assign(std::vector<ProcessEntry> entries) { entries_ = std::move(entries); }

private:
  const ProcessEntry& at(int position) const;
  std::vector<ProcessEntry> entries_;
};

// Made by the ordinary start; a start with paths has none.
extern std::unique_ptr<clsApplicazioni> task_list;
extern std::unique_ptr<clsActiveProcess> active_process;

// Ends a process by number; `name` is its row in the process list. A
// refused end on NT looks for a non-Microsoft service with that file name
// and stops it by its display name.
void killem(uint32_t pid, const std::string& name);
// "net stop" with the name quoted, hidden, not waited for.
void stop_service(const std::string& display_name);

}  // namespace wh
