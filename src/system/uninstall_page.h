#pragma once
// Section 1: the installed programs and their uninstallers.
#include <functional>
#include <string>

#include "core/main_form.h"
#include "system/installed_programs.h"

namespace wh {

class UninstallPage {
public:
  // `search` and its `Text6` are the search panel that the start-up manager
  // shares.
  UninstallPage(MainForm& form, Frame& search, TextBox& Text6);

  ListBox& List1;  // the programs, sorted; new ones on top
  ImageButton& PIE;
  ImageButton& QM;  // beside PIE: sizes not known
  ImageButton& lupe;
  ImageButton& delfolder;
  ImageButton& talpa;  // the foot: shown on picking two rows
  Frame& search;
  TextBox& Text6;

  // The answer of the "great software" question goes, as text, into the
  // power-off minutes box; the form wires that box here.
  std::function<void(const std::string&)> mm;

  void enter();  // uninstall_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void scan_installed_programs();
  // A path handed over on the command line: the uninstaller of what it is.
  void uninstall_dropped(std::string path);

  void PIE_Click();
  void List1_Click();
  void List1_DblClick();
  void List1_KeyDown(int& key, int shift);
  void talpa_Click();
  void delfolder_Click();
  void delfolder_MouseMove(int button, int shift, int x, int y);

private:
  int ask_great_software();
  MainForm& form_;
};

// The rows of a scan into the sorted List1: the known names placed by the
// list, the new ones inserted on top in table order. Drawn once, when all
// are in: under Wine a shown list paid a trip to the X server per row.
void show_program_rows(ListBox& List1, const ProgramRows& rows);
// Every blank taken out.
std::string strip_spaces(const std::string& text);
// Starts a command line without waiting, in the window state `style`; raises
// 53 when the file cannot be started, 5 for an empty command.
void start_program(const std::string& command, int style);

}  // namespace wh
