// The duplicate finder's routines without a form: the glued masks, the
// quick sort's order of ties and its 16-bit limit, the walk over runs with
// its end mark, and the sampled comparison on real files.
#include <gtest/gtest.h>

#include <string>

#include "filetools/dupfinder.h"
#include "platform/rt_error.h"
#include "support/scratch.h"
#include "support/errors.h"

using namespace wh;
using wh::test::ScratchDir;

namespace {

FoundTable table_of(std::initializer_list<std::pair<const char*, double>> rows) {
  FoundTable t(1);
  for (auto& [path, size] : rows) t.push_back(FoundFile{path, size, name_key(path)});
  return t;
}

std::string paths(const FoundTable& t) {
  std::string s;
  for (size_t i = 1; i < t.size(); ++i) s += (s.empty() ? "" : ",") + t[i].path;
  return s;
}

struct Result {
  std::vector<std::string> lines;
  std::vector<long> items;
  std::string total;
  double waste = 0;
};

Result walk(FoundTable t, bool by_content) {
  Result r;
  DupSink sink{
      .line = [&](const std::string& l, long item) {
        r.lines.push_back(l);
        r.items.push_back(item);
      },
      .total = [&](const std::string& text) { r.total = text; },
      .length = [](const std::string&) { return 7.0; },
  };
  sort_by_name(1, index16(t.size() - 1.0), t);
  if (by_content) sort_by_size(1, index16(t.size() - 1.0), t);
  DupRuns runs(t, by_content, r.waste, true, sink);
  runs.walk();
  return r;
}

}  // namespace

TEST(DupMasks, GroupsGlueInIndexOrderAndLoseTheirLastCharacter) {
  std::array<bool, 5> m{false, true, true, false, false};
  const std::string text = mask_text(m, {});
  EXPECT_NE(std::string::npos, text.find("*.mov*.doc")) << "video and documents glued";
  EXPECT_EQ("*.mpg;*.wmv;*.avi;*.divx;*.mov*.doc;*.xls;*.sxw;*.sxc;*.ppt;*.pd", mask_pattern(text));
  // "other" takes its own entries, whatever else is marked.
  m = {true, false, false, false, true};
  EXPECT_EQ("*.exe;*.zip", mask_pattern(mask_text(m, {"*.exe", "*.zip"})));
}

TEST(DupSort, DescendingWithTiesWhereThePivotWalkLeavesThem) {
  FoundTable t = table_of({{"a", 5}, {"b", 5}, {"c", 7}, {"d", 1}, {"e", 5}});
  sort_by_size(1, 5, t);
  // A stable sort would give c,a,b,e,d: here the pivot a passes b.
  EXPECT_EQ("c,b,a,e,d", paths(t));
  FoundTable n = table_of({{"x\\b.txt", 0}, {"y\\A.TXT", 0}, {"z\\c.txt", 0}, {"w\\a.txt", 0}});
  sort_by_name(1, 4, n);
  EXPECT_EQ("z\\c.txt,x\\b.txt,y\\A.TXT,w\\a.txt", paths(n));
}

TEST(DupSort, MoreThan32767FilesOverflow) {
  EXPECT_EQ(32767, index16(32767));
  EXPECT_EQ(rt_overflow, test::error_of([&] { index16(32768); }));
  // The pivot of an ordered table of 32767 ends on the last index, and the
  // range behind it starts at 32768.
  FoundTable big(1);
  for (int i = 0; i < 32767; ++i) big.push_back(FoundFile{"f", static_cast<double>(i), ""});
  EXPECT_EQ(rt_overflow, test::error_of([&] { sort_by_size(1, 32767, big); }));
  // Below that an ordered table sorts without running out of stack.
  big.resize(5001);
  for (int i = 1; i <= 5000; ++i) big[i].size = i;
  sort_by_size(1, 5000, big);
  EXPECT_EQ(5000, big[1].size);
  EXPECT_EQ(1, big[5000].size);
}

