// junk_scan with the temporary folder pointed at the data folder, the other
// places as the section finds them in the prefix.
//   bench_junk_scan <folder>
// Prints the best of five warm scans as "figure junk_scan <ms> ms", and as
// "figure plain_scan" its floor: the same places walked by FindFirstFileA,
// the junk masks one listing each in the drive roots and the Windows
// folders, the sizes of the category folders summed from their listings,
// and the recycle bin asked once. The two take turns.
#include <windows.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/junk_page.h"
#include "cleaning/junk_state.h"
#include "plain_walks.h"
#include "platform/fso.h"

namespace {

const char* const kMasks[] = {"*.gid", "*.bad", "*.fts", "*.dmp", "*.old", "*.tmp", "*.bak",
                              "*.old", "*.prv", "*.syd", "*.$*", "*.~*", "~*.*", "*.$$$", "*.sik",
                              "*.chk", "*.qdk", "*.umb", "*.~mp", "*.cor", "*.alt", "*.log",
                              "rbbad.cab", "bootlog.txt", "thumbs.dbf", "*.dir", "*log*.txt"};

double masked(const std::string& folder) {
  double total = 0;
  for (const char* mask : kMasks)
    plain::list(folder + "\\" + mask, [&](const WIN32_FIND_DATAA& fd) {
      if (!(fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) total += plain::length(fd);
    });
  return total;
}

double plain_scan() {
  SHQUERYRBINFO bin{sizeof bin, 0, 0};
  SHQueryRecycleBinA(nullptr, &bin);
  double total = static_cast<double>(bin.i64Size);
  char drives[128];
  const DWORD n = GetLogicalDriveStringsA(sizeof drives, drives);
  for (const char* root = drives; root < drives + n && *root; root += strlen(root) + 1) {
    if (GetDriveTypeA(root) != DRIVE_FIXED) continue;
    const std::string r(root, 2);
    plain::list(r + "\\*", [&](const WIN32_FIND_DATAA& fd) {
      if ((fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && _strnicmp(fd.cFileName, "found.", 6) == 0)
        total += plain::tree_size(r + "\\" + fd.cFileName);
    });
    total += masked(r);
  }
  char windir[MAX_PATH];
  GetWindowsDirectoryA(windir, sizeof windir);
  const std::string w = windir;
  for (const char* sub : {"", "\\minidump", "\\system", "\\system32", "\\system32\\CatRoot"})
    total += masked(w + sub);
  for (const std::string* folder :
       {&wh::temp_folder, &wh::cache_folder, &wh::prefetch_folder, &wh::internet_logs_folder,
        &wh::cookies_folder, &wh::downloaded_programs_folder,
        &wh::downloaded_installations_folder, &wh::recent_folder})
    total += plain::tree_size(*folder);
  if (wh::windows_temp_folder != wh::temp_folder) total += plain::tree_size(wh::windows_temp_folder);
  return total;
}

}  // namespace

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
  plain_scan();
  double best = 1e300, floor = 1e300;
  for (int round = 0; round < 5; ++round) {
    double t0 = bench::now_ms();
    page.junk_scan();
    best = std::min(best, bench::now_ms() - t0);
    t0 = bench::now_ms();
    plain_scan();
    floor = std::min(floor, bench::now_ms() - t0);
  }
  std::printf("temporary folder %s: %s\n", argv[1], page.ocupied[3]->Caption().c_str());
  std::printf("figure junk_scan %.3f ms\n", best);
  std::printf("figure plain_scan %.3f ms\n", floor);
  return 0;
}
