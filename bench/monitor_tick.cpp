// One tick of the system monitor: the drive line (free space of the fixed
// drives), the memory figures, the CPU sample and the four panel lines, on a
// form with the shared drive list. The period is 500 ms; a tick must stay far
// below it. Prints "figure monitor_tick <us> us" (best of a few rounds), and
// "figure plain_tick", its floor taking turns with it: the fixed drives'
// free space by GetDiskFreeSpaceExA, GlobalMemoryStatus, the three
// NtQuerySystemInformation classes, and five lines of text by TextOutA on a
// memory DC the size of the panel.
//   bench_monitor_tick [ticks_per_round] [rounds]
#include <windows.h>

#include "bench_clock.h"
#include "bench_form.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "monitor/monitor.h"
#include "ui/ui.h"

namespace {

using QueryInfo = LONG(WINAPI*)(ULONG, void*, ULONG, ULONG*);

struct PlainTick {
  QueryInfo query = reinterpret_cast<QueryInfo>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
  HDC dc = CreateCompatibleDC(nullptr);
  HBITMAP bitmap = CreateBitmap(121, 45, 1, 32, nullptr);
  PlainTick() { SelectObject(dc, bitmap); }
  ~PlainTick() {
    DeleteDC(dc);
    DeleteObject(bitmap);
  }
  void run() {
    char drives[128], line[5][64];
    std::string text;
    const DWORD n = GetLogicalDriveStringsA(sizeof drives, drives);
    for (const char* root = drives; root < drives + n && *root; root += strlen(root) + 1) {
      ULARGE_INTEGER avail, total, free;
      if (GetDriveTypeA(root) == DRIVE_FIXED && GetDiskFreeSpaceExA(root, &avail, &total, &free))
        text += std::string(root, 2) + std::to_string(avail.QuadPart >> 20) + "M ";
    }
    MEMORYSTATUS m{};
    m.dwLength = sizeof m;
    GlobalMemoryStatus(&m);
    alignas(8) char basic[64], time[48], perf[312];
    query(0, basic, sizeof basic, nullptr);
    query(3, time, 32, nullptr);
    query(2, perf, sizeof perf, nullptr);
    std::snprintf(line[0], 64, "%s", text.c_str());
    std::snprintf(line[1], 64, "CPU       : %d%%", static_cast<int>(perf[0] & 63));
    std::snprintf(line[2], 64, "RAM free  :  %zuM", m.dwAvailPhys >> 20);
    std::snprintf(line[3], 64, "    total :  %zuM", m.dwTotalPhys >> 20);
    std::snprintf(line[4], 64, "MEM load  : %lu%%", m.dwMemoryLoad);
    for (int i = 0; i < 5; ++i) TextOutA(dc, 0, i * 9, line[i], static_cast<int>(strlen(line[i])));
  }
};

}  // namespace

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
  PlainTick plain;
  double best = 1e300, floor = 1e300;
  for (int r = 0; r < rounds; ++r) {
    double t0 = bench::now_us();
    for (int i = 0; i < calls; ++i) monitor.run();
    best = std::min(best, (bench::now_us() - t0) / calls);
    t0 = bench::now_us();
    for (int i = 0; i < calls; ++i) plain.run();
    floor = std::min(floor, (bench::now_us() - t0) / calls);
  }
  std::printf("monitor tick: %.1f us (%s | %s)\n", best, form.lcd.Line(2).c_str(),
              form.lcd.Line(3).c_str());
  std::printf("figure monitor_tick %.1f us\n", best);
  std::printf("figure plain_tick %.1f us\n", floor);
  return 0;
}
