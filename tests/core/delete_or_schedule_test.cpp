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

TEST_F(NineX, EntriesGoUnderOneHeadAndPathsWithoutAShortFormAsTheyAre) {
  std::string a = dir.file("a.txt"), gone = dir / "never made\\a long name.txt";
  delete_or_schedule(a);
  delete_or_schedule(gone);
  EXPECT_EQ(dir / "never made\\a long name.txt", gone);
  EXPECT_EQ("[Rename]\r\nNUL=" + a + "\r\nNUL=" + gone + "\r\n", read_file(ini()));
}

TEST_F(NineX, TheNewLineGoesAtTheEndOfTheTextUpToItsFirstZeroByte) {
  const std::string fits = "[Rename]\r\n" + std::string(32767 - 12, 'x') + "\r\n";
  const struct {
    std::string before, kept;
  } cases[] = {
      // No final line end: one comes first, whatever section stands last.
      {"[Rename]\r\nNUL=C:\\OLD.TXT\r\n[Other]\r\nx=1", "[Rename]\r\nNUL=C:\\OLD.TXT\r\n[Other]\r\nx=1\r\n"},
      {std::string("[Rename]\r\n\0garbage", 19), "[Rename]\r\n"},
      // A file that fills the buffer loses its old contents; one byte less
      // leaves room for the zero that ends the text.
      {"[Rename]\r\n" + std::string(32768 - 10, 'x'), "\r\n"},
      {"[Rename]\r\n" + std::string(40000 - 10, 'x'), "\r\n"},
      {fits, fits},
  };
  for (const auto& c : cases) {
    write_file(ini(), c.before);
    std::string a = dir.file("a.txt");
    delete_or_schedule(a);
    EXPECT_EQ(c.kept + "NUL=" + a + "\r\n", read_file(ini())) << c.before.size();
  }
}
