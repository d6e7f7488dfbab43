#pragma once
// Section 4: the disk space explorer.
#include <string>

#include "core/main_form.h"

namespace wh {

class DiskPage {
public:
  explicit DiskPage(MainForm& form);

  Frame& Frame5;  // the page
  DriveListBox& Drive3;
  Label& back;  // the folder shown
  ListBox& list;
  ImageButton& explorer;

  void enter();  // dirinfo_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void Drive3_Change();
  void afisdirs(const std::string& path, bool select_saved);

private:
  MainForm& form_;
};

}  // namespace wh
