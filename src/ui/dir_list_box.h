#pragma once
#include <string>
#include <vector>

#include "ui/list_box.h"

namespace wh {

// The folders of Path: its ancestors from the root, Path itself, then its
// subfolders, each indented one step deeper. Indexes are relative to Path:
// List(-1) is Path, List(-2) its parent and so on up to the root; List(0)
// to List(ListCount - 1) are the subfolders, by name without regard to
// case. A double click on a row makes it Path; Change fires when Path
// changes. Hidden folders are left out.
class DirListBox : public ListBox {
public:
  DirListBox(Form& form, std::string name, const Place& place);

  std::string Path() const { return path_; }
  void Path(const std::string& path);  // raises 76 for a missing folder
  std::string List(int index) const;   // full path, "" outside
  int ListCount() const;               // subfolders only
  int ListIndex() const;               // -1 when Path's row is current
  void ListIndex(int index);
  void Refresh();  // reads the subfolders again

  Event Change;

  void on_command(int code) override;

private:
  int base() const { return static_cast<int>(ancestors_.size()); }  // row of Path
  std::string path_;
  std::vector<std::string> ancestors_;  // root first, Path excluded
  std::vector<std::string> children_;   // full paths
};

}  // namespace wh
