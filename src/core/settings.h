#pragma once
// The per-user key store: application A, section S live in the registry key
// HKEY_CURRENT_USER\Software\A\S, one REG_SZ value per key. Value names are
// case-insensitive there, which is what the program relies on ("Limba" and
// "limba" are one key). A missing key reads as empty text.
#include <string>

namespace wh {

std::string GetSetting(const std::string& application, const std::string& section,
                       const std::string& key);
void SaveSetting(const std::string& application, const std::string& section,
                 const std::string& key, const std::string& value);

// The program's own store: "Wellharrower" / "Optiuni".
std::string setting(const std::string& key);
void save_setting(const std::string& key, const std::string& value);

}  // namespace wh
