#pragma once
#include <string>

#include "ui/control.h"

namespace wh {

// Fires Tick every Interval ms while Enabled. Interval 0 stops the ticks
// while Enabled stays true; setting Interval restarts the count. The ticks
// come through one hidden message window of the thread, so they run before
// any form is shown, whenever the event loop turns. A tick that comes due
// while the same timer's handler is still running is dropped.
class Timer {
public:
  explicit Timer(std::string name = {}, unsigned interval = 0, bool enabled = true);
  ~Timer();
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const std::string& Name() const { return name_; }
  unsigned Interval() const { return interval_; }
  void Interval(unsigned ms);
  bool Enabled() const { return enabled_; }
  void Enabled(bool on);
  bool running() const { return id_ != 0; }  // a platform timer is set

  std::string Tag;
  Event Tick;

private:
  static LRESULT CALLBACK proc(HWND w, UINT msg, WPARAM wp, LPARAM lp);
  void restart();
  void stop();

  std::string name_;
  unsigned interval_;
  bool enabled_;
  UINT_PTR id_ = 0;
  bool in_tick_ = false;
};

}  // namespace wh
