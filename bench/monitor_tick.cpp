// One tick of the system monitor: the drive line (free space of the fixed
// drives), the memory figures, the CPU sample and the four panel lines, on a
// form with the shared drive list. The period is 500 ms; a tick must stay far
// below it. Prints "figure monitor_tick <us> us" (best of a few rounds).
//   bench_monitor_tick [ticks_per_round] [rounds]
#include <windows.h>

#include "bench_clock.h"
#include "bench_form.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "monitor/monitor.h"
#include "ui/ui.h"

int main(int argc, char** argv) {
  int calls = argc > 1 ? std::max(1, std::atoi(argv[1])) : 500;
  int rounds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 5;
  bench::BenchForm form;
  form.lcd.WriteSpeed(0);
  auto& drives = form.add<wh::DriveListBox>("Drive1", wh::Place{0, 0, 120, 200});
  auto& text3 = form.add<wh::TextBox>("Text3", wh::Place{0, 0, 40, 20});
  auto& text4 = form.add<wh::TextBox>("Text4", wh::Place{0, 0, 40, 20});
  auto& frog = form.add<wh::ImageButton>("frogsus", wh::extra_place(0));
  wh::RamRelease ram(form);
  wh::SystemMonitor monitor(form, drives, ram, text3, text4, frog);
  monitor.make_meter();
  monitor.start();
  double best = 1e300;
  for (int r = 0; r < rounds; ++r) {
    double t0 = bench::now_us();
    for (int i = 0; i < calls; ++i) monitor.run();
    best = std::min(best, (bench::now_us() - t0) / calls);
  }
  std::printf("monitor tick: %.1f us (%s | %s)\n", best, form.lcd.Line(2).c_str(),
              form.lcd.Line(3).c_str());
  std::printf("figure monitor_tick %.1f us\n", best);
  return 0;
}
