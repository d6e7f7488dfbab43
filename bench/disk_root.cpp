// The disk explorer's listing of a drive's root, measured afresh (the
// refresh button's forced rescan): every top folder sized by Folder.Size.
//   bench_disk_root ROOT        e.g. T:\ mapped onto the tree
// Runs once to warm the caches, then prints the best of three as
// "figure afisdirs_root <ms> ms", and as "figure plain_root" its floor: the
// root listed by FindFirstFileA and each top folder's tree summed from its
// listings. The two take turns.
#include <algorithm>
#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "plain_walks.h"
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
  // Shown, as the section shows its lists while they fill.
  form.Show();
  page.Frame5.Visible(true);
  const std::string root = argv[1];
  page.back.Caption(root);
  page.rescan = true;
  // The floor: the root's folders with their sizes and its files.
  auto plain_root = [&] {
    double total = 0;
    plain::list(root + "*", [&](const WIN32_FIND_DATAA& fd) {
      total += (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                   ? plain::tree_size(root + fd.cFileName)
                   : plain::length(fd);
    });
    return total;
  };
  double best = 1e300, floor = 1e300;
  for (int round = 0; round < 4; ++round) {
    const long before = wh::folder_size_calls();
    double t0 = bench::now_ms();
    page.afisdirs(root, false);
    const double t = bench::now_ms() - t0;
    t0 = bench::now_ms();
    const double plain_total = plain_root();
    const double p = bench::now_ms() - t0;
    if (round > 0) {
      best = std::min(best, t);
      floor = std::min(floor, p);
    }
    if (round == 0)
      std::printf("%s: %zu folders sized (%ld calls), %zu files, %s (plain loop: %.0f bytes)\n",
                  root.c_str(), page.folders.size(), wh::folder_size_calls() - before,
                  page.files.size(), page.totallabel.Caption().c_str(), plain_total);
  }
  std::printf("figure afisdirs_root %.1f ms\n", best);
  std::printf("figure plain_root %.1f ms\n", floor);
  return page.folders.empty() ? 1 : 0;
}
