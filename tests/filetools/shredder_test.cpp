// The shredder on real files. To look at a file as it stands just before the
// rename, the test holds it open without delete sharing: the rename then
// fails and the overwritten file stays under its own name, as it does when
// another program holds it.
#include <windows.h>

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "core/globals.h"
#include "form/mainu.h"
#include "core/rnd.h"
#include "filetools/shredder.h"
#include "support/scratch.h"
#include "ui/dialogs.h"

using namespace wh;
using wh::test::names_in;
using wh::test::ScratchDir;

namespace {

// Keeps a file from being renamed or deleted while letting it be written.
class Pin {
public:
  explicit Pin(const std::string& path)
      : h_(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       OPEN_EXISTING, 0, nullptr)) {}
  ~Pin() {
    if (h_ != INVALID_HANDLE_VALUE) CloseHandle(h_);
  }
  bool ok() const { return h_ != INVALID_HANDLE_VALUE; }
  int64_t size() const {
    LARGE_INTEGER s{};
    GetFileSizeEx(h_, &s);
    return s.QuadPart;
  }
  // Every byte of the file, through this handle.
  std::string bytes() const {
    std::string all(static_cast<size_t>(size()), '\0');
    LARGE_INTEGER zero{};
    SetFilePointerEx(h_, zero, nullptr, FILE_BEGIN);
    DWORD got = 0;
    ReadFile(h_, all.data(), static_cast<DWORD>(all.size()), &got, nullptr);
    all.resize(got);
    return all;
  }

private:
  HANDLE h_;
};

// "8192 x '#'" for a run of one byte, else the first few bytes: short
// messages instead of pages of pattern.
std::string describe(const std::string& bytes) {
  if (!bytes.empty() && bytes.find_first_not_of(bytes[0]) == std::string::npos)
    return std::to_string(bytes.size()) + " x '" + bytes[0] + "'";
  return std::to_string(bytes.size()) + " mixed: " + bytes.substr(0, 16);
}

std::string run(size_t n, char c) { return describe(std::string(n, c)); }


class Shredder : public ::testing::Test {
protected:
  ScratchDir dir{"shredder"};
  ScriptedDialogs boxes;
};

}  // namespace

TEST_F(Shredder, LengthBeforeTheRenameFollowsTheRoundedBlockCount) {
  struct Row { int original; int64_t after; };
  for (Row row : {Row{0, 8192}, Row{4096, 8192}, Row{4097, 16384}, Row{8192, 16384},
                  Row{12288, 24576}, Row{20480, 24576}, Row{100000, 106496}}) {
    std::string path = dir.file("len" + std::to_string(row.original), std::string(row.original, 'x'));
    Pin pin(path);
    ASSERT_TRUE(pin.ok());
    shred_file(path, 1, false);
    EXPECT_EQ(row.after, pin.size()) << "original length " << row.original;
    EXPECT_EQ(run(static_cast<size_t>(row.after), '!'), describe(pin.bytes()));
  }
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(Shredder, EachPassWritesItsOwnByteAndNothingPastTheSeventh) {
  for (int passes = 1; passes <= 9; ++passes) {
    std::string path = dir.file("pass" + std::to_string(passes), std::string(3000, 'x'));
    Pin pin(path);
    shred_file(path, static_cast<uint8_t>(passes), true);
    char expected = static_cast<char>(0x20 + std::min(passes, 7));
    EXPECT_EQ(run(8192, expected), describe(pin.bytes())) << passes << " passes";
  }
}

TEST_F(Shredder, ShreddedFilesLeaveNothingBehind) {
  dir.file("plain.txt", "some secret");
  std::string ro = dir.file("readonly.txt", std::string(9000, 's'));
  SetFileAttributesA(ro.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  shred_file(dir / "plain.txt", 3, false);
  shred_file(ro, 7, false);
  // A missing path is made, overwritten, renamed and deleted.
  shred_file(dir / "never-was.bin", 3, false);
  EXPECT_TRUE(names_in(dir.path()).empty());
  EXPECT_EQ(0u, boxes.count());
}

TEST_F(Shredder, FileOfTwoGigabytesIsOnlyRenamedAndDeleted) {
  // Its length reads negative: no block is written. Sparse, so it is cheap.
  std::string path = dir / "huge.bin";
  ASSERT_TRUE(test::sparse_file(path, 0x80000000LL + 4096));
  {
    Pin pin(path);
    shred_file(path, 3, false);
    EXPECT_EQ(0x80000000LL + 4096, pin.size());
    char head[16] = {1};
    DWORD got = 0;
    HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                           OPEN_EXISTING, 0, nullptr);
    ReadFile(h, head, sizeof head, &got, nullptr);
    CloseHandle(h);
    EXPECT_EQ(std::string(16, '\0'), std::string(head, 16)) << "nothing may be written";
  }
  shred_file(path, 3, false);
  EXPECT_TRUE(names_in(dir.path()).empty());
}

TEST_F(Shredder, FolderTreeIsShreddedFileByFileAndFoldersStay) {
  dir.file("top\\a.txt", "a");
  dir.file("top\\sub\\b.txt", std::string(10000, 'b'));
  dir.file("top\\sub\\deeper\\c.txt", "c");
  std::vector<std::string> said;
  ShredProgress progress{
      .pass = [&](int16_t percent) { said.push_back(std::to_string(percent)); },
      .deleted = [&] { said.push_back("deleted"); },
      .file = [&](const std::string& name) { said.push_back(name); },
  };
  shred_folder(dir / "top", 3, progress);
  EXPECT_TRUE(names_in(dir / "top\\sub\\deeper").empty());
  EXPECT_EQ(std::vector<std::string>{"deeper"}, names_in(dir / "top\\sub"));
  EXPECT_EQ(std::vector<std::string>{"sub"}, names_in(dir / "top"));
  // A folder's own files before its subfolders; three passes a file.
  const std::vector<std::string> expected = {"a.txt", "33", "67", "100", "deleted",
                                             "b.txt", "33", "67", "100", "deleted",
                                             "c.txt", "33", "67", "100", "deleted"};
  EXPECT_EQ(expected, said);
}

TEST(ThrowawayName, FormAndBoundsOfTheDrawsTheSameEveryRun) {
  std::vector<double> draws{0.65, 0.90999, 0.64999, 0.91, 0.0, 0.7, 0.0625};
  size_t next = 0;
  auto scripted = [&] { return draws[next++]; };
  // 65 A, 90 Z, 64 digit, 91 digit, 0 digit, 70 F; then 62.5 -> 62 (half to even)
  EXPECT_EQ("aAZ777F.62", throwaway_name(scripted, 47));

  Rnd generator, again;
  std::regex form("a[A-Z0-9]{6}\\.(\\d{1,4})");
  for (int i = 0; i < 500; ++i) {
    std::string name = throwaway_name([&] { return generator.next(); }, i % 60);
    std::smatch m;
    ASSERT_TRUE(std::regex_match(name, m, form)) << name;
    EXPECT_LE(std::stoi(m[1]), 1000);
    ASSERT_EQ(name, throwaway_name([&] { return again.next(); }, i % 60)) << "draw " << i;
  }
}
