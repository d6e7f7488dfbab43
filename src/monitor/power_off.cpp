#include "monitor/power_off.h"

#include "core/globals.h"
#include "core/poweroff.h"
#include "core/routines.h"
#include "core/text.h"
#include "platform/fso.h"
#include "platform/power.h"
#include "platform/rt_error.h"
#include "ui/events.h"

namespace wh {

namespace {
Clock clock_seam;
}  // namespace

Clock set_clock(Clock clock) {
  Clock previous = std::move(clock_seam);
  clock_seam = std::move(clock);
  return previous;
}

ClockTime clock_now() {
  if (clock_seam) return clock_seam();
  SYSTEMTIME t;
  ::GetLocalTime(&t);
  return {t.wHour, t.wMinute};
}

void power_off() {
  Poweroff& window = poweroff();
  window.picture(LoadPicture(language_flag == 1 ? "POWEROFF_EN" : "POWEROFF_RO"));
  window.Show();
  ::SetWindowPos(window.hwnd(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_SHOWWINDOW);
  do_events();
  enable_shutdown_privilege();  // not checked
  if (is_nt()) {
    ignore_errors([] {
      bool was = false;
      rtl_adjust_privilege(19, true, false, was);
      nt_shutdown_system(2);
    });
  } else {
    exit_windows(5, 0);
  }
}

std::vector<std::string> folder_list(const std::string& joined) {
  std::vector<std::string> parts;
  size_t start = 0;
  while (start < joined.size()) {
    size_t bar = joined.find('|', start);
    if (bar == std::string::npos) bar = joined.size();
    if (bar > start) parts.push_back(joined.substr(start, bar - start));
    start = bar + 1;
  }
  return parts;
}

void PowerSchedule::set_folders(const std::string& joined) {
  watched_folders.assign(1, {});
  for (const std::string& path : folder_list(joined)) watched_folders.push_back({path, 0});
}

void PowerSchedule::time_check(const std::string& hh, const std::string& mm) {
  if (!shutdown_armed) return;
  const ClockTime now = clock_now();
  if (now.hour == val(hh) && now.minute == val(mm)) {
    shutdown_armed = 0;
    power_off();
  }
}

void PowerSchedule::Autoshutdown_Timer() {
  int same = 0;
  for (int i = 1; i <= upper_bound(); ++i) {
    WatchedFolder& f = watched_folders[static_cast<size_t>(i)];
    double size = 0;
    // A folder that cannot be read leaves the size 0 for the comparison.
    ignore_errors([&] {
      Folder folder;
      check(file_system().GetFolder(f.path, folder));
      folder.Size(size);
    });
    if (size != f.last_size) f.last_size = size;
    else ++same;
  }
  if (same == upper_bound()) ++quiet_ticks;
  else quiet_ticks = 0;
  if (quiet_ticks == 3) power_off();
}

}  // namespace wh
