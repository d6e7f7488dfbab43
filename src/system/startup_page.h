#pragma once
// Section 9: the start-up manager. Four lists of what starts with Windows
// (Run keys, Startup folders, ini files, services), their removal with an
// optional .reg backup in windir\repair, and the restore panel.
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/main_form.h"
#include "platform/registry.h"
#include "system/startup_ini.h"

namespace wh {

// One row of run_services.
struct StartupService {
  std::string key;  // "SYSTEM\CurrentControlSet\Services\" + subkey, under HKLM
  std::string text;  // DisplayName + "->" + path
  std::string description;
  std::string company;
};

class StartupPage {
public:
  // `search` is the search panel that the uninstall section shares, with
  // its text box Text6.
  StartupPage(MainForm& form, Frame& search, TextBox& Text6, FileListBox& k1);

  Frame& RUNframe;  // the page
  Label& reg_title;
  Label& folder_title;
  Label& ini_title;
  Label& services_title;
  ListBox& run_reg;       // ItemData: the Run key, 1..4; the view in run_reg_views
  ListBox& run_folder;
  ListBox& run_ini;
  ListBox& run_services;
  ImageButton& Image6_2;  // Image6(2): registry backups
  ImageButton& Image6_4;  // Image6(4): service backups
  Frame& backupitems;     // the restore panel
  Label& Label27;
  ListBox& List6;         // ItemData: the file's position in k1
  ImageButton& Image8_0;  // Image8(0): forget the backup
  ImageButton& Image8_1;  // Image8(1): restore it
  FileListBox& k1;        // the backup folder, never shown
  FileListBox& k2;        // a Startup folder during the scan, never shown
  ImageButton& umb_up;    // element 0 of its array
  Frame& search;
  TextBox& Text6;

  void enter();  // RUN_Click
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void scan_startup();
  void scan_ini_startup();

  void umb_up_Click();
  void umb_up_MouseMove();
  void Image6_Click(int Index);
  void Image8_Click(int Index);
  void run_services_KeyDown(int& key, int shift);
  // The tool tip of the row under the pointer: its description and company.
  void run_services_MouseMove(int y);
  // Text6's search over run_services, run_reg and run_folder: rows that hold
  // the text (3 characters at least) are selected, the others not.
  void search_select(const std::string& text);
  int search_hits() const;
  // The focus back to the list that startup_tab names.
  void focus_by_tab();

  // --- state kept for the removal
  int16_t backup_enabled = 0;  // 0 or -1 (65535)
  // The registry view of each run_reg row, by position: the machine's keys
  // are read in their 64-bit and then their 32-bit view, the user's in the
  // one. Beside the list, so that ItemData keeps telling the key alone.
  std::vector<RegView> run_reg_views;
  std::vector<StartupService> startup_services;
  std::array<std::string, 2> startup_folders;  // the user's, the common one
  IniStartup ini;

private:
  void remove_run_values();
  void remove_folder_files();
  void remove_ini_items();
  void remove_services();
  void search_tip();
  MainForm& form_;
};

// windir + "\repair", where the backups go.
std::string backup_folder();
// The same, made first when missing (raises what the making gives).
std::string make_backup_folder();
// The backup file of a Run value: REGEDIT4, the header of the key it came
// from (1..4), the value; each line behind the first print zone. A value of
// the 32-bit view names its key as regedit sees it, under Wow6432Node.
std::string run_value_backup(long item_data, const std::string& name, const std::string& data,
                             RegView view = RegView::native);
// Deletes a key and everything below it, errors ignored.
void delete_key_tree(HKEY root, const std::string& key);

}  // namespace wh
