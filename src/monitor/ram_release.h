#pragma once
// "Free up RAM" by pressure: claim 90% of physical memory in blocks of
// 1,000,000 bytes, every page written, then let go of all of it at once.
#include <cstdint>

#include "core/main_form.h"

namespace wh {

// The physical memory size the release measures itself by. Wine reports
// the host's memory, so tests set a size here; 0 (the default) reads
// GlobalMemoryStatus.
void set_physical_memory_seam(double bytes);
double physical_memory();

class RamRelease {
public:
  explicit RamRelease(MainForm& form);

  void frogsus_Click();
  void meniu_freeram_Click();  // from the tray menu

  PictureBox& frogup;    // the lit frog while a release runs
  PictureBox& Picture6;  // owns the busy tray icon, hidden

  // What the last release did, for those who look.
  int32_t blocks() const { return blocks_; }
  int32_t blocks_written() const { return written_; }
  int16_t last_progress() const { return progress_; }
  int runs() const { return runs_; }

private:
  MainForm& form_;
  int32_t blocks_ = 0;
  int32_t written_ = 0;
  int16_t progress_ = 0;
  int runs_ = 0;
};

}  // namespace wh
