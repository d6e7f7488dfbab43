#pragma once
// The floors: the plainest Win32 loops doing a walk's work, what a
// straightforward program would write and no more. A benchmark times the
// program's walk and its floor on the same data in the same Wine.
#include <windows.h>

#include <string>

namespace plain {

inline bool dots(const char* name) {
  return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

inline double length(const WIN32_FIND_DATAA& fd) {
  return static_cast<double>(fd.nFileSizeHigh) * 4294967296.0 + fd.nFileSizeLow;
}

// Calls f for each entry of `pattern` ("C:\dir\*.tmp") but "." and "..".
template <class F>
void list(const std::string& pattern, F&& f) {
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA(pattern.c_str(), &fd);
  if (h == INVALID_HANDLE_VALUE) return;
  do {
    if (!dots(fd.cFileName)) f(fd);
  } while (FindNextFileA(h, &fd));
  FindClose(h);
}

// The bytes of every file of a tree: one FindFirstFileA listing a folder.
inline double tree_size(const std::string& folder) {
  double total = 0;
  list(folder + "\\*", [&](const WIN32_FIND_DATAA& fd) {
    if (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
      total += tree_size(folder + "\\" + fd.cFileName);
    else
      total += length(fd);
  });
  return total;
}

// Deletes a tree: DeleteFileA for each file, RemoveDirectoryA for each
// folder once emptied.
inline void delete_tree(const std::string& folder) {
  list(folder + "\\*", [&](const WIN32_FIND_DATAA& fd) {
    const std::string path = folder + "\\" + fd.cFileName;
    if (fd.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
      delete_tree(path);
    else
      DeleteFileA(path.c_str());
  });
  RemoveDirectoryA(folder.c_str());
}

}  // namespace plain
