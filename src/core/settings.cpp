#include "core/settings.h"

#include "platform/registry.h"

namespace wh {

namespace {
std::string store_key(const std::string& application, const std::string& section) {
  return "Software\\" + application + "\\" + section;
}
}  // namespace

std::string GetSetting(const std::string& application, const std::string& section,
                       const std::string& key) {
  RegKey k;
  if (k.open(HKEY_CURRENT_USER, store_key(application, section), KEY_QUERY_VALUE) != 0) return {};
  DWORD type = 0;
  std::string data;
  if (k.query(key, type, data) != 0) return {};
  if (auto nul = data.find('\0'); nul != std::string::npos) data.resize(nul);
  return data;
}

void SaveSetting(const std::string& application, const std::string& section,
                 const std::string& key, const std::string& value) {
  RegKey k;
  if (k.create(HKEY_CURRENT_USER, store_key(application, section)) != 0) return;
  k.set(key, REG_SZ, value + '\0');
}

std::string setting(const std::string& key) { return GetSetting("Wellharrower", "Optiuni", key); }

void save_setting(const std::string& key, const std::string& value) {
  SaveSetting("Wellharrower", "Optiuni", key, value);
}

}  // namespace wh
