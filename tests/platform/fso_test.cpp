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

std::vector<std::string> names(const std::vector<File>& files) {
  std::vector<std::string> out;
  for (const auto& f : files) out.push_back(f.Name);
  std::sort(out.begin(), out.end());
  return out;
}

std::vector<std::string> names(const std::vector<Folder>& folders) {
  std::vector<std::string> out;
  for (const auto& f : folders) out.push_back(f.Name());
  std::sort(out.begin(), out.end());
  return out;
}

void make_read_only(const std::string& path, DWORD extra = 0) {
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY | extra);
}

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

TEST(FsoDelete, ReadOnlyFileNeedsForce) {
  ScratchDir dir("fso_ro");
  auto& fso = file_system();
  std::string f = dir.file("locked.txt", "data");
  make_read_only(f, FILE_ATTRIBUTE_HIDDEN);

  EXPECT_EQ(rt_permission_denied, fso.DeleteFile(f, false));
  EXPECT_TRUE(path_exists(f));
  EXPECT_EQ(rt_ok, fso.DeleteFile(f, true));
  EXPECT_FALSE(path_exists(f));
}

TEST(FsoDelete, WildcardTakesMatchingFilesOnly) {
  ScratchDir dir("fso_wild");
  auto& fso = file_system();
  dir.file("a.txt", "1");
  dir.file("b.txt", "2");
  dir.file("c.log", "3");
  dir.folder("folder.txt");
  std::string hidden = dir.file("h.txt", "4");
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN);

  EXPECT_EQ(rt_ok, fso.DeleteFile(dir / "*.txt"));
  EXPECT_FALSE(path_exists(dir / "a.txt"));
  EXPECT_FALSE(path_exists(dir / "b.txt"));
  EXPECT_FALSE(path_exists(hidden)) << "hidden files match too";
  EXPECT_TRUE(path_exists(dir / "c.log"));
  EXPECT_TRUE(fso.FolderExists(dir / "folder.txt")) << "folders are not files";
  EXPECT_EQ(rt_file_not_found, fso.DeleteFile(dir / "folder.txt"));
}

TEST(FsoDelete, FolderGoesWithItsWholeTreeReadOnlyOnlyByForce) {
  ScratchDir dir("fso_tree");
  auto& fso = file_system();
  dir.file("victim\\a.txt", "a");
  dir.file("victim\\sub\\deeper\\b.txt", "b");
  dir.folder("victim\\empty");
  std::string hidden = dir.file("victim\\sub\\h.dat", "h");
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);

  EXPECT_EQ(rt_ok, fso.DeleteFolder(dir / "victim\\"));  // trailing backslash names it too
  EXPECT_FALSE(path_exists(dir / "victim"));
  EXPECT_TRUE(path_exists(dir.path()));

  make_read_only(dir.file("guarded\\sub\\ro.txt", "r"));
  EXPECT_EQ(rt_permission_denied, fso.DeleteFolder(dir / "guarded", false));
  EXPECT_TRUE(path_exists(dir / "guarded\\sub\\ro.txt"));
  EXPECT_EQ(rt_ok, fso.DeleteFolder(dir / "guarded", true));
  EXPECT_FALSE(path_exists(dir / "guarded"));
  // An empty folder goes in one step, but read-only still only by force.
  const std::string bare = dir.folder("bare");
  SetFileAttributesA(bare.c_str(), FILE_ATTRIBUTE_READONLY);
  if (GetFileAttributesA(bare.c_str()) & FILE_ATTRIBUTE_READONLY) {
    EXPECT_EQ(rt_permission_denied, fso.DeleteFolder(bare, false));
    EXPECT_TRUE(path_exists(bare));
  }
  EXPECT_EQ(rt_ok, fso.DeleteFolder(bare, true));
  EXPECT_FALSE(path_exists(bare));
  EXPECT_EQ(rt_ok, fso.DeleteFolder(dir.folder("plain"), false));
  EXPECT_FALSE(path_exists(dir / "plain"));

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

