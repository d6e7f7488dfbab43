#pragma once
// Section 5: the floppy in drive A and its formatter.
#include "core/main_form.h"

namespace wh {

class FloppyPage {
public:
  explicit FloppyPage(MainForm& form);

  Frame& Frame6;  // the page
  DirListBox& Dir2;
  FileListBox& File2;

  void enter();  // kila_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

private:
  MainForm& form_;
};

}  // namespace wh
