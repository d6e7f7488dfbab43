#pragma once
// Section 10, Duplicate Harrower: chosen folders are searched for files of
// chosen types, and those with the same name, or the same sampled content,
// are listed in numbered groups for deleting.
#include <array>
#include <string>

#include "core/main_form.h"
#include "filetools/dupfinder.h"

namespace wh {

class DuplicatesPage {
public:
  // `k1` is the hidden file list that the junk cleaner and the start-up
  // manager point at their own folders too.
  DuplicatesPage(MainForm& form, FileListBox& k1);

  Frame& finddups;  // the page
  ListBox& List4;   // folders to search
  OptionButton& Option3;  // same name
  OptionButton& Option4;  // same content
  std::array<PictureBox*, 5> Image36;  // mask groups: audio video documents graphics other
  std::array<PictureBox*, 5> Shape1;   // each group's marker
  PictureBox& Image37;  // start
  PictureBox& Image41;  // the season's picture, 25 to 27 December
  Frame& Frame18;       // masks of "other"
  ListBox& List5;
  TextBox& Text7;
  Label& Label46;       // closes Frame18
  PictureBox& Picture17;  // the results
  ListBox& duplicates;
  Label& label19;  // total wasted
  Label& l8;       // total selected
  PictureBox& Picture18;  // wait picture
  PictureBox& Picture19;  // its hourglass
  Label& Label47;         // "Scanning", "Sorting... "
  Label& dupprogress;     // the folder being searched
  FileListBox& k1;        // hidden: the files a folder holds by the masks

  void enter();  // dupy_Click
  void del_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void load_search_paths();  // List4 from "Paths", the fixed drives, written back
  void save_paths();
  void save_masks();
  bool marker(int index) const;

  void Image36_Click(int index);
  void Image37_Click();  // the scan
  void Text7_KeyDown(int& key, int shift);
  void duplicates_Click();
  void duplicates_KeyDown(int& key, int shift);
  void duplicates_DblClick();

  // The walkers: every file of the tree that k1's pattern takes.
  void scan_with_sizes(const std::string& folder);
  void scan_names(const std::string& folder);

  FoundTable table;  // from 1

private:
  void walk(const std::string& folder, bool sizes);
  void draw_pictures();
  void set_marker(int index, bool on);
  void busy(bool on);
  MainForm& form_;
  unsigned pump_tick_ = 0;
};

}  // namespace wh
