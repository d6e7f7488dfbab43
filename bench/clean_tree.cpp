// clean_tree of one tree, which it removes.
//   bench_clean_tree <folder>
// Prints "figure clean_tree <ms> ms" and fails when anything is left.
#include <windows.h>

#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/cleaner.h"
#include "platform/fso.h"

int main(int argc, char** argv) {
  if (argc < 2 || !wh::file_system().FolderExists(argv[1])) {
    std::printf("usage: bench_clean_tree <folder>\n");
    return 1;
  }
  bench::BenchForm form;
  auto& File1 = form.add<wh::FileListBox>("File1", wh::Place{0, 0, 10, 10});
  wh::JunkCleaner cleaner(File1, form.hwnd());
  double t0 = bench::now_ms();
  cleaner.clean_tree(argv[1]);
  double t = bench::now_ms() - t0;
  const bool left = wh::file_system().FolderExists(argv[1]);
  std::printf("%s %s\n", argv[1], left ? "was not removed" : "removed");
  std::printf("figure clean_tree %.3f ms\n", t);
  return left ? 1 : 0;
}
