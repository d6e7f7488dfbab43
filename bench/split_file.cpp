// Splitting speed: a file cut into 10 MB fragments by split_file.
//   bench_split_file FILE [MB]   splits FILE (made by bench/run.sh) into MB
//                                megabyte fragments beside it, three times,
//                                removing the fragments between runs
// Prints "figure split_file <seconds> s", the best of the runs (the batch
// file's writing included, the removal not).
#include <windows.h>

#include "bench_clock.h"

#include <cstdio>
#include <cstdlib>
#include <string>

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
  double best = 1e300;
  for (int run = 0; run < 3; ++run) {
    remove_fragments(folder, name);
    std::string destination = folder;
    int16_t count = 0;
    const double t0 = bench::seconds();
    const int16_t result =
        wh::split_file(source, destination, static_cast<int32_t>(mb * 1048576 + 0.5), count);
    const double t = bench::seconds() - t0;
    if (result != 0) {
      std::fprintf(stderr, "split_file returned %d\n", result);
      return 1;
    }
    std::printf("run %d: %d fragments in %.3f s\n", run + 1, count, t);
    if (t < best) best = t;
  }
  remove_fragments(folder, name);
  std::printf("figure split_file %.3f s\n", best);
  return 0;
}
