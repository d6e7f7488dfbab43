#pragma once
// What the pack's tests share: the real folders of the prefix the plug-ins
// read (made by a test and removed again, down to the first folder it made),
// files held open by another process, the pack registered from
// C:\wh\plugins\ (test.sh puts it there) and reached as the program reaches
// it, by class name and late-bound members.
//
// Paths are wide: the caches hold names in any script, and the plug-ins
// must reach them whatever the code page of the process.
#include <windows.h>
#include <objbase.h>

#include <map>
#include <string>
#include <vector>

namespace pack_test {

std::string utf8(const std::wstring& text);

// A shell folder (CSIDL_LOCAL_APPDATA, CSIDL_APPDATA, CSIDL_COMMON_APPDATA).
std::wstring shell_folder(int csidl);
inline std::wstring local_appdata() { return shell_folder(0x001c); }
inline std::wstring roaming_appdata() { return shell_folder(0x001a); }
inline std::wstring program_data() { return shell_folder(0x0023); }

// C:\wh\plugins\<name>.dll
std::wstring pack_file(const std::wstring& name);
// The members of the pack, by name.
const std::vector<std::wstring>& pack_names();

bool exists(const std::wstring& path);
// The whole file; "<missing>" when it cannot be read.
std::string read(const std::wstring& path);
// The names in a folder, sorted.
std::vector<std::wstring> names_in(const std::wstring& folder);
void remove_tree(const std::wstring& path);

// Files and folders a test makes in real places. Each path's first folder
// that did not exist is noted and removed with all below it at the end, so
// that a place that was there before keeps what it had.
class Made {
public:
  Made() = default;
  ~Made();
  Made(const Made&) = delete;
  Made& operator=(const Made&) = delete;

  // Makes the folders on the way; returns the path.
  std::wstring folder(const std::wstring& path);
  std::wstring file(const std::wstring& path, const std::string& bytes);

private:
  std::vector<std::wstring> tops_;
};

// Files that must come through a run byte for byte, and caches that must go.
class Expect {
public:
  explicit Expect(Made& made) : made_(made) {}
  // A file that stays; its bytes are its path, so no two are alike.
  std::wstring keep(const std::wstring& path);
  // A file that goes (its folder's fate is checked by the test).
  std::wstring gone(const std::wstring& path);
  // A folder that goes whole.
  void gone_folder(const std::wstring& path) { gone_.push_back(path); }
  // Checks both after the run, through gtest.
  void check() const;

private:
  Made& made_;
  std::map<std::wstring, std::string> kept_;
  std::vector<std::wstring> gone_;
};

// A Chromium browser's profile: what must stay, and its caches, which go
// whole (under `cache_home` when the browser keeps them apart, as Opera's
// local folder does). A read-only cache file goes too.
void chromium_profile(Expect& expect, const std::wstring& folder,
                      const std::wstring& cache_home = {});
// A Chromium browser's user data folder: its shared shader caches go, its
// "Local State" stays.
void chromium_user_data(Expect& expect, const std::wstring& data);
// A Firefox-family profile: its data under the roaming folder, its caches
// under the local one beside files of the data's names (which stay too);
// cache2, startupCache and thumbnails go whole.
void firefox_profile(Expect& expect, const std::wstring& family, const std::wstring& name);

// Another process holding a file open with no sharing, as a running browser
// or Explorer holds its caches; it ends with the object.
class Holder {
public:
  explicit Holder(const std::wstring& path);
  ~Holder();
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;
  bool holding() const { return holding_; }

private:
  PROCESS_INFORMATION process_{};
  bool holding_ = false;
};
// The child's side: `test_plugins hold <path in UTF-8>`.
int hold_main(const wchar_t* path);

// The program's language in its key store, "limba" ("romana" or
// "engleza"); the store goes at the end, as the form tests leave it.
class Language {
public:
  explicit Language(const char* value);
  ~Language();
};

// The pack registered from C:\wh\plugins\ (one member's registration takes
// the others) and unregistered at the end.
class Pack {
public:
  Pack();
  ~Pack();
  Pack(const Pack&) = delete;
  Pack& operator=(const Pack&) = delete;
};

// Makes `<name>.Plugin` and calls RUN; false when it cannot be made or RUN
// fails.
bool run(const std::wstring& name);
// Its Description, split at "|"; {"<none>"} when it cannot be read.
std::vector<std::string> describe(const std::wstring& name);

// Whether the system's list of removals at the next boot holds `path`.
bool scheduled(const std::wstring& path);

// A registered class's server, "" when the class is unknown.
std::wstring registered_server(const std::wstring& prog_id);
// DllRegisterServer / DllUnregisterServer of a DLL by its wide path.
HRESULT self_register(const std::wstring& dll, bool do_register);

}  // namespace pack_test
