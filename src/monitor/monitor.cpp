#include "monitor/monitor.h"

#include "core/globals.h"
#include "core/settings.h"
#include "core/text.h"
#include "monitor/monitor_text.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/memory.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
constexpr int panel_width = 18;  // the drive line's stretch
std::string pad_to(const std::string& s, size_t n) { return utf8::pad_right(s, n); }
}  // namespace

SystemMonitor::SystemMonitor(MainForm& form, DriveListBox& drive_list, RamRelease& ram,
                             TextBox& text3, TextBox& text4, ImageButton& frog)
    : form_(form), Drive1(drive_list), ram_(ram), Text3(text3), Text4(text4), frogsus(frog) {}

void SystemMonitor::make_meter() {
  cpu_meter = make_cpu_meter();
  cpu_meter->Initialize();
}

void SystemMonitor::start() {
  started_ = true;
  run();
}

bool SystemMonitor::panel_idle() const {
  return form_.lighton == "MAINU" && !form_.lcd.WriteTimerOn();
}

void SystemMonitor::run() {
  if (!started_) return;
  std::string drives;
  for (int row = 0; row < Drive1.ListCount(); ++row) {
    ignore_errors([&] {
      const std::string entry = Drive1.List(row);
      if (entry.empty()) return;
      if (get_drive_type(std::string(1, entry[0]) + ":\\") != 3) return;
      double free = 0;
      check(Drive(entry[0]).FreeSpace(free));
      drives += ucase(entry.substr(0, 2)) + drive_size_text(free) + " ";
    });
  }
  drive_text = drives;
  drive_length = static_cast<uint8_t>(utf8::length(drive_text));
  if (drive_length >= 20) {
    if (!form_.Timer2.Enabled()) {
      scroll_forward = !scroll_forward;
      scroll_back = !scroll_back;
      form_.Timer2.Enabled(true);
    }
  } else if (panel_idle()) {
    form_.lcd.WriteText(pad_to(drive_text, panel_width), 0, 1);
  }

  const MemoryStatus memory = memory_status();
  automatic_release(memory.avail_phys);

  std::string cpu;
  if (cpu_meter) cpu = cpu_text(cpu_meter->Query());
  tray_tip = tray_tip_text(drive_text, memory.avail_phys, cpu);

  if (!panel_idle()) return;
  const PanelLines lines =
      panel_lines(language_flag, cpu, memory.avail_phys, memory.total_phys, memory.load);
  form_.lcd.WriteText(lines.cpu, 0, 2);
  form_.lcd.WriteText(lines.ram, 0, 3);
  form_.lcd.WriteText(lines.total, 0, 4);
  form_.lcd.WriteText(lines.load, 0, 5);
}

void SystemMonitor::automatic_release(double avail_phys) {
  if (setting("autofree") != "true") return;
  if (setting("autofreetype") == "timp") {
    const uint32_t now = tick_count();
    if (form_.next_free_tick != 0 && now >= form_.next_free_tick && !form_.freeing) {
      ram_.frogsus_Click();
      frogsus.Visible(false);
      form_.next_free_tick =
          static_cast<uint32_t>(val(Text4.Text()) * 60000) + tick_count();
    }
  } else {
    const double limit = val(Text3.Text()) * 1024 * 1024;
    if (avail_phys < limit && !form_.freeing) {
      do_events();
      do_events();
      ram_.frogsus_Click();
      frogsus.Visible(false);
    }
  }
}

void SystemMonitor::Timer2_Timer() {
  if (!panel_idle()) return;
  // Positions and widths count characters.
  const std::string line = drive_text + std::string(19, ' ');
  const int last = static_cast<int>(utf8::length(line)) - panel_width + 1;  // last window start
  if (scroll_pos_ < 1) scroll_pos_ = 1;
  if (scroll_pos_ > last) scroll_pos_ = last;
  form_.lcd.WriteText(std::string(utf8::mid(line, static_cast<size_t>(scroll_pos_), panel_width)),
                      0, 1);
  // One way per run: the monitor routine flips the flags and starts again.
  if (scroll_forward) {
    if (scroll_pos_ >= last) form_.Timer2.Enabled(false);
    else ++scroll_pos_;
  } else {
    if (scroll_pos_ <= 1) form_.Timer2.Enabled(false);
    else --scroll_pos_;
  }
}

}  // namespace wh
