// Chromium: the caches of the browsers built on Chromium, in every profile.
//
// A browser keeps its profiles in its user data folder: "Default",
// "Profile 1" ... each a folder holding "Preferences". Opera keeps its one
// profile in the folder itself, under the roaming application data, and its
// cache under the local one, in a folder of the same name. Only the named
// cache trees go: cookies, history, passwords, bookmarks, sessions,
// extensions, preferences and local storage stay. A file the running
// browser holds open stays too, with its folder.
#include <windows.h>
#include <shlobj.h>

#include "common/plugin.h"
#include "common/walk.h"

namespace pack {

namespace {

struct Browser {
  const wchar_t* name;
  int data_root;          // CSIDL of the user data folder's parent
  const wchar_t* data;    // the user data folder below it
  const wchar_t* cache;   // Opera: its cache folder below the local application data
};

const Browser browsers[] = {
    {L"Chrome", CSIDL_LOCAL_APPDATA, L"Google\\Chrome\\User Data", nullptr},
    {L"Edge", CSIDL_LOCAL_APPDATA, L"Microsoft\\Edge\\User Data", nullptr},
    {L"Brave", CSIDL_LOCAL_APPDATA, L"BraveSoftware\\Brave-Browser\\User Data", nullptr},
    {L"Vivaldi", CSIDL_LOCAL_APPDATA, L"Vivaldi\\User Data", nullptr},
    {L"Opera", CSIDL_APPDATA, L"Opera Software\\Opera Stable", L"Opera Software\\Opera Stable"},
    {L"Opera GX", CSIDL_APPDATA, L"Opera Software\\Opera GX Stable",
     L"Opera Software\\Opera GX Stable"},
    {L"Chromium", CSIDL_LOCAL_APPDATA, L"Chromium\\User Data", nullptr},
};

// In each profile.
const wchar_t* const profile_caches[] = {L"Cache", L"Code Cache", L"GPUCache",
                                         L"Service Worker\\CacheStorage",
                                         L"Service Worker\\ScriptCache"};
// Beside the profiles, shared by them.
const wchar_t* const shared_caches[] = {L"ShaderCache", L"GrShaderCache"};

// The folders where a browser's caches lie: its user data folder, and for
// Opera its local cache folder. Empty when the browser is not there.
std::vector<std::wstring> roots(const Browser& browser) {
  std::vector<std::wstring> found;
  const std::wstring data_root = known_folder(browser.data_root);
  if (!data_root.empty() && folder_exists(join(data_root, browser.data)))
    found.push_back(join(data_root, browser.data));
  const std::wstring local = known_folder(CSIDL_LOCAL_APPDATA);
  if (browser.cache && !local.empty() && folder_exists(join(local, browser.cache)))
    found.push_back(join(local, browser.cache));
  return found;
}

// The profiles of a user data folder, as paths below it: "" for the folder
// itself (Opera), "Default", "Profile 1" ...
std::vector<std::wstring> profiles(const std::wstring& data) {
  std::vector<std::wstring> found;
  if (file_exists(join(data, L"Preferences"))) found.push_back(L"");
  for (const std::wstring& name : subfolders(data))
    if (file_exists(join(join(data, name), L"Preferences"))) found.push_back(name);
  return found;
}

void clean(const Browser& browser) {
  const std::vector<std::wstring> places = roots(browser);
  if (places.empty()) return;
  // The profiles are those of the user data folder; Opera's local folder
  // mirrors them without "Preferences".
  const std::wstring data = join(known_folder(browser.data_root), browser.data);
  const std::vector<std::wstring> names = profiles(data);
  for (const std::wstring& place : places) {
    for (const wchar_t* cache : shared_caches) clear_tree(join(place, cache), false, Locked::skip);
    for (const std::wstring& profile : names)
      for (const wchar_t* cache : profile_caches)
        clear_tree(join(join(place, profile), cache), false, Locked::skip);
  }
}

}  // namespace

std::wstring description(Language language) {
  const bool en = language == Language::english;
  std::vector<std::wstring> found;
  for (const Browser& browser : browsers)
    if (!roots(browser).empty()) found.push_back(browser.name);
  if (found.empty())
    return en ? L"Chromium caches|No Chromium browser|found" : L"Cache Chromium|Niciun browser|Chromium gasit";
  return lcd_lines(en ? L"Browser caches of" : L"Cache-ul pentru", found,
                   en ? L"(cookies stay)" : L"(cookie-uri raman)");
}

void run() {
  for (const Browser& browser : browsers) {
    try {
      clean(browser);
    } catch (...) {
      // One browser's failure leaves the others to be cleaned.
    }
  }
}

}  // namespace pack
