#pragma once
// Section 10: the duplicate finder.
#include "core/main_form.h"

namespace wh {

class DuplicatesPage {
public:
  explicit DuplicatesPage(MainForm& form);

  Frame& finddups;  // the page
  PictureBox& Picture17;  // the results

  void enter();  // dupy_Click
  void del_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void load_search_paths();  // List4 from "Paths"

private:
  MainForm& form_;
};

}  // namespace wh
