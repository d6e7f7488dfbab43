// The empty routines that later work fills; see docs/ARCHITECTURE.md for who
// fills which.
#include "core/later.h"
#include "core/tasks.h"
#include "platform/processes.h"

namespace wh {

void tray_add() {}
void tray_remove() {}

bool register_context_menu() { return false; }
bool unregister_context_menu() { return false; }

// The window table only; List3 comes with the task manager.
void clsApplicazioni::RefreshTaskList(HWND own, bool) {
  windows.clear();
  for (const WindowEntry& w : top_level_windows())
    if (w.visible && w.hwnd != own && !w.title.empty()) windows.push_back({w.title, w.hwnd});
}
uint32_t clsActiveProcess::th32ProcessID(int) const { return 0; }
void killem(uint32_t, const std::string&) {}

std::unique_ptr<clsApplicazioni> task_list;
std::unique_ptr<clsActiveProcess> active_process;

}  // namespace wh