TEST(FsoFolder, ListsFilesAndSubfolders) {
  ScratchDir dir("fso_list");
  auto& fso = file_system();
  dir.file("one.txt", "12345");
  dir.file("two.bin", "");
  std::string hidden = dir.file("three.sys", "abc");
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN);
  dir.folder("alpha");
  dir.file("beta\\inner.txt", "not listed at the top");

  Folder folder;
  ASSERT_EQ(rt_ok, fso.GetFolder(dir.path() + "\\", folder));
  EXPECT_EQ(dir.path(), folder.Path()) << "no trailing backslash";
  EXPECT_EQ("fso_list", folder.Name());
  EXPECT_FALSE(folder.IsRootFolder());

  auto files = folder.Files();
  EXPECT_EQ((std::vector<std::string>{"one.txt", "three.sys", "two.bin"}), names(files));
  for (const auto& f : files) {
    EXPECT_EQ(dir / f.Name, f.Path);
    if (f.Name == "one.txt") {
      EXPECT_EQ(5.0, f.Size);
    }
    if (f.Name == "three.sys") {
      EXPECT_TRUE(f.Attributes & FILE_ATTRIBUTE_HIDDEN);
    }
  }
  EXPECT_EQ((std::vector<std::string>{"alpha", "beta"}), names(folder.SubFolders()));
}

TEST(FsoFolder, RootFolder) {
  Folder root;
  ASSERT_EQ(rt_ok, file_system().GetFolder("C:\\", root));
  EXPECT_EQ("C:\\", root.Path());
  EXPECT_EQ("", root.Name());
  EXPECT_TRUE(root.IsRootFolder());
  EXPECT_FALSE(root.SubFolders().empty());
}

TEST(FsoFolder, SizeSumsTheWholeTree) {
  ScratchDir dir("fso_size");
  auto& fso = file_system();
  dir.file("t\\ten", std::string(10, 'a'));
  dir.file("t\\zero", "");
  dir.file("t\\s1\\hundred", std::string(100, 'b'));
  dir.file("t\\s1\\deep\\er\\thousand", std::string(1000, 'c'));
  dir.file("t\\s1\\deep\\one", "d");
  dir.folder("t\\s2\\empty");
  std::string hidden = dir.file("t\\s2\\h", std::string(4096, 'e'));
  SetFileAttributesA(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);

  Folder t;
  ASSERT_EQ(rt_ok, fso.GetFolder(dir / "t", t));
  double size = -1;
  EXPECT_EQ(rt_ok, t.Size(size));
  EXPECT_EQ(10.0 + 100 + 1000 + 1 + 4096, size);

  Folder empty;
  ASSERT_EQ(rt_ok, fso.GetFolder(dir / "t\\s2\\empty", empty));
  EXPECT_EQ(rt_ok, empty.Size(size));
  EXPECT_EQ(0.0, size);

  // A folder object outlives the folder it names.
  test::remove_tree(dir / "t");
  EXPECT_NE(rt_ok, t.Size(size));
}

TEST(FsoNames, PathTextLikeTheScriptingObject) {
  auto& fso = file_system();
  EXPECT_EQ("b", fso.GetFileName("C:\\a\\b\\"));
  EXPECT_EQ("b.txt", fso.GetFileName("C:\\a\\b.txt"));
  EXPECT_EQ("", fso.GetFileName("C:\\"));
  EXPECT_EQ("", fso.GetFileName("C:"));
  EXPECT_EQ("x", fso.GetFileName("C:x"));
  EXPECT_EQ("plain", fso.GetFileName("plain"));

  EXPECT_EQ("b.tar", fso.GetBaseName("C:\\a\\b.tar.gz"));
  EXPECT_EQ("noext", fso.GetBaseName("C:\\a.d\\noext"));
  EXPECT_EQ("", fso.GetExtensionName("C:\\a.d\\noext")) << "a dot in the folder does not count";
  EXPECT_EQ("gz", fso.GetExtensionName("b.tar.gz"));
  EXPECT_EQ("txt", fso.GetExtensionName("C:\\a\\b.txt\\"));
  EXPECT_EQ("", fso.GetExtensionName("C:\\"));

  EXPECT_EQ("C:\\", fso.GetParentFolderName("C:\\a"));
  EXPECT_EQ("C:\\a", fso.GetParentFolderName("C:\\a\\b"));
  EXPECT_EQ("C:\\a", fso.GetParentFolderName("C:\\a\\b\\"));
  EXPECT_EQ("", fso.GetParentFolderName("C:\\"));
  EXPECT_EQ("", fso.GetParentFolderName("name"));
  EXPECT_EQ("rel", fso.GetParentFolderName("rel\\name"));
  EXPECT_EQ("\\", fso.GetParentFolderName("\\top"));

  EXPECT_EQ("C:", fso.GetDriveName("C:\\a\\b"));
  EXPECT_EQ("", fso.GetDriveName("a\\b"));
  EXPECT_EQ("\\\\srv\\share", fso.GetDriveName("\\\\srv\\share\\dir\\f"));

  EXPECT_EQ("C:\\a\\b", fso.BuildPath("C:\\a", "b"));
  EXPECT_EQ("C:\\a\\b", fso.BuildPath("C:\\a\\", "b"));
  EXPECT_EQ("C:\\a\\b", fso.BuildPath("C:\\a\\", "\\b"));
  EXPECT_EQ("C:\\a\\b", fso.BuildPath("C:\\a", "\\b"));
  EXPECT_EQ("C:\\b", fso.BuildPath("C:\\", "b"));
  EXPECT_EQ("C:b", fso.BuildPath("C:", "b"));
  EXPECT_EQ("b", fso.BuildPath("", "b"));
}

