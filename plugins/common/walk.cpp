#include "common/walk.h"

#include <windows.h>
#include <shlobj.h>

namespace pack {

namespace {

// "\\?\C:\..." or "\\?\UNC\server\share\...": no MAX_PATH, no name
// rewriting (a name ending in a dot or a blank is reached as it is).
std::wstring extended(const std::wstring& path) {
  if (path.rfind(L"\\\\?\\", 0) == 0) return path;
  if (path.rfind(L"\\\\", 0) == 0) return L"\\\\?\\UNC\\" + path.substr(2);
  return L"\\\\?\\" + path;
}

bool is_dots(const wchar_t* name) {
  return name[0] == L'.' && (name[1] == 0 || (name[1] == L'.' && name[2] == 0));
}

// A link (junction, symbolic link, mount point) is never entered nor removed:
// what it points at may lie outside the cache. Wine shows a host's symbolic
// link to a folder this way too; one to a file it shows as a plain file.
bool is_link(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0; }

struct Entry {
  std::wstring name;
  DWORD attributes;
  unsigned long long size;
};

// One folder's entries but the dots, read whole before anything in it is
// deleted. The basic information level skips the short names.
std::vector<Entry> entries(const std::wstring& folder) {
  std::vector<Entry> list;
  WIN32_FIND_DATAW found;
  HANDLE walk = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &found,
                                 FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
  if (walk == INVALID_HANDLE_VALUE) return list;
  do {
    if (is_dots(found.cFileName)) continue;
    list.push_back({found.cFileName, found.dwFileAttributes,
                    (static_cast<unsigned long long>(found.nFileSizeHigh) << 32) |
                        found.nFileSizeLow});
  } while (FindNextFileW(walk, &found));
  FindClose(walk);
  return list;
}

// `path` is extended already.
bool remove_file(const std::wstring& path, DWORD attributes, Locked locked) {
  if (DeleteFileW(path.c_str())) return true;
  DWORD error = GetLastError();
  if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND) return true;
  if (error == ERROR_ACCESS_DENIED && (attributes & FILE_ATTRIBUTE_READONLY)) {
    SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    if (DeleteFileW(path.c_str())) return true;
    error = GetLastError();
  }
  // Held open: a sharing or lock violation, or access denied for a file
  // that is mapped or being deleted.
  const bool held = error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ||
                    error == ERROR_ACCESS_DENIED;
  if (held && locked == Locked::schedule)
    MoveFileExW(path.c_str(), nullptr, MOVEFILE_DELAY_UNTIL_REBOOT);
  return false;
}

void remove_folder(const std::wstring& path) {
  if (RemoveDirectoryW(path.c_str())) return;
  const DWORD error = GetLastError();
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (error == ERROR_ACCESS_DENIED && attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & FILE_ATTRIBUTE_READONLY)) {
    SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
    RemoveDirectoryW(path.c_str());
  }
}

// The folders of a tree, the top first and every folder after its parent;
// links are not entered. Empty when `folder` is no real folder.
template <class OnFile> std::vector<std::wstring> walk_tree(const std::wstring& folder,
                                                           OnFile on_file) {
  std::vector<std::wstring> folders;
  const std::wstring top = extended(folder);
  const DWORD attributes = GetFileAttributesW(top.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY) ||
      is_link(attributes))
    return folders;
  folders.push_back(top);
  // Breadth first with a list instead of recursion: no depth can overflow
  // the stack of the program's thread.
  for (size_t i = 0; i < folders.size(); ++i) {
    const std::wstring here = folders[i];
    for (const Entry& entry : entries(here)) {
      if (is_link(entry.attributes)) continue;
      const std::wstring path = here + L"\\" + entry.name;
      if (entry.attributes & FILE_ATTRIBUTE_DIRECTORY)
        folders.push_back(path);
      else
        on_file(path, entry);
    }
  }
  return folders;
}

}  // namespace

std::wstring known_folder(int csidl) {
  wchar_t path[MAX_PATH] = {};
  if (FAILED(SHGetFolderPathW(nullptr, csidl, nullptr, SHGFP_TYPE_CURRENT, path))) return {};
  return path;
}

std::wstring join(const std::wstring& a, const std::wstring& b) {
  if (b.empty()) return a;
  if (a.empty()) return b;
  return a.back() == L'\\' ? a + b : a + L"\\" + b;
}

bool folder_exists(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(extended(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool file_exists(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(extended(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::vector<std::wstring> subfolders(const std::wstring& folder) {
  std::vector<std::wstring> names;
  for (const Entry& entry : entries(extended(folder)))
    if ((entry.attributes & FILE_ATTRIBUTE_DIRECTORY) && !is_link(entry.attributes))
      names.push_back(entry.name);
  return names;
}

std::vector<std::wstring> files_in(const std::wstring& folder) {
  std::vector<std::wstring> names;
  for (const Entry& entry : entries(extended(folder)))
    if (!(entry.attributes & FILE_ATTRIBUTE_DIRECTORY) && !is_link(entry.attributes))
      names.push_back(entry.name);
  return names;
}

void clear_tree(const std::wstring& folder, bool keep_folder, Locked locked) {
  const std::vector<std::wstring> folders =
      walk_tree(folder, [&](const std::wstring& path, const Entry& entry) {
        remove_file(path, entry.attributes, locked);
      });
  // The deepest first: each folder is listed after its parent. One that
  // still holds something (a held file, a link) stays, and its parents.
  for (size_t i = folders.size(); i-- > (keep_folder ? 1u : 0u);) remove_folder(folders[i]);
}

bool delete_file(const std::wstring& path, Locked locked) {
  const std::wstring full = extended(path);
  const DWORD attributes = GetFileAttributesW(full.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError() == ERROR_FILE_NOT_FOUND;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) || is_link(attributes)) return false;
  return remove_file(full, attributes, locked);
}

Tally tally(const std::wstring& folder) {
  Tally sum;
  walk_tree(folder, [&](const std::wstring&, const Entry& entry) {
    ++sum.files;
    sum.bytes += entry.size;
  });
  return sum;
}

unsigned long long file_size(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(extended(path).c_str(), GetFileExInfoStandard, &data)) return 0;
  return (static_cast<unsigned long long>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

bool same_name(const std::wstring& a, const std::wstring& b) {
  return CompareStringOrdinal(a.c_str(), static_cast<int>(a.size()), b.c_str(),
                              static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

bool name_matches(const std::wstring& name, const std::wstring& prefix, const std::wstring& suffix) {
  if (name.size() < prefix.size() + suffix.size()) return false;
  return same_name(name.substr(0, prefix.size()), prefix) &&
         same_name(name.substr(name.size() - suffix.size()), suffix);
}

}  // namespace pack
