#pragma once
// Section 5: the floppy in drive A, its contents, and the quick format by
// the tool killa.exe (filetools/floppy_tool), watched by the `closing` timer.
#include "core/main_form.h"

namespace wh {

class FloppyPage {
public:
  explicit FloppyPage(MainForm& form);

  Frame& Frame6;  // the page
  Label& Label6;  // what the section does
  ImageButton& Image9;  // shows the floppy's contents
  Label& Label7;
  Frame& Frame7;  // the floppy's folders and files
  DirListBox& Dir2;
  FileListBox& File2;

  void enter();  // kila_Click
  // Formats the floppy: the wait panel, the tool, the timer.
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void Image9_Click();
  void Dir2_Change();
  void File2_KeyDown(int& key, int shift);
  // The watch for the tool's end, every 900 ms while a format runs.
  void closing_Timer();

private:
  MainForm& form_;
};

}  // namespace wh