TEST(FsoCopyMove, CopyFileIntoFolderAndOverwrite) {
  ScratchDir dir("fso_copy");
  auto& fso = file_system();
  std::string src = dir.file("src\\data.txt", "new");
  dir.folder("dst");

  EXPECT_EQ(rt_ok, fso.CopyFile(src, dir / "dst\\"));
  EXPECT_EQ("new", read_file(dir / "dst\\data.txt"));

  dir.file("dst\\data.txt", "old");
  EXPECT_EQ(rt_file_exists, fso.CopyFile(src, dir / "dst\\", false));
  EXPECT_EQ("old", read_file(dir / "dst\\data.txt"));
  EXPECT_EQ(rt_ok, fso.CopyFile(src, dir / "dst\\data.txt", true));
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

TEST(FsoCopyMove, CopyFolderCopiesTheTree) {
  ScratchDir dir("fso_copytree");
  auto& fso = file_system();
  dir.file("tree\\a.txt", "a");
  dir.file("tree\\sub\\b.txt", "b");
  dir.folder("tree\\sub\\empty");
  dir.folder("into");

  EXPECT_EQ(rt_ok, fso.CopyFolder(dir / "tree", dir / "copy"));
  EXPECT_EQ("b", read_file(dir / "copy\\sub\\b.txt"));
  EXPECT_TRUE(fso.FolderExists(dir / "copy\\sub\\empty"));

  EXPECT_EQ(rt_ok, fso.CopyFolder(dir / "tree", dir / "into\\"));
  EXPECT_EQ("a", read_file(dir / "into\\tree\\a.txt"));

  EXPECT_EQ(rt_file_exists, fso.CopyFolder(dir / "tree", dir / "copy", false));
  EXPECT_NE(rt_ok, fso.CopyFolder(dir / "tree", dir / "tree\\sub\\again"));
  EXPECT_FALSE(path_exists(dir / "tree\\sub\\again\\sub"));
  EXPECT_EQ(rt_path_not_found, fso.CopyFolder(dir / "none", dir / "x"));
}

TEST(FsoCopyMove, MoveFileRefusesAnExistingTarget) {
  ScratchDir dir("fso_move");
  auto& fso = file_system();
  std::string a = dir.file("a.txt", "a");
  dir.file("b.txt", "b");
  dir.folder("to");

  EXPECT_EQ(rt_file_exists, fso.MoveFile(a, dir / "b.txt"));
  EXPECT_EQ("b", read_file(dir / "b.txt"));
  EXPECT_EQ(rt_ok, fso.MoveFile(a, dir / "to\\"));
  EXPECT_FALSE(path_exists(a));
  EXPECT_EQ("a", read_file(dir / "to\\a.txt"));
  EXPECT_EQ(rt_file_not_found, fso.MoveFile(a, dir / "to\\"));

  EXPECT_EQ(rt_ok, fso.MoveFolder(dir / "to", dir / "moved"));
  EXPECT_EQ("a", read_file(dir / "moved\\a.txt"));
}

TEST(FsoDrives, SystemDriveAndMissingLetters) {
  auto& fso = file_system();
  EXPECT_TRUE(fso.DriveExists("c"));
  EXPECT_TRUE(fso.DriveExists("C:\\"));
  EXPECT_FALSE(fso.DriveExists("Z:"));

  Drive d;
  EXPECT_EQ(rt_device_unavailable, fso.GetDrive("Z:", d));
  ASSERT_EQ(rt_ok, fso.GetDrive("c:", d));
  EXPECT_EQ('C', d.DriveLetter());
  EXPECT_EQ("C:", d.Path());
  EXPECT_EQ(2, d.DriveType()) << "fixed, in the scripting object's numbering";
  EXPECT_TRUE(d.IsReady());
  double free = 0, total = 0;
  EXPECT_EQ(rt_ok, d.FreeSpace(free));
  EXPECT_EQ(rt_ok, d.TotalSize(total));
  EXPECT_GT(free, 0);
  EXPECT_GE(total, free);
}

}  // namespace
}  // namespace wh
