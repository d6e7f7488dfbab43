// Shredding throughput against a plain sequential write of the same size on
// the same disk: one pass over a 256 MB file each. A shred ends by deleting
// the file, so the fair baseline is a plain write followed by a delete;
// the bare write is shown too. Prints MB/s and the ratio.
//   bench_shred_throughput [folder] [megabytes]
#include <windows.h>

#include "bench_clock.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "filetools/shredder.h"

namespace {

// The baseline: 1 MiB writes of one byte value, then a flush, as plain as it gets.
bool plain_write(const std::string& path, int64_t bytes, char fill) {
  HANDLE h = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
  if (h == INVALID_HANDLE_VALUE) return false;
  std::vector<char> chunk(1 << 20, fill);
  for (int64_t done = 0; done < bytes; done += static_cast<int64_t>(chunk.size())) {
    DWORD wrote = 0;
    WriteFile(h, chunk.data(), static_cast<DWORD>(chunk.size()), &wrote, nullptr);
  }
  FlushFileBuffers(h);
  CloseHandle(h);
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::string folder = argc > 1 ? argv[1] : "C:\\";
  int64_t mb = argc > 2 ? std::atoll(argv[2]) : 256;
  const int64_t bytes = mb << 20;
  std::string path = folder + (folder.back() == '\\' ? "" : "\\") + "wh_bench_shred.bin";

  // The file exists at full length before both runs, so both overwrite.
  if (!plain_write(path, bytes, 'x')) {
    std::printf("cannot write %s\n", path.c_str());
    return 1;
  }
  double t0 = bench::seconds();
  plain_write(path, bytes, 'y');
  const double plain = bench::seconds() - t0;

  t0 = bench::seconds();
  plain_write(path, bytes, 'z');
  DeleteFileA(path.c_str());
  const double plain_delete = bench::seconds() - t0;
  plain_write(path, bytes, 'x');

  t0 = bench::seconds();
  wh::shred_file(path, 1, true);  // overwrites, renames and deletes
  const double shred = bench::seconds() - t0;

  const double plain_rate = static_cast<double>(mb) / plain;
  const double baseline_rate = static_cast<double>(mb) / plain_delete;
  const double shred_rate = static_cast<double>(mb) / shred;
  std::printf("file             %lld MB in %s\n", static_cast<long long>(mb), folder.c_str());
  std::printf("plain write      %8.1f MB/s\n", plain_rate);
  std::printf("write + delete   %8.1f MB/s\n", baseline_rate);
  std::printf("shred, one pass  %8.1f MB/s\n", shred_rate);
  std::printf("ratio            %8.2f (shred / write + delete)\n", shred_rate / baseline_rate);
  DeleteFileA(path.c_str());
  return 0;
}
