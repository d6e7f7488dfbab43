// Splitting real files, and joining them again by running the written batch
// file with Wine's own cmd in the fragments' folder.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "core/globals.h"
#include "core/routines.h"
#include "filetools/splitter.h"
#include "platform/code_pages.h"
#include "platform/rt_error.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::names_in;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::ScratchDir;

namespace {

std::string bytes(size_t n, unsigned seed = 7) {
  std::string s(n, '\0');
  for (size_t i = 0; i < n; ++i) {
    seed = seed * 1103515245u + 12345u;
    s[i] = static_cast<char>(seed >> 16);
  }
  return s;
}

// The batch file run by cmd in `folder`, the keyboard a NUL device (pause
// reads EOF and goes on); returns what it printed. Wine 8's cmd does not
// find a batch file whose name holds "(" when it is the command itself
// ("Can't recognize"); through "call" it runs.
std::string run_batch(const std::string& folder, const std::string& batch) {
  SECURITY_ATTRIBUTES sa{sizeof sa, nullptr, TRUE};
  HANDLE in = CreateFileA("NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &sa,
                          OPEN_EXISTING, 0, nullptr);
  const std::string log = folder + "\\..\\cmd_output.txt";
  HANDLE out = CreateFileA(log.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &sa,
                           CREATE_ALWAYS, 0, nullptr);
  STARTUPINFOA si{};
  si.cb = sizeof si;
  si.dwFlags = STARTF_USESTDHANDLES;
  si.hStdInput = in;
  si.hStdOutput = out;
  si.hStdError = out;
  PROCESS_INFORMATION pi{};
  std::string cmd = "cmd /c call \"" + batch + "\"";
  EXPECT_TRUE(CreateProcessA(nullptr, cmd.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                             nullptr, folder.c_str(), &si, &pi));
  WaitForSingleObject(pi.hProcess, 60000);
  CloseHandle(pi.hProcess);
  CloseHandle(pi.hThread);
  CloseHandle(in);
  CloseHandle(out);
  std::string text = read_file(log);
  DeleteFileA(log.c_str());
  return text;
}


struct JoinCase {
  const char* label;
  const char* name;
  size_t length;
  int32_t fragment;
  int language;
  bool delete_after;
  int16_t fragments;
};

class SplitAndJoin : public ::testing::TestWithParam<JoinCase> {
protected:
  void SetUp() override { saved_ = language_flag; }
  void TearDown() override { language_flag = saved_; }
  uint8_t saved_ = 1;
};

TEST_P(SplitAndJoin, TheBatchFileRebuildsTheSourceByteForByte) {
  const JoinCase& c = GetParam();
  ScratchDir dir(std::string("split_join_") + c.label);
  const std::string content = bytes(c.length);
  const std::string source = dir.file(std::string("data\\") + c.name, content);
  language_flag = static_cast<uint8_t>(c.language);

  std::string destination = dir / "data";
  int16_t count = -1;
  const SplitProgress progress{.percent = {}, .pump = {}, .delete_after_merge = [&] { return c.delete_after; }};
  ASSERT_EQ(split_done, split_file(source, destination, c.fragment, count, progress));
  EXPECT_EQ(dir / "data\\", destination);
  EXPECT_EQ(c.fragments, count);
  const std::string batch = batch_path(destination, c.name, c.language);
  ASSERT_TRUE(path_exists(batch));

  // The source leaves, as if the fragments had been carried elsewhere: its
  // short name is the one the batch file copies into.
  ASSERT_TRUE(MoveFileA(source.c_str(), (dir / "original").c_str()));
  const std::string said = run_batch(dir / "data", batch);
  const std::string joined = read_file(dir / "data\\" + c.name);
  EXPECT_EQ(content.size(), joined.size()) << said;
  EXPECT_TRUE(content == joined) << said;
  std::vector<std::string> left = names_in(dir / "data");
  if (c.delete_after) {
    // The batch file's own "del" line has its path unquoted: a blank in the
    // name and it stays.
    std::vector<std::string> kept{c.name};
    if (std::string(c.name).find(' ') != std::string::npos)
      kept.push_back(batch.substr(batch.rfind('\\') + 1));
    std::sort(kept.begin(), kept.end());
    std::sort(left.begin(), left.end());
    EXPECT_EQ(kept, left) << "fragments and batch file gone";
  } else {
    EXPECT_EQ(static_cast<size_t>(c.fragments) + 2, left.size());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, SplitAndJoin,
    ::testing::Values(JoinCase{"one", "single.bin", 3000, 5000, 1, false, 1},
                      JoinCase{"exact", "exact.dat", 30000, 10000, 1, false, 3},
                      JoinCase{"romanian", "Poze de vacanta.zip", 25000, 7000, 2, false, 4},
                      JoinCase{"delete_blank", "gone after.bin", 20000, 6000, 1, true, 4},
                      JoinCase{"delete_ro", "sters.bin", 20000, 6000, 2, true, 4},
                      // "Pâine în cuptor.zip": letters that the OEM code pages
                      // of Western and Central Europe have: cmd reads the name.
                      JoinCase{"letters", "P\xC3\xA2ine \xC3\xAEn cuptor.zip", 25000, 7000, 2,
                               false, 4}),
    [](const auto& info) { return std::string(info.param.label); });

// A limit of the format: cmd reads a batch file in the system's OEM code
// page, and none has ș or an emoji. The batch file keeps the name in UTF-8
// (right for a console set to it, chcp 65001): here the copy rebuilds the
// file, and the rename gives it the name those bytes make in the OEM page.
TEST(SplitAndJoinLimit, ANameOutsideTheOemCodePageIsRebuiltUnderAnotherName) {
  if (system_oem_code_page() == CP_UTF8) GTEST_SKIP() << "a UTF-8 system reads every name";
  const uint8_t saved = language_flag;
  language_flag = 1;
  ScratchDir dir("split_join_limit");
  const std::string name = "\xC8\x99" "coal\xC4\x83 \xF0\x9F\x98\x80.zip";  // școală 😀.zip
  const std::string content = bytes(20000);
  const std::string source = dir.file("data\\" + name, content);
  std::string destination = dir / "data";
  int16_t count = 0;
  ASSERT_EQ(split_done, split_file(source, destination, 7000, count, SplitProgress{}));
  const std::string batch = batch_path(destination, name, 1);
  EXPECT_NE(std::string::npos, read_file(batch).find('"' + name + '"')) << "left in UTF-8";
  ASSERT_TRUE(MoveFileA(source.c_str(), (dir / "original").c_str()));
  run_batch(dir / "data", batch);
  EXPECT_FALSE(path_exists(dir / "data\\" + name));
  int rebuilt = 0;
  for (const std::string& n : names_in(dir / "data")) rebuilt += read_file(dir / "data\\" + n) == content;
  EXPECT_EQ(1, rebuilt);
  language_flag = saved;
}

class SplitFile : public ::testing::Test {
protected:
  void SetUp() override { saved_ = language_flag, language_flag = 1; }
  void TearDown() override { language_flag = saved_; }
  // Splits into `folder`, the count landing in count_.
  int16_t split(const std::string& source, std::string folder, int32_t fragment_bytes) {
    return split_file(source, folder, fragment_bytes, count_);
  }
  uint8_t saved_ = 1;
  int16_t count_ = 0;
};

TEST_F(SplitFile, FragmentsAreNamedFromTheShortNameWithThreeDigits) {
  ScratchDir dir("split_names");
  const std::string source = dir.file("Long file name.text", bytes(2500));
  ASSERT_EQ(split_done, split(source, dir.path(), 1000));
  const std::string s = path_part(short_path(source), 6);
  const std::string base = s.substr(0, s.rfind('.'));
  EXPECT_EQ(split_short_name, s);
  EXPECT_EQ("+" + base + ".001+" + base + ".002+" + base + ".003", fragment_list);
  EXPECT_EQ(bytes(2500).substr(2000), read_file(dir / base + ".003"));
}

TEST_F(SplitFile, MissingThingsAndAZeroSizeAreRefusedBeforeAnyWrite) {
  ScratchDir dir("split_refused");
  const std::string source = dir.file("src\\a.bin", "abc");
  dir.folder("empty");
  count_ = 77;
  EXPECT_EQ(split_not_found, split("", dir / "src", 10));
  EXPECT_EQ(split_not_found, split(dir / "src\\none.bin", dir / "src", 10));
  EXPECT_EQ(split_not_found, split(source, dir / "empty", 10)) << "an empty folder is missing";
  EXPECT_EQ(split_zero_size, split(source, dir / "src", 0));
  EXPECT_EQ(77, count_);
  EXPECT_EQ(1u, names_in(dir / "src").size());
}

TEST_F(SplitFile, AThousandFragmentsAreRefusedOnASparseThousandMegabytes) {
  ScratchDir dir("split_thousand");
  const std::string source = dir / "big.img";
  ASSERT_TRUE(test::sparse_file(source, 1000LL * 1048576));
  EXPECT_EQ(split_too_many, split(source, dir.path(), 1048576));
  EXPECT_EQ(1u, names_in(dir.path()).size()) << "nothing written";
}

TEST_F(SplitFile, BeyondTwoGibibytesTheCopiedTotalOverflowsIntoAFailure) {
  ScratchDir dir("split_2gib");
  const std::string source = dir / "huge.img";
  ASSERT_TRUE(test::sparse_file(source, (1LL << 31) + 10));
  EXPECT_EQ(split_failed, split(source, dir.path(), 1000000000));
  // What was written stays; the batch file never came.
  EXPECT_TRUE(path_exists(dir / "huge.001"));
  EXPECT_TRUE(path_exists(dir / "huge.003"));
  EXPECT_FALSE(path_exists(dir / "merge(huge.img).bat"));
}

TEST_F(SplitFile, NineHundredNinetyNineAndAHalfFragmentsWriteTheLastOverThe999th) {
  ScratchDir dir("split_999");
  const std::string content = bytes(1999);
  const std::string source = dir.file("x.bin", content);
  ASSERT_EQ(split_done, split(source, dir.path(), 2));
  EXPECT_EQ(1000, count_);
  EXPECT_EQ(999, std::count(fragment_list.begin(), fragment_list.end(), '+'));
  const std::string base = split_short_name.substr(0, split_short_name.rfind('.'));
  // The thousandth (one byte) went over the start of the 999th.
  EXPECT_EQ(content.substr(1998, 1) + content.substr(1997, 1), read_file(dir / base + ".999"));
  EXPECT_FALSE(path_exists(dir / base + ".1000"));
}

TEST_F(SplitFile, OldLongerFilesKeepTheirTails) {
  ScratchDir dir("split_tails");
  const std::string source = dir.file("t.bin", std::string(10, 'n'));
  const std::string old = std::string(15, 'o');
  dir.file("t.001", old);
  const std::string batch = batch_path(dir.path() + "\\", "t.bin", 1);
  const std::string old_batch = std::string(2000, '#');
  dir.file(batch.substr(dir.path().size() + 1), old_batch);
  ASSERT_EQ(split_done, split(source, dir.path(), 100));
  EXPECT_EQ(std::string(10, 'n') + std::string(5, 'o'), read_file(dir / "t.001"));
  const std::string text = read_file(batch);
  ASSERT_EQ(old_batch.size(), text.size()) << "the batch file was not shortened";
  EXPECT_NE(std::string::npos, text.find("@echo on#"));
}

TEST(SplitSizes, CeilDivReturnsTheNumeratorWhenTheDivisionIsExact) {
  EXPECT_EQ(5242880, ceil_div(5242880, 1048576));  // the slip: 5 MB in 1 MB pieces
  EXPECT_EQ(6, ceil_div(5242881, 1048576));
  EXPECT_EQ(4, ceil_div(5242880, 1.38 * 1024 * 1024));
  EXPECT_EQ(1, ceil_div(1000, 1447035));
  EXPECT_THROW(ceil_div(3.0 * 1024 * 1024 * 1024, 1048576), RuntimeError);
  EXPECT_EQ("Holiday pictures.zip", path_part("C:\\Data\\Holiday pictures.zip", 6));
  EXPECT_EQ("b.txt", path_part("a:b.txt", 6));
  EXPECT_EQ("plain", path_part("plain", 6));
}

}  // namespace
