#pragma once
// Section 3: cutting a file into fragments and joining them again.
#include "core/main_form.h"

namespace wh {

class SplitPage {
public:
  explicit SplitPage(MainForm& form);

  Frame& splitbox;  // the page
  OptionButton& Option1;
  Label& Label1;  // the split tab
  DirListBox& dir1;
  FileListBox& File1;  // the junk cleaner walks folders through it too

  void enter();  // splity_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void Label1_Click();

private:
  MainForm& form_;
};

}  // namespace wh
