#pragma once
// Section 3: cutting a file into fragments (the split tab) and pointing at
// the first fragment of a split file (the merge tab). The fragments and the
// batch file that joins them come from filetools/splitter; spanning them over
// floppy disks follows a split when Check8 is ticked.
#include <cstdint>
#include <string>
#include <vector>

#include "core/main_form.h"

namespace wh {

class SplitPage {
public:
  explicit SplitPage(MainForm& form);

  Frame& splitbox;  // the page
  Label& Label1;    // the split tab
  Label& Label2;    // the merge tab
  DriveListBox& Drive2;
  DirListBox& dir1;
  FileListBox& File1;  // the junk cleaner walks folders through it too
  Label& calefisier;   // the chosen path, or the placeholder
  Label& Label4;       // the chosen file's size; a drop target
  Frame& Frame2;       // the fragment size
  OptionButton& Option1;
  OptionButton& Option2;
  TextBox& size;
  Label& Label3;  // "MB"
  Frame& Frame3;  // what follows a split
  CheckBox& Check8;
  CheckBox& Check9;
  Frame& Frame4;  // the merge tab's panel
  Label& Label5;  // how to join
  Label& dirdest;
  PictureBox& Picture3;  // the drop hint

  void enter();  // splity_Click
  // The split, on either tab.
  void del_block();
  void ref_block();
  void hide_extras();
  void leave_for_options();
  void captions(int language);

  void Label1_Click();
  void Label2_Click();
  bool split_mode() const { return split_mode_; }
  // The placeholder of calefisier in the language in use.
  std::string placeholder() const;
  // Draws the fragment count for the chosen file and size in picProgress.
  void preview();
  // What it draws; empty when nothing is drawn.
  std::string preview_text() const;

  void Drive2_Change();
  void dir1_Change();
  void File1_Click();
  void Option1_Click();
  void Option2_Click();
  void size_Change();
  void size_KeyPress(int& key);
  void Check9_MouseMove(int button, int shift, int x, int y);
  // Drops; only the first file counts.
  void Label1_OLEDragDrop(const std::vector<std::string>& files);
  void calefisier_OLEDragDrop(const std::vector<std::string>& files);
  void Label2_OLEDragDrop(const std::vector<std::string>& files);
  void Label4_OLEDragDrop(const std::vector<std::string>& files);
  void splity_OLEDragDrop(const std::vector<std::string>& files);
  // What a drag over the section shows: the hint, always in split mode, in
  // merge mode only over a fragment of the old naming.
  void Form_OLEDragOver(const std::vector<std::string>& files);

  // After a split with result 0 and Check8 ticked: the fragments go one to a
  // floppy in A:, the batch file to the last. `length` is the source's,
  // `megabytes` the fragment size in the size field's unit.
  void span_to_floppies(const std::string& source, double length, double megabytes);

private:
  enum class DropTarget { label2, label4, splity };
  void fragment_dropped(const std::string& path, DropTarget target);
  MainForm& form_;
  bool split_mode_ = true;
};

}  // namespace wh
