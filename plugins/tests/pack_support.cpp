#include "pack_support.h"

#include <shlobj.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "core/settings.h"
#include "platform/automation.h"
#include "platform/registry.h"
#include "support/pending.h"
#include "platform/rt_error.h"

namespace pack_test {

std::string utf8(const std::wstring& text) {
  std::string out(text.size() * 4, '\0');
  out.resize(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                 out.data(), static_cast<int>(out.size()), nullptr, nullptr));
  return out;
}

std::wstring shell_folder(int csidl) {
  wchar_t path[MAX_PATH] = {};
  SHGetFolderPathW(nullptr, csidl, nullptr, SHGFP_TYPE_CURRENT, path);
  return path;
}

std::wstring pack_file(const std::wstring& name) { return L"C:\\wh\\plugins\\" + name + L".dll"; }

const std::vector<std::wstring>& pack_names() {
  static const std::vector<std::wstring> names{L"Chromium",     L"CrashDumps",  L"ErrorReports",
                                               L"ExplorerCache", L"Firefox",    L"ShaderCache"};
  return names;
}

bool exists(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string read(const std::wstring& path) {
  HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return "<missing>";
  std::string bytes(GetFileSize(file, nullptr), '\0');
  DWORD got = 0;
  ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
  CloseHandle(file);
  bytes.resize(got);
  return bytes;
}

std::vector<std::wstring> names_in(const std::wstring& folder) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW found;
  HANDLE walk = FindFirstFileW((folder + L"\\*").c_str(), &found);
  if (walk == INVALID_HANDLE_VALUE) return names;
  do {
    const std::wstring name = found.cFileName;
    if (name != L"." && name != L"..") names.push_back(name);
  } while (FindNextFileW(walk, &found));
  FindClose(walk);
  std::sort(names.begin(), names.end());
  return names;
}

void remove_tree(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return;
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) {
    DeleteFileW(path.c_str());
    return;
  }
  if (!(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
    for (const std::wstring& name : names_in(path)) remove_tree(path + L"\\" + name);
  RemoveDirectoryW(path.c_str());
}

Made::~Made() {
  for (auto top = tops_.rbegin(); top != tops_.rend(); ++top) remove_tree(*top);
}

std::wstring Made::folder(const std::wstring& path) {
  bool noted = false;
  for (size_t i = 3; i <= path.size(); ++i) {
    if (i < path.size() && path[i] != L'\\') continue;
    const std::wstring part = path.substr(0, i);
    if (exists(part)) continue;
    CreateDirectoryW(part.c_str(), nullptr);
    if (!noted) tops_.push_back(part);
    noted = true;
  }
  return path;
}

std::wstring Made::file(const std::wstring& path, const std::string& bytes) {
  folder(path.substr(0, path.find_last_of(L'\\')));
  if (!exists(path)) tops_.push_back(path);
  HANDLE file =
      CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  DWORD written = 0;
  WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
  return path;
}

std::wstring Expect::keep(const std::wstring& path) {
  const std::string bytes = "kept: " + utf8(path);
  kept_[made_.file(path, bytes)] = bytes;
  return path;
}

std::wstring Expect::gone(const std::wstring& path) {
  gone_.push_back(made_.file(path, std::string(300, 'c')));
  return path;
}

void Expect::check() const {
  for (const auto& [path, bytes] : kept_) EXPECT_EQ(bytes, read(path)) << utf8(path);
  for (const std::wstring& path : gone_) EXPECT_FALSE(exists(path)) << utf8(path);
}

void chromium_profile(Expect& expect, const std::wstring& folder, const std::wstring& cache_home) {
  for (const wchar_t* kept :
       {L"Preferences", L"Secure Preferences", L"Cookies", L"History", L"Login Data",
        L"Bookmarks", L"Web Data", L"Network\\Cookies", L"Local Storage\\leveldb\\000003.log",
        L"Extensions\\aapocclcgogkmnckokdopfmhonfmgoek\\0.10_0\\manifest.json",
        L"Sessions\\Session_13350000000000001", L"Service Worker\\Database\\MANIFEST-000001"})
    expect.keep(folder + L"\\" + kept);
  const std::wstring home = cache_home.empty() ? folder : cache_home;
  for (const wchar_t* cached :
       {L"Cache\\Cache_Data\\index", L"Cache\\Cache_Data\\data_0", L"Cache\\Cache_Data\\f_00001a",
        L"Cache\\Cache_Data\\\u0219coal\u0103-\u65e5\u672c.bin", L"Code Cache\\js\\index",
        L"Code Cache\\js\\index-dir\\the-real-index", L"Code Cache\\wasm\\index",
        L"GPUCache\\data_1", L"Service Worker\\CacheStorage\\0a1b2c\\5e6f-77\\index",
        L"Service Worker\\ScriptCache\\2cc80dab_0", L"Service Worker\\ScriptCache\\index"})
    expect.gone(home + L"\\" + cached);
  SetFileAttributesW(expect.gone(home + L"\\GPUCache\\data_2").c_str(), FILE_ATTRIBUTE_READONLY);
  for (const wchar_t* cache : {L"Cache", L"Code Cache", L"GPUCache", L"Service Worker\\CacheStorage",
                               L"Service Worker\\ScriptCache"})
    expect.gone_folder(home + L"\\" + cache);
}

void chromium_user_data(Expect& expect, const std::wstring& data) {
  expect.keep(data + L"\\Local State");
  expect.gone(data + L"\\ShaderCache\\data_0");
  expect.gone(data + L"\\GrShaderCache\\data_1");
  expect.gone_folder(data + L"\\ShaderCache");
  expect.gone_folder(data + L"\\GrShaderCache");
}

void firefox_profile(Expect& expect, const std::wstring& family, const std::wstring& name) {
  const std::wstring data = roaming_appdata() + L"\\" + family + L"\\Profiles\\" + name;
  const std::wstring caches = local_appdata() + L"\\" + family + L"\\Profiles\\" + name;
  for (const wchar_t* kept : {L"places.sqlite", L"key4.db", L"cookies.sqlite", L"prefs.js",
                              L"logins.json", L"sessionstore.jsonlz4", L"extensions.json",
                              L"storage\\default\\https+++example.org\\ls\\data.sqlite"})
    expect.keep(data + L"\\" + kept);
  for (const wchar_t* kept : {L"places.sqlite", L"cookies.sqlite",
                              L"safebrowsing\\google4\\goog-phish.vlpset", L"jumpListCache\\icon.ico"})
    expect.keep(caches + L"\\" + kept);
  for (const wchar_t* cached :
       {L"cache2\\entries\\0A1B2C3D4E5F60718293A4B5C6D7E8F901234567", L"cache2\\index",
        L"cache2\\doomed\\123", L"startupCache\\startupCache.8.little",
        L"startupCache\\scriptCache-child.bin", L"thumbnails\\3f2a\\\u65e5\u672c.png",
        L"thumbnails\\9c1e.png"})
    expect.gone(caches + L"\\" + cached);
  for (const wchar_t* cache : {L"cache2", L"startupCache", L"thumbnails"})
    expect.gone_folder(caches + L"\\" + cache);
}

Holder::Holder(const std::wstring& path) {
  wchar_t self[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  std::wstring line = L"\"" + std::wstring(self) + L"\" hold \"" + path + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                      &process_))
    return;
  // Held once nobody else may open it.
  for (int tries = 0; tries < 200 && !holding_; ++tries) {
    HANDLE probe = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (probe != INVALID_HANDLE_VALUE)
      CloseHandle(probe);
    else
      holding_ = GetLastError() == ERROR_SHARING_VIOLATION;
    if (!holding_) Sleep(50);
  }
}

