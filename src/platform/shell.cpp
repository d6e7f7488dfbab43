#include "platform/shell.h"

#include <cstring>

#include <shellapi.h>
#include <shlobj.h>

namespace wh {

std::string special_folder_path(int csidl, bool create) {
  char buf[MAX_PATH + 1] = {};
  if (!SHGetSpecialFolderPathA(nullptr, buf, csidl, create)) return {};
  return buf;
}

std::intptr_t shell_execute(HWND hwnd, const std::string& verb, const std::string& file,
                            const std::string& params, const std::string& dir, int show) {
  HINSTANCE r = ShellExecuteA(hwnd, verb.empty() ? nullptr : verb.c_str(), file.c_str(),
                              params.c_str(), dir.c_str(), show);
  return reinterpret_cast<std::intptr_t>(r);
}

std::intptr_t find_executable(const std::string& file, std::string& result,
                              const std::string& dir) {
  char buf[MAX_PATH + 1] = {};
  HINSTANCE r = FindExecutableA(file.c_str(), dir.empty() ? nullptr : dir.c_str(), buf);
  auto code = reinterpret_cast<std::intptr_t>(r);
  result = code > 32 ? std::string(buf) : std::string();
  return code;
}

HRESULT query_recycle_bin(const std::string& root, double& bytes, double& items) {
  SHQUERYRBINFO info{};
  info.cbSize = sizeof info;
  bytes = items = 0;
  HRESULT hr = SHQueryRecycleBinA(root.empty() ? nullptr : root.c_str(), &info);
  if (SUCCEEDED(hr)) {
    bytes = static_cast<double>(info.i64Size);
    items = static_cast<double>(info.i64NumItems);
  }
  return hr;
}

HRESULT empty_recycle_bin(HWND hwnd, const std::string& root, DWORD flags) {
  return SHEmptyRecycleBinA(hwnd, root.empty() ? nullptr : root.c_str(), flags);
}

void update_recycle_bin_icon() {
  using Fn = void(WINAPI*)();
  HMODULE shell = GetModuleHandleA("shell32.dll");
  if (!shell) return;
  auto fn = reinterpret_cast<Fn>(
      reinterpret_cast<void*>(GetProcAddress(shell, "SHUpdateRecycleBinIcon")));
  if (fn) fn();
}

void add_to_recent_docs(const std::string& path) {
  SHAddToRecentDocs(SHARD_PATHA, path.empty() ? nullptr : path.c_str());
}

namespace {
int CALLBACK browse_callback(HWND w, UINT msg, LPARAM, LPARAM start) {
  if (msg == BFFM_INITIALIZED && start) ::SendMessageA(w, BFFM_SETSELECTIONA, TRUE, start);
  return 0;
}
}  // namespace

std::string shell_browse_folder(HWND owner, const std::string& title, const std::string& start) {
  char display[MAX_PATH + 1] = {};
  BROWSEINFOA bi{};
  bi.hwndOwner = owner;
  bi.pszDisplayName = display;
  bi.lpszTitle = title.c_str();
  bi.ulFlags = BIF_RETURNONLYFSDIRS;
  bi.lpfn = browse_callback;
  bi.lParam = start.empty() ? 0 : reinterpret_cast<LPARAM>(start.c_str());
  LPITEMIDLIST pidl = SHBrowseForFolderA(&bi);
  if (!pidl) return {};
  char buf[512] = {};
  SHGetPathFromIDListA(pidl, buf);
  CoTaskMemFree(pidl);
  return std::string(buf, strnlen(buf, sizeof buf));
}

DWORD get_short_path_name(const std::string& path, char* buffer, DWORD bufsize) {
  return GetShortPathNameA(path.c_str(), buffer, bufsize);
}

DWORD get_temp_path(char* buffer, DWORD bufsize) { return GetTempPathA(bufsize, buffer); }

}  // namespace wh
