#pragma once
// The system's list of removals at the next boot, read and put back.
#include <windows.h>

#include <string>

namespace wh::test {

inline const char* const kSession = "System\\CurrentControlSet\\Control\\Session Manager";

inline std::string pending_operations() {
  std::string data(65536, '\0');
  DWORD size = static_cast<DWORD>(data.size()), type = 0;
  HKEY k = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kSession, 0, KEY_READ, &k) != ERROR_SUCCESS) return {};
  if (RegQueryValueExA(k, "PendingFileRenameOperations", nullptr, &type,
                       reinterpret_cast<BYTE*>(data.data()), &size) != ERROR_SUCCESS)
    size = 0;
  RegCloseKey(k);
  data.resize(size);
  return data;
}

// Puts the list of removals at the next boot back as it was.
inline void restore_pending(const std::string& before) {
  HKEY k = nullptr;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kSession, 0, KEY_SET_VALUE, &k) != ERROR_SUCCESS) return;
  if (before.empty())
    RegDeleteValueA(k, "PendingFileRenameOperations");
  else
    RegSetValueExA(k, "PendingFileRenameOperations", 0, REG_MULTI_SZ,
                   reinterpret_cast<const BYTE*>(before.data()),
                   static_cast<DWORD>(before.size()));
  RegCloseKey(k);
}

}  // namespace wh::test
