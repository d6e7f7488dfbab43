// File, folder and drive lists against real files in the prefix.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/rt_error.h"
#include "ui_test.h"
#include "support/errors.h"
#include "support/scratch.h"
#include "support/test_form.h"

namespace wh::test {
namespace {

const std::string root = "C:\\wh\\scratch\\ui_files";

bool has_attribute(const std::string& name, DWORD a) {
  DWORD got = ::GetFileAttributesA((root + "\\" + name).c_str());
  return got != INVALID_FILE_ATTRIBUTES && (got & a);
}

class FileLists : public UiTest {
protected:
  void SetUp() override {
    for (const char* name : {"b.tmp", "A.TMP", "c.bak", "d.txt"}) dir.file(name);
    SetFileAttributesA(dir.file("locked.tmp").c_str(), FILE_ATTRIBUTE_READONLY);
    // Wine hides dot files by itself; the attribute makes it hidden on
    // Windows too.
    SetFileAttributesA(dir.file(".hidden.tmp").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesA(dir.file("sys.tmp").c_str(), FILE_ATTRIBUTE_SYSTEM);
    for (const char* name : {"sub.tmp", "Zeta", "alpha\\inner"}) dir.folder(name);
  }
  ScratchDir dir{"ui_files"};
  FileListBox& files = form.add<FileListBox>("File1", Place{0, 0, 150, 100});
};

TEST_F(FileLists, PatternsMatchSortedWithoutCaseAndOnce) {
  files.Path(root);
  files.Pattern("*.tmp;*.bak; *.TMP");
  EXPECT_EQ((std::vector<std::string>{"A.TMP", "b.tmp", "c.bak", "locked.tmp"}), rows(files));
  // A mask matches the short name too, as the system's own lists do, also
  // through the listing that reads no short names: "*.htm" takes "page.html"
  // (PAGE~1.HTM; Wine makes one for every long name).
  dir.file("page.html");
  dir.file("page.htm");
  files.Pattern("*.htm");
  EXPECT_EQ((std::vector<std::string>{"page.htm", "page.html"}), rows(files));
}

TEST_F(FileLists, RowsKeepTheLengthsTheListingFound) {
  // Added in another order than they sort, so that each insert moves rows.
  dir.file("m.log", std::string(300, 'm'));
  dir.file("a.log", std::string(5, 'a'));
  dir.file("z.log", std::string(70000, 'z'));
  dir.file("B.log", "");
  files.Path(root);
  files.Pattern("*.log");
  ASSERT_EQ((std::vector<std::string>{"a.log", "B.log", "m.log", "z.log"}), rows(files));
  const int lengths[] = {5, 0, 300, 70000};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(lengths[i], files.Length(i)) << "row " << i;
  EXPECT_EQ(381, error_of([&] { files.Length(4); }));
}

TEST_F(FileLists, AListingOfEveryNameKeepsTheSubfoldersItPassedOver) {
  SetFileAttributesA(dir.folder("secret").c_str(), FILE_ATTRIBUTE_HIDDEN);
  std::vector<std::string> names{"stale"};
  files.Path(root);
  files.Pattern("*.tmp");
  EXPECT_FALSE(files.SubFolders(names)) << "a mask that takes some names only";
  for (const char* pattern : {"*.bak; *.*", "*"}) {
    files.Pattern(pattern);
    ASSERT_TRUE(files.SubFolders(names)) << pattern;
    std::sort(names.begin(), names.end());
    EXPECT_EQ((std::vector<std::string>{"Zeta", "alpha", "secret", "sub.tmp"}), names) << pattern;
  }
  EXPECT_EQ(5, files.ListCount()) << "the rows are still the shown files";
}

TEST_F(FileLists, AttributeSwitchesFilter) {
  ASSERT_TRUE(has_attribute(".hidden.tmp", FILE_ATTRIBUTE_HIDDEN));
  files.Path(root);
  files.Pattern("*.tmp");
  files.ReadOnly = false;
  files.Refresh();
  EXPECT_EQ((std::vector<std::string>{"A.TMP", "b.tmp"}), rows(files));
  // Fresh files carry the archive bit, so Normal alone doesn't hide them.
  files.Archive = files.Normal = false;
  files.Refresh();
  EXPECT_EQ(0, files.ListCount());
  files.Archive = files.Normal = files.ReadOnly = true;
  files.Hidden = true;
  files.Refresh();
  auto r = rows(files);
  EXPECT_NE(r.end(), std::find(r.begin(), r.end(), ".hidden.tmp"));
  if (!has_attribute("sys.tmp", FILE_ATTRIBUTE_SYSTEM))
    GTEST_SKIP() << "the file system keeps no system attribute";
  EXPECT_EQ(r.end(), std::find(r.begin(), r.end(), "sys.tmp"));
  files.System = true;
  files.Refresh();
  r = rows(files);
  EXPECT_NE(r.end(), std::find(r.begin(), r.end(), "sys.tmp"));
}

TEST_F(FileLists, PathEventsAndErrors) {
  int changes = 0;
  files.PathChange = [&] { ++changes; };
  files.Path(root + "\\");
  EXPECT_EQ(root, files.Path());
  files.Path(root);
  EXPECT_EQ(1, changes);
  EXPECT_EQ(rt_path_not_found, test::error_of([&] { files.Path(root + "\\missing"); }));
  EXPECT_EQ(root, files.Path());
  files.Pattern("d.*");
  EXPECT_EQ("", files.FileName());
  files.ListIndex(0);
  EXPECT_EQ("d.txt", files.FileName());
}

TEST_F(FileLists, DirListIndexesAreRelativeToPath) {
  auto& dirs = form.add<DirListBox>("Dir1", Place{160, 0, 150, 150});
  int changes = 0;
  dirs.Change = [&] { ++changes; };
  dirs.Path(root);
  EXPECT_EQ(1, changes);
  EXPECT_EQ(root, dirs.List(-1));
  EXPECT_EQ("C:\\wh\\scratch", dirs.List(-2));
  EXPECT_EQ("C:\\", dirs.List(-4));
  EXPECT_EQ("", dirs.List(-5));
  ASSERT_EQ(3, dirs.ListCount());
  EXPECT_EQ(root + "\\alpha", dirs.List(0));
  EXPECT_EQ(root + "\\Zeta", dirs.List(2));
  EXPECT_EQ(-1, dirs.ListIndex());
  // Rows show the tree indented: root, three ancestors' depth, then children.
  EXPECT_EQ("      ui_files", dirs.ListBox::List(3));
  EXPECT_EQ("        alpha", dirs.ListBox::List(4));
}

TEST_F(FileLists, DirDoubleClickEntersTheFolder) {
  auto& dirs = form.add<DirListBox>("Dir1", Place{160, 0, 150, 150});
  dirs.Path(root);
  int changes = 0, clicks = 0;
  dirs.Change = [&] { ++changes; };
  dirs.Click = [&] { ++clicks; };
  dirs.ListIndex(0);
  EXPECT_EQ(1, clicks);
  EXPECT_EQ(root, dirs.Path());  // a single click doesn't move
  notify(dirs, LBN_DBLCLK);
  EXPECT_EQ(root + "\\alpha", dirs.Path());
  EXPECT_EQ(1, changes);
  EXPECT_EQ(root + "\\alpha\\inner", dirs.List(0));
  dirs.ListIndex(-2);
  notify(dirs, LBN_DBLCLK);
  EXPECT_EQ(root, dirs.Path());
}

TEST_F(FileLists, DriveListShowsTheLettersAndChanges) {
  auto& drives = form.add<DriveListBox>("Drive1", Place{0, 200, 150, 20});
  bool found = false;
  for (int i = 0; i < drives.ListCount(); ++i)
    if (drives.List(i).rfind("c:", 0) == 0) found = true;
  EXPECT_TRUE(found);
  int changes = 0;
  drives.Change = [&] { ++changes; };
  drives.Drive("C:\\windows");
  EXPECT_EQ('c', drives.Drive()[0]);
  EXPECT_EQ(0, changes);  // C: was the current drive already
  EXPECT_EQ(rt_device_unavailable, test::error_of([&] { drives.Drive("q:"); }));
}

}  // namespace
}  // namespace wh::test
