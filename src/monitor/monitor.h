#pragma once
// The system monitor routine: on each Timer3 tick it writes the free space
// of the fixed drives, the CPU load and the memory figures on the LCD panel,
// fires the automatic RAM release and builds the tray tip. Timer2 scrolls a
// drive line too long for the panel.
#include <cstdint>
#include <memory>
#include <string>

#include "core/main_form.h"
#include "monitor/cpu_usage.h"
#include "monitor/ram_release.h"

namespace wh {

class SystemMonitor {
public:
  // Drive1: the shared hidden drive list; Text3 and Text4: the Options
  // page's megabytes and minutes of the automatic release; frogsus: the
  // frog button, hidden after an automatic release.
  SystemMonitor(MainForm& form, DriveListBox& Drive1, RamRelease& ram, TextBox& Text3,
                TextBox& Text4, ImageButton& frogsus);

  // The start sequence's meter (a clsCPUUsageNT on NT), Initialize called.
  void make_meter();
  // The first run at the end of the start; the routine stays quiet before.
  void start();
  bool started() const { return started_; }
  void run();  // the monitor routine
  void Timer2_Timer();

  std::unique_ptr<CpuMeter> cpu_meter;

  // The routine's state, kept on the form in the original.
  std::string drive_text;
  uint8_t drive_length = 0;
  bool scroll_forward = false;
  bool scroll_back = true;
  std::string tray_tip;

private:
  void automatic_release(double avail_phys);
  bool panel_idle() const;

  MainForm& form_;
  DriveListBox& Drive1;
  RamRelease& ram_;
  TextBox& Text3;
  TextBox& Text4;
  ImageButton& frogsus;
  bool started_ = false;
  int scroll_pos_ = 1;  // 1-based start of the 18-character window
};

}  // namespace wh
