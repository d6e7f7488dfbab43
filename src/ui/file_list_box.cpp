#include "ui/file_list_box.h"

#include <set>

#include "platform/file_find.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"
#include "ui/events.h"
#include "ui/internal.h"

namespace wh {

namespace {
// The item data of a row whose length it cannot hold (a 32-bit build).
constexpr ULONG_PTR kNoLength = ~ULONG_PTR{0} >> 1;

// The full form of `path`, without a closing backslash except on a root.
std::string full_path(const std::string& path) {
  char buf[utf8::bytes_for(MAX_PATH * 2)];
  DWORD n = ::GetFullPathNameA(path.c_str(), sizeof buf, buf, nullptr);
  std::string full = (n > 0 && n < sizeof buf) ? std::string(buf, n) : path;
  while (full.size() > 3 && (full.back() == '\\' || full.back() == '/')) full.pop_back();
  return full;
}

bool is_folder(const std::string& path) {
  DWORD a = ::GetFileAttributesA(path.c_str());
  return a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_DIRECTORY);
}

std::string upper(std::string s) {
  ::CharUpperBuffA(s.data(), static_cast<DWORD>(s.size()));
  return s;
}
}  // namespace

std::string detail::folder_full_path(const std::string& path) { return full_path(path); }

// LBS_SORT: the rows come in the order of the system's own file lists.
FileListBox::FileListBox(Form& form, std::string name, const Place& place,
                         const ListBox::Options& options)
    : ListBox(form, std::move(name), place, options, LBS_SORT),
      path_(full_path(".")) {
  Refresh();
}

void FileListBox::Path(const std::string& path) {
  std::string full = full_path(path);
  if (!is_folder(full)) raise(rt_path_not_found);
  bool changed = upper(full) != upper(path_);
  path_ = full;
  Refresh();
  if (changed) fire(PathChange);
}

void FileListBox::Pattern(const std::string& pattern) {
  bool changed = pattern != pattern_;
  pattern_ = pattern;
  Refresh();
  if (changed) fire(PatternChange);
}

void FileListBox::Refresh() {
  ::SendMessageA(hwnd(), WM_SETREDRAW, FALSE, 0);
  send(LB_RESETCONTENT);
  forget_current();
  new_index_ = -1;
  std::string dir = path_;
  if (dir.back() != '\\') dir += '\\';
  std::set<std::string> seen;  // two masks may match one file
  folders_.clear();
  folders_listed_ = false;
  size_t from = 0;
  while (from <= pattern_.size()) {
    size_t to = pattern_.find(';', from);
    if (to == std::string::npos) to = pattern_.size();
    std::string mask = pattern_.substr(from, to - from);
    from = to + 1;
    while (!mask.empty() && mask.front() == ' ') mask.erase(0, 1);
    while (!mask.empty() && mask.back() == ' ') mask.pop_back();
    if (mask.empty()) continue;
    // No short names are read, but the masks still match them where the
    // system keeps them: "*.htm" takes "page.html", as Windows' own lists do.
    FileFind find(dir + mask, true);
    if (!find.found()) continue;
    const bool every_name = (mask == "*" || mask == "*.*") && !folders_listed_;
    folders_listed_ = folders_listed_ || every_name;
    do {
      const FoundEntry& fd = find.entry();
      DWORD a = fd.attributes;
      if (a & FILE_ATTRIBUTE_DIRECTORY) {
        if (every_name && fd.name != "." && fd.name != "..") folders_.push_back(fd.name);
        continue;
      }
      if ((a & FILE_ATTRIBUTE_HIDDEN) && !Hidden) continue;
      if ((a & FILE_ATTRIBUTE_SYSTEM) && !System) continue;
      if ((a & FILE_ATTRIBUTE_READONLY) && !ReadOnly) continue;
      if ((a & FILE_ATTRIBUTE_ARCHIVE) && !Archive) continue;
      const DWORD marked = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                           FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE;
      if (!(a & marked) && !Normal) continue;
      if (!seen.insert(upper(fd.name)).second) continue;
      const LRESULT row = send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(fd.name.c_str()));
      if (row >= 0)
        send(LB_SETITEMDATA, static_cast<WPARAM>(row),
             fd.size < static_cast<double>(kNoLength) ? static_cast<LPARAM>(fd.size)
                                                      : static_cast<LPARAM>(kNoLength));
    } while (find.next());
  }
  ::SendMessageA(hwnd(), WM_SETREDRAW, TRUE, 0);
  ::InvalidateRect(hwnd(), nullptr, TRUE);
}

double FileListBox::Length(int index) const {
  check_row(index);
  const auto kept = static_cast<ULONG_PTR>(send(LB_GETITEMDATA, static_cast<WPARAM>(index)));
  if (kept != kNoLength) return static_cast<double>(kept);
  std::string path = path_;
  if (path.back() != '\\') path += '\\';
  WIN32_FILE_ATTRIBUTE_DATA d;
  if (!::GetFileAttributesExA((path + List(index)).c_str(), GetFileExInfoStandard, &d)) return 0;
  return static_cast<double>(d.nFileSizeHigh) * 4294967296.0 + d.nFileSizeLow;
}

bool FileListBox::SubFolders(std::vector<std::string>& names) const {
  if (!folders_listed_) return false;
  names = folders_;
  return true;
}

std::string FileListBox::FileName() const {
  int i = ListIndex();
  return i >= 0 ? List(i) : std::string{};
}

}  // namespace wh
