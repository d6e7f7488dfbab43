#include "system/installed_programs.h"

#include <windows.h>

#include "core/commands.h"
#include "core/globals.h"
#include "core/routines.h"
#include "core/text.h"
#include "platform/environment.h"
#include "platform/files.h"
#include "platform/fso.h"
#include "platform/registry.h"

namespace wh {

std::array<program_record, program_table_size + 1> program_table;
int16_t program_count = 0;
std::string program_files_dir;
int16_t sizes_shown = 0;
int16_t last_selected_index = 0;

namespace {

std::string read_text(const std::string& path) {
  std::string bytes;
  BinaryFile f;
  std::int64_t n = 0;
  if (f.open_read(path) != 0 || f.length(n) != 0) return bytes;
  bytes.resize(static_cast<size_t>(n));
  DWORD got = 0;
  f.read_at(0, bytes.data(), static_cast<DWORD>(n), got);
  bytes.resize(got);
  return bytes;
}

// Rewritten whole, as a file opened for output.
void write_text(const std::string& path, const std::string& text) {
  BinaryFile f;
  if (f.open_binary(path) != 0) return;
  f.set_length(0);
  f.write_at(0, text.data(), static_cast<DWORD>(text.size()));
}

// The Windows folder's short path, found once a scan: Wine's
// GetShortPathNameA walks the path component by component.
std::string windir_short;

bool holds(const std::string& text, const std::string& what) {
  return text.find(what) != std::string::npos;
}

// One subkey's values, read through one open key: under Wine each open is a
// server trip, and a scan reads up to ten values a program. Read as
// reg_get_value reads them: the bytes up to the first NUL, empty when missing.
class EntryValues {
public:
  EntryValues(const std::string& key, RegView view) {
    key_.open(HKEY_LOCAL_MACHINE, std::string(uninstall_key_path) + "\\" + key, KEY_READ, view);
  }
  std::string operator()(const char* name) const {
    DWORD type = 0;
    std::string data;
    if (!key_.is_open() || key_.query(name, type, data) != ERROR_SUCCESS) return {};
    const size_t nul = data.find('\0');
    if (nul != std::string::npos) data.resize(nul);
    return data;
  }

private:
  RegKey key_;
};


// "InstallTo" normalised by GetFolder; a folder that is not there leaves
// `folder` as it was.
void take_install_to(const EntryValues& values, std::string& folder) {
  const std::string to = values("InstallTo");
  if (to.empty()) return;
  Folder f;
  if (file_system().GetFolder(to, f) == 0) folder = f.Path();
}

}  // namespace

std::string rewrite_program_files(const std::string& text) {
  const size_t p = text.find("%ProgramFiles%");
  if (p == std::string::npos) return text;
  const size_t rest = p + 15;  // the separator behind the variable goes too
  return program_files_dir + "\\" + (rest < text.size() ? text.substr(rest) : std::string());
}

std::string find_program_files_dir() {
  Folder f;
  if (file_system().GetFolder(special_folder(38), f) == 0) return f.Path();
  // The drive root of the Application Data folder.
  const std::string root = special_folder(26).substr(0, 3);
  if (file_system().GetFolder(root + "Program Files", f) == 0) return f.Path();
  return {};
}

namespace {

// The folder of a normal-case subkey from its values, in the order of
// inference.
std::string folder_from(const EntryValues& values, const std::string& name,
                        const std::string& uninstall) {
  FileSystemObject& fso = file_system();
  std::string folder = rewrite_program_files(values("InstallLocation"));
  if (folder.empty()) folder = fso.GetParentFolderName(command_to_path(uninstall));
  if (folder.empty()) {
    take_install_to(values, folder);
    folder = rewrite_program_files(folder);
  }

  // A folder inside the Windows folder only holds the uninstaller; the
  // short paths are compared case-sensitively, and a folder that is not
  // there has no short path.
  const std::string short_folder = short_path(folder);
  if (!short_folder.empty() && holds(short_folder, windir_short.empty() ? short_path(environment_variable("WinDir"))
                                                                 : windir_short) &&
      !holds(ucase(folder), "MICROSOFT.NET")) {
    folder = fso.GetParentFolderName(values("DisplayIcon"));
    if (folder.empty()) take_install_to(values, folder);
    folder = rewrite_program_files(folder);
  }

  if (folder.empty()) {
    const size_t blank = name.find(' ');
    const std::string word = blank == std::string::npos ? std::string() : trim(name.substr(0, blank + 1));
    const std::string pub = values("Publisher");
    if (!word.empty() && fso.FolderExists(program_files_dir + "\\" + word)) {
      folder = program_files_dir + "\\" + word;
    } else if (!pub.empty() && fso.FolderExists(program_files_dir + "\\" + pub)) {
      // Every subfolder overwrites the last: the enumeration's last one wins.
      for (const Folder& sub : Folder(program_files_dir + "\\" + pub).SubFolders())
        folder = program_files_dir + "\\" + pub + "\\" + sub.Name();
    }
  }

  if (!folder.empty() && folder.front() == '"') folder.erase(0, 1);
  if (!folder.empty() && folder.back() == '"') folder.pop_back();
  if (!folder.empty() && folder.back() == '\\') folder.pop_back();
  return rewrite_program_files(folder);
}

// One subkey into the table (`count` records so far). True when it has
// neither name, and goes.
bool take_entry(const std::string& key, RegView view, int& count) {
  const EntryValues values(key, view);
  const std::string dn = values("DisplayName");
  const std::string qn = values("QuietDisplayName");
  if (!dn.empty() && !holds(ucase(dn), "ISSC")) {
    for (int i = 1; i <= count && i <= program_table_size; ++i)
      if (program_table[i].name == dn) return false;  // the first one wins
    ++count;
    // A record past the table has no slot: left out, counted all the same.
    if (count > program_table_size) return false;
    program_record& r = program_table[count];
    r.key = key;
    r.name = dn;
    r.view = view;
    r.uninstall = rewrite_program_files(values("UninstallString"));
    r.folder = folder_from(values, dn, r.uninstall);
  } else if (!qn.empty()) {
    ++count;
    if (count <= program_table_size) {
      program_table[count].name = qn;
      program_table[count].uninstall = values("QuietUninstallString");
      program_table[count].view = view;
    }
  }
  return dn.empty() && qn.empty();
}

}  // namespace

std::string infer_program_folder(const std::string& key, const std::string& name,
                                 const std::string& uninstall, RegView view) {
  return folder_from(EntryValues(key, view), name, uninstall);
}

void read_installed_programs() {
  cmdline_path_count = 0;
  program_table.fill(program_record{});
  windir_short = short_path(environment_variable("WinDir"));
  int count = 0;
  // The 64-bit view, then the 32-bit one, as one list.
  for (const RegView view : software_views(HKEY_LOCAL_MACHINE)) {
    for (const std::string& key : reg_enum_keys(HKEY_LOCAL_MACHINE, uninstall_key_path, view)) {
      if (take_entry(key, view, count))  // closed by now: the key goes in its own view
        reg_delete_key(HKEY_LOCAL_MACHINE, std::string(uninstall_key_path) + "\\" + key, view);
    }
  }
  program_count = static_cast<int16_t>(count);
  windir_short.clear();
}

std::string memory_file_path() { return environment_variable("WinDir") + "\\apps"; }

ProgramRows merge_memory_file(int language) {
  ProgramRows rows;
  const std::string path = memory_file_path();
  std::vector<std::string> lines;
  const bool known = file_system().FileExists(path);
  if (known) {
    const std::string bytes = read_text(path);
    size_t at = 0;
    while (at < bytes.size()) {
      size_t end = bytes.find('\n', at);
      if (end == std::string::npos) end = bytes.size();
      std::string line = bytes.substr(at, end - at);
      if (!line.empty() && line.back() == '\r') line.pop_back();
      lines.push_back(line);
      at = end + 1;
    }
  }
  std::string out;
  for (int i = 1; i <= program_table_size && !program_table[i].name.empty(); ++i) {
    const std::string& name = program_table[i].name;
    out += name + "\r\n";
    bool listed = !known;
    for (size_t l = 0; l < lines.size() && !listed; ++l) listed = lines[l] == name;
    if (listed)
      rows.known.push_back(name);
    else
      rows.fresh.push_back(name + (language == 1 ? "        <<<<NEW>>>>" : "       <<<<NOU>>>>"));
  }
  write_text(path, out);
  return rows;
}

}  // namespace wh
