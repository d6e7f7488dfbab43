// ExplorerCache: Explorer's thumbnail and icon caches, thumbcache_*.db and
// iconcache_*.db in %LOCALAPPDATA%\Microsoft\Windows\Explorer. Explorer
// holds them open while it runs, so what cannot go now is removed at the
// next start of Windows. Nothing else of that folder is touched.
#include <windows.h>
#include <shlobj.h>

#include "common/plugin.h"
#include "common/walk.h"

namespace pack {

namespace {

std::wstring explorer_folder() {
  const std::wstring local = known_folder(CSIDL_LOCAL_APPDATA);
  return local.empty() ? local : join(local, L"Microsoft\\Windows\\Explorer");
}

// Matched by hand rather than by a search pattern: a pattern also matches
// the short names of other files.
bool is_cache(const std::wstring& name) {
  return name_matches(name, L"thumbcache_", L".db") || name_matches(name, L"iconcache_", L".db");
}

}  // namespace

std::wstring description(Language language) {
  const bool en = language == Language::english;
  const std::wstring folder = explorer_folder();
  unsigned long long files = 0, bytes = 0;
  if (!folder.empty()) {
    for (const std::wstring& name : files_in(folder)) {
      if (!is_cache(name)) continue;
      ++files;
      bytes += file_size(join(folder, name));
    }
  }
  return en ? L"Explorer's caches|thumbnails, icons|" + files_line(files, bytes, language) +
                  L"|what is in use goes|at the next start"
            : L"Cache Explorer|miniaturi, iconite|" + files_line(files, bytes, language) +
                  L"|cele folosite se|sterg la repornire";
}

void run() {
  const std::wstring folder = explorer_folder();
  if (folder.empty()) return;
  for (const std::wstring& name : files_in(folder))
    if (is_cache(name)) delete_file(join(folder, name), Locked::schedule);
}

}  // namespace pack
