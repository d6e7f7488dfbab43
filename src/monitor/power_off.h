#pragma once
// Powering the machine off: at once, at a set hour and minute, or when the
// watched download folders have kept their size for three ticks of
// Autoshutdown (90 seconds). The final calls go through the power hook of
// platform/power.h, so tests never end the session.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace wh {

// The poweroff window in front, the shutdown privilege, then
// NtShutdownSystem(2) on NT (after RtlAdjustPrivilege) or ExitWindowsEx(5, 0).
void power_off();

// The present hour and minute; tests set a clock of their own.
struct ClockTime {
  int hour = 0;
  int minute = 0;
};
using Clock = std::function<ClockTime()>;
// Installs a clock and returns the previous one; an empty one is the real.
Clock set_clock(Clock clock);
ClockTime clock_now();

// The folders of "Paths2"-style text: the parts between "|" that are not empty.
std::vector<std::string> folder_list(const std::string& joined);

class PowerSchedule {
public:
  struct WatchedFolder {
    std::string path;
    double last_size = 0;
  };

  int16_t shutdown_armed = 0;  // 0, or -1 (all bits) while a time is set
  uint8_t shutdown_mode = 0;   // 0 unchosen, 1 at a time, 2 downloads
  uint8_t quiet_ticks = 0;
  // From 1; place 0 is unused, as the upper bound counts the folders.
  std::vector<WatchedFolder> watched_folders{1};
  std::function<void()> power_off = [] { wh::power_off(); };

  int upper_bound() const { return static_cast<int>(watched_folders.size()) - 1; }
  // Rebuilds the folders from "Paths2"-style text: parts after "|" splits.
  void set_folders(const std::string& joined);

  // Timer3's first step, with the texts of hh and mm (no number counts 0).
  // Cleared before the call: the minute fires once.
  void time_check(const std::string& hh, const std::string& mm);
  // Every 30 s while watching.
  void Autoshutdown_Timer();
};

}  // namespace wh
