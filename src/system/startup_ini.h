#pragma once
// The start-up items of win.ini, system.ini and wininit.ini, read the way
// the program reads text files: by records, not lines. Pure: no files.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace wh {

// The formatted reader's records: a record ends at a line end (CR LF, CR or
// LF) or at a comma; leading blanks are skipped, trailing ones dropped, and
// a record that starts with a quote runs to the closing quote, which is
// removed with the opening one (what follows up to the separator is lost).
// An empty line is an empty record. The records are views into `text`,
// which must outlive them.
using Records = std::vector<std::string_view>;
Records read_records(std::string_view text);

// The records written back, each followed by CR LF.
std::string write_records(const std::vector<std::string>& records);

// Split at ";" as the program splits: "" gives no items, "a;" gives "a" and "".
std::vector<std::string> split_items(const std::string& text);

// What the ini files start. Only what a file yields is replaced: the items
// of a line that a later read no longer finds stay as they were.
struct IniStartup {
  std::vector<std::string> load_items;  // "load=" of win.ini
  std::vector<std::string> run_items;   // "run=" of win.ini
  int16_t load_line = 0;                // record number, from 1
  int16_t run_line = 0;
  std::string shell_tail;               // behind "shell=Explorer.exe" in system.ini
  std::vector<std::string> nul_items;   // every "NUL=" of wininit.ini
};

void read_win_ini(const Records& records, IniStartup& ini);
void read_system_ini(const Records& records, IniStartup& ini);
void read_wininit_ini(const Records& records, IniStartup& ini);

// The rows of run_ini: load items, run items (empty ones too), the shell
// tail when there is one, the NUL items that are not empty.
std::vector<std::string> ini_rows(const IniStartup& ini);

// The line written in place of "load=" without item j: every kept item gets
// ";" unless the list had exactly two items.
std::string load_line_without(const std::vector<std::string>& items, size_t j);
// The same for "run=": every kept item but the last position gets ";".
std::string run_line_without(const std::vector<std::string>& items, size_t j);

}  // namespace wh
