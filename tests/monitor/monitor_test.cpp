// The system monitor: its texts, the CPU figure on real samples, the panel
// and tray tip of one tick, the drive line's scroll, and the RAM release
// through the physical-memory seam with its automatic triggers.
#include <windows.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "core/globals.h"
#include "core/settings.h"
#include "monitor/monitor.h"
#include "monitor/monitor_text.h"
#include "support/test_form.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::TestForm;

namespace {
constexpr double MB = 1048576;

TEST(MonitorText, SizeTextsCutTheirDecimalsAndKeepWholeMegabytesWhole) {
  // Cut, not rounded.
  for (auto [n, text] : {std::pair{1023.0, "1023 B"}, {1024.0, "1 KB"}, {MB - 1, "1023 KB"},
                         {5 * MB, "5M"}, {1.999 * MB, "1.99M"}, {2.567 * 1024 * MB, "2.56G"}})
    EXPECT_EQ(monitor_size_text(n), text) << n;
  EXPECT_EQ(drive_size_text(3.14159 * MB), "3.14M");
  EXPECT_EQ(tray_tip_text("C:2.5G ", 3 * MB, "12%"), "C:2.5G   RAM:3M  CPU : 12%");
}

TEST(MonitorText, PanelLinesInBothLanguages) {
  using Lines = std::vector<std::string>;
  auto lines = [](const PanelLines& p) { return Lines{p.cpu, p.ram, p.total, p.load}; };
  EXPECT_EQ(lines(panel_lines(1, "7%", 300 * MB, 2048 * MB, 42)),
            (Lines{"CPU       : 7%    ", "RAM free  :  300M", "    total :  2G",
                   "MEM load  : 42%    "}));
  EXPECT_EQ(lines(panel_lines(2, "100%", 1.25 * MB, 512 * MB, 9)),
            (Lines{"CPU        : 100%  ", "RAM liber  :1.25M", "    total  :512M",
                   "MEM incarct: 9%   "}));
  EXPECT_EQ(panel_lines(2, cpu_text(-1), 1, MB, 1).cpu, "CPU        :    ");
  // The number, not its "%", decides the padding: 100 takes one blank less,
  // so that every figure from 10 up makes a line of one length.
  for (int language : {1, 2}) {
    const auto line = [&](const char* cpu) { return panel_lines(language, cpu, MB, MB, 1).cpu; };
    EXPECT_EQ(line("5%").size() + 1, line("50%").size());
    EXPECT_EQ(line("50%").size(), line("99%").size());
    EXPECT_EQ(line("100%").size(), line("99%").size());
  }
  // Below 1 MB free the warning replaces the figure.
  EXPECT_EQ(panel_lines(1, "1%", MB - 1, MB, 99).ram, "RAM free  :   <1MB !");
  EXPECT_EQ(panel_lines(2, "1%", 1000, MB, 99).ram, "RAM liber  : <1MB!");
  EXPECT_EQ(panel_lines(1, "1%", MB, MB, 99).ram, "RAM free  :  1M");
}

TEST(CpuUsage, RatioOfIdleToSystemTimePerProcessor) {
  // One busy core of two is 50; a d_sys of 0 divides nothing: the ratio is
  // d_idle in the decimal's scale.
  const struct { int64_t idle, sys; int percent; } cases[] = {
      {10000000, 10000000, 50}, {20000000, 10000000, 0}, {19400000, 10000000, 3},
      {0, 0, 100}, {10000, 0, 50}};
  for (const auto& c : cases) EXPECT_EQ(cpu_percent(c.idle, c.sys, 2), c.percent) << c.idle;
  EXPECT_THROW(cpu_percent(INT64_C(1) << 50, 0, 1), RuntimeError);
}

TEST(CpuUsage, OneBusyCoreOfTwoReadsAboutHalf) {
  SYSTEM_INFO si;
  GetSystemInfo(&si);
  auto meter = make_cpu_meter();
  ASSERT_NE(dynamic_cast<clsCPUUsageNT*>(meter.get()), nullptr);  // Wine is NT
  meter->Initialize();
  std::atomic<bool> stop{false};
  std::thread busy([&] { while (!stop) {} });
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < 600) Sleep(20);
  const int32_t cpu = meter->Query();
  stop = true;
  busy.join();
  const int32_t floor_figure = si.dwNumberOfProcessors == 2 ? 30 : 100 / static_cast<int>(si.dwNumberOfProcessors) - 20;
  EXPECT_GE(cpu, floor_figure);
  EXPECT_LE(cpu, 100);
  meter->Terminate();
}

class MonitorTest : public ::testing::Test {
protected:
  TestForm form;
  DriveListBox& Drive1 = form.add<DriveListBox>("Drive1", Place{0, 0, 120, 200});
  TextBox& Text3 = form.add<TextBox>("Text3", Place{0, 0, 40, 20});
  TextBox& Text4 = form.add<TextBox>("Text4", Place{0, 0, 40, 20});
  ImageButton& frogsus = form.add<ImageButton>("frogsus", extra_place(0));
  RamRelease ram{form};
  SystemMonitor monitor{form, Drive1, ram, Text3, Text4, frogsus};

  void SetUp() override {
    form.lcd.WriteSpeed(0);
    language_flag = 1;
    save_setting("autofree", "false");
    set_physical_memory_seam(4 * MB);  // never the host's 24 GB
  }
  void TearDown() override {
    save_setting("autofree", "false");
    set_physical_memory_seam(0);
    language_flag = 1;
  }
};