TEST(DupRunsTest, SameNameGroupsAreNumberedAndTheLastPairIsNeverReported) {
  Result r = walk(table_of({{"C:\\1\\A.TXT", 0}, {"C:\\2\\a.txt", 0}, {"C:\\3\\0.txt", 0},
                            {"C:\\1\\b.txt", 0}, {"C:\\2\\B.txt", 0}, {"C:\\1\\b.TXT", 0}}),
                  false);
  ASSERT_EQ(5u, r.lines.size());
  for (int k = 0; k < 3; ++k) EXPECT_EQ('1', r.lines[k][0]) << r.lines[k];
  EXPECT_EQ("2 ", r.lines[3].substr(0, 2));
  EXPECT_EQ("2 ", r.lines[4].substr(0, 2));
  EXPECT_EQ("A.TXT", name_key(r.lines[4]));
  // Two runs: 2 extra copies of b, 1 of a, each 7 bytes long.
  EXPECT_EQ(21, r.waste);
  EXPECT_EQ(" Total waisted : ", r.total.substr(0, 17));
  EXPECT_NE(std::string::npos, r.total.find("21 bytes"));

  // The alphabetically first pair comes last and is passed over.
  r = walk(table_of({{"C:\\1\\b.txt", 0}, {"C:\\2\\b.txt", 0}, {"C:\\1\\a.txt", 0},
                     {"C:\\2\\a.txt", 0}}),
           false);
  ASSERT_EQ(2u, r.lines.size());
  EXPECT_NE(std::string::npos, r.lines[0].find("b.txt"));
  // Two files alone are never reported.
  EXPECT_TRUE(walk(table_of({{"C:\\1\\b.txt", 0}, {"C:\\2\\b.txt", 0}}), false).lines.empty());
}

TEST(DupRunsTest, ALastRecordEqualToTheEndMarkRunsPastTheTable) {
  EXPECT_EQ(rt_subscript, test::error_of([] {
              walk(table_of({{"C:\\x", 99999}, {"C:\\y", 66666}, {"C:\\z", 66666}, {"C:\\w", 66666}}),
                   true);
            }));
  EXPECT_EQ(rt_subscript, test::error_of([] {
              walk(table_of({{"C:\\x\\zz", 0}, {"C:\\y\\66666", 0}, {"C:\\z\\66666", 0},
                             {"C:\\w\\66666", 0}}),
                   false);
            }));
}

class DupSamples : public ::testing::Test {
protected:
  ScratchDir dir{"dupfinder_samples"};
  std::string make(const std::string& name, std::string bytes) { return dir.file(name, bytes); }
};

TEST_F(DupSamples, ShortMissingOrUnmatchedFirstFilesEndTheRunQuietly) {
  Samples s;
  EXPECT_EQ(rt_bad_record_number, read_samples(make("nine.bin", "123456789"), 9, s));
  EXPECT_EQ(rt_file_not_found, read_samples(dir / "none.bin", 100, s));
  // Near the end the rest of a sample stays zero.
  ASSERT_EQ(0, read_samples(make("ten.bin", "0123456789"), 10, s));
  EXPECT_EQ('9', s.first[9]);
  EXPECT_EQ(0, s.first[10]);
  EXPECT_EQ('8', s.last[0]);
  EXPECT_EQ(0, s.last[2]);

  int group = -1;
  auto lines_of = [&](FoundTable t) {
    int lines = 0;
    double waste = 0;
    DupRuns runs(t, true, waste, true,
                 DupSink{.line = [&](const std::string&, long) { ++lines; },
                         .total = [](const std::string&) {},
                         .length = {}});
    runs.compare_group(1, static_cast<int>(t.size() - 1));
    group = runs.group();
    return lines;
  };
  // Nine-byte twins: too short to sample.
  EXPECT_EQ(0, lines_of({{}, FoundFile{make("x.bin", "abcdefghi"), 9, ""},
                         FoundFile{make("y.bin", "abcdefghi"), 9, ""}}));
  // A first file that matches nothing hides the pair behind it.
  EXPECT_EQ(0, lines_of({{}, FoundFile{make("a.bin", std::string(400, 'a')), 400, ""},
                         FoundFile{make("b.bin", std::string(400, 'b')), 400, ""},
                         FoundFile{make("c.bin", std::string(400, 'b')), 400, ""}}));
  EXPECT_EQ(0, group) << "the number taken back";
}
