#pragma once
// Section 8: junk files and usage traces, with the trace viewer and the
// plug-ins.
#include "core/main_form.h"

namespace wh {

class JunkPage {
public:
  // `frame1` is the strip panel that the task manager shows too.
  JunkPage(MainForm& form, Frame& frame1);
  virtual ~JunkPage() = default;

  Frame& junk_form;  // the page
  CheckBox* check[19] = {};  // the categories, 1 to 18
  Label& ocupied;
  ListBox& pluginlist;
  ImageButton& showplugins;
  ImageButton& Image22;  // holders of the two showplugins pictures
  ImageButton& Image23;
  Frame& Frame15;  // the trace viewer
  PictureBox& Picture9;
  PictureBox& Picture7;
  ListBox& junk_files;
  Frame& frame1;

  void enter();  // junk_Click
  void del_block();
  // Ticks every category but the index files and harrows with all plug-ins.
  void delall_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void famare();  // the trace panel over the whole working area
  void famic();   // the trace panel beside the categories

  // Virtual so that a test can see which of them a button reaches.
  virtual void collect_trace_paths();
  virtual void junk_scan();
  virtual void lupa_Click();  // the trace viewer, by current_check_key
  bool scan_plugins();        // true when a plug-in was found

private:
  MainForm& form_;
};

}  // namespace wh
