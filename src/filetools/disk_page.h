#pragma once
// Section 4, the disk space explorer: the folders and files of a folder,
// largest first, to walk down and up and to delete. Folder sizes walk
// whole trees, so each drive's root listing is kept (17 drives at most).
#include <cstdint>
#include <string>
#include <vector>

#include "core/main_form.h"
#include "filetools/disk_scan.h"

namespace wh {

class DiskPage {
public:
  explicit DiskPage(MainForm& form);

  Frame& Frame5;  // the page
  DriveListBox& Drive3;
  Label& back;  // the folder shown
  ListBox& list;      // folders
  ListBox& listfile;  // files
  Label& usedlabel;   // the drive's used space
  Label& freelabel;   // and its free space
  Label& totallabel;  // everything the folder holds
  Label& label8;      // what is selected
  Label& dirprogress;
  Frame& waita;  // the wait panel over the lists
  Label& Label40;
  PictureBox& Image5;  // preview of a picture file
  ImageButton& explorer;

  void enter();  // dirinfo_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void Drive3_Change();
  void afisdirs(const std::string& path, bool select_saved);
  bool driveexists(const std::string& path, int count) const;
  // Timer3's refresh of the drive's used and free space while the section
  // shows: files come and go on a drive while one looks at it.
  void free_space_tick();

  void list_Click();
  void listfile_Click();
  void list_DblClick();
  void list_KeyDown(int& key, int shift);
  void listfile_KeyDown(int& key, int shift);

  // Forces a rescan of a root even when it is cached (the refresh button).
  bool rescan = false;

  SizedTable folders;  // the current folder's, in list order
  SizedTable files;
  RootCache cache;
  std::vector<int16_t> stack;  // selected line of each level walked down
  uint8_t depth = 0;

private:
  void drive_labels(const std::string& root);
  void show_space();
  void hide_preview();
  bool has_up() const;
  std::string child_path(const std::string& name) const;
  MainForm& form_;
  double used_ = 0, free_ = 0, total_ = 0;
  bool clicking_ = false;
};

}  // namespace wh
