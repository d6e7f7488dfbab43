// The disk space explorer's page on a small test form: real folders under
// the scratch folder (sparse files for the big ones), walking down and up,
// deleting, and the cache of a drive's root listing.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/globals.h"
#include "core/routines.h"
#include "filetools/disk_page.h"
#include "platform/fso.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;
using wh::test::TestForm;

namespace {

int row_of(const ListBox& l, const std::string& start) {
  for (int i = 0; i < l.ListCount(); ++i)
    if (l.List(i).rfind(start, 0) == 0) return i;
  return -1;
}

class DiskSection : public ::testing::Test {
protected:
  void SetUp() override {
    language_flag = 1;
    ActiveSection = 0;
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
  }
  void show(const std::string& folder) {
    page.back.Caption(folder);
    page.afisdirs(folder, false);
  }
  void open_row(int row) {
    page.list.ListIndex(row);
    page.list_DblClick();
  }

  TestForm form;
  DiskPage page{form};
};

}  // namespace

TEST_F(DiskSection, FoldersAndFilesLargestFirstWithTheWayUp) {
  ScratchDir dir("disk_list");
  dir.file("small\\x.bin", std::string(100, 'x'));
  dir.file("large\\y.bin", std::string(3000, 'y'));
  dir.file("large\\deeper\\z.bin", std::string(1000, 'z'));
  dir.folder("empty");
  dir.file("f1.txt", std::string(10, 'a'));
  dir.file("f2.txt", std::string(2048, 'b'));
  show(dir.path());
  ASSERT_EQ(4, page.list.ListCount());
  EXPECT_EQ("[..]", page.list.List(0));
  EXPECT_EQ("large (3 KB)", page.list.List(1));
  EXPECT_EQ("small ( 100 bytes)", page.list.List(2));
  EXPECT_EQ(1, page.list.ItemData(1));
  ASSERT_EQ(2, page.listfile.ListCount());
  EXPECT_EQ("f2.txt (2 KB)", page.listfile.List(0));
  EXPECT_NE(std::string::npos, page.totallabel.Caption().find("6 KB"));
  EXPECT_FALSE(page.waita.Visible());

  // An empty folder still has its way up, and it leads back here.
  open_row(row_of(page.list, "empty"));
  EXPECT_EQ(dir / "empty", page.back.Caption());
  ASSERT_EQ(1, page.list.ListCount());
  EXPECT_EQ("[..]", page.list.List(0));
  EXPECT_EQ(1, page.depth);
  open_row(0);
  EXPECT_EQ(dir.path(), page.back.Caption());
  EXPECT_EQ(0, page.depth);
  EXPECT_EQ("empty", page.list.List(page.list.ListIndex()).substr(0, 5))
      << "the line walked into keeps the focus";
  EXPECT_EQ(0, page.list.SelCount());
}

TEST_F(DiskSection, TwoHundredMebibytesIsABigFolder) {
  ScratchDir dir("disk_big");
  dir.folder("exact");
  dir.folder("below");
  ASSERT_TRUE(test::sparse_file(dir / "exact\\a.bin", 209715200));
  ASSERT_TRUE(test::sparse_file(dir / "below\\a.bin", 209715199));
  show(dir.path());
  EXPECT_EQ(0, page.list.ItemData(row_of(page.list, "exact")));
  EXPECT_EQ(1, page.list.ItemData(row_of(page.list, "below")));
}

TEST_F(DiskSection, NamesWithBracketsResolveAndMissingOnesAreRefused) {
  ScratchDir dir("disk_names");
  dir.file("old (copy) (2)\\in.txt", "in");
  dir.folder("gone");
  show(dir.path());
  open_row(row_of(page.list, "old (copy) (2) ("));
  EXPECT_EQ(dir / "old (copy) (2)", page.back.Caption());
  EXPECT_EQ("in.txt ( 2 bytes)", page.listfile.List(0));
  open_row(0);

  RemoveDirectoryA((dir / "gone").c_str());
  ScriptedDialogs boxes;
  open_row(row_of(page.list, "gone"));
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ("Folder does not exist!", boxes.last().text);
  EXPECT_EQ(static_cast<unsigned>(MB_ICONSTOP), boxes.last().style & MB_ICONMASK);
  EXPECT_EQ(dir.path(), page.back.Caption());
  EXPECT_EQ(0, page.depth);
}

