#include "platform/fso.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/rt_error.h"
#include "support/scratch.h"

namespace wh {
namespace {

using test::path_exists;
using test::read_file;
using test::ScratchDir;

template <class T, class NameOf>
std::vector<std::string> sorted_names(const std::vector<T>& items, NameOf name_of) {
  std::vector<std::string> out;
  for (const auto& i : items) out.push_back(name_of(i));
  std::sort(out.begin(), out.end());
  return out;
}

void set_attrs(const std::string& path, DWORD attrs) { SetFileAttributesA(path.c_str(), attrs); }

TEST(FsoErrors, MissingThingsGiveTheirNumbers) {
  ScratchDir dir("fso_errors");
  auto& fso = file_system();
  Folder folder;
  File file;
  std::string a_file = dir.file("f.txt", "x");

  EXPECT_EQ(rt_path_not_found, fso.GetFolder(dir / "nope", folder));
  EXPECT_EQ(rt_path_not_found, fso.GetFolder(a_file, folder)) << "a file is no folder";
  EXPECT_EQ(rt_file_not_found, fso.GetFile(dir / "nope.txt", file));
  EXPECT_EQ(rt_file_not_found, fso.GetFile(dir.path(), file)) << "a folder is no file";

  EXPECT_EQ(rt_file_not_found, fso.DeleteFile(dir / "nope.txt"));
  EXPECT_EQ(rt_file_not_found, fso.DeleteFile(dir / "*.log")) << "wildcard matching nothing";
  EXPECT_EQ(rt_file_not_found, fso.DeleteFile(dir / "nodir\\x.txt"));
  EXPECT_EQ(rt_path_not_found, fso.DeleteFolder(dir / "nope"));
  EXPECT_EQ(rt_path_not_found, fso.DeleteFolder(dir / "nope*"));

  EXPECT_EQ(rt_file_exists, fso.CreateFolder(dir.path()));
  EXPECT_EQ(rt_path_not_found, fso.CreateFolder(dir / "no\\parent"));
  EXPECT_EQ(rt_ok, fso.CreateFolder(dir / "fresh"));
  EXPECT_TRUE(fso.FolderExists(dir / "fresh"));
}

TEST(FsoDelete, FilesByWildcardHiddenToo_ReadOnlyOnlyByForce) {
  ScratchDir dir("fso_wild");
  auto& fso = file_system();
  dir.file("a.txt", "1");
  dir.file("c.log", "3");
  dir.folder("folder.txt");
  set_attrs(dir.file("h.txt", "4"), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(rt_ok, fso.DeleteFile(dir / "*.txt"));
  EXPECT_FALSE(path_exists(dir / "a.txt"));
  EXPECT_FALSE(path_exists(dir / "h.txt")) << "hidden files match too";
  EXPECT_TRUE(path_exists(dir / "c.log"));
  EXPECT_TRUE(fso.FolderExists(dir / "folder.txt")) << "folders are not files";
  EXPECT_EQ(rt_file_not_found, fso.DeleteFile(dir / "folder.txt"));

  std::string f = dir.file("locked.txt", "data");
  set_attrs(f, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(rt_permission_denied, fso.DeleteFile(f, false));
  EXPECT_TRUE(path_exists(f));
  EXPECT_EQ(rt_ok, fso.DeleteFile(f, true));
  EXPECT_FALSE(path_exists(f));
}

TEST(FsoDelete, FolderGoesWithItsWholeTreeReadOnlyOnlyByForce) {
  ScratchDir dir("fso_tree");
  auto& fso = file_system();
  dir.file("victim\\a.txt", "a");
  dir.file("victim\\sub\\deeper\\b.txt", "b");
  dir.folder("victim\\empty");
  set_attrs(dir.file("victim\\sub\\h.dat", "h"), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  EXPECT_EQ(rt_ok, fso.DeleteFolder(dir / "victim\\"));  // trailing backslash names it too
  EXPECT_FALSE(path_exists(dir / "victim"));
  EXPECT_TRUE(path_exists(dir.path()));

  set_attrs(dir.file("guarded\\sub\\ro.txt", "r"), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(rt_permission_denied, fso.DeleteFolder(dir / "guarded", false));
  EXPECT_TRUE(path_exists(dir / "guarded\\sub\\ro.txt"));
  EXPECT_EQ(rt_ok, fso.DeleteFolder(dir / "guarded", true));
  EXPECT_FALSE(path_exists(dir / "guarded"));
  // An empty folder goes in one step, but read-only still only by force.
  const std::string bare = dir.folder("bare");
  set_attrs(bare, FILE_ATTRIBUTE_READONLY);
  if (GetFileAttributesA(bare.c_str()) & FILE_ATTRIBUTE_READONLY) {
    EXPECT_EQ(rt_permission_denied, fso.DeleteFolder(bare, false));
    EXPECT_TRUE(path_exists(bare));
  }
  EXPECT_EQ(rt_ok, fso.DeleteFolder(bare, true));
  EXPECT_FALSE(path_exists(bare));

  // A wildcard takes the matching folders only, never a file.
  dir.file("tmp1\\x.txt", "x");
  dir.folder("tmp2");
  dir.folder("keep");
  dir.file("tmpfile", "a file, not a folder");
  EXPECT_EQ(rt_ok, fso.DeleteFolder(dir / "tmp*"));
  EXPECT_FALSE(path_exists(dir / "tmp1"));
  EXPECT_FALSE(path_exists(dir / "tmp2"));
  EXPECT_TRUE(path_exists(dir / "keep"));
  EXPECT_TRUE(path_exists(dir / "tmpfile"));
}

TEST(FsoFolder, ListsFilesAndSubfoldersAndSumsTheTree) {
  ScratchDir dir("fso_list");
  auto& fso = file_system();
  dir.file("one.txt", "12345");
  dir.file("two.bin", "");
  set_attrs(dir.file("three.sys", std::string(4096, 'e')), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
  dir.folder("alpha");
  dir.file("beta\\inner.txt", std::string(100, 'b'));
  dir.file("beta\\deep\\er\\thousand", std::string(1000, 'c'));

  Folder folder;
  ASSERT_EQ(rt_ok, fso.GetFolder(dir.path() + "\\", folder));
  EXPECT_EQ(dir.path(), folder.Path()) << "no trailing backslash";
  EXPECT_EQ("fso_list", folder.Name());
  auto files = folder.Files();
  EXPECT_EQ((std::vector<std::string>{"one.txt", "three.sys", "two.bin"}),
            sorted_names(files, [](const File& f) { return f.Name; }));
  for (const auto& f : files) {
    EXPECT_EQ(dir / f.Name, f.Path);
    if (f.Name == "one.txt") { EXPECT_EQ(5.0, f.Size); }
    if (f.Name == "three.sys") { EXPECT_TRUE(f.Attributes & FILE_ATTRIBUTE_HIDDEN); }
  }
  EXPECT_EQ((std::vector<std::string>{"alpha", "beta"}),
            sorted_names(folder.SubFolders(), [](const Folder& f) { return f.Name(); }));
  double size = -1;
  EXPECT_EQ(rt_ok, folder.Size(size));
  EXPECT_EQ(5.0 + 4096 + 100 + 1000, size);
  // A folder object outlives the folder it names.
  Folder beta;
  ASSERT_EQ(rt_ok, fso.GetFolder(dir / "beta", beta));
  test::remove_tree(dir / "beta");
  EXPECT_NE(rt_ok, beta.Size(size));

  Folder root;
  ASSERT_EQ(rt_ok, fso.GetFolder("C:\\", root));
  EXPECT_EQ("C:\\", root.Path());
  EXPECT_EQ("", root.Name());
  EXPECT_FALSE(root.SubFolders().empty());
}

TEST(FsoNames, PathTextLikeTheScriptingObject) {
  auto& fso = file_system();
  EXPECT_EQ("b", fso.GetFileName("C:\\a\\b\\"));
  EXPECT_EQ("b.txt", fso.GetFileName("C:\\a\\b.txt"));
  EXPECT_EQ("", fso.GetFileName("C:\\"));
  EXPECT_EQ("", fso.GetFileName("C:"));
  EXPECT_EQ("x", fso.GetFileName("C:x"));
  EXPECT_EQ("b.tar", fso.GetBaseName("C:\\a\\b.tar.gz"));
  EXPECT_EQ("noext", fso.GetBaseName("C:\\a.d\\noext")) << "a dot in the folder does not count";

  EXPECT_EQ("C:\\", fso.GetParentFolderName("C:\\a"));
  EXPECT_EQ("C:\\a", fso.GetParentFolderName("C:\\a\\b\\"));
  EXPECT_EQ("", fso.GetParentFolderName("C:\\"));
  EXPECT_EQ("", fso.GetParentFolderName("name"));
  EXPECT_EQ("rel", fso.GetParentFolderName("rel\\name"));
  EXPECT_EQ("\\", fso.GetParentFolderName("\\top"));

  EXPECT_EQ("C:", fso.GetDriveName("C:\\a\\b"));
  EXPECT_EQ("", fso.GetDriveName("a\\b"));
  EXPECT_EQ("\\\\srv\\share", fso.GetDriveName("\\\\srv\\share\\dir\\f"));
}

TEST(FsoCopy, CopyFileIntoFolderOverwriteAndWildcard) {
  ScratchDir dir("fso_copy");
  auto& fso = file_system();
  std::string src = dir.file("src\\data.txt", "new");
  dir.file("dst\\data.txt", "old");
  EXPECT_EQ(rt_file_exists, fso.CopyFile(src, dir / "dst\\", false));
  EXPECT_EQ("old", read_file(dir / "dst\\data.txt"));
  EXPECT_EQ(rt_ok, fso.CopyFile(src, dir / "dst\\"));
  EXPECT_EQ("new", read_file(dir / "dst\\data.txt"));
  EXPECT_EQ(rt_ok, fso.CopyFile(src, dir / "renamed.txt"));
  EXPECT_EQ("new", read_file(dir / "renamed.txt"));

  EXPECT_EQ(rt_file_not_found, fso.CopyFile(dir / "src\\none.txt", dir / "dst\\"));
  EXPECT_EQ(rt_path_not_found, fso.CopyFile(src, dir / "missing\\"));

  dir.file("src\\more.txt", "m");
  dir.file("src\\skip.log", "s");
  dir.folder("many");
  EXPECT_EQ(rt_ok, fso.CopyFile(dir / "src\\*.txt", dir / "many"));
  EXPECT_TRUE(path_exists(dir / "many\\data.txt"));
  EXPECT_TRUE(path_exists(dir / "many\\more.txt"));
  EXPECT_FALSE(path_exists(dir / "many\\skip.log"));
}

TEST(FsoDrives, SystemDriveAndMissingLetters) {
  Drive d;
  EXPECT_EQ(rt_device_unavailable, file_system().GetDrive("Z:", d));
  ASSERT_EQ(rt_ok, file_system().GetDrive("c:", d));
  EXPECT_EQ("C:", d.Path());
  EXPECT_EQ(2, d.DriveType()) << "fixed, in the scripting object's numbering";
  double free = 0, total = 0;
  EXPECT_EQ(rt_ok, d.FreeSpace(free));
  EXPECT_EQ(rt_ok, d.TotalSize(total));
  EXPECT_GT(free, 0);
  EXPECT_GE(total, free);
}

}  // namespace
}  // namespace wh
