#pragma once
#include <string>
#include <vector>

#include "ui/list_box.h"

namespace wh {

// The files of Path that match Pattern ("*.tmp;*.bak", several masks split
// by ";"), sorted by name without regard to case as the OS file list is.
// Attribute switches: a file with a set attribute shows only when its
// switch is on; a file with none of them shows when Normal is on.
class FileListBox : public ListBox {
public:
  FileListBox(Form& form, std::string name, const Place& place,
              const ListBox::Options& options = {});

  std::string Path() const { return path_; }
  void Path(const std::string& path);  // raises 76 for a missing folder
  std::string Pattern() const { return pattern_; }
  void Pattern(const std::string& pattern);
  bool Archive = true;
  bool Normal = true;
  bool ReadOnly = true;
  bool Hidden = false;
  bool System = false;
  // Reads the folder again; the switches above take effect here.
  void Refresh();
  // The current row's name, "" when none.
  std::string FileName() const;
  // A row's length in bytes as the listing found it, kept in the row's item
  // data: a walk needs no call per file for it. Asked of the file itself
  // when the row could not hold it; 0 when the file is gone. 381 outside
  // the rows.
  double Length(int index) const;
  // The subfolders (names, hidden ones too) that the last listing passed
  // over, when one of its masks takes every name ("*", "*.*"): a walk down
  // the tree needs no listing of its own then. False when none did.
  bool SubFolders(std::vector<std::string>& names) const;

  Event PathChange, PatternChange;

private:
  std::string path_;
  std::string pattern_ = "*.*";
  std::vector<std::string> folders_;  // of a listing of every name
  bool folders_listed_ = false;
};

}  // namespace wh
