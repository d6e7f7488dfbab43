// The start-up manager's ini reader: a whole file read and cut into records
// (line ends and commas, quotes removed), as each scan reads win.ini,
// system.ini and wininit.ini.
//   bench_ini_records FILE    prints "figure ini_records <ms> ms" and the
//                             number of records (bench/run.sh makes the file
//                             and times awk on it)
//   bench_ini_records         makes its own 200,000-line file in the
//                             temporary folder, removes it after
// Best of five rounds after one warm-up; beside it "figure plain_records",
// its floor: the file read whole by ReadFile and cut by a plain loop at
// commas and line ends, quotes dropped.
#include <windows.h>

#include "bench_clock.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/files.h"
#include "system/startup_ini.h"

namespace {

std::string read_whole(const std::string& path) {
  wh::BinaryFile f;
  if (f.open_read(path) != 0) return {};
  std::int64_t length = 0;
  f.length(length);
  std::string text(static_cast<size_t>(length), '\0');
  DWORD got = 0;
  f.read_at(0, text.data(), static_cast<DWORD>(length), got);
  text.resize(got);
  return text;
}

size_t read_and_cut(const std::string& path) {
  wh::BinaryFile f;
  if (f.open_read(path) != 0) return 0;
  std::int64_t length = 0;
  f.length(length);
  std::string text(static_cast<size_t>(length), '\0');
  DWORD got = 0;
  f.read_at(0, text.data(), static_cast<DWORD>(length), got);
  text.resize(got);
  return wh::read_records(text).size();
}

size_t plain_records(const std::string& path) {
  HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0,
                         nullptr);
  if (h == INVALID_HANDLE_VALUE) return 0;
  std::string text(GetFileSize(h, nullptr), '\0');
  DWORD got = 0;
  ReadFile(h, text.data(), static_cast<DWORD>(text.size()), &got, nullptr);
  CloseHandle(h);
  std::vector<std::string> records;
  std::string record;
  for (DWORD i = 0; i < got; ++i) {
    const char c = text[i];
    if (c == ',' || c == '\r' || c == '\n') {
      if (!record.empty()) records.push_back(std::move(record));
      record.clear();
    } else if (c != '"') {
      record += c;
    }
  }
  if (!record.empty()) records.push_back(record);
  return records.size();
}

}  // namespace

int main(int argc, char** argv) {
  std::string path;
  if (argc >= 2) {
    path = argv[1];
  } else {
    path = wh::temp_path() + "bench_ini_records.ini";
    std::string text;
    for (int i = 0; i < 200000; ++i)
      text += "load=C:\\Apps\\p" + std::to_string(i) + ".exe;x.exe,\"C:\\q " +
              std::to_string(i) + "\\r.exe\",tail" + std::to_string(i) + "\r\n";
    wh::BinaryFile f;
    if (f.open_binary(path) != 0) return 1;
    f.set_length(0);
    f.write_at(0, text.data(), static_cast<DWORD>(text.size()));
  }
  size_t records = read_and_cut(path);
  double best = 1e300;
  for (int round = 0; round < 5; ++round) {
    const double t0 = bench::now_ms();
    records = read_and_cut(path);
    const double t = bench::now_ms() - t0;
    if (t < best) best = t;
  }
  double read_best = 1e300, floor = 1e300;
  size_t plain = 0;
  for (int round = 0; round < 5; ++round) {
    double t0 = bench::now_ms();
    read_whole(path);
    read_best = std::min(read_best, bench::now_ms() - t0);
    t0 = bench::now_ms();
    plain = plain_records(path);
    floor = std::min(floor, bench::now_ms() - t0);
  }
  std::printf("records %zu (plain loop: %zu)\n", records, plain);
  std::printf("read alone %.3f ms\n", read_best);
  std::printf("figure ini_records %.3f ms\n", best);
  std::printf("figure plain_records %.3f ms\n", floor);
  if (argc < 2) DeleteFileA(path.c_str());
  return records ? 0 : 1;
}
