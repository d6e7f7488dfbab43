// scan_index_file over one big file.
//   bench_url_scan <file>
// Reads the file into the viewer's list once to warm the cache, then times
// the best of three scans ("figure scan_index_file"), the list emptied and
// the scanners' state reset before each. Its floor takes turns with it
// ("figure plain_scan"): the file read in 1 MB pieces by ReadFile, each
// ":" looked at for a scheme word before it, the address up to a blank or
// a zero byte added to the same list, shown, drawn once at the end.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "bench_clock.h"
#include "bench_form.h"
#include "cleaning/viewer.h"
#include "ui/list_box.h"

namespace {

// A scheme word right before the ":" at `colon`, in any case.
bool scheme_before(const char* piece, size_t colon) {
  for (const char* word : {"http", "ftp", "file", "hcp", "cookie"}) {
    const size_t n = strlen(word);
    if (colon < n) continue;
    size_t k = 0;
    while (k < n && (piece[colon - n + k] | 0x20) == word[k]) ++k;
    if (k == n) return true;
  }
  return false;
}

void plain_scan(wh::ListBox& list, const char* path) {
  HANDLE h = CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (h == INVALID_HANDLE_VALUE) return;
  std::vector<char> piece(1 << 20);
  SendMessageA(list.hwnd(), WM_SETREDRAW, FALSE, 0);
  std::string url;
  bool capturing = false;
  DWORD got = 0;
  while (ReadFile(h, piece.data(), static_cast<DWORD>(piece.size()), &got, nullptr) && got) {
    size_t at = 0;
    while (at < got) {
      if (capturing) {
        size_t end = at;
        while (end < got && piece[end] != ' ' && piece[end] != 0) ++end;
        url.append(piece.data() + at, end - at);
        at = end;
        if (end < got) {
          list.send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(url.c_str()));
          url.clear();
          capturing = false;
        }
        continue;
      }
      const void* colon = memchr(piece.data() + at, ':', got - at);
      if (!colon) break;
      at = static_cast<size_t>(static_cast<const char*>(colon) - piece.data());
      capturing = scheme_before(piece.data(), at);
      ++at;
    }
  }
  CloseHandle(h);
  SendMessageA(list.hwnd(), WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list.hwnd(), nullptr, TRUE);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::printf("usage: bench_url_scan <file>\n");
    return 1;
  }
  bench::BenchForm form;
  auto& list = form.add<wh::ListBox>("junk_files", wh::Place{0, 0, 300, 300});
  form.Show();  // the viewer shows its list while it fills
  double best = 1e300, floor = 1e300;
  int lines = 0, plain_lines = 0;
  for (int round = 0; round < 4; ++round) {  // round 0 warms
    list.Clear();
    wh::url_scan_state = {};
    double t0 = bench::now_ms();
    wh::scan_index_file(list, argv[1]);
    const double t = bench::now_ms() - t0;
    lines = list.ListCount();
    list.Clear();
    t0 = bench::now_ms();
    plain_scan(list, argv[1]);
    const double p = bench::now_ms() - t0;
    plain_lines = list.ListCount();
    if (round > 0) {
      best = std::min(best, t);
      floor = std::min(floor, p);
    }
  }
  std::printf("%d lines (plain loop: %d)\n", lines, plain_lines);
  std::printf("figure scan_index_file %.3f ms\n", best);
  std::printf("figure plain_scan %.3f ms\n", floor);
  return lines > 0 ? 0 : 1;
}