Holder::~Holder() {
  if (!process_.hProcess) return;
  TerminateProcess(process_.hProcess, 0);
  WaitForSingleObject(process_.hProcess, 10000);
  CloseHandle(process_.hProcess);
  CloseHandle(process_.hThread);
}

int hold_main(const wchar_t* path) {
  HANDLE file = CreateFileW(path, GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  Sleep(120000);  // ended by the test long before
  return 0;
}

Language::Language(const char* value) { wh::save_setting("limba", value); }

Language::~Language() { wh::reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower"); }

HRESULT self_register(const std::wstring& dll, bool do_register) {
  HMODULE module = LoadLibraryW(dll.c_str());
  if (!module) return HRESULT_FROM_WIN32(GetLastError());
  using Entry = HRESULT(WINAPI*)();
  auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(
      GetProcAddress(module, do_register ? "DllRegisterServer" : "DllUnregisterServer")));
  const HRESULT result = entry ? entry() : E_FAIL;
  FreeLibrary(module);
  return result;
}

Pack::Pack() { EXPECT_EQ(S_OK, self_register(pack_file(L"CrashDumps"), true)); }

Pack::~Pack() {
  CoFreeUnusedLibrariesEx(0, 0);
  self_register(pack_file(L"CrashDumps"), false);
}

bool run(const std::wstring& name) {
  wh::AutomationObject plugin;
  if (plugin.create(utf8(name) + ".Plugin") != wh::rt_ok) return false;
  return plugin.call("RUN") == wh::rt_ok;
}

std::vector<std::string> describe(const std::wstring& name) {
  wh::AutomationObject plugin;
  std::string text;
  if (plugin.create(utf8(name) + ".Plugin") != wh::rt_ok ||
      plugin.get_text("Description", text) != wh::rt_ok)
    return {"<none>"};
  std::vector<std::string> lines;
  size_t start = 0;
  for (size_t bar; (bar = text.find('|', start)) != std::string::npos; start = bar + 1)
    lines.push_back(text.substr(start, bar - start));
  lines.push_back(text.substr(start));
  return lines;
}

bool scheduled(const std::wstring& path) {
  // Pairs of zero-ended strings: the NT path, then an empty target.
  const std::string wanted = std::string("\\??\\") + utf8(path) + '\0' + '\0';
  return wh::test::pending_operations().find(wanted) != std::string::npos;
}

namespace {
std::wstring default_value(const std::wstring& key) {
  wchar_t value[1024] = {};
  DWORD size = sizeof value - sizeof(wchar_t);
  if (RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value, &size) !=
      ERROR_SUCCESS)
    return {};
  return value;
}
}  // namespace

std::wstring registered_server(const std::wstring& prog_id) {
  const std::wstring clsid = default_value(prog_id + L"\\CLSID");
  return clsid.empty() ? clsid : default_value(L"CLSID\\" + clsid + L"\\InprocServer32");
}

}  // namespace pack_test