TEST_F(DiskSection, AFolderNamedInAnyScriptIsEnteredMeasuredAndDeletedWithItsSize) {
  ScratchDir dir("disk_letters");
  // "școală 学校 😀" holding "țară.txt" and "înc\â.bin".
  const std::string folder = "\xC8\x99" "coal\xC4\x83 \xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80";
  dir.file(folder + "\\\xC8\x9B" "ar\xC4\x83.txt", std::string(3000, 't'));
  dir.file(folder + "\\\xC3\xAEnc\\\xC3\xA2.bin", std::string(1100, 'i'));
  dir.file("keep\\k.bin", std::string(1024, 'k'));
  dir.file("loose.bin", std::string(2048, 'l'));
  show(dir.path());
  EXPECT_EQ(folder + " (4 KB)", page.list.List(1));
  EXPECT_NE(std::string::npos, page.totallabel.Caption().find("7 KB"));
  open_row(1);
  EXPECT_EQ(dir / folder, page.back.Caption());
  EXPECT_EQ("\xC8\x9B" "ar\xC4\x83.txt (2 KB)", page.listfile.List(0));
  EXPECT_EQ("\xC3\xAEnc (1 KB)", page.list.List(1));
  open_row(0);  // [..]
  EXPECT_EQ(dir.path(), page.back.Caption());
  // A click in one list lets go of the other's selection: one at a time.
  page.list.Selected(row_of(page.list, folder + " ("), true);
  page.del_block();
  EXPECT_NE(std::string::npos, page.totallabel.Caption().find("3 KB"));
  page.listfile.Selected(0, true);
  page.del_block();
  EXPECT_FALSE(path_exists(dir / folder));
  EXPECT_FALSE(path_exists(dir / "loose.bin"));
  EXPECT_TRUE(path_exists(dir / "keep\\k.bin"));
  EXPECT_EQ(2, page.list.ListCount()) << "keep and the way up";
  EXPECT_EQ(0, page.listfile.ListCount());
  double left = 1024;
  EXPECT_EQ("Total: " + spatiuu(left), page.totallabel.Caption());
  ASSERT_EQ(1u, page.folders.size());
  EXPECT_EQ("keep", page.folders[0].name);
}

TEST_F(DiskSection, ARootHasNoWayUpAndIsMeasuredOnce) {
  ScratchDir dir("disk_root");
  page.Drive3.Drive("c:");
  page.Drive3_Change();  // the root, measured
  EXPECT_EQ("c:\\", page.back.Caption());
  EXPECT_EQ(-1, row_of(page.list, "[..]"));
  EXPECT_GT(row_of(page.list, "wh ("), -1);
  EXPECT_TRUE(page.driveexists("C:\\anything", 1));
  EXPECT_FALSE(page.driveexists("D:\\", 1));
  const long measured = folder_size_calls();

  open_row(row_of(page.list, "wh ("));
  EXPECT_EQ("c:\\wh", page.back.Caption());
  const long inside = folder_size_calls();
  EXPECT_GT(inside, measured);
  open_row(0);  // back up to the cached root
  EXPECT_EQ("c:\\", page.back.Caption());
  EXPECT_EQ(inside, folder_size_calls());
  EXPECT_GT(row_of(page.list, "wh ("), -1);
  EXPECT_EQ(-1, row_of(page.list, "[..]"));

  page.ref_block();  // the refresh button measures again
  EXPECT_GT(folder_size_calls(), inside);
  EXPECT_FALSE(page.rescan);
}

TEST(RootCacheTest, SeventeenDrivesAtMostTheOldestGoesFirst) {
  RootCache cache;
  for (char c = 'A'; c <= 'Q'; ++c) cache.store(c, {});
  EXPECT_EQ(17, cache.count());
  EXPECT_TRUE(cache.driveexists("a:\\", 17));
  cache.store('R', {{"x", 1}});
  EXPECT_EQ(17, cache.count());
  EXPECT_FALSE(cache.driveexists("A:\\", 17));
  EXPECT_EQ('B', cache.entries().front().letter);
  EXPECT_TRUE(cache.driveexists("r", 17));
  EXPECT_FALSE(cache.driveexists("r", 16)) << "only the first `count` entries are asked";
}
