// Power-off through the power hook (never the real calls): the privilege
// steps and the NT call, the set time firing once in its minute, and the
// download watch's quiet ticks on real scratch folders.
#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "core/poweroff.h"
#include "monitor/power_off.h"
#include "platform/power.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::ScratchDir;

namespace {

class PowerOffTest : public ::testing::Test {
protected:
  std::vector<PowerCall> calls;
  ClockTime now{23, 59};
  PowerHook previous_hook;
  Clock previous_clock;
  PowerSchedule schedule;
  int offs = 0;

  void SetUp() override {
    previous_hook = set_power_hook([this](const PowerCall& c) {
      calls.push_back(c);
      return 0L;
    });
    previous_clock = set_clock([this] { return now; });
    schedule.power_off = [this] { ++offs; };
  }
  void TearDown() override {
    set_power_hook(previous_hook);
    set_clock(previous_clock);
    if (poweroff_loaded()) poweroff_unload();
  }
};

TEST_F(PowerOffTest, PowerOffShowsItsWindowAndAsksNtToPowerOff) {
  power_off();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].kind, PowerCall::nt_shutdown_system);
  EXPECT_EQ(calls[0].flags, 2u);
  ASSERT_TRUE(poweroff_loaded());
  EXPECT_TRUE(IsWindowVisible(poweroff().hwnd()));
}

TEST_F(PowerOffTest, TheSetTimeFiresOnceInItsMinute) {
  schedule.time_check("23", "59");
  EXPECT_EQ(offs, 0) << "not armed";
  schedule.shutdown_armed = -1;
  now = {23, 58};
  schedule.time_check("23", "59");
  EXPECT_EQ(offs, 0);
  now = {23, 59};
  schedule.time_check("23", "59");
  schedule.time_check("23", "59");
  EXPECT_EQ(offs, 1);
  EXPECT_EQ(schedule.shutdown_armed, 0);
  // An empty hour or one that is no number counts as 0.
  schedule.shutdown_armed = -1;
  now = {0, 5};
  schedule.time_check("", "05");
  EXPECT_EQ(offs, 2);
}

TEST_F(PowerOffTest, ThreeQuietTicksOfEveryWatchedFolderOrOfNonePowerOff) {
  ScratchDir dir("power");
  const std::string a = dir.folder("a"), b = dir.folder("b");
  dir.file("a\\part1.bin", std::string(100, 'x'));
  schedule.set_folders(a + "|" + b + "||");
  ASSERT_EQ(schedule.upper_bound(), 2);
  EXPECT_EQ(schedule.watched_folders[2].path, b);
  auto ticks = [&](int n) {
    for (int i = 0; i < n; ++i) schedule.Autoshutdown_Timer();
    return schedule.quiet_ticks;
  };
  EXPECT_EQ(ticks(1), 0);  // a's size is news: no quiet tick
  EXPECT_EQ(ticks(2), 2);
  // A change in one of the two starts the count again.
  dir.file("b\\part2.bin", std::string(50, 'y'));
  EXPECT_EQ(ticks(1), 0);
  EXPECT_EQ(ticks(2), 2);
  EXPECT_EQ(offs, 0);
  EXPECT_EQ(ticks(1), 3);
  EXPECT_EQ(offs, 1);
  EXPECT_TRUE(calls.empty()) << "the schedule's own seam was called, not the machine's";

  schedule.set_folders("");
  schedule.quiet_ticks = 0;  // as arming the watch does
  EXPECT_EQ(schedule.upper_bound(), 0);
  // No folder: every tick is quiet (0 of 0), and the third powers off.
  ticks(3);
  EXPECT_EQ(offs, 2);
}

}  // namespace
