#include "ui/dir_list_box.h"

#include <algorithm>

#include "platform/file_find.h"
#include "platform/rt_error.h"
#include "ui/events.h"
#include "ui/internal.h"

namespace wh {

namespace {
bool is_folder(const std::string& path) {
  DWORD a = ::GetFileAttributesA(path.c_str());
  return a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_DIRECTORY);
}

std::string join(const std::string& dir, const std::string& name) {
  return dir.back() == '\\' ? dir + name : dir + "\\" + name;
}

std::string last_part(const std::string& path) {
  if (path.size() <= 3) return path;  // the root keeps its backslash
  return path.substr(path.find_last_of('\\') + 1);
}

bool same_path(const std::string& a, const std::string& b) {
  return ::lstrcmpiA(a.c_str(), b.c_str()) == 0;
}
}  // namespace

DirListBox::DirListBox(Form& form, std::string name, const Place& place)
    : ListBox(form, std::move(name), place, ListBox::Options{}, 0),
      path_(detail::folder_full_path(".")) {
  Refresh();
}

void DirListBox::Path(const std::string& path) {
  std::string full = detail::folder_full_path(path);
  if (!is_folder(full)) raise(rt_path_not_found);
  bool changed = !same_path(full, path_);
  path_ = full;
  Refresh();
  if (changed) fire(Change);
}

void DirListBox::Refresh() {
  ancestors_.clear();
  children_.clear();
  // "C:\a\b": ancestors "C:\" and "C:\a".
  for (size_t at = path_.find('\\'); at != std::string::npos && at + 1 < path_.size();
       at = path_.find('\\', at + 1))
    ancestors_.push_back(path_.substr(0, at == 2 ? 3 : at));
  FileFind find(join(path_, "*"), true);  // no short names: the cheapest listing
  if (find.found()) {
    do {
      const FoundEntry& fd = find.entry();
      if (!(fd.attributes & FILE_ATTRIBUTE_DIRECTORY)) continue;
      if (fd.attributes & FILE_ATTRIBUTE_HIDDEN) continue;
      if (fd.name == "." || fd.name == "..") continue;
      children_.push_back(join(path_, fd.name));
    } while (find.next());
  }
  std::sort(children_.begin(), children_.end(), [](const std::string& a, const std::string& b) {
    return ::lstrcmpiA(a.c_str(), b.c_str()) < 0;
  });

  ::SendMessageA(hwnd(), WM_SETREDRAW, FALSE, 0);
  send(LB_RESETCONTENT);
  auto add = [this](int depth, const std::string& path) {
    std::string row(depth * 2, ' ');
    row += last_part(path);
    send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.c_str()));
  };
  int depth = 0;
  for (auto& a : ancestors_) add(depth++, a);
  add(depth, path_);
  for (auto& c : children_) add(depth + 1, c);
  send(LB_SETCURSEL, base());
  ::SendMessageA(hwnd(), WM_SETREDRAW, TRUE, 0);
  ::InvalidateRect(hwnd(), nullptr, TRUE);
}

std::string DirListBox::List(int index) const {
  int row = base() + 1 + index;
  if (row < 0) return {};
  if (row < base()) return ancestors_[row];
  if (row == base()) return path_;
  size_t child = static_cast<size_t>(row - base() - 1);
  return child < children_.size() ? children_[child] : std::string{};
}

int DirListBox::ListCount() const { return static_cast<int>(children_.size()); }

int DirListBox::ListIndex() const {
  int row = static_cast<int>(send(LB_GETCURSEL));
  return row < 0 ? -1 : row - base() - 1;
}

void DirListBox::ListIndex(int index) {
  int row = base() + 1 + index;
  if (row < 0 || row >= rows()) raise(rt_invalid_property);
  if (index == ListIndex()) return;
  send(LB_SETCURSEL, row);
  fire(Click);
}

void DirListBox::on_command(int code) {
  if (code == LBN_SELCHANGE) {
    fire(Click);
  } else if (code == LBN_DBLCLK) {
    std::string target = List(ListIndex());
    // The folder may have gone since the list was read: that error is the
    // event's, as the program's own handlers' are.
    if (!target.empty()) raise_event([&] { Path(target); });
  }
}

}  // namespace wh
