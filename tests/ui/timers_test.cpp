// Timers and the turns of the event loop. No time is measured: one timer's
// ticks are the clock for another.
#include <algorithm>

#include "ui_test.h"

namespace wh::test {
namespace {

TEST(Timers, IntervalZeroOrDisabledMeansNoTicksUntilChanged) {
  Timer idle("Timer1", 0, true);
  Timer off("closing", 10, false);
  Timer clock("clock", 15, true);
  int idle_ticks = 0, off_ticks = 0, clock_ticks = 0;
  idle.Tick = [&] { ++idle_ticks; };
  off.Tick = [&] { ++off_ticks; };
  clock.Tick = [&] { ++clock_ticks; };
  idle.Interval(10);
  idle.Interval(0);
  EXPECT_TRUE(idle.Enabled());
  EXPECT_FALSE(idle.running());
  wait_until([&] { return clock_ticks >= 5; });
  EXPECT_EQ(0, idle_ticks);
  EXPECT_EQ(0, off_ticks);
  idle.Interval(10);
  off.Enabled(true);
  wait_until([&] { return idle_ticks >= 1 && off_ticks >= 1; });
}

TEST(Timers, HandlerIsNotReenteredByItsOwnTicks) {
  Timer t("Timer1", 10, true);
  int depth = 0, deepest = 0, ticks = 0;
  t.Tick = [&] {
    ++depth;
    deepest = std::max(deepest, depth);
    ++ticks;
    if (ticks == 1) {
      // A long handler that gives the loop turns, as the program's do.
      Timer clock("clock", 10, true);
      int n = 0;
      clock.Tick = [&] { ++n; };
      wait_until([&] { return n >= 4; });
    }
    --depth;
  };
  wait_until([&] { return ticks >= 2; });
  EXPECT_EQ(1, deepest);
}

TEST(Timers, HandlerMayStopOrRestartItsOwnTimer) {
  Timer stops("Timer5", 10, true);
  Timer restarts("timerul", 10, true);
  int stopped = 0, restarted = 0;
  stops.Tick = [&] {
    ++stopped;
    stops.Enabled(false);
  };
  restarts.Tick = [&] {
    ++restarted;
    restarts.Interval(12);  // a new platform timer each time
  };
  wait_until([&] { return restarted >= 4; });
  EXPECT_EQ(1, stopped);
}

TEST(Loop, WaitUntilReturnsWhenAClickSetsTheFlag) {
  Form form;
  auto& button = form.add<ImageButton>("Image4", Place{0, 0, 20, 20});
  int answer = -1;
  button.Click = [&] { answer = 2; };
  ::PostMessageA(button.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1));
  ::PostMessageA(button.hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(1, 1));
  wait_until([&] { return answer != -1; });
  EXPECT_EQ(2, answer);
}

TEST(Loop, MessageLoopEndsWhenTheLastFormGoes) {
  int before = detail::live_forms();
  {
    Form form;
    EXPECT_EQ(before + 1, detail::live_forms());
    ::PostMessageA(form.hwnd(), WM_CLOSE, 0, 0);
    if (before == 0) EXPECT_EQ(0, message_loop());
    else do_events();
    EXPECT_FALSE(form.loaded());
  }
  EXPECT_EQ(before, detail::live_forms());
}

}  // namespace
}  // namespace wh::test
