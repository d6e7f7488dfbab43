#pragma once
// Section 1: the installed programs and their uninstallers.
#include <string>

#include "core/main_form.h"

namespace wh {

class UninstallPage {
public:
  // `search` is the search panel that the start-up manager shares.
  UninstallPage(MainForm& form, Frame& search);

  ListBox& List1;  // the programs
  ImageButton& PIE;
  ImageButton& QM;
  ImageButton& lupe;
  ImageButton& delfolder;
  ImageButton& talpa;  // the foot: shown on picking a row
  Frame& search;

  void enter();  // uninstall_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void scan_installed_programs();
  // A path handed over on the command line: the uninstaller of what it is.
  void uninstall_dropped(const std::string& path);

private:
  MainForm& form_;
};

}  // namespace wh
