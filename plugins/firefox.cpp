// Firefox: the caches of every profile of Firefox and of the forks that keep
// its layout. A profile's data (bookmarks, history, cookies, passwords,
// preferences) lies under the roaming application data; its caches under
// the local one, in a folder of the same name: only those are read here,
// and in each only the three cache trees go.
#include <windows.h>
#include <shlobj.h>

#include "common/plugin.h"
#include "common/walk.h"

namespace pack {

namespace {

struct Family {
  const wchar_t* name;
  const wchar_t* profiles;  // below the local application data
};

const Family families[] = {
    {L"Firefox", L"Mozilla\\Firefox\\Profiles"},
    {L"Waterfox", L"Waterfox\\Profiles"},
    {L"LibreWolf", L"librewolf\\Profiles"},
    {L"Floorp", L"Floorp\\Profiles"},
};

const wchar_t* const caches[] = {L"cache2", L"startupCache", L"thumbnails"};

std::wstring profiles_folder(const Family& family) {
  const std::wstring local = known_folder(CSIDL_LOCAL_APPDATA);
  return local.empty() ? local : join(local, family.profiles);
}

}  // namespace

std::wstring description(Language language) {
  const bool en = language == Language::english;
  std::vector<std::wstring> found;
  size_t count = 0;
  for (const Family& family : families) {
    const std::wstring folder = profiles_folder(family);
    if (folder.empty() || !folder_exists(folder)) continue;
    found.push_back(family.name);
    count += subfolders(folder).size();
  }
  if (found.empty())
    return en ? L"Firefox caches|No Firefox profile|found" : L"Cache Firefox|Niciun profil|Firefox gasit";
  const std::wstring profiles =
      std::to_wstring(count) + (en ? (count == 1 ? L" profile" : L" profiles")
                                   : (count == 1 ? L" profil" : L" profiluri"));
  return lcd_lines(en ? L"Caches, thumbs of" : L"Cache, miniaturi", found,
                   profiles + (en ? L"|(cookies stay)" : L"|(cookie-uri raman)"), 2);
}

void run() {
  for (const Family& family : families) {
    try {
      const std::wstring folder = profiles_folder(family);
      if (folder.empty()) continue;
      for (const std::wstring& profile : subfolders(folder))
        for (const wchar_t* cache : caches)
          clear_tree(join(join(folder, profile), cache), false, Locked::skip);
    } catch (...) {
      // The next family is cleaned all the same.
    }
  }
}

}  // namespace pack
