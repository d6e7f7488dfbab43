// The duplicate finder's same-content search of a tree, on its page:
// the walk through the hidden file list, the sort, and the sampled
// comparison of every run of equal sizes, with the result list filled.
//   bench_duplicates_scan TREE
// Runs once to warm the caches, then prints the best of three as
// "figure dup_scan <s> s" and the number of result lines.
#include <cstdio>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "core/globals.h"
#include "filetools/duplicates_page.h"
#include "platform/registry.h"

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: bench_duplicates_scan TREE\n");
    return 2;
  }
  wh::language_flag = 1;
  bench::BenchForm form;
  wh::FileListBox& k1 = form.add<wh::FileListBox>("k1", wh::Place{0, 0, 10, 10});
  wh::DuplicatesPage page(form, k1);
  form.Show();  // the result list takes the focus
  page.finddups.Visible(true);
  page.List4.AddItem(argv[1]);
  page.List4.Selected(0, true);
  page.Option4.Value(true);
  page.Image36_Click(4);  // other
  page.Frame18.Visible(false);
  page.List5.Clear();
  page.List5.AddItem("*.*");
  page.List5.Selected(0, true);
  double best = 1e300;
  for (int round = 0; round < 4; ++round) {
    const double t0 = bench::seconds();
    page.Image37_Click();
    const double t = bench::seconds() - t0;
    if (round > 0 && t < best) best = t;
  }
  std::printf("files %zu, result lines %d\n", page.table.size() - 2, page.duplicates.ListCount());
  std::printf("figure dup_scan %.3f s\n", best);
  wh::reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
  return page.duplicates.ListCount() > 0 ? 0 : 1;
}
