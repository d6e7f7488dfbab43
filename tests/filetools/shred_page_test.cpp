// The shred section's page on a small test form: what picks a target, the
// passes, and the action on a file, a folder, a drive root and a target that
// went away.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/globals.h"
#include "core/settings.h"
#include "filetools/shred_page.h"
#include "platform/registry.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;
using wh::test::TestForm;

namespace {

std::string panel_line(const MainForm& m, int row) {
  std::string s = m.lcd.Line(row);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

void key(const Control& c, int vk) { c.send(WM_KEYDOWN, vk, 0); }

class ShredSection : public ::testing::Test {
protected:
  void SetUp() override {
    wipe();
    save_setting("shredtip", "1");
    language_flag = 1;
    ActiveSection = 0;
    form.handlers["shred_Click"] = [this] { page.enter(); };
    form.handlers["ref_Click"] = [this] { page.ref_block(); };
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
    page.enter();
  }
  void TearDown() override { wipe(); }
  static void wipe() { reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower"); }
  void target(const std::string& path) { page.Label22.Caption(path + " "); }
  void leave() { ActiveSection = 7; }

  TestForm form;
  ShredPage page{form};
};

TEST_F(ShredSection, EnteringFallsBackToThreePassesAndTheOptionsChooseFiveOrSeven) {
  EXPECT_EQ(6, ActiveSection);
  EXPECT_TRUE(page.Frame8.Visible());
  EXPECT_EQ(3, page.passes());
  page.Option6.Value(true);
  EXPECT_EQ(5, page.passes());
  page.Option7.Value(true);
  EXPECT_FALSE(page.Option5.Value()) << "one group: the three sit in Frame9";
  EXPECT_EQ(7, page.passes());
  leave();
  form.shred_Click();
  EXPECT_EQ(3, page.passes());
  page.progress().file("c.txt");  // the wait panel names each file
  EXPECT_EQ("Shredding c.txt", form.Label39.Caption());
}

TEST_F(ShredSection, AFileIsShreddedWithItsNameOnTheWaitPanelAndThePanel) {
  ScratchDir dir("shred_section_file");
  const std::string file = dir.file("letter.doc", std::string(30000, 'l'));
  ScriptedDialogs boxes;
  target(file);
  page.del_block();
  EXPECT_TRUE(test::names_in(dir.path()).empty());
  EXPECT_EQ("Shredding file...", panel_line(form, 1));
  EXPECT_FALSE(form.mark.Visible());
  EXPECT_EQ("", form.Label39.Caption());
  EXPECT_EQ("", page.Label22.Caption());
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(ShredSection, AFolderTreeLeavesNothingBehind) {
  ScratchDir dir("shred_section_folder");
  dir.file("victim\\a.txt", "aaaa");
  dir.file("victim\\inner\\b.bin", std::string(20000, 'b'));
  dir.folder("victim\\inner\\empty");
  dir.file("keep.txt", "stays");
  ScriptedDialogs boxes;
  form.lcd.Clear();
  form.lcd.WriteText("before");
  target(dir / "victim");
  page.del_block();
  // Neither the folder nor its throw-away name is left; its neighbour is.
  EXPECT_EQ(1u, test::names_in(dir.path()).size());
  EXPECT_TRUE(path_exists(dir / "keep.txt"));
  EXPECT_EQ("before", panel_line(form, 1));
  EXPECT_EQ("Shredding folder...", panel_line(form, 2)) << "written under what was there";
  EXPECT_FALSE(form.mark.Visible());
  EXPECT_EQ("", page.Label22.Caption());
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(ShredSection, ADriveIsRefusedWhetherRootOrTwoCharacters) {
  ScratchDir dir("shred_section_root");
  const std::string canary = dir.file("canary.txt", "alive");
  for (const std::string& root : {std::string("C:\\"), std::string("C:")}) {
    ScriptedDialogs boxes;
    target(root);
    page.del_block();
    ASSERT_EQ(1u, boxes.count()) << root;
    EXPECT_EQ("You can not shred the entire drive!", boxes.last().text);
    EXPECT_EQ(static_cast<unsigned>(MB_ICONEXCLAMATION), boxes.last().style & MB_ICONMASK);
    EXPECT_FALSE(form.mark.Visible());
    EXPECT_EQ("", page.Label22.Caption());
  }
  EXPECT_TRUE(path_exists(canary));
  EXPECT_TRUE(path_exists("C:\\windows"));
}

TEST_F(ShredSection, ATargetThatWentAwaySaysNothingAndIsForgotten) {
  ScratchDir dir("shred_section_gone");
  const std::string file = dir.file("brief.txt", "x");
  target(file);
  DeleteFileA(file.c_str());
  ScriptedDialogs boxes;
  page.del_block();
  EXPECT_EQ(0u, boxes.count());
  EXPECT_EQ("", page.Label22.Caption());
  EXPECT_FALSE(form.mark.Visible());
}

TEST_F(ShredSection, TheListsAndTheirKeysPickTheTargetGoInOutAndShred) {
  ScratchDir dir("shred_section_lists");
  dir.file("top\\one.txt", "1");
  dir.folder("top\\sub");
  page.Dir3.Path(dir / "top");
  EXPECT_EQ(dir / "top", page.File3.Path());
  EXPECT_EQ(dir / "top" + " ", page.Label22.Caption());

  page.File3.ListIndex(0);
  EXPECT_EQ(dir / "top\\one.txt" + " ", page.Label22.Caption());

  // A folder picked in Dir3 takes over, and the file is no longer picked.
  page.Dir3.ListIndex(0);
  EXPECT_EQ(dir / "top\\sub" + " ", page.Label22.Caption());
  EXPECT_EQ(-1, page.File3.ListIndex());

  // Keys go in, out and shred.
  const std::string file = dir.file("top\\sub\\gone.txt", "g");
  key(page.Dir3, VK_RETURN);
  EXPECT_EQ(dir / "top\\sub", page.Dir3.Path());
  key(page.Dir3, VK_BACK);
  EXPECT_EQ(dir / "top", page.Dir3.Path());
  EXPECT_EQ(-1, page.Dir3.ListIndex());

  page.Dir3.Path(dir / "top\\sub");
  page.File3.ListIndex(0);
  ScriptedDialogs boxes;
  key(page.File3, VK_DELETE);
  EXPECT_FALSE(path_exists(file));
  EXPECT_EQ(0, page.File3.ListCount()) << "the lists were read again";

  // Delete in Dir3 shreds the folder it names.
  page.Dir3.Path(dir / "top");
  page.Dir3.ListIndex(0);
  key(page.Dir3, VK_DELETE);
  EXPECT_FALSE(path_exists(dir / "top\\sub"));
  EXPECT_EQ(0u, boxes.count());
}

// Only the first of the dropped paths is taken; nothing goes before Harrow.
TEST_F(ShredSection, AFolderDroppedWithNamesInAnyScriptIsShreddedWhole) {
  ScratchDir dir("shred_section_letters");
  // "școală 学校 😀" with "țară.txt", "în\â.doc" and a long CJK name.
  const std::string folder = dir / "\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80";
  std::string long_name;
  for (int i = 0; i < 85; ++i) long_name += "\xE6\xA0\xA1";
  test::write_file(folder + "\\\xC8\x9B" "ar\xC4\x83.txt", "secret");
  test::write_file(folder + "\\\xC3\xAEn\\\xC3\xA2.doc", std::string(9000, 'd'));
  test::write_file(folder + "\\" + long_name, "long");
  const std::string second = dir.file("second.txt", "b");
  leave();
  fire(form.shred.OLEDragDrop, std::vector<std::string>{folder, second});
  EXPECT_EQ(6, ActiveSection);
  EXPECT_EQ(folder + " ", page.Label22.Caption());
  EXPECT_TRUE(path_exists(folder));
  ScriptedDialogs boxes;
  page.del_block();
  EXPECT_FALSE(path_exists(folder));
  EXPECT_EQ(std::vector<std::string>{"second.txt"}, test::names_in(dir.path()))
      << "no renamed leftovers";
  EXPECT_EQ(0u, boxes.count());
}

}  // namespace
