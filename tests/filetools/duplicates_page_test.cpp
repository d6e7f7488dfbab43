// The duplicate finder's page on a small test form: real trees under the
// scratch folder, searched by name and by content, the masks, the results
// and their deletion.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "core/globals.h"
#include "core/settings.h"
#include "filetools/duplicates_page.h"
#include "platform/registry.h"
#include "platform/rt_error.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;
using wh::test::TestForm;

namespace {

class DupSection : public ::testing::Test {
protected:
  void SetUp() override {
    wipe();
    language_flag = 1;
    ActiveSection = 0;
    form.Show();  // the results list takes the focus
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
    page.enter();
  }
  void TearDown() override { wipe(); }
  static void wipe() { reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower"); }

  // Only `item` chosen in the list.
  static void only(ListBox& l, const std::string& item) {
    for (int i = 0; i < l.ListCount(); ++i) l.Selected(i, l.List(i) == item);
  }
  void search(const std::string& folder) {
    page.List4.AddItem(folder);
    only(page.List4, folder);
  }
  void enter_mask(const std::string& mask) {
    page.Text7.Text(mask);
    int enter = VK_RETURN;
    page.Text7_KeyDown(enter, 0);
  }
  void other(const std::string& masks) {
    page.Image36_Click(4);
    only(page.List5, "");
    enter_mask(masks);
    page.Frame18.Visible(false);
  }
  std::vector<std::string> lines() { return test::rows(page.duplicates); }

  TestForm form;
  FileListBox& k1 = form.add<FileListBox>("k1", Place{0, 0, 10, 10});
  DuplicatesPage page{form, k1};
};

}  // namespace

TEST_F(DupSection, EnteringListsTheStoredFoldersAndTheFixedDrivesOnce) {
  EXPECT_EQ(10, ActiveSection);
  EXPECT_FALSE(form.del.Visible()) << "no results yet";
  auto roots = [&] {
    int n = 0;
    for (int i = 0; i < page.List4.ListCount(); ++i) n += page.List4.List(i) == "c:\\";
    return n;
  };
  EXPECT_EQ(1, roots());
  save_setting("Paths", "C:\\wh\\scratch|c:\\|");
  ActiveSection = 0;
  page.enter();
  EXPECT_EQ(1, roots());
  EXPECT_EQ("C:\\wh\\scratch", page.List4.List(0));
  EXPECT_EQ(0u, setting("Paths").find("C:\\wh\\scratch|c:\\|"));
}

TEST_F(DupSection, NamesInAnyScriptGroupWhateverTheirCaseAndGoWhenHarrowed) {
  ScratchDir dir("dup_letters");
  // "școală 学校 😀.txt" twice, once as "ȘCOALĂ 学校 😀.TXT"; a lone "ţ.txt"
  // (t with cedilla) sorts first, so the group is not the last pair.
  const std::string name = "\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80.txt";
  const std::string upper = "\xC8\x98" "COAL\xC4\x82 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80.TXT";
  const std::string a = dir.file("\xC3\xAEnt\xC3\xA2i\\" + name, "same");
  dir.file("al doilea\\" + name, "same");
  dir.file("al treilea\\" + upper, "same!");
  dir.file("al treilea\\\xC5\xA3.txt", "t");
  dir.file("al treilea\\" + name + ".bak", "not matched");
  search(dir.path());
  other("*.txt");
  page.Option3.Value(true);
  ScriptedDialogs boxes;
  page.Image37_Click();
  EXPECT_EQ(0u, boxes.count());
  const auto l = lines();
  ASSERT_EQ(3u, l.size());
  for (const std::string& line : l) {
    EXPECT_EQ("1 ", line.substr(0, 2));
    EXPECT_EQ(upper, name_key(line));
  }
  EXPECT_TRUE(form.del.Visible());
  EXPECT_TRUE(page.Image37.Enabled());
  EXPECT_FALSE(form.scanningdupes);
  EXPECT_EQ(" Total waisted : ", page.label19.Caption().substr(0, 17));
  page.duplicates.Selected(static_cast<int>(std::find(l.begin(), l.end(), "1 " + a) - l.begin()),
                           true);
  page.del_block();
  EXPECT_FALSE(path_exists(a));
  EXPECT_TRUE(path_exists(dir / "al doilea\\" + name));
  EXPECT_EQ(2, page.duplicates.ListCount());
}

TEST_F(DupSection, NothingFoundLeavesDelHiddenAndSaysSo) {
  ScratchDir dir("dup_none");
  dir.file("one\\a.txt", "a");
  dir.file("two\\a.txt", "a");  // the only pair is the last one: never looked at
  search(dir.path());
  other("*.txt");
  form.del.Visible(false);
  page.Image37_Click();
  EXPECT_EQ(0, page.duplicates.ListCount());
  EXPECT_FALSE(form.del.Visible());
  EXPECT_EQ("No duplicates found!", page.label19.Caption());
}

TEST_F(DupSection, SameContentComparesTwoSamplesOfEqualSizes) {
  ScratchDir dir("dup_content");
  const std::string base(5000, 'm');
  std::string outside = base;
  outside[2500] = '!';  // between 10% and 90%
  std::string four(4000, 'f'), inside = four, late = four;
  inside[450] = '!';  // in the first sample (400..655)
  late[3700] = '!';   // in the second sample (3600..3855)
  dir.file("a\\orig.dat", base);
  dir.file("b\\copy.dat", outside);
  dir.file("a\\four.dat", four);
  dir.file("b\\four.dat", inside);
  dir.file("c\\four.dat", late);
  dir.file("c\\small.dat", "tiny file, alone at the end");
  search(dir.path());
  other("*.dat");
  page.Option4.Value(true);
  page.Image37_Click();
  const auto l = lines();
  ASSERT_EQ(2u, l.size());
  EXPECT_EQ("1 ", l[0].substr(0, 2));
  EXPECT_EQ("1 ", l[1].substr(0, 2));
  const int copy = l[0].find("copy.dat") != std::string::npos ? 0 : 1;
  EXPECT_EQ("1 " + dir / "b\\copy.dat", l[copy]);
  EXPECT_EQ("1 " + dir / "a\\orig.dat", l[1 - copy]);
  EXPECT_EQ(5000, page.duplicates.ItemData(1));
  EXPECT_EQ(5000, form.totalwaist);

  // The sum of the selected lines, then their deletion: force false.
  page.duplicates.Selected(copy, true);
  page.duplicates_Click();
  EXPECT_EQ("Total selected :4 KB", page.l8.Caption());
  page.del_block();
  EXPECT_FALSE(path_exists(dir / "b\\copy.dat"));
  EXPECT_TRUE(path_exists(dir / "a\\orig.dat"));
  EXPECT_EQ(0, form.totalwaist);
  ASSERT_EQ(1, page.duplicates.ListCount());

  SetFileAttributesA((dir / "a\\orig.dat").c_str(), FILE_ATTRIBUTE_READONLY);
  page.duplicates.Selected(0, true);
  page.del_block();
  EXPECT_TRUE(path_exists(dir / "a\\orig.dat")) << "read-only stays; its line goes";
  EXPECT_EQ(0, page.duplicates.ListCount());
  EXPECT_EQ("", page.label19.Caption());
  SetFileAttributesA((dir / "a\\orig.dat").c_str(), FILE_ATTRIBUTE_NORMAL);
}

// Masks that take every name walk down the tree from k1's own listing,
// others from a listing of their own: the same files either way, those of
// hidden folders too.
TEST_F(DupSection, EveryNameOrSomeMasksWalkTheSameSubfolders) {
  ScratchDir dir("dup_walk");
  const std::string same(3000, 's');
  dir.file("a.dat", same);
  dir.file("one\\b.dat", same);
  dir.file("one\\deeper\\still\\c.dat", same);
  dir.file("two\\d.dat", same);
  SetFileAttributesA(dir.folder("two").c_str(), FILE_ATTRIBUTE_HIDDEN);
  search(dir.path());
  page.Option4.Value(true);
  ScriptedDialogs boxes;
  other("*.dat");
  enter_mask("*.*");  // one of the stored masks, or a new one
  only(page.List5, "*.*");
  page.Image37_Click();
  auto every = lines();
  only(page.List5, "*.dat");
  page.Image37_Click();
  auto some = lines();
  EXPECT_EQ(0u, boxes.count()) << (boxes.count() ? boxes.last().text : "");
  ASSERT_EQ(4u, every.size());
  std::sort(every.begin(), every.end());
  std::sort(some.begin(), some.end());
  EXPECT_EQ(some, every);
  EXPECT_EQ("1 " + dir / "one\\deeper\\still\\c.dat", every[2]);
}

TEST_F(DupSection, VideoWithDocumentsMatchesNeitherMovNorDoc) {
  ScratchDir dir("dup_masks");
  for (const char* n : {"1\\clip.mov", "2\\clip.mov", "1\\memo.doc", "2\\memo.doc",
                        "1\\sheet.xls", "2\\sheet.xls", "2\\alone.xls"})
    dir.file(n, "same");
  search(dir.path());
  page.Image36_Click(1);
  page.Image36_Click(2);
  EXPECT_TRUE(page.marker(1) && page.marker(2));
  page.Image37_Click();
  const auto l = lines();
  ASSERT_EQ(2u, l.size());
  EXPECT_EQ("SHEET.XLS", name_key(l[0]));
}

TEST_F(DupSection, OtherTakesItsOwnMasksAndAnyMaskClearsOther) {
  page.Image36_Click(0);
  page.Image36_Click(4);
  EXPECT_FALSE(page.marker(0));
  EXPECT_TRUE(page.Frame18.Visible());
  // The first use shows two masks more than it stores.
  EXPECT_EQ(16, page.List5.ListCount());
  const std::string stored = setting("Masks");
  EXPECT_EQ(13, std::count(stored.begin(), stored.end(), '|'));
  page.Image36_Click(1);
  EXPECT_FALSE(page.marker(1)) << "pictures do nothing while the masks show";

  page.List5.Selected(0, true);
  page.List5.Selected(3, true);
  enter_mask("iso");
  EXPECT_EQ("*.iso", page.List5.List(16));
  EXPECT_TRUE(page.List5.Selected(16));
  EXPECT_EQ(3, page.List5.SelCount());
  enter_mask("*.*");
  EXPECT_EQ(1, page.List5.SelCount());
  EXPECT_EQ("*.*", page.List5.List(page.List5.ListIndex()));
  EXPECT_EQ("", page.Text7.Text());
  EXPECT_NE(std::string::npos, setting("Masks").find("|*.iso|*.*|"));

  page.Frame18.Visible(false);
  page.Image36_Click(3);
  EXPECT_FALSE(page.marker(4));
  EXPECT_TRUE(page.marker(3));
}

TEST_F(DupSection, MissingChoicesAreToldApart) {
  only(page.List4, "");
  ScriptedDialogs boxes;
  page.Image37_Click();
  page.List4.Selected(0, true);
  page.Image37_Click();
  page.List4.Selected(0, false);
  page.Image36_Click(0);
  page.Image37_Click();
  ASSERT_EQ(3u, boxes.count());
  EXPECT_NE(std::string::npos, boxes.boxes()[0].text.find("folders to scan and what type"));
  EXPECT_EQ("Please select what type of files to scan!", boxes.boxes()[1].text);
  EXPECT_EQ("Please select what folders to scan!", boxes.boxes()[2].text);
}
