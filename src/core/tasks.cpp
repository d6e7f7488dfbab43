#include "core/tasks.h"

#include <optional>

#include "platform/processes.h"
#include "platform/rt_error.h"
#include "ui/list_box.h"

namespace wh {

void clsApplicazioni::RefreshTaskList(HWND own, bool fill_list) {
  windows.clear();
  // The list is emptied and filled unseen, and drawn once.
  std::optional<ListBox::Batch> batch;
  if (fill_list && List3) {
    batch.emplace(*List3);
    List3->Clear();
  }
  // Visible and bordered (both bits of 0x10800000), titled, not our own.
  constexpr LONG_PTR shown = WS_VISIBLE | WS_BORDER;
  for (const WindowEntry& w : top_level_windows()) {
    if (w.hwnd == own || (w.style & shown) != shown || w.title.empty()) continue;
    if (fill_list && List3) List3->AddItem(w.title);
    windows.push_back({w.title, w.hwnd});
  }
}

int clsActiveProcess::GetActiveProcess() {
  entries_.clear();
  process_snapshot(entries_);
  return static_cast<int>(entries_.size());
}

const ProcessEntry& clsActiveProcess::at(int position) const {
  if (position < 0 || position >= static_cast<int>(entries_.size())) raise(rt_subscript);
  return entries_[static_cast<size_t>(position)];
}

std::string clsActiveProcess::szexeFile(int position) const { return at(position).exe; }
uint32_t clsActiveProcess::th32ProcessID(int position) const { return at(position).pid; }

std::unique_ptr<clsApplicazioni> task_list;
std::unique_ptr<clsActiveProcess> active_process;

}  // namespace wh
