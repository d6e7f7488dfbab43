// load_url_cache_list over a cache of many entries.
//   bench_url_cache <folder> [<entries>]
// Fills the prefix's URL cache (not timed), reads it into a list with
// load_url_cache_list into a shown list ("figure url_cache"), and in turns
// walks it with one fixed buffer into another shown list, drawn once at
// the end ("figure plain_walk"): Wine's own floor. Best of three each. The
// entries are removed again at the end.
#include <windows.h>
#include <wininet.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/url_cache.h"
#include "ui/events.h"
#include "ui/list_box.h"

namespace {
// The floor: one fixed buffer, each URL added to a list of the same kind,
// drawn once at the end as a plain program fills a shown list.
int plain_walk(wh::ListBox& list) {
  alignas(8) static char buffer[16384];
  auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(buffer);
  DWORD size = sizeof buffer;
  HANDLE search = FindFirstUrlCacheEntryA(nullptr, entry, &size);
  if (!search) return 0;
  SendMessageA(list.hwnd(), WM_SETREDRAW, FALSE, 0);
  int n = 0;
  do {
    ++n;
    if (entry->lpszSourceUrlName)
      SendMessageA(list.hwnd(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry->lpszSourceUrlName));
    size = sizeof buffer;
  } while (FindNextUrlCacheEntryA(search, entry, &size));
  FindCloseUrlCache(search);
  SendMessageA(list.hwnd(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list.hwnd(), nullptr, TRUE);
  return n;
}
}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: bench_url_cache <folder> [<entries>]\n");
    return 1;
  }
  const int entries = argc > 2 ? std::atoi(argv[2]) : 5000;
  FILETIME ft{};
  for (int i = 0; i < entries; ++i) {
    const std::string url = "Visited: user@http://www" + std::to_string(i % 97) +
                            ".example.com/page/" + std::to_string(i) + ".html";
    CommitUrlCacheEntryA(url.c_str(), nullptr, ft, ft, URLHISTORY_CACHE_ENTRY | NORMAL_CACHE_ENTRY,
                         nullptr, 0, nullptr, nullptr);
  }
  // Both lists shown, as the trace viewer shows its list while it fills.
  bench::BenchForm form;
  auto& list = form.add<wh::ListBox>("junk_files", wh::Place{0, 0, 300, 300});
  auto& plain = form.add<wh::ListBox>("plain", wh::Place{300, 0, 300, 300});
  form.Show();
  wh::do_events();
  plain_walk(plain);  // warm
  double t = 1e300, p = 1e300;
  int lines = 0, walked = 0;
  for (int round = 0; round < 3; ++round) {
    list.Clear();
    plain.Clear();
    double t0 = bench::now_ms();
    wh::load_url_cache_list(list);
    t = std::min(t, bench::now_ms() - t0);
    lines = list.ListCount();
    t0 = bench::now_ms();
    walked = plain_walk(plain);
    p = std::min(p, bench::now_ms() - t0);
  }
  std::printf("%d lines, %d entries walked\n", lines, walked);
  std::printf("figure url_cache %.3f ms\n", t);
  std::printf("figure plain_walk %.3f ms\n", p);
  for (int i = 0; i < list.ListCount(); ++i) DeleteUrlCacheEntryA(list.List(i).c_str());
  return lines == walked && lines >= entries ? 0 : 1;
}
