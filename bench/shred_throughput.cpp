// Shredding throughput: one pass over a 256 MB file.
//   bench_shred_throughput FILE... [-- PLAIN...]
//                                           shreds the given files, one pass
//                                           each (bench/run.sh makes them and
//                                           times native tools on the same disk);
//                                           the files after "--" go by the
//                                           plain loop: its floor
//   bench_shred_throughput [FOLDER] [MB]    makes its own file in FOLDER (C:\)
//                                           and compares with plain writes
// A shred ends by deleting the file, so the fair baseline inside Wine is a
// plain write followed by a delete; the bare write is shown too. Prints
// "figure shred_file <seconds> s", the best time of one shred_file call, and
// with files after "--" "figure plain_shred": the best of the plain loop,
// one pass of 1 MiB writes over the file, a flush, a rename and a delete.
#include <windows.h>

#include "bench_clock.h"

#include <algorithm>
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

// Seconds one shred_file call takes, or a negative number when `path` is no
// file to shred.
double timed_shred(const std::string& path) {
  DWORD a = GetFileAttributesA(path.c_str());
  if (a == INVALID_FILE_ATTRIBUTES || (a & FILE_ATTRIBUTE_DIRECTORY)) return -1;
  const double t0 = bench::seconds();
  wh::shred_file(path, 1, true);  // overwrites, renames and deletes
  const double t = bench::seconds() - t0;
  // shred_file stays silent when it fails; a file still there means it did.
  return GetFileAttributesA(path.c_str()) == INVALID_FILE_ATTRIBUTES ? t : -1;
}

int64_t file_bytes(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA d;
  if (!GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &d)) return -1;
  return (static_cast<int64_t>(d.nFileSizeHigh) << 32) | d.nFileSizeLow;
}

// The floor of one pass: what a plain program does to overwrite a file once
// and make it go.
double plain_shred(const std::string& path) {
  const int64_t bytes = file_bytes(path);
  if (bytes < 0) return -1;
  const double t0 = bench::seconds();
  if (!plain_write(path, bytes, 'x')) return -1;
  const std::string renamed = path + ".gone";
  MoveFileA(path.c_str(), renamed.c_str());
  DeleteFileA(renamed.c_str());
  return bench::seconds() - t0;
}

int shred_given(int count, char** files) {
  double best = 1e300, floor = 1e300;
  bool plain = false;
  for (int i = 0; i < count; ++i) {
    if (std::string(files[i]) == "--") {
      plain = true;
      continue;
    }
    const int64_t bytes = file_bytes(files[i]);
    const double t = plain ? plain_shred(files[i]) : timed_shred(files[i]);
    if (bytes < 0 || t < 0) {
      std::printf("cannot shred %s\n", files[i]);
      return 1;
    }
    std::printf("%s%s: %.1f MB in %.3f s, %.1f MB/s\n", plain ? "plain loop, " : "", files[i],
                bytes / 1048576.0, t, bytes / 1048576.0 / t);
    (plain ? floor : best) = std::min(plain ? floor : best, t);
  }
  std::printf("figure shred_file %.6f s\n", best);
  if (plain) std::printf("figure plain_shred %.6f s\n", floor);
  return 0;
}

int shred_own(const std::string& folder, int64_t mb) {
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

  const double shred = timed_shred(path);
  DeleteFileA(path.c_str());
  if (shred < 0) {
    std::printf("cannot shred %s\n", path.c_str());
    return 1;
  }

  const double plain_rate = static_cast<double>(mb) / plain;
  const double baseline_rate = static_cast<double>(mb) / plain_delete;
  const double shred_rate = static_cast<double>(mb) / shred;
  std::printf("file             %lld MB in %s\n", static_cast<long long>(mb), folder.c_str());
  std::printf("plain write      %8.1f MB/s\n", plain_rate);
  std::printf("write + delete   %8.1f MB/s\n", baseline_rate);
  std::printf("shred, one pass  %8.1f MB/s\n", shred_rate);
  std::printf("ratio            %8.2f (shred / write + delete)\n", shred_rate / baseline_rate);
  std::printf("figure shred_file %.6f s\n", shred);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string first = argc > 1 ? argv[1] : "C:\\";
  const DWORD a = GetFileAttributesA(first.c_str());
  if (a != INVALID_FILE_ATTRIBUTES && !(a & FILE_ATTRIBUTE_DIRECTORY))
    return shred_given(argc - 1, argv + 1);
  return shred_own(first, argc > 2 ? std::atoll(argv[2]) : 256);
}
