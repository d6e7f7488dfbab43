// The empty blocks that later parts fill; see docs/ARCHITECTURE.md for who
// fills which.
#include "core/later.h"

#include "core/mainu.h"

namespace wh {

void tray_add() {}
void tray_remove() {}
void changelanguage(int) {}
void uninstall_dropped(const std::string&) {}

bool register_context_menu() { return false; }
bool unregister_context_menu() { return false; }

void clsApplicazioni::RefreshTaskList(HWND, bool) {}
uint32_t clsActiveProcess::th32ProcessID(int) const { return 0; }

std::unique_ptr<clsApplicazioni> task_list;
std::unique_ptr<clsActiveProcess> active_process;

// --- blocks of the main form
void Mainu::scan_installed_programs() {}
void Mainu::afis_tasks() {}
void Mainu::Label1_Click() {}
void Mainu::Drive3_Change() {}
void Mainu::collect_trace_paths() {}
void Mainu::junk_scan() {}
void Mainu::scan_startup() {}
void Mainu::load_search_paths() {}

void Mainu::del_duplicates() {}
void Mainu::del_startup_items() {}
void Mainu::del_junk() {}
void Mainu::del_uninstall() {}
void Mainu::del_tasks() {}
void Mainu::del_split() {}
void Mainu::del_disk_explorer() {}
void Mainu::del_floppy() {}

void Mainu::killem(uint32_t, const std::string&) {}
void Mainu::lupa_Click() {}
void Mainu::afisdirs(const std::string&, bool) {}
void Mainu::Command1_Click() {}
bool Mainu::scan_plugins() { return false; }
void Mainu::monitor_start() {}

void OptionsPage::language_flags(int) {}

}  // namespace wh
