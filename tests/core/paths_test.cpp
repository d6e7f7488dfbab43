// Size texts and path pieces: every list and label of the program shows them.
#include <gtest/gtest.h>

#include <utility>

#include "core/cmdline.h"
#include "core/paths.h"
#include "core/text.h"

using namespace wh;

TEST(SizeText, EachRangeWithItsCut) {
  const struct {
    double n;
    char decimal;
    const char* text;
  } cases[] = {
      {0, '.', " 0 bytes"},      {1024, '.', " 1024 bytes"},  {-5, '.', " -5 bytes"},
      {1025, '.', "1 KB"},       {2047, '.', "1 KB"},         {1048576, '.', "1024 KB"},
      // 1.00000095... is cut, not rounded.
      {1048577, '.', "1.00 MB"}, {1.5 * 1048576, '.', "1.5 MB"}, {2 * 1048576.0, '.', "2 MB"},
      {1073741823, '.', "1023.99 MB"}, {1073741824, '.', "1 GB"}, {1.999 * 1073741824, '.', "1.99 GB"},
      // Whole gigabytes keep two characters.
      {2 * 1073741824.0, '.', "2 GB"}, {123 * 1073741824.0, '.', "12 GB"},
      // A decimal comma cuts to two characters.
      {1610612736, ',', "1, GB"},    {1.5 * 1048576, ',', "1, MB"},
      {2 * 1048576.0, ',', "2 MB"},  {0.5, ',', " 0,5 bytes"},
  };
  for (const auto& c : cases) EXPECT_EQ(c.text, spatiuu_text(c.n, c.decimal)) << c.n;
}

TEST(PathPieces, ParentPath) {
  for (auto [in, out] : {std::pair{"C:\\x.txt", "C:"}, {"x.txt", ""}, {"C:\\a\\b\\c", "C:\\a\\b"},
                         {"C:\\a\\", "C:\\a"}})
    EXPECT_EQ(out, parent_path(in)) << in;
  // The first "\" lies beyond the byte's reach: the walk never starts.
  EXPECT_EQ("", parent_path(std::string(300, 'a') + "\\x"));
  // Everything within reach still works on a long path.
  std::string p = "C:\\" + std::string(250, 'a') + "\\x";
  EXPECT_EQ(p.substr(0, 253), parent_path(p));
  // The reach counts characters: 200 two-byte letters put the last "\" at
  // byte 404 but at character 204.
  std::string letters;
  for (int i = 0; i < 200; ++i) letters += "\xC8\x99";
  const std::string named = "C:\\" + letters + "\\\xE5\xAD\xA6.txt";
  EXPECT_EQ("C:\\" + letters, parent_path(named));
}

TEST(PathPieces, FileExtension) {
  for (auto [in, out] : {std::pair{"a.b.c", "C"}, {"noext", " "}, {".hidden", ".HIDDEN"},
                         {"dot.", ""}, {".x.txt", "TXT"}})
    EXPECT_EQ(out, file_extension(in)) << in;
}

TEST(Text, CaseOfLettersInAnyAlphabetKeepsEveryBytePosition) {
  // "școală ωμέγα кот ÿ" and back; CJK, emoji and a broken byte stay.
  const std::string lower = "\xC8\x99" "coal\xC4\x83 \xCF\x89\xCE\xBC\xCE\xAD\xCE\xB3\xCE\xB1 "
                            "\xD0\xBA\xD0\xBE\xD1\x82 \xC3\xBF \xE5\xAD\xA6\xF0\x9F\x98\x80\xC8";
  const std::string upper = "\xC8\x98" "COAL\xC4\x82 \xCE\xA9\xCE\x9C\xCE\x88\xCE\x93\xCE\x91 "
                            "\xD0\x9A\xD0\x9E\xD0\xA2 \xC5\xB8 \xE5\xAD\xA6\xF0\x9F\x98\x80\xC8";
  EXPECT_EQ(upper, ucase(lower));
  EXPECT_EQ(lower, lcase(upper));
  // A capital of another length in UTF-8 is not taken: positions hold.
  EXPECT_EQ("\xC3\x84\xC3\x9F", ucase("\xC3\xA4\xC3\x9F")) << "sharp s";
  EXPECT_EQ("TXT", file_extension("\xC8\x99" ".txt"));
  EXPECT_EQ("\xC4\x82", file_extension("a.\xC4\x83"));
}

