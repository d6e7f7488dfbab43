#pragma once
// Section 8: junk files and usage traces, with the trace viewer and the
// plug-ins.
#include <cstdint>
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
  Frame& plugins;  // the plug-in panel
  Label& Label14_plugins;  // its title, an element of the Label14 array
  PictureBox& Picture14;   // hides the panel
  ListBox& pluginlist;
  ImageButton& showplugins;
  ImageButton& Image22;  // holders of the two showplugins pictures
  ImageButton& Image23;
  Frame& Frame15;  // the trace viewer
  PictureBox& Picture9;  // holds the close label
  PictureBox& Picture7;  // holds the title
  ListBox& junk_files;
  Label& Label14_10;     // "Label14(10)", the viewer's title
  Label& Label30;        // closes the viewer
  TextBox& Text2;        // the clipboard's text
  PictureBox& Picture8;  // the clipboard's picture, in Image14
  ImageButton& Image14;
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

  void famare();  // the trace panel over the whole working area
  void famic();   // the trace panel beside the categories

  // Virtual so that a test can see which of them a button reaches.
  virtual void collect_trace_paths();
  virtual void junk_scan();
  virtual void lupa_Click();  // the trace viewer, by current_check_key
  void Label30_Click();
  void junk_files_MouseMove(int button, int shift, int x, int y);
  // The lines of junk_files that came from the URL cache in mode 6.
  int16_t history_first_line = 0;
  int16_t history_last_line = 0;
  // Runs every selected line of pluginlist.
  virtual void run_plugins();
  // The plug-ins beside the program (junk_plugins.cpp): every file of the
  // folder "JunkHarrower Plugins" whose base name + ".Plugin" can be made;
  // the first that cannot is registered once a start and tried again. True
  // when a plug-in was found.
  bool scan_plugins();
  void showplugins_Click();
  void showplugins_MouseMove();
  // Writes the Description of the plug-in under the pointer on the LCD.
  void pluginlist_MouseMove(int y);
  void Picture14_Click();

  // Sets the five browser strings; the result is not used.
  std::string find_browsers();
  // "(IE", ",Opera" and ",Firefox" where found, ")".
  std::string browser_tag() const;

private:
  void run_category(int index);
  // The viewer's modes that fill the list.
  void show_junk_items();
  void show_index_files();
  void show_clipboard();
  void show_history();
  void show_typed_urls();
  void wire_plugins();  // the panel's pictures and handlers

  MainForm& form_;
  JunkCleaner cleaner_;
  bool plugin_retried_ = false;  // a registration was tried in this start
};

}  // namespace wh
