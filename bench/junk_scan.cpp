// junk_scan with the temporary folder pointed at the data folder, the other
// places as the section finds them in the prefix.
//   bench_junk_scan <folder>
// Prints the best of five warm scans as "figure junk_scan <ms> ms".
#include <windows.h>

#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/junk_page.h"
#include "cleaning/junk_state.h"
#include "platform/fso.h"

int main(int argc, char** argv) {
  if (argc < 2 || !wh::file_system().FolderExists(argv[1])) {
    std::printf("usage: bench_junk_scan <folder>\n");
    return 1;
  }
  bench::BenchForm form;
  auto& File1 = form.add<wh::FileListBox>("File1", wh::Place{0, 0, 10, 10});
  auto& Dir3 = form.add<wh::DirListBox>("Dir3", wh::Place{0, 0, 10, 10});
  auto& Drive1 = form.add<wh::DriveListBox>("Drive1", wh::Place{0, 0, 10, 10});
  auto& k1 = form.add<wh::FileListBox>("k1", wh::Place{0, 0, 10, 10});
  auto& frame1 = form.add<wh::Frame>("frame1", wh::Place{0, 0, 10, 10});
  wh::JunkPage page(form, frame1, File1, Dir3, Drive1, k1);
  page.collect_trace_paths();
  wh::temp_folder = argv[1];
  wh::windows_temp_folder = wh::temp_folder;  // counted once

  page.junk_scan();  // warm
  double best = 1e300;
  for (int round = 0; round < 5; ++round) {
    double t0 = bench::now_ms();
    page.junk_scan();
    double t = bench::now_ms() - t0;
    if (t < best) best = t;
  }
  std::printf("temporary folder %s: %s\n", argv[1], page.ocupied[3]->Caption().c_str());
  std::printf("figure junk_scan %.3f ms\n", best);
  return 0;
}
