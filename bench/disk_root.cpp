// The disk explorer's listing of a drive's root, measured afresh (the
// refresh button's forced rescan): every top folder sized by Folder.Size.
//   bench_disk_root ROOT        e.g. T:\ mapped onto the tree
// Runs once to warm the caches, then prints the best of three as
// "figure afisdirs_root <ms> ms".
#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "core/globals.h"
#include "filetools/disk_page.h"
#include "platform/fso.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: bench_disk_root ROOT\n");
    return 2;
  }
  wh::language_flag = 1;
  bench::BenchForm form;
  wh::DiskPage page(form);
  const std::string root = argv[1];
  page.back.Caption(root);
  page.rescan = true;
  double best = 1e300;
  for (int round = 0; round < 4; ++round) {
    const long before = wh::folder_size_calls();
    const double t0 = bench::now_ms();
    page.afisdirs(root, false);
    const double t = bench::now_ms() - t0;
    if (round > 0 && t < best) best = t;
    if (round == 0)
      std::printf("%s: %zu folders sized (%ld calls), %zu files, %s\n", root.c_str(),
                  page.folders.size(), wh::folder_size_calls() - before, page.files.size(),
                  page.totallabel.Caption().c_str());
  }
  std::printf("figure afisdirs_root %.1f ms\n", best);
  return page.folders.empty() ? 1 : 0;
}
