// The junk section's refresh: the scan, or the trace viewer shown again.
#include <gtest/gtest.h>

#include "cleaning/junk_page.h"
#include "core/globals.h"
#include "support/test_form.h"

using namespace wh;
using Names = std::vector<std::string>;

namespace {

// The shared controls the form hands the page.
struct Shared {
  explicit Shared(MainForm& form)
      : frame1(form.add<Frame>("frame1", Place{0, 0, 10, 10})),
        File1(form.add<FileListBox>("File1", Place{0, 0, 10, 10})),
        Dir3(form.add<DirListBox>("Dir3", Place{0, 0, 10, 10})),
        Drive1(form.add<DriveListBox>("Drive1", Place{0, 0, 10, 10})),
        k1(form.add<FileListBox>("k1", Place{0, 0, 10, 10})) {}
  Frame& frame1;
  FileListBox& File1;
  DirListBox& Dir3;
  DriveListBox& Drive1;
  FileListBox& k1;
};

class ProbeJunk : public JunkPage {
public:
  ProbeJunk(MainForm& form, Shared& s)
      : JunkPage(form, s.frame1, s.File1, s.Dir3, s.Drive1, s.k1), form_(form) {}
  Names calls;
  void junk_scan() override { calls.push_back("junk_scan"); }
  void lupa_Click() override { calls.push_back("lupa_Click:" + form_.current_check_key); }

private:
  MainForm& form_;
};

TEST(JunkPage, RefreshScansOrShowsTheViewerAgainByItsLayout) {
  test::TestForm form;
  Shared shared(form);
  ProbeJunk page(form, shared);
  page.ref_block();
  page.Frame15.Visible(true);
  page.junk_files.AddItem("old line");
  // The narrow layout: the key follows what the viewer shows.
  form.current_check_key = "CHECK13";
  form.viewer_mode = 3;
  page.ref_block();
  EXPECT_EQ(0, page.junk_files.ListCount());
  // The wide one, told apart by the title's left edge of 2850 twips.
  page.Picture7.Left(2850 / 15);
  form.current_check_key = "CHECK13";
  page.ref_block();
  EXPECT_EQ((Names{"junk_scan", "lupa_Click:CHECK11", "lupa_Click:CHECK13"}), page.calls);
}

TEST(JunkPage, TheTracePanelHasAWideAndANarrowLayout) {
  test::TestForm form;
  Shared shared(form);
  JunkPage page(form, shared.frame1, shared.File1, shared.Dir3, shared.Drive1, shared.k1);
  page.junk_files.AddItem("left over");
  page.famare();
  EXPECT_TRUE(page.Frame15.Visible());
  EXPECT_FALSE(form.del.Visible());
  EXPECT_FALSE(form.delall.Visible());
  EXPECT_EQ(0, page.junk_files.ListCount());
  // The refresh button tells the layouts apart by this edge.
  EXPECT_EQ(2850, page.Picture7.Left() * twips_per_pixel_x());
  const int wide = page.Frame15.Width();
  page.famic();
  EXPECT_NE(2850, page.Picture7.Left() * twips_per_pixel_x());
  EXPECT_LT(page.Frame15.Width(), wide);
}

}  // namespace
