#pragma once
// The machine's uninstallable programs as the registry lists them, with the
// folder each one lives in worked out (the registry often does not say), and
// the memory file that tells the programs new since the last scan.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace wh {

struct program_record {
  std::string name;  // empty marks the end of the used part
  double size = 0;   // bytes of `folder`; 0 not measured
  std::string key;   // subkey under uninstall_key_path
  std::string uninstall;
  std::string spare;  // never used
  std::string folder;  // no quotes, no trailing backslash
  RegView view = RegView::native;  // the view of the Uninstall key it came from
};

// Always under HKEY_LOCAL_MACHINE, in its 64-bit view and then its 32-bit
// one (where 32-bit installers write), read as one list; the per-user list
// is not read.
inline constexpr const char* uninstall_key_path =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";
inline constexpr int program_table_size = 1000;

// Addressed 1..1000; slot 0 stays empty.
extern std::array<program_record, program_table_size + 1> program_table;
extern int16_t program_count;  // grows past the table when more are listed
extern std::string program_files_dir;
extern int16_t sizes_shown;          // 65535 once PIE measured the folders
extern int16_t last_selected_index;  // the List1 row acted on last (0 also for none)

// "%ProgramFiles%" and everything ahead of it, and the one character behind
// it, become program_files_dir + "\". Texts without it come back as they are.
std::string rewrite_program_files(const std::string& text);
// special_folder(38) normalised; on failure the Application Data folder's
// drive + "Program Files".
std::string find_program_files_dir();
// Walks the Uninstall key of both views into program_table and
// program_count. Nameless subkeys are deleted on the way, each in its own
// view; of two equal names the first in that order wins. Errors ignored.
void read_installed_programs();
// The folder of one normal-case subkey, in the order of inference.
std::string infer_program_folder(const std::string& key, const std::string& name,
                                 const std::string& uninstall, RegView view = RegView::native);

// WinDir\apps
std::string memory_file_path();
// What List1 shows: the names already known (added sorted) and the new ones
// (added on top, in table order, with the mark). Rewrites the memory file.
struct ProgramRows {
  std::vector<std::string> known;
  std::vector<std::string> fresh;  // with the mark
};
ProgramRows merge_memory_file(int language);

}  // namespace wh
