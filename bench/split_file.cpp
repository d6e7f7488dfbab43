// Splitting speed: a file cut into 10 MB fragments by split_file.
//   bench_split_file FILE [MB]   splits FILE (made by bench/run.sh) into MB
//                                megabyte fragments beside it, three times,
//                                removing the fragments between runs
// Prints "figure split_file <seconds> s", the best of the runs (the batch
// file's writing included, the removal not), and "figure plain_split", its
// floor taking turns with it: the same fragments cut by a plain loop of
// 1 MiB ReadFile/WriteFile into files of its own, and a batch file.
#include <windows.h>

#include "bench_clock.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "core/globals.h"
#include "filetools/splitter.h"

namespace {

// Everything in the source's folder but the source itself.
void remove_fragments(const std::string& folder, const std::string& keep) {
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA((folder + "*").c_str(), &fd);
  if (h == INVALID_HANDLE_VALUE) return;
  do {
    const std::string n = fd.cFileName;
    if (n == "." || n == ".." || (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) continue;
    if (_stricmp(n.c_str(), keep.c_str()) != 0) DeleteFileA((folder + n).c_str());
  } while (FindNextFileA(h, &fd));
  FindClose(h);
}

// The floor: fragments of `bytes` each, read and written 1 MiB at a time.
int plain_split(const std::string& source, const std::string& folder, int64_t bytes) {
  HANDLE in = CreateFileA(source.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                          0, nullptr);
  if (in == INVALID_HANDLE_VALUE) return 0;
  std::vector<char> buffer(1 << 20);
  std::string batch = "copy /b ";
  int count = 0;
  for (bool more = true; more;) {
    char name[32];
    std::snprintf(name, sizeof name, "plain.%03d", ++count);
    HANDLE out = CreateFileA((folder + name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0,
                             nullptr);
    int64_t left = bytes;
    while (left > 0) {
      DWORD got = 0;
      ReadFile(in, buffer.data(), static_cast<DWORD>(std::min<int64_t>(left, buffer.size())), &got,
               nullptr);
      if (got == 0) {
        more = false;
        break;
      }
      DWORD wrote = 0;
      WriteFile(out, buffer.data(), got, &wrote, nullptr);
      left -= got;
    }
    CloseHandle(out);
    batch += std::string(count > 1 ? "+" : "") + name;
  }
  CloseHandle(in);
  batch += " joined.bin\r\n";
  HANDLE bat = CreateFileA((folder + "plain.bat").c_str(), GENERIC_WRITE, 0, nullptr,
                           CREATE_ALWAYS, 0, nullptr);
  DWORD wrote = 0;
  WriteFile(bat, batch.data(), static_cast<DWORD>(batch.size()), &wrote, nullptr);
  CloseHandle(bat);
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: bench_split_file FILE [MB]\n");
    return 2;
  }
  const std::string source = argv[1];
  const double mb = argc > 2 ? std::atof(argv[2]) : 10;
  const size_t cut = source.find_last_of('\\');
  const std::string folder = cut == std::string::npos ? ".\\" : source.substr(0, cut + 1);
  const std::string name = cut == std::string::npos ? source : source.substr(cut + 1);
  wh::language_flag = 1;
  double best = 1e300, floor = 1e300;
  for (int run = 0; run < 3; ++run) {
    remove_fragments(folder, name);
    std::string destination = folder;
    int16_t count = 0;
    double t0 = bench::seconds();
    const int16_t result =
        wh::split_file(source, destination, static_cast<int32_t>(mb * 1048576 + 0.5), count);
    const double t = bench::seconds() - t0;
    if (result != 0) {
      std::fprintf(stderr, "split_file returned %d\n", result);
      return 1;
    }
    remove_fragments(folder, name);
    t0 = bench::seconds();
    const int plain = plain_split(source, folder, static_cast<int64_t>(mb * 1048576 + 0.5));
    const double p = bench::seconds() - t0;
    std::printf("run %d: %d fragments in %.3f s, plain loop %d in %.3f s\n", run + 1, count, t,
                plain, p);
    best = std::min(best, t);
    floor = std::min(floor, p);
  }
  remove_fragments(folder, name);
  std::printf("figure split_file %.3f s\n", best);
  std::printf("figure plain_split %.3f s\n", floor);
  return 0;
}
