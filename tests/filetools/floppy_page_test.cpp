// The floppy section against drive A:, which the test prefix maps to a
// folder of the build tree (scripts/test.sh): the format through the real
// tool, its window found and ended, the tool deleted; the floppy's lists.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/globals.h"
#include "filetools/floppy_page.h"
#include "filetools/floppy_tool.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "support/scratch.h"
#include "support/test_form.h"

using namespace wh;
using wh::test::path_exists;

namespace {


void empty_a() {
  for (const std::string& n : test::names_in("A:")) test::remove_tree("A:\\" + n);
}

bool killa_window_open() {
  for (const WindowEntry& w : top_level_windows())
    if (w.title.find("KILLA") != std::string::npos) return true;
  return false;
}

class FloppySection : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(path_exists("A:\\")) << "the test prefix maps A: to a folder";
    empty_a();
    language_flag = 1;
    ActiveSection = 0;
    form.handlers["ref_Click"] = [this] { page.ref_block(); };
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
    page.enter();
  }
  void TearDown() override {
    empty_a();
    form.closing.Enabled(false);
  }
  test::TestForm form;
  FloppyPage page{form};
};

TEST_F(FloppySection, AFormatEmptiesTheDiskAndTheWatchEndsTheTool) {
  test::write_file("A:\\letter.txt", "dear");
  CreateDirectoryA("A:\\photos", nullptr);
  test::write_file("A:\\photos\\one.jpg", std::string(5000, 'j'));
  SetFileAttributesA("A:\\letter.txt", FILE_ATTRIBUTE_READONLY);

  page.del_block();
  EXPECT_TRUE(form.mark.Visible());
  EXPECT_EQ("Formatting...", form.lcd.Line(1).substr(0, 13));
  EXPECT_TRUE(form.closing.Enabled());
  EXPECT_EQ(900u, form.closing.Interval());
  EXPECT_TRUE(path_exists(killa_path()));

  // The timer's ticks, called by hand until the tool says it is done.
  for (int i = 0; i < 300 && form.closing.Enabled(); ++i) {
    Sleep(100);
    do_events();
    page.closing_Timer();
  }
  ASSERT_FALSE(form.closing.Enabled()) << "the tool never reached \"Inactive\"";
  EXPECT_TRUE(format_done);
  EXPECT_FALSE(form.mark.Visible());
  EXPECT_TRUE(test::names_in("A:").empty());
  EXPECT_FALSE(killa_window_open());
  EXPECT_FALSE(path_exists(killa_path()));
  EXPECT_EQ("ref_Click", form.calls.back());
}

TEST_F(FloppySection, TheToolsWindowIsOnlyTakenWhenItSaysInactive) {
  format_done = false;
  // A window titled like the tool at work is left alone.
  HWND busy = CreateWindowA("STATIC", "KILLA", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                            nullptr, nullptr, nullptr);
  EXPECT_FALSE(killa_watch());
  EXPECT_FALSE(format_done);
  DestroyWindow(busy);
}

TEST_F(FloppySection, TheFloppysFilesShowAndDeleteRemovesTheSelectedOne) {
  test::write_file("A:\\a.txt", "a");
  test::write_file("A:\\b.txt", "b");
  EXPECT_FALSE(page.Frame7.Visible());
  page.Image9_Click();
  EXPECT_TRUE(page.Frame7.Visible());
  EXPECT_EQ("A:\\", page.Dir2.Path().size() == 3 ? std::string("A:\\") : page.Dir2.Path());
  ASSERT_EQ(2, page.File2.ListCount());
  page.File2.ListIndex(1);
  int key = VK_DELETE;
  page.File2_KeyDown(key, 1);  // with Shift: nothing
  EXPECT_EQ(2u, test::names_in("A:").size());
  page.File2_KeyDown(key, 0);
  EXPECT_EQ(std::vector<std::string>{"a.txt"}, test::names_in("A:"));
  EXPECT_EQ(1, page.File2.ListCount());
}

TEST_F(FloppySection, RefreshDeletesTheWrittenTool) {
  test::write_file(killa_path(), "MZ");
  page.ref_block();
  EXPECT_FALSE(path_exists(killa_path()));
}

}  // namespace
