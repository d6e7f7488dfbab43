// Removal at the next boot: the NT road through the system's pending list,
// the 9x road through WinInit.ini (with OS and WinDir changed for the test).
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/delete_or_schedule.h"
#include "core/routines.h"
#include "platform/processes.h"
#include "support/pending.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::ScratchDir;
using wh::test::write_file;

namespace {

// OS and WinDir as the 9x family has them, put back afterwards.
class NineX : public ::testing::Test {
protected:
  void SetUp() override {
    os_ = environ_value("OS");
    windir_ = environ_value("WinDir");
    SetEnvironmentVariableA("OS", nullptr);
    SetEnvironmentVariableA("WinDir", dir.path().c_str());
  }
  void TearDown() override {
    SetEnvironmentVariableA("OS", os_.c_str());
    SetEnvironmentVariableA("WinDir", windir_.c_str());
  }
  std::string ini() const { return dir / "WinInit.ini"; }

  ScratchDir dir{"wininit"};

private:
  std::string os_, windir_;
};

}  // namespace

TEST(DeleteOrSchedule, OnNtTheShortPathJoinsThePendingList) {
  ASSERT_EQ("Windows_NT", environ_value("OS")) << "Wine gives every process this variable";
  ScratchDir dir("schedule");
  std::string path = dir.file("a long file name.txt", "locked");
  const std::string short_form = short_path(path);
  ASSERT_NE(path, short_form);
  const std::string before = test::pending_operations();
  delete_or_schedule(path);
  EXPECT_EQ(short_form, path) << "the path is changed in place";
  EXPECT_NE(std::string::npos,
            test::pending_operations().find("\\??\\" + short_form + '\0'));
  EXPECT_TRUE(path_exists(short_form)) << "only scheduled";
  test::restore_pending(before);
}

TEST_F(NineX, TwoEntriesGiveOneHeadAndTwoLines) {
  std::string a = dir.file("a.txt"), b = dir.file("b.txt");
  delete_or_schedule(a);
  delete_or_schedule(b);
  EXPECT_EQ("[Rename]\r\nNUL=" + a + "\r\nNUL=" + b + "\r\n", read_file(ini()));
}

TEST_F(NineX, TheNewLineGoesAtTheEndWhateverSectionStandsLast) {
  write_file(ini(), "[Rename]\r\nNUL=C:\\OLD.TXT\r\n[Other]\r\nx=1");
  std::string a = dir.file("a.txt");
  delete_or_schedule(a);
  // No final line end: one comes first.
  EXPECT_EQ("[Rename]\r\nNUL=C:\\OLD.TXT\r\n[Other]\r\nx=1\r\nNUL=" + a + "\r\n", read_file(ini()));
}

TEST_F(NineX, TheTextIsCutAtItsFirstZeroByte) {
  write_file(ini(), std::string("[Rename]\r\n\0garbage", 19));
  std::string a = dir.file("a.txt");
  delete_or_schedule(a);
  EXPECT_EQ("[Rename]\r\nNUL=" + a + "\r\n", read_file(ini()));
}

TEST_F(NineX, AFileThatFillsTheBufferLosesItsOldContents) {
  for (size_t size : {size_t{32768}, size_t{40000}}) {
    write_file(ini(), "[Rename]\r\n" + std::string(size - 10, 'x'));
    std::string a = dir.file("a.txt");
    delete_or_schedule(a);
    EXPECT_EQ("\r\nNUL=" + a + "\r\n", read_file(ini())) << size;
  }
  // One byte less leaves room for the zero that ends the text.
  const std::string old = "[Rename]\r\n" + std::string(32767 - 12, 'x') + "\r\n";
  write_file(ini(), old);
  std::string a = dir.file("a.txt");
  delete_or_schedule(a);
  EXPECT_EQ(old + "NUL=" + a + "\r\n", read_file(ini()));
}

TEST_F(NineX, APathWithNoShortFormIsWrittenUnchanged) {
  std::string gone = dir / "never made\\a long name.txt";
  delete_or_schedule(gone);
  EXPECT_EQ(dir / "never made\\a long name.txt", gone);
  EXPECT_EQ("[Rename]\r\nNUL=" + gone + "\r\n", read_file(ini()));
}
