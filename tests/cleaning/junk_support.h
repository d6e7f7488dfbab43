#pragma once
// Section 8 on a test form, with every folder it reads moved into a scratch
// folder: WinDir, the temporary folders, the caches, the browsers. Only the
// drive roots and the recycle bin are the prefix's own.
#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>

#include "cleaning/junk_page.h"
#include "cleaning/junk_state.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "support/scratch.h"
#include "support/test_form.h"

namespace wh::test {

// The shared controls the form hands the page.
struct JunkShared {
  explicit JunkShared(MainForm& form)
      : frame1(form.add<Frame>("frame1", Place{0, 0, 10, 10})),
        File1(form.add<FileListBox>("File1", Place{0, 0, 10, 10})),
        Dir3(form.add<DirListBox>("Dir3", Place{0, 0, 10, 10})),
        Drive1(form.add<DriveListBox>("Drive1", Place{0, 0, 10, 10})),
        k1(form.add<FileListBox>("k1", Place{0, 0, 10, 10})) {}
  Frame& frame1;
  FileListBox& File1;
  DirListBox& Dir3;
  DriveListBox& Drive1;
  FileListBox& k1;
};

// A key with text values, made for a test.
inline void make_key(HKEY hive, const std::string& key,
                     std::initializer_list<std::pair<const char*, const char*>> values = {}) {
  HKEY k = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyA(hive, key.c_str(), &k));
  for (auto [name, text] : values)
    RegSetValueExA(k, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                   static_cast<DWORD>(strlen(text) + 1));
  RegCloseKey(k);
}

// Whether a key, or a value of a key, stands.
inline bool key_exists(HKEY hive, const std::string& key) {
  HKEY k = nullptr;
  if (RegOpenKeyExA(hive, key.c_str(), 0, KEY_READ, &k) != ERROR_SUCCESS) return false;
  RegCloseKey(k);
  return true;
}

inline bool value_exists(HKEY hive, const std::string& key, const std::string& name) {
  HKEY k = nullptr;
  if (RegOpenKeyExA(hive, key.c_str(), 0, KEY_READ, &k) != ERROR_SUCCESS) return false;
  const bool found =
      RegQueryValueExA(k, name.c_str(), nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
  RegCloseKey(k);
  return found;
}

// Removes, at the end of a test, a key tree the test made.
class MadeKey {
public:
  MadeKey(HKEY hive, std::string key) : hive_(hive), key_(std::move(key)) {
    reg_delete_tree(hive_, key_);
  }
  ~MadeKey() { reg_delete_tree(hive_, key_); }
  MadeKey(const MadeKey&) = delete;
  MadeKey& operator=(const MadeKey&) = delete;

private:
  HKEY hive_;
  std::string key_;
};

class JunkWorld {
public:
  JunkWorld() : windir_(environ_value("WinDir")) {
    SetEnvironmentVariableA("WinDir", windows().c_str());
    dir.folder("windows");
    temp_folder = dir.folder("temp");
    windows_temp_folder = dir.folder("windows\\TEMP");
    downloaded_programs_folder = windows() + "\\Downloaded Program Files";
    downloaded_installations_folder = windows() + "\\Downloaded Installations";
    internet_logs_folder = windows() + "\\Internet Logs";
    prefetch_folder = windows() + "\\Prefetch";
    cache_folder = dir.folder("cache");
    cookies_folder = dir.folder("cookies");
    recent_folder = dir.folder("recent");
    history_folder = dir.folder("history");
    appdata_folder = dir.folder("appdata");
    programs_folder = dir.folder("programs");
    for (std::string* browser : {&opera_folder, &firefox_folder, &firefox_profile}) browser->clear();
    cache_folders.clear();
    junk_file_items.clear();
    junk_folder_items.clear();
  }
  ~JunkWorld() { SetEnvironmentVariableA("WinDir", windir_.c_str()); }
  JunkWorld(const JunkWorld&) = delete;
  JunkWorld& operator=(const JunkWorld&) = delete;

  std::string windows() const { return dir / "windows"; }

  ScratchDir dir{"junkworld"};

private:
  std::string windir_;
};

}  // namespace wh::test
