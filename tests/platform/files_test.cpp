#include "platform/files.h"

#include <gtest/gtest.h>

#include "platform/rt_error.h"
#include "support/scratch.h"

namespace wh {
namespace {

using test::path_exists;
using test::read_file;
using test::ScratchDir;

TEST(BinaryFileTest, OpenReadNeedsAnExistingFile) {
  ScratchDir dir("bin_open");
  BinaryFile f;
  EXPECT_EQ(rt_file_not_found, f.open_read(dir / "none.bin"));
  EXPECT_EQ(rt_path_not_found, f.open_read(dir / "nodir\\none.bin"));
  EXPECT_FALSE(f.is_open());
  EXPECT_FALSE(path_exists(dir / "none.bin")) << "reading must not create";

  dir.file("five.bin", "12345");
  ASSERT_EQ(rt_ok, f.open_read(dir / "five.bin"));
  std::int64_t len = 0;
  EXPECT_EQ(rt_ok, f.length(len));
  EXPECT_EQ(5, len);
}

TEST(BinaryFileTest, WritePastTheEndGrowsTheFile) {
  ScratchDir dir("bin_grow");
  std::string path = dir / "made.bin";
  {
    BinaryFile f;
    ASSERT_EQ(rt_ok, f.open_binary(path));
    EXPECT_TRUE(path_exists(path)) << "binary open creates";
    ASSERT_EQ(rt_ok, f.write_at(8192, "abc", 3));
    std::int64_t len = 0;
    EXPECT_EQ(rt_ok, f.length(len));
    EXPECT_EQ(8195, len);

    char buf[8] = {};
    DWORD got = 0;
    EXPECT_EQ(rt_ok, f.read_at(8190, buf, sizeof buf, got));
    EXPECT_EQ(5u, got);
    EXPECT_EQ(std::string("\0\0abc", 5), std::string(buf, got)) << "the gap reads as zeros";
    EXPECT_EQ(rt_ok, f.read_at(9000, buf, sizeof buf, got));
    EXPECT_EQ(0u, got);
  }
  EXPECT_EQ(8195u, read_file(path).size()) << "closed by the destructor, data kept";
  // Overwriting in place keeps the rest: tests/filetools' splitter test.
  BinaryFile f;
  ASSERT_EQ(rt_ok, f.open_binary(path));
  EXPECT_EQ(rt_ok, f.set_length(100));
  f.close();
  EXPECT_EQ(100u, read_file(path).size());
}

TEST(FileAttributes, ZeroClearsReadOnlyHiddenAndSystem) {
  ScratchDir dir("attrs");
  std::string path = dir.file("a.txt", "a");
  ASSERT_EQ(rt_ok, set_attributes(path, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                            FILE_ATTRIBUTE_SYSTEM));
  EXPECT_FALSE(delete_file_a(path));
  ASSERT_EQ(rt_ok, set_attributes(path, 0));
  DWORD a = 0;
  ASSERT_EQ(rt_ok, get_attributes(path, a));
  EXPECT_EQ(0u, a & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM));
  EXPECT_TRUE(delete_file_a(path));
  EXPECT_EQ(rt_file_not_found, get_attributes(path, a));
  EXPECT_EQ(rt_file_not_found, set_attributes(path, 0));
}

TEST(FileMoves, RenameFilesAndFolders) {
  ScratchDir dir("rename");
  std::string a = dir.file("a.txt", "a");
  dir.file("taken.txt", "t");
  dir.file("folder\\in.txt", "i");

  EXPECT_EQ(rt_file_exists, rename_path(a, dir / "taken.txt"));
  EXPECT_EQ(rt_ok, rename_path(a, dir / "aK47Q22.815"));
  EXPECT_EQ("a", read_file(dir / "aK47Q22.815"));
  EXPECT_EQ(rt_file_not_found, rename_path(a, dir / "b.txt"));
  EXPECT_EQ(rt_ok, rename_path(dir / "folder", dir / "renamed"));
  EXPECT_EQ("i", read_file(dir / "renamed\\in.txt"));

  EXPECT_EQ(rt_ok, move_file_ex(dir / "aK47Q22.815", dir / "taken.txt",
                                MOVEFILE_REPLACE_EXISTING));
  EXPECT_EQ("a", read_file(dir / "taken.txt"));
}

TEST(Places, TempFileAndProgramFolder) {
  ScratchDir dir("places");
  std::string made = temp_file_name(dir.path(), "~");
  ASSERT_FALSE(made.empty());
  EXPECT_EQ(0, made.compare(0, dir.path().size() + 2, dir.path() + "\\~"));
  EXPECT_TRUE(path_exists(made));

  std::string tmp = temp_path();
  ASSERT_FALSE(tmp.empty());
  EXPECT_EQ('\\', tmp.back());

  // The tests run from their copies in C:\wh.
  EXPECT_EQ(0, lstrcmpiA("C:\\wh", app_path().c_str())) << app_path();
  EXPECT_EQ(0, lstrcmpiA("test_platform", app_exe_name().c_str())) << app_exe_name();
}

}  // namespace
}  // namespace wh
