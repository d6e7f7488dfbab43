// The installed-programs scan: N entries (1000) under HKLM's Uninstall key, each
// with a folder in the data folder, walked into the table with every folder
// worked out and the memory file rewritten, as entering section 1 does.
//   bench_uninstall_scan DIR [N]  makes DIR\p0 ... and the entries, prints
//                              "figure uninstall_scan <ms> ms", writes the
//                              same entries as text to DIR\entries.txt (the
//                              anchor's input: key, name, folder a line) and
//                              removes the entries again
// Best of five rounds after one warm-up. Beside it, taking turns, its floor
// ("figure plain_scan"): RegEnumKeyExA over the key, each entry opened once
// for its names, uninstaller and folder (RegQueryValueExA), the folder's
// short path asked as the Windows-folder test does, and the names written
// as a memory file of their own.
// Then the list the section shows, List1 (sorted, shown), filled with the
// scan's rows as the section fills it ("figure uninstall_list"): the memory
// file knows all but the last tenth, which go on top as new. Its floor
// ("figure plain_list"): the same rows sent to a list of the same kind with
// LB_ADDSTRING and LB_INSERTSTRING, drawn once at the end. Both are timed
// until the list has painted.
#include <windows.h>

#include "bench_clock.h"
#include "bench_form.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/files.h"
#include "platform/registry.h"
#include "system/installed_programs.h"
#include "system/uninstall_page.h"
#include "ui/events.h"
#include "ui/list_box.h"

namespace {

std::string value(HKEY key, const char* name) {
  char data[1024];
  DWORD size = sizeof data, type = 0;
  if (RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(data), &size) != 0)
    return {};
  return std::string(data, strnlen(data, size));
}

int plain_scan(const std::string& memory_file) {
  HKEY root;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, wh::uninstall_key_path, 0, KEY_READ, &root) != 0) return 0;
  std::string names;
  int count = 0;
  char name[256], short_folder[MAX_PATH];
  for (DWORD i = 0;; ++i) {
    DWORD length = sizeof name;
    if (RegEnumKeyExA(root, i, name, &length, nullptr, nullptr, nullptr, nullptr) != 0) break;
    HKEY entry;
    if (RegOpenKeyExA(root, name, 0, KEY_READ, &entry) != 0) continue;
    const std::string display = value(entry, "DisplayName");
    value(entry, "QuietDisplayName");
    std::string folder = value(entry, "InstallLocation");
    if (folder.empty()) {
      folder = value(entry, "UninstallString");
      if (!folder.empty() && folder[0] == '"') folder = folder.substr(1, folder.find('"', 1) - 1);
      folder = folder.substr(0, folder.rfind('\\') == std::string::npos ? 0 : folder.rfind('\\'));
    }
    GetShortPathNameA(folder.c_str(), short_folder, sizeof short_folder);
    RegCloseKey(entry);
    names += display + "\r\n";
    ++count;
  }
  RegCloseKey(root);
  HANDLE f = CreateFileA(memory_file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD wrote = 0;
  WriteFile(f, names.data(), static_cast<DWORD>(names.size()), &wrote, nullptr);
  CloseHandle(f);
  return count;
}

// The list's floor: what a plain program sends to fill a shown list.
void plain_fill(wh::ListBox& list, const wh::ProgramRows& rows) {
  const HWND h = list.hwnd();
  SendMessageA(h, WM_SETREDRAW, FALSE, 0);
  for (const std::string& name : rows.known)
    SendMessageA(h, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
  WPARAM top = 0;
  for (const std::string& name : rows.fresh)
    SendMessageA(h, LB_INSERTSTRING, top++, reinterpret_cast<LPARAM>(name.c_str()));
  SendMessageA(h, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(h, nullptr, TRUE);
}

// Best time of five rounds after a warm-up: `clear` untimed, then `fill`
// and the paint it leads to.
template <class Clear, class Fill>
double best_fill(wh::ListBox& list, Clear clear, Fill fill) {
  double best = 1e300;
  for (int round = 0; round < 6; ++round) {
    clear();
    wh::do_events();
    const double t0 = bench::now_ms();
    fill();
    UpdateWindow(list.hwnd());
    const double t = bench::now_ms() - t0;
    if (round > 0) best = std::min(best, t);
  }
  return best;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return 1;
  const std::string dir = argv[1];
  const int entries = argc > 2 ? std::max(1, std::atoi(argv[2])) : 1000;
  const std::string root = std::string(wh::uninstall_key_path) + "\\";
  std::string text;
  char name[16];
  for (int i = 0; i < entries; ++i) {
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

  double best = 1e300, floor = 1e300;
  int count = 0, plain_count = 0;
  for (int round = 0; round < 6; ++round) {
    double t0 = bench::now_ms();
    wh::program_files_dir = wh::find_program_files_dir();
    wh::read_installed_programs();
    count = wh::merge_memory_file(1).known.size();
    const double t = bench::now_ms() - t0;
    t0 = bench::now_ms();
    plain_count = plain_scan(dir + "\\apps.plain");
    const double p = bench::now_ms() - t0;
    if (round > 0) {
      best = std::min(best, t);
      floor = std::min(floor, p);
    }
  }

  // The memory file forgets the last tenth: those come back as new.
  std::string known;
  for (int i = 1; i <= entries - entries / 10 && i <= wh::program_table_size; ++i)
    known += wh::program_table[i].name + "\r\n";
  wh::BinaryFile memory;
  if (memory.open_binary(wh::memory_file_path()) == 0) {
    memory.set_length(0);
    memory.write_at(0, known.data(), static_cast<DWORD>(known.size()));
    memory.close();
  }
  const wh::ProgramRows rows = wh::merge_memory_file(1);
  bench::BenchForm form;
  const wh::ListBox::Options options{.multi_select = wh::multi_extended, .sorted = true};
  auto& List1 = form.add<wh::ListBox>("List1", wh::page_place(), options);
  auto& plain = form.add<wh::ListBox>("plain", wh::page_place(), options);
  plain.Visible(false);  // one list on the page at a time
  form.Show();
  wh::do_events();
  const double list_ms =
      best_fill(List1, [&] { List1.Clear(); }, [&] { wh::show_program_rows(List1, rows); });
  const int shown = List1.ListCount();
  const std::string first = List1.List(0);
  List1.Visible(false);
  plain.Visible(true);
  const double plain_ms = best_fill(
      plain, [&] { SendMessageA(plain.hwnd(), LB_RESETCONTENT, 0, 0); },
      [&] { plain_fill(plain, rows); });

  for (int i = 0; i < entries; ++i) {
    std::snprintf(name, sizeof name, "WhBench%04d", i);
    wh::reg_delete_key(HKEY_LOCAL_MACHINE, root + name);
  }
  std::printf("programs %d (plain loop: %d entries)\n", count, plain_count);
  std::printf("List1: %d rows (%zu new), the first \"%s\"; plain list %d rows\n", shown,
              rows.fresh.size(), first.c_str(), plain.ListCount());
  std::printf("figure uninstall_scan %.3f ms\n", best);
  std::printf("figure plain_scan %.3f ms\n", floor);
  std::printf("figure uninstall_list %.3f ms\n", list_ms);
  std::printf("figure plain_list %.3f ms\n", plain_ms);
  return 0;
}
