// The junk section's refresh: the scan, or the trace viewer shown again.
#include <gtest/gtest.h>

#include "cleaning/junk_page.h"
#include "core/globals.h"
#include "cleaning/junk_support.h"
#include "support/test_form.h"

using namespace wh;
using Names = std::vector<std::string>;

namespace {

class ProbeJunk : public JunkPage {
public:
  ProbeJunk(MainForm& form, test::JunkShared& s)
      : JunkPage(form, s.frame1, s.File1, s.Dir3, s.Drive1, s.k1), form_(form) {}
  Names calls;
  void junk_scan() override { calls.push_back("junk_scan"); }
  void lupa_Click() override { calls.push_back("lupa_Click:" + form_.current_check_key); }

private:
  MainForm& form_;
};

TEST(JunkPage, RefreshScansOrShowsTheViewerAgainByItsLayout) {
  test::TestForm form;
  test::JunkShared shared(form);
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
  test::JunkShared shared(form);
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
