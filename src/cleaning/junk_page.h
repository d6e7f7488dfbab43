#pragma once
// Section 8: junk files and usage traces, with the trace viewer and the
// plug-ins.
#include <string>

#include "cleaning/cleaner.h"
#include "cleaning/index_files.h"
#include "core/main_form.h"

namespace wh {

class JunkPage {
public:
  // Shared controls it is handed: `frame1`, the strip panel that the task
  // manager shows too; `File1`, the splitter's file list, which walks the
  // folders being cleaned; `Dir3`, the shredder's folder list, borrowed to
  // read the browser's profile folder; the drive list `Drive1`; and the
  // hidden file list `k1`, which other sections point at their own folders.
  JunkPage(MainForm& form, Frame& frame1, FileListBox& File1, DirListBox& Dir3,
           DriveListBox& Drive1, FileListBox& k1);
  virtual ~JunkPage() = default;

  Frame& junk_form;  // the page
  CheckBox* check[19] = {};  // the categories, 1 to 18
  Label* ocupied[10] = {};   // sizes of categories 1 to 9
  Label& Label14;            // " Total selected:"
  Label& total;
  Label& Label28;     // the page's title
  ImageButton& lupa;  // the trace viewer's magnifier beside a category
  ListBox& pluginlist;
  ImageButton& showplugins;
  ImageButton& Image22;  // holders of the two showplugins pictures
  ImageButton& Image23;
  Frame& Frame15;  // the trace viewer
  PictureBox& Picture9;
  PictureBox& Picture7;
  ListBox& junk_files;
  Frame& frame1;
  FileListBox& File1;
  DirListBox& Dir3;
  DriveListBox& Drive1;
  FileListBox& k1;
  // The file tools' silent shred, handed in by the form: category 18
  // overwrites the index files with it.
  ShredFile shred_file;

  void enter();  // junk_Click
  // The cleaning run: the ticked categories in index order, the plug-ins,
  // then the scan again.
  void del_block();
  // Ticks every category but the index files and harrows with all plug-ins.
  void delall_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  // Looks for the browsers first: their names go in four captions.
  void captions(int language);

  // The hover help of a category: its first page on the LCD, the magnifier
  // beside its row, `timerul` on for the long tips (4, 6 and 18).
  void check_MouseMove(int index, int button, int shift, int x, int y);
  // The next page of a long tip, by `lighton`.
  void timerul_Timer();
  uint8_t tip_page = 0;  // the page counter of the long tips

  void famare();  // the trace panel over the whole working area
  void famic();   // the trace panel beside the categories

  // Virtual so that a test can see which of them a button reaches.
  virtual void collect_trace_paths();
  virtual void junk_scan();
  virtual void lupa_Click();  // the trace viewer, by current_check_key
  // Runs every selected line of pluginlist.
  virtual void run_plugins();
  bool scan_plugins();  // true when a plug-in was found

  // Sets the five browser strings; the result is not used.
  std::string find_browsers();
  // "(IE", ",Opera" and ",Firefox" where found, ")".
  std::string browser_tag() const;

private:
  void run_category(int index);

  MainForm& form_;
  JunkCleaner cleaner_;
};

}  // namespace wh
