// The installed-programs scan: 1000 entries under HKLM's Uninstall key, each
// with a folder in the data folder, walked into the table with every folder
// worked out and the memory file rewritten, as entering section 1 does.
//   bench_uninstall_scan DIR   makes DIR\p0000 ... and the entries, prints
//                              "figure uninstall_scan <ms> ms", writes the
//                              same entries as text to DIR\entries.txt (the
//                              anchor's input: key, name, folder a line) and
//                              removes the entries again
// Best of five rounds after one warm-up.
#include <windows.h>

#include "bench_clock.h"

#include <cstdio>
#include <string>

#include "platform/files.h"
#include "platform/registry.h"
#include "system/installed_programs.h"

int main(int argc, char** argv) {
  if (argc < 2) return 1;
  const std::string dir = argv[1];
  const std::string root = std::string(wh::uninstall_key_path) + "\\";
  std::string text;
  char name[16];
  for (int i = 0; i < 1000; ++i) {
    std::snprintf(name, sizeof name, "WhBench%04d", i);
    const std::string folder = dir + "\\p" + std::to_string(i);
    CreateDirectoryA(folder.c_str(), nullptr);
    wh::RegKey k;
    k.create(HKEY_LOCAL_MACHINE, root + name);
    const std::string display = "Bench Program " + std::to_string(i);
    k.set("DisplayName", REG_SZ, display + '\0');
    k.set("UninstallString", REG_SZ, "\"" + folder + "\\unins000.exe\" /SILENT" + '\0');
    if (i % 2 == 0) k.set("InstallLocation", REG_SZ, folder + "\\" + '\0');
    text += std::string(name) + "\t" + display + "\t" + folder + "\n";
  }
  wh::BinaryFile f;
  if (f.open_binary(dir + "\\entries.txt") == 0) {
    f.set_length(0);
    f.write_at(0, text.data(), static_cast<DWORD>(text.size()));
  }

  double best = 1e300;
  int count = 0;
  for (int round = 0; round < 6; ++round) {
    const double t0 = bench::now_ms();
    wh::program_files_dir = wh::find_program_files_dir();
    wh::read_installed_programs();
    count = wh::merge_memory_file(1).known.size();
    const double t = bench::now_ms() - t0;
    if (round > 0 && t < best) best = t;
  }
  for (int i = 0; i < 1000; ++i) {
    std::snprintf(name, sizeof name, "WhBench%04d", i);
    wh::reg_delete_key(HKEY_LOCAL_MACHINE, root + name);
  }
  std::printf("programs %d\n", count);
  std::printf("figure uninstall_scan %.3f ms\n", best);
  return 0;
}