TEST(PathPieces, BackslashAndJoin) {
  for (auto [in, out] : {std::pair{"   ", ""}, {" C:\\a ", "C:\\a\\"}, {"C:\\a\\", "C:\\a\\"},
                         {"C:", "C:\\"}})
    EXPECT_EQ(out, add_backslash(in)) << in;
  for (auto [in, out] : {std::pair{"C:\\", "C:\\x"}, {"C:\\a", "C:\\a\\x"},
                         {"C:\\a\\", "C:\\a\\\\x"}, {"C:", "C:\\x"}})
    EXPECT_EQ(out, join_path(in, "x")) << in;
}

TEST(Text, LeadingNumber) {
  EXPECT_EQ(12, val("12abc"));
  EXPECT_EQ(0, val("abc"));
  EXPECT_EQ(-3.5, val("  -3.5 MB"));
  double d = 0;
  EXPECT_FALSE(parse_number("", d));
  EXPECT_FALSE(parse_number("12a", d));
  EXPECT_TRUE(parse_number(" 120 ", d));
  EXPECT_EQ(120, d);
}

namespace {
PathKind fake_disk(const std::string& p) {
  if (p == "C:\\dir" || p == "C:\\my dir") return PathKind::folder;
  if (p == "C:\\f.txt" || p == "C:\\my file.txt") return PathKind::file;
  return PathKind::none;
}
}  // namespace

TEST(CommandLine, StartWords) {
  EXPECT_TRUE(start_words("start").restart && !start_words("start").tray);
  for (auto [line, tray] :
       {std::pair{"X start", true}, {"C:\\restart\\Xfiles", true}, {"X", false}})
    EXPECT_EQ(tray, start_words(line).tray) << line;
  EXPECT_FALSE(start_words("START X").restart);
}

TEST(CommandLine, UnquotedIsOnePath) {
  std::vector<std::string> paths;
  uint8_t count = 0;
  EXPECT_TRUE(analyze_text("C:\\dir", fake_disk, paths, count));
  ASSERT_EQ(2u, paths.size());
  EXPECT_EQ("C:\\dir", paths[1]);
  EXPECT_EQ(0, count);

  EXPECT_FALSE(analyze_text("C:\\f.txt", fake_disk, paths, count));
  EXPECT_EQ("C:\\f.txt", paths[1]);

  // A name of nothing leaves one empty element.
  EXPECT_FALSE(analyze_text("C:\\nothing", fake_disk, paths, count));
  ASSERT_EQ(2u, paths.size());
  EXPECT_EQ("", paths[1]);
}

TEST(CommandLine, QuotedPathsAreCountedAndSkipped) {
  std::vector<std::string> paths;
  uint8_t count = 0;
  EXPECT_FALSE(analyze_text("\"C:\\my file.txt\"", fake_disk, paths, count));
  EXPECT_EQ(1, count);
  ASSERT_EQ(2u, paths.size());
  EXPECT_EQ("C:\\my file.txt", paths[1]);

  // The counter runs on across calls; a missing path is skipped silently.
  EXPECT_TRUE(analyze_text("\"C:\\gone\" \"C:\\my dir\" \"C:\\f.txt\"", fake_disk, paths, count));
  EXPECT_EQ(3, count);
  ASSERT_EQ(4u, paths.size());
  EXPECT_EQ("", paths[1]);
  EXPECT_EQ("C:\\my dir", paths[2]);
  EXPECT_EQ("C:\\f.txt", paths[3]);
}
