// clean_tree of one tree, which it removes.
//   bench_clean_tree <folder> [<same tree again> [plain-first]]
// Prints "figure clean_tree <ms> ms" and fails when anything is left. With
// a second copy, also the time of a plain FindFirstFileA / DeleteFileA /
// RemoveDirectoryA walk of it ("figure plain_delete"): Wine's own floor,
// after ours or, with "plain-first", before it (the disk may still be busy
// with the first one's removals: bench/run.sh takes turns).
#include <windows.h>

#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "plain_walks.h"
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
  const bool plain = argc > 2 && wh::file_system().FolderExists(argv[2]);
  auto plain_run = [&] {
    const double p0 = bench::now_ms();
    plain::delete_tree(argv[2]);
    std::printf("figure plain_delete %.3f ms\n", bench::now_ms() - p0);
  };
  if (plain && argc > 3 && std::string(argv[3]) == "plain-first") plain_run();
  const double t0 = bench::now_ms();
  cleaner.clean_tree(argv[1]);
  const double t = bench::now_ms() - t0;
  const bool left = wh::file_system().FolderExists(argv[1]);
  std::printf("%s %s\n", argv[1], left ? "was not removed" : "removed");
  std::printf("figure clean_tree %.3f ms\n", t);
  if (plain && !(argc > 3 && std::string(argv[3]) == "plain-first")) plain_run();
  return left ? 1 : 0;
}
