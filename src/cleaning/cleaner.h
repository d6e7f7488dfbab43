#pragma once
// The cleaners of the nine categories of section 8 that hold files, and the
// folder walk they share. Nothing is reported: a failure leaves its file in
// place, a locked file (error 70) is counted and left to the next boot.
#include <windows.h>

#include <string>

#include "ui/file_list_box.h"

namespace wh {

class JunkCleaner {
public:
  // `File1` is the splitter's visible file list, the lister of every level
  // of clean_tree; `owner` is the main window, for the recycle bin.
  JunkCleaner(FileListBox& File1, HWND owner) : File1_(File1), owner_(owner) {}

  // Depth first: the files File1 lists, forced, then the subfolders, then
  // the folder itself, unforced. Hidden and system files only go with the
  // folder. Never raises.
  void clean_tree(const std::string& path);

  void empty_recycle_bin();               // 1
  void clean_junk_items();                // 2
  void clean_temp();                      // 3
  void clean_prefetch();                  // 4
  void clean_internet_cache();            // 5
  void clean_cookies();                   // 6
  void clean_internet_logs();             // 7
  void clean_downloaded_programs();       // 8
  void clean_downloaded_installations();  // 9

private:
  FileListBox& File1_;
  HWND owner_;
};

}  // namespace wh
