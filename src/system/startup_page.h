#pragma once
// Section 9: the start-up manager.
#include "core/main_form.h"

namespace wh {

class StartupPage {
public:
  // `search` is the search panel that the uninstall section shares.
  StartupPage(MainForm& form, Frame& search);

  Frame& RUNframe;  // the page
  ListBox& run_reg;
  ImageButton& umb_up;  // element 0 of its array
  Frame& search;

  void enter();  // RUN_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void scan_startup();

private:
  MainForm& form_;
};

}  // namespace wh
