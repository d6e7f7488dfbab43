// scan_index_file over one big file.
//   bench_url_scan <file>
// Reads the file into the viewer's list once to warm the cache, then times
// the best of three scans ("figure scan_index_file"), the list emptied and
// the scanners' state reset before each.
#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/viewer.h"
#include "ui/list_box.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: bench_url_scan <file>\n");
    return 1;
  }
  bench::BenchForm form;
  auto& list = form.add<wh::ListBox>("junk_files", wh::Place{0, 0, 300, 300});
  double best = 0;
  for (int round = 0; round < 4; ++round) {
    list.Clear();
    wh::url_scan_state = {};
    const double t0 = bench::now_ms();
    wh::scan_index_file(list, argv[1]);
    const double t = bench::now_ms() - t0;
    if (round == 1 || (round > 1 && t < best)) best = t;  // round 0 warms
  }
  std::printf("%d lines\n", list.ListCount());
  std::printf("figure scan_index_file %.3f ms\n", best);
  return list.ListCount() > 0 ? 0 : 1;
}
