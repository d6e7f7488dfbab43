// The power button and the panel of the scheduled power-off on a test form:
// which click powers off and which opens the panel, arming and disarming in
// both modes, the time boxes' limits, and the folder list window with the
// folder dialog answered by the dialog service. The final call is counted
// through the schedule's own seam; the clock is the test's.
#include <windows.h>

#include <gtest/gtest.h>

#include <tuple>

#include "core/globals.h"
#include "core/settings.h"
#include "monitor/power_panel.h"
#include "monitor/select_folder.h"
#include "platform/registry.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "ui/dialogs.h"

using namespace wh;
using wh::test::ScratchDir;

namespace {

class PowerPanelTest : public ::testing::Test {
protected:
  Clock previous_clock;
  ClockTime now{7, 5};
  test::TestForm form;
  PowerPanel panel{form};
  int offs = 0;

  void SetUp() override {
    reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
    language_flag = 1;
    previous_clock = set_clock([this] { return now; });
    panel.schedule.power_off = [this] { ++offs; };
  }
  void TearDown() override {
    set_clock(previous_clock);
    reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
  }
};

TEST_F(PowerPanelTest, LeftClickPowersOffAndAnyOtherButtonOpensThePanelWithTheTime) {
  panel.shut_red_MouseDown(2, 0, 0, 0);
  EXPECT_EQ(offs, 0);
  EXPECT_TRUE(panel.Frame17.Visible());
  EXPECT_EQ(panel.hh.Text(), "07");
  EXPECT_EQ(panel.mm.Text(), "05");

  // Armed for a time: opening the panel again keeps what was set.
  panel.hh.Text("22");
  panel.Option12_Click(0);
  panel.negru_Click();
  now = {9, 30};
  panel.Image32_MouseDown(4, 0, 0, 0);
  EXPECT_EQ(panel.hh.Text(), "22");
  EXPECT_EQ(panel.mm.Text(), "05");

  panel.Image32_MouseDown(1, 0, 0, 0);
  panel.shut_red_MouseDown(1, 0, 0, 0);
  EXPECT_EQ(offs, 2);
}

TEST_F(PowerPanelTest, ArmingATimeFiresOnceInItsMinuteAndDisarmingStopsIt) {
  panel.shut_red_MouseDown(2, 0, 0, 0);
  panel.hh.Text("23");
  panel.mm.Text("59");
  panel.negru_Click();  // no mode chosen yet: a time
  EXPECT_EQ(panel.schedule.shutdown_mode, 1);
  EXPECT_TRUE(panel.Image32.Visible());
  EXPECT_TRUE(panel.color.Visible());
  EXPECT_FALSE(panel.negru.Visible());
  EXPECT_NE(panel.hh.ForeColor(), RGB(0, 0, 0)) << "the time shows as taken";
  EXPECT_FALSE(form.Autoshutdown.Enabled());

  now = {23, 59};
  panel.time_check();
  EXPECT_EQ(offs, 1);

  panel.negru_Click();
  panel.color_Click();
  panel.time_check();
  EXPECT_EQ(offs, 1);
  EXPECT_FALSE(panel.Image32.Visible());
  EXPECT_TRUE(panel.negru.Visible());
  EXPECT_EQ(panel.hh.ForeColor(), RGB(0, 0, 0));
}

TEST_F(PowerPanelTest, TheDownloadWatchNeedsFoldersFromTheWindowAndStartsFromZero) {
  ScratchDir dir("watch");
  const std::string a = dir.folder("a");
  dir.file("a\\part.bin", std::string(10, 'x'));
  save_setting("Paths2", a + "|");
  ScriptedDialogs boxes;
  panel.Option12_Click(1);
  panel.negru_Click();
  // "Paths2" is only read by the folder window: unopened, there are none.
  ASSERT_EQ(boxes.count(), 1u);
  EXPECT_EQ(boxes.last().text, "You must choose what folder(s) should be monitored!");
  EXPECT_TRUE(panel.negru.Visible());
  EXPECT_FALSE(form.Autoshutdown.Enabled());

  panel.Image15_Click();
  ASSERT_NE(panel.select_folder(), nullptr);
  EXPECT_EQ(panel.select_folder()->List1.ListCount(), 1);
  panel.negru_Click();
  EXPECT_EQ(boxes.count(), 1u);
  EXPECT_TRUE(form.Autoshutdown.Enabled());
  EXPECT_TRUE(panel.Image32.Visible());
  EXPECT_EQ(panel.schedule.shutdown_armed, 0) << "the watch sets no time";

  for (int i = 0; i < 3; ++i) form.Autoshutdown.Tick();  // the first size is news
  EXPECT_EQ(panel.schedule.quiet_ticks, 2);
  panel.color_Click();
  EXPECT_FALSE(form.Autoshutdown.Enabled());
  panel.negru_Click();
  EXPECT_EQ(panel.schedule.quiet_ticks, 0);
  panel.select_folder()->unload();
}

TEST_F(PowerPanelTest, TheTimeBoxesTakeDigitsBelowTheirLimits) {
  now = {13, 42};
  // {box, typed, kept}: a figure at the limit falls back to the clock's.
  for (auto [box, typed, kept] : {std::tuple{&panel.hh, "24", "13"}, {&panel.hh, "23", "23"},
                                  {&panel.mm, "60", "42"}, {&panel.mm, "59", "59"}}) {
    box->Text(typed);
    EXPECT_EQ(box->Text(), kept) << typed;
  }
  for (int key : {int('7'), 8}) {
    int ascii = key;
    panel.hh_KeyPress(ascii);
    EXPECT_EQ(ascii, key);
  }
  for (int key : {int('a'), int(':'), int(' '), int('-')}) {
    int ascii = key;
    panel.mm_KeyPress(ascii);
    EXPECT_EQ(ascii, 0) << char(key);
  }
}

TEST_F(PowerPanelTest, TheFolderListSavesEveryChangeAndFeedsTheWatch) {
  ScratchDir dir("folders");
  const std::string a = dir.folder("a"), b = dir.folder("b");
  ScriptedDialogs boxes;
  boxes.folders = {a + "\\", "", b, "C:\\"};
  panel.Image15_Click();
  SelectFolder& w = *panel.select_folder();
  EXPECT_EQ(w.Caption(), "What folders do you want Wellharrower to monitor?");
  // The second is cancelled: nothing added, the list saved as it is.
  for (int i = 0; i < 4; ++i) w.Image34_Click();
  ASSERT_EQ(boxes.folder_titles.size(), 4u);
  EXPECT_EQ(boxes.folder_titles[0], "Select a folder");
  // A trailing backslash goes, a root's too.
  EXPECT_EQ(setting("Paths2"), a + "|" + b + "|C:|");
  ASSERT_EQ(panel.schedule.upper_bound(), 3);
  EXPECT_EQ(panel.schedule.watched_folders[1].path, a);

  w.List1.Selected(0, true);
  w.List1.Selected(2, true);
  w.Image35_Click();
  EXPECT_EQ(setting("Paths2"), b + "|");
  EXPECT_EQ(panel.schedule.upper_bound(), 1);

  // Closed by the user and opened again: a new window reads the store.
  w.unload();
  language_flag = 2;
  panel.Image15_Click();
  EXPECT_EQ(panel.select_folder()->List1.ListCount(), 1);
  EXPECT_EQ(panel.select_folder()->Caption(), "Ce directoare vreti Wellharrower sa monitorizeze?");
  panel.select_folder()->unload();
}

TEST_F(PowerPanelTest, ThePowerButtonLightsUnderTheMouseAndItsTipComesOnce) {
  panel.shut_blue_MouseMove(0, 0, 1, 1);
  EXPECT_TRUE(panel.shut_red.Visible());
  EXPECT_FALSE(panel.shut_blue.Visible());
  EXPECT_EQ(form.lighton, "SHUTBLUE");
  EXPECT_TRUE(form.quicktip.Visible());
  EXPECT_EQ(form.quicktip.Caption(), "ATENTIE!!!");
  EXPECT_EQ(setting("BLAStip"), "1");

  form.quicktip.Visible(false);
  panel.surface();
  form.lighton = "MAINU";
  panel.shut_blue_MouseMove(0, 0, 1, 1);
  EXPECT_FALSE(form.quicktip.Visible()) << "once in the user's life";
  panel.surface();
  EXPECT_FALSE(panel.shut_red.Visible());
  EXPECT_TRUE(panel.shut_blue.Visible());
}

}  // namespace
