#pragma once
// The process and window tables of the task manager. In the core because
// the floppy tool's watch and the index-file cleaner use them too.
#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace wh {

class clsApplicazioni {
public:
  // One visible top-level window of the last refresh.
  struct Window {
    std::string title;
    HWND hwnd = nullptr;
  };
  std::vector<Window> windows;

  // Rebuilds the table of visible windows other than `own`, and List3 when
  // `fill_list` is true.
  void RefreshTaskList(HWND own, bool fill_list);
};

class clsActiveProcess {
public:
  // Process number at a position of the last snapshot (from 1).
  uint32_t th32ProcessID(int position) const;
};

// Made by the ordinary start; a start with paths has none.
extern std::unique_ptr<clsApplicazioni> task_list;
extern std::unique_ptr<clsActiveProcess> active_process;

// Ends a process by number; `name` is its row in the process list.
void killem(uint32_t pid, const std::string& name);

}  // namespace wh
