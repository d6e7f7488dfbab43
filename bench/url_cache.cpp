// load_url_cache_list over a cache of many entries.
//   bench_url_cache <folder> [<entries>]
// Fills the prefix's URL cache (not timed), reads it into a list with
// load_url_cache_list ("figure url_cache"), then walks it once more with one
// fixed buffer and no list ("figure plain_walk"): Wine's own floor. The
// entries are removed again at the end.
#include <windows.h>
#include <wininet.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/url_cache.h"
#include "ui/list_box.h"

namespace {
int plain_walk() {
  alignas(8) static char buffer[16384];
  auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(buffer);
  DWORD size = sizeof buffer;
  HANDLE search = FindFirstUrlCacheEntryA(nullptr, entry, &size);
  if (!search) return 0;
  int n = 0;
  do {
    ++n;
    size = sizeof buffer;
  } while (FindNextUrlCacheEntryA(search, entry, &size));
  FindCloseUrlCache(search);
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
  bench::BenchForm form;
  auto& list = form.add<wh::ListBox>("junk_files", wh::Place{0, 0, 300, 300});
  plain_walk();  // warm
  double t0 = bench::now_ms();
  wh::load_url_cache_list(list);
  const double t = bench::now_ms() - t0;
  const int lines = list.ListCount();
  double p0 = bench::now_ms();
  const int walked = plain_walk();
  const double p = bench::now_ms() - p0;
  std::printf("%d lines, %d entries walked\n", lines, walked);
  std::printf("figure url_cache %.3f ms\n", t);
  std::printf("figure plain_walk %.3f ms\n", p);
  for (int i = 0; i < list.ListCount(); ++i) DeleteUrlCacheEntryA(list.List(i).c_str());
  return lines == walked && lines >= entries ? 0 : 1;
}
