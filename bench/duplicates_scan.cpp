// The duplicate finder's same-content search of a tree, on its page:
// the walk through the hidden file list, the sort, and the sampled
// comparison of every run of equal sizes, with the result list filled.
//   bench_duplicates_scan TREE
// Prints the best of three warm runs as "figure dup_scan <s> s", and the
// same for its floor, "figure plain_samples": a FindFirstFileA walk of the
// tree and, for every file whose size another file has, CreateFileA, two
// 256-byte reads at 10% and 90% and CloseHandle. Then the search's phases,
// each timed once on the same tree ("phase walk|sort|runs"), which show
// where the time goes: the walk through k1, the sort, and the runs' sample
// reads without the result list.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "bench_clock.h"
#include "bench_form.h"
#include "core/globals.h"
#include "filetools/duplicates_page.h"
#include "platform/registry.h"

namespace {

struct Plain {
  std::string path;
  unsigned long long size;
};

void plain_list(const std::string& folder, std::vector<Plain>& out) {
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA((folder + "\\*").c_str(), &fd);
  if (h == INVALID_HANDLE_VALUE) return;
  std::vector<std::string> subs;
  do {
    const std::string name = fd.cFileName;
    if (name == "." || name == "..") continue;
    if (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
      subs.push_back(folder + "\\" + name);
    else
      out.push_back({folder + "\\" + name,
                     (static_cast<unsigned long long>(fd.nFileSizeHigh) << 32) | fd.nFileSizeLow});
  } while (FindNextFileA(h, &fd));
  FindClose(h);
  for (const auto& s : subs) plain_list(s, out);
}

// The same work by the plainest loop: list, group by size, read two
// samples of each file that shares its size. Returns how many were read.
int plain_samples(const std::string& tree) {
  std::vector<Plain> files;
  plain_list(tree, files);
  std::map<unsigned long long, int> count;
  for (const auto& f : files) ++count[f.size];
  int read = 0;
  char first[256], last[256];
  for (const auto& f : files) {
    if (count[f.size] < 2) continue;
    HANDLE h = CreateFileA(f.path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                           0, nullptr);
    if (h == INVALID_HANDLE_VALUE) continue;
    DWORD got = 0;
    SetFilePointer(h, static_cast<LONG>(f.size / 10), nullptr, FILE_BEGIN);
    ReadFile(h, first, sizeof first, &got, nullptr);
    SetFilePointer(h, static_cast<LONG>(f.size * 9 / 10), nullptr, FILE_BEGIN);
    ReadFile(h, last, sizeof last, &got, nullptr);
    CloseHandle(h);
    ++read;
  }
  return read;
}

template <class F>
double timed(F&& work) {
  const double t0 = bench::seconds();
  work();
  return bench::seconds() - t0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: bench_duplicates_scan TREE\n");
    return 2;
  }
  wh::language_flag = 1;
  bench::BenchForm form;
  wh::FileListBox& k1 = form.add<wh::FileListBox>("k1", wh::Place{0, 0, 10, 10});
  k1.Visible(false);  // hidden, as the main form keeps it
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

  // Both warm once, then take turns, so that a busy moment of the machine
  // does not fall on one side only.
  int read = 0;
  page.Image37_Click();
  plain_samples(argv[1]);
  double ours = 1e300, floor = 1e300;
  for (int round = 0; round < 3; ++round) {
    ours = std::min(ours, timed([&] { page.Image37_Click(); }));
    floor = std::min(floor, timed([&] { read = plain_samples(argv[1]); }));
  }
  const int lines = page.duplicates.ListCount();
  const size_t files = page.table.size() - 2;

  // The phases apart, once each, as the click runs them.
  const double walk = timed([&] {
    page.table.assign(1, wh::FoundFile{});
    page.scan_with_sizes(argv[1]);
  });
  const double sort = timed(
      [&] { wh::sort_by_size(1, static_cast<int16_t>(page.table.size() - 1), page.table); });
  double wasted = 0;
  int sampled = 0;
  const double runs = timed([&] {
    wh::DupSink sink{.line = [&](const std::string&, long) { ++sampled; },
                     .total = [](const std::string&) {},
                     .length = {}};
    wh::DupRuns(page.table, true, wasted, true, sink).walk();
  });

  std::printf("files %zu, result lines %d, plain loop read %d\n", files, lines, read);
  std::printf("phase walk %.3f s\nphase sort %.3f s\nphase runs %.3f s (no list)\n", walk, sort,
              runs);
  std::printf("figure dup_scan %.3f s\n", ours);
  std::printf("figure plain_samples %.3f s\n", floor);
  wh::reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
  return lines > 0 && sampled == lines ? 0 : 1;
}