TEST_F(MonitorTest, QuietUntilStartedThenFillsThePanelAndTheTrayTip) {
  monitor.run();
  EXPECT_EQ(monitor.tray_tip, "");
  monitor.make_meter();
  monitor.start();
  // C: is the prefix's one fixed drive.
  EXPECT_EQ(monitor.drive_text.substr(0, 2), "C:");
  EXPECT_EQ(monitor.drive_length, monitor.drive_text.size());
  EXPECT_EQ(monitor.tray_tip.rfind(monitor.drive_text + "  RAM:", 0), 0u);
  EXPECT_NE(monitor.tray_tip.find("  CPU : "), std::string::npos);
  EXPECT_EQ(form.lcd.Line(2).rfind("CPU       : ", 0), 0u);
  EXPECT_EQ(form.lcd.Line(5).rfind("MEM load  : ", 0), 0u);
  if (monitor.drive_length < 20) {
    EXPECT_EQ(form.lcd.Line(1).substr(0, 18),
              monitor.drive_text + std::string(18 - monitor.drive_length, ' '));
  }

  language_flag = 2;
  monitor.run();
  EXPECT_EQ(form.lcd.Line(5).rfind("MEM incarct: ", 0), 0u);

  // A hover text stays: the figures wait.
  form.lighton = "DEL";
  form.lcd.WriteText("hover", 0, 2);
  monitor.run();
  EXPECT_EQ(form.lcd.Line(2).substr(0, 5), "hover");
}

TEST_F(MonitorTest, ALongDriveLineScrollsOneWayPerRun) {
  monitor.start();
  monitor.drive_text = "C:12.5G D:300.25M E:7.5G ";  // 25 characters
  monitor.scroll_forward = true;
  form.Timer2.Enabled(true);
  monitor.Timer2_Timer();
  EXPECT_EQ(form.lcd.Line(1).substr(0, 18), "C:12.5G D:300.25M ");
  monitor.Timer2_Timer();
  EXPECT_EQ(form.lcd.Line(1).substr(0, 18), ":12.5G D:300.25M E");
  int ticks = 2;
  while (form.Timer2.Enabled() && ticks < 100) monitor.Timer2_Timer(), ++ticks;
  EXPECT_EQ(ticks, 25 + 19 - 18 + 1);  // to the window over the blanks
  EXPECT_EQ(form.lcd.Line(1).substr(0, 18), std::string(18, ' '));
  // The way back.
  monitor.scroll_forward = false;
  form.Timer2.Enabled(true);
  while (form.Timer2.Enabled()) monitor.Timer2_Timer();
  EXPECT_EQ(form.lcd.Line(1).substr(0, 18), "C:12.5G D:300.25M ");
}

TEST_F(MonitorTest, ReleaseOf256MbTakes231BlocksAndEndsOnePlaceBeyond) {
  set_physical_memory_seam(256 * MB);
  ram.frogsus_Click();
  EXPECT_EQ(ram.blocks(), 230);
  EXPECT_EQ(ram.blocks_written(), 231);
  EXPECT_EQ(ram.last_progress(), 100);
  EXPECT_FALSE(form.freeing);
  EXPECT_FALSE(form.Picture16.Visible() || form.mark.Visible() || ram.frogup.Visible());
  EXPECT_EQ(form.lcd.Line(1).rfind("Freeing up RAM", 0), 0u);

  // Small memories show the progress past 100 on the last block.
  set_physical_memory_seam(10 * MB);
  language_flag = 2;
  ram.frogsus_Click();
  EXPECT_EQ(ram.blocks(), 9);
  EXPECT_EQ(ram.blocks_written(), 10);
  EXPECT_EQ(ram.last_progress(), 111);
  EXPECT_EQ(form.lcd.Line(1).rfind("Se elibereaza RAM", 0), 0u);
}

TEST_F(MonitorTest, ThresholdOfZeroOrNoNumberNeverFires) {
  monitor.start();
  save_setting("autofree", "true");
  save_setting("autofreetype", "cantitate");
  for (const char* text : {"0", "abc", ""}) {
    Text3.Text(text);
    monitor.run();
  }
  EXPECT_EQ(ram.runs(), 0);
  // A threshold above any free memory fires at once, and hides the frog.
  frogsus.Visible(true);
  Text3.Text("99999999");
  monitor.run();
  EXPECT_EQ(ram.runs(), 1);
  EXPECT_FALSE(frogsus.Visible());
  // Not while a release runs.
  form.freeing = true;
  monitor.run();
  EXPECT_EQ(ram.runs(), 1);
  form.freeing = false;
}

TEST_F(MonitorTest, TimedReleaseWithZeroMinutesFiresAtEveryTickAfterARun) {
  monitor.start();
  save_setting("autofree", "true");
  save_setting("autofreetype", "timp");
  Text4.Text("0");
  form.next_free_tick = 0;  // unarmed
  monitor.run();
  EXPECT_EQ(ram.runs(), 0);
  form.next_free_tick = 1;
  monitor.run();
  EXPECT_EQ(ram.runs(), 1);
  EXPECT_NE(form.next_free_tick, 0u);
  monitor.run();
  EXPECT_EQ(ram.runs(), 2);
  // "x" counts as 0 too; a real number of minutes puts it off.
  Text4.Text("x");
  monitor.run();
  EXPECT_EQ(ram.runs(), 3);
  Text4.Text("5");
  monitor.run();
  monitor.run();
  EXPECT_EQ(ram.runs(), 4);
  EXPECT_GE(form.next_free_tick - GetTickCount(), 299000u);
}

}  // namespace
