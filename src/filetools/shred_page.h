#pragma once
// Section 6: a file or a folder picked in the page's lists is shredded with
// 3, 5 or 7 passes when the Harrow button is pressed.
#include <cstdint>
#include <string>
#include <vector>

#include "core/main_form.h"
#include "filetools/shredder.h"

namespace wh {

class ShredPage {
public:
  explicit ShredPage(MainForm& form);

  Frame& Frame8;  // the page
  Frame& Frame9;  // the passes
  OptionButton& Option5;
  OptionButton& Option6;
  OptionButton& Option7;
  DriveListBox& Drive4;
  DirListBox& Dir3;
  FileListBox& File3;
  Label& Label22;  // the target, followed by one blank

  void enter();  // shred_Click
  // The section's action: del_Click's block, and Delete in Dir3 or File3.
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  // 3, 5 or 7, by Option5..Option7.
  uint8_t passes() const;
  // The wait panel's bar and file line, as a shred reports its progress.
  ShredProgress progress();

  void Drive4_Change();
  void Dir3_Change();
  void Dir3_Click();
  void File3_Click();
  void Dir3_KeyDown(int& key, int shift);
  void File3_KeyDown(int& key, int shift);
  // Files dropped on the section's button: the first is the target.
  void shred_OLEDragDrop(const std::vector<std::string>& files);

private:
  void target(const std::string& path);
  MainForm& form_;
};

}  // namespace wh
