// The shred section on the main form: what picks a target, the passes, and
// the action on a file, a folder, a drive root and a target that went away.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/form_test.h"
#include "core/globals.h"
#include "core/settings.h"
#include "support/scratch.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;
using wh::test::StoreTest;

namespace {

int entries(const std::string& folder) {
  WIN32_FIND_DATAA fd;
  HANDLE h = FindFirstFileA((folder + "\\*").c_str(), &fd);
  int n = 0;
  if (h != INVALID_HANDLE_VALUE) {
    do n += std::string(fd.cFileName) != "." && std::string(fd.cFileName) != "..";
    while (FindNextFileA(h, &fd));
    FindClose(h);
  }
  return n;
}

std::string panel_line(const Mainu& m, int row) {
  std::string s = m.lcd.Line(row);
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

void key(const Control& c, int vk) { c.send(WM_KEYDOWN, vk, 0); }

class ShredSection : public StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");
    save_setting("shredtip", "1");
    m = &start_form();
    language_flag = 1;
    m->shred_Click();
  }
  void target(const std::string& path) { m->Label22.Caption(path + " "); }
  Mainu* m = nullptr;
};

TEST_F(ShredSection, EnteringFallsBackToThreePassesAndTheOptionsChooseFiveOrSeven) {
  EXPECT_EQ(6, ActiveSection);
  EXPECT_TRUE(m->Frame8.Visible());
  EXPECT_EQ(3, m->wellshred.passes());
  m->Option6.Value(true);
  EXPECT_EQ(5, m->wellshred.passes());
  m->Option7.Value(true);
  EXPECT_FALSE(m->Option5.Value()) << "one group: the three sit in Frame9";
  EXPECT_EQ(7, m->wellshred.passes());
  m->Image11_Click();
  m->shred_Click();
  EXPECT_EQ(3, m->wellshred.passes());
}

TEST_F(ShredSection, AFileIsShreddedWithItsNameOnTheWaitPanelAndThePanel) {
  ScratchDir dir("shred_section_file");
  const std::string file = dir.file("letter.doc", std::string(30000, 'l'));
  ScriptedDialogs boxes;
  target(file);
  m->del_Click();
  EXPECT_FALSE(path_exists(file));
  EXPECT_EQ(0, entries(dir.path()));
  EXPECT_EQ("Shredding file...", panel_line(*m, 1));
  EXPECT_FALSE(m->mark.Visible());
  EXPECT_EQ("", m->Label39.Caption());
  EXPECT_EQ("", m->Label22.Caption());
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(ShredSection, AFolderTreeLeavesNothingBehind) {
  ScratchDir dir("shred_section_folder");
  dir.file("victim\\a.txt", "aaaa");
  dir.file("victim\\inner\\b.bin", std::string(20000, 'b'));
  dir.folder("victim\\inner\\empty");
  dir.file("keep.txt", "stays");
  ScriptedDialogs boxes;
  m->lcd.Clear();
  m->lcd.WriteText("before");
  target(dir / "victim");
  m->del_Click();
  EXPECT_FALSE(path_exists(dir / "victim"));
  // Neither the folder nor its throw-away name is left; its neighbour is.
  EXPECT_EQ(1, entries(dir.path()));
  EXPECT_TRUE(path_exists(dir / "keep.txt"));
  EXPECT_EQ("before", panel_line(*m, 1));
  EXPECT_EQ("Shredding folder...", panel_line(*m, 2)) << "written under what was there";
  EXPECT_FALSE(m->mark.Visible());
  EXPECT_EQ("", m->Label22.Caption());
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(ShredSection, ADriveIsRefusedWhetherRootOrTwoCharacters) {
  ScratchDir dir("shred_section_root");
  const std::string canary = dir.file("canary.txt", "alive");
  for (const std::string& root : {std::string("C:\\"), std::string("C:")}) {
    ScriptedDialogs boxes;
    target(root);
    m->del_Click();
    ASSERT_EQ(1u, boxes.count()) << root;
    EXPECT_EQ("You can not shred the entire drive!", boxes.last().text);
    EXPECT_EQ(static_cast<unsigned>(MB_ICONEXCLAMATION), boxes.last().style & MB_ICONMASK);
    EXPECT_FALSE(m->mark.Visible());
    EXPECT_EQ("", m->Label22.Caption());
  }
  EXPECT_TRUE(path_exists(canary));
  EXPECT_TRUE(path_exists("C:\\windows"));

  language_flag = 2;
  ScriptedDialogs boxes;
  target("C:\\");
  m->del_Click();
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ("Nu sunteti sanatos daca vreti sa radeti intregul disc!", boxes.last().text);
}

TEST_F(ShredSection, ATargetThatWentAwaySaysNothingAndIsForgotten) {
  ScratchDir dir("shred_section_gone");
  const std::string file = dir.file("brief.txt", "x");
  target(file);
  DeleteFileA(file.c_str());
  ScriptedDialogs boxes;
  m->del_Click();
  EXPECT_EQ(0u, boxes.count());
  EXPECT_EQ("", m->Label22.Caption());
  EXPECT_FALSE(m->mark.Visible());
}

TEST_F(ShredSection, TheListsPickTheTarget) {
  ScratchDir dir("shred_section_lists");
  dir.file("top\\one.txt", "1");
  dir.folder("top\\sub");
  m->Dir3.Path(dir / "top");
  EXPECT_EQ(dir / "top", m->File3.Path());
  EXPECT_EQ(dir / "top" + " ", m->Label22.Caption());

  m->File3.ListIndex(0);
  EXPECT_EQ(dir / "top\\one.txt" + " ", m->Label22.Caption());

  // A folder picked in Dir3 takes over, and the file is no longer picked.
  m->Dir3.ListIndex(0);
  EXPECT_EQ(dir / "top\\sub" + " ", m->Label22.Caption());
  EXPECT_EQ(-1, m->File3.ListIndex());
}

TEST_F(ShredSection, KeysInTheListsGoInOutAndShred) {
  ScratchDir dir("shred_section_keys");
  const std::string file = dir.file("top\\sub\\gone.txt", "g");
  m->Dir3.Path(dir / "top");
  m->Dir3.ListIndex(0);
  key(m->Dir3, VK_RETURN);
  EXPECT_EQ(dir / "top\\sub", m->Dir3.Path());
  key(m->Dir3, VK_BACK);
  EXPECT_EQ(dir / "top", m->Dir3.Path());
  EXPECT_EQ(-1, m->Dir3.ListIndex());

  m->Dir3.Path(dir / "top\\sub");
  m->File3.ListIndex(0);
  ScriptedDialogs boxes;
  key(m->File3, VK_DELETE);
  EXPECT_FALSE(path_exists(file));
  EXPECT_EQ(0, m->File3.ListCount()) << "the lists were read again";

  // Delete in Dir3 shreds the folder it names.
  m->Dir3.Path(dir / "top");
  m->Dir3.ListIndex(0);
  key(m->Dir3, VK_DELETE);
  EXPECT_FALSE(path_exists(dir / "top\\sub"));
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(ShredSection, ADropOnTheButtonEntersTheSectionAndWaitsForHarrow) {
  ScratchDir dir("shred_section_drop");
  const std::string a = dir.file("a.txt", "a"), b = dir.file("b.txt", "b");
  m->Image11_Click();
  ASSERT_EQ(7, ActiveSection);
  fire(m->shred.OLEDragDrop, std::vector<std::string>{a, b});
  EXPECT_EQ(6, ActiveSection);
  EXPECT_EQ(a + " ", m->Label22.Caption());
  EXPECT_TRUE(path_exists(a));
}

}  // namespace
