// The shared routines against the real registry, files and controls.
#include <windows.h>

#include <gtest/gtest.h>

#include "core/routines.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::ScratchDir;
using wh::test::ScratchKey;

TEST(Registry, ValuesComeBackAsTextOrRawBytesAndDefaultsForWhatIsMissing) {
  ScratchKey key("routines_values");
  const std::string deep = key.subkey() + "\\made\\on\\the\\way";
  EXPECT_EQ("fallback", reg_get_value(key.hive(), deep, "text", "fallback"));
  EXPECT_TRUE(reg_enum_keys(key.hive(), deep).empty());
  reg_set_value(key.hive(), deep, "text", "hello");
  EXPECT_EQ("hello", reg_get_value(key.hive(), deep, "text", "x"));
  EXPECT_EQ("fallback", reg_get_value(key.hive(), deep, "absent", "fallback"));
  EXPECT_TRUE(reg_enum_keys(key.hive(), deep).empty());  // a key without subkeys
  // A number value is read as its bytes up to the first NUL.
  reg_set_dword(key.hive(), deep, "number", 0x00434241);
  EXPECT_EQ("ABC", reg_get_value(key.hive(), deep, "number"));

  reg_set_value(key.hive(), key.subkey() + "\\b", "", "");
  reg_set_value(key.hive(), key.subkey() + "\\a", "", "");
  std::vector<std::string> names = reg_enum_keys(key.hive(), key.subkey());
  std::sort(names.begin(), names.end());
  EXPECT_EQ((std::vector<std::string>{"a", "b", "made"}), names);
}

TEST(Files, ResourceToFileKeepsTheTailOfALongerFile) {
  ScratchDir dir("routines_resource");
  std::string path = dir.file("out.bin", std::string(100000, 'z'));
  // The manifest is resource 1 of type 24 in every test binary.
  EXPECT_EQ(path, resource_to_file(path, 1, "#24"));
  std::string bytes = wh::test::read_file(path);
  ASSERT_EQ(100000u, bytes.size());
  EXPECT_EQ(0u, bytes.find("<?xml"));
  EXPECT_EQ('z', bytes.back());
  // A missing resource writes nothing and says nothing.
  std::string other = dir / "none.bin";
  EXPECT_EQ(other, resource_to_file(other, 77, "FLOPPY"));
  EXPECT_FALSE(wh::test::path_exists(other));
}

TEST(Files, ShortPathAndAssociations) {
  ScratchDir dir("routines_short");
  std::string path = dir.file("a rather long file name.text", "x");
  std::string s = short_path(path);
  EXPECT_FALSE(s.empty());
  EXPECT_EQ(std::string::npos, s.find(' '));
  EXPECT_EQ("", short_path(dir / "missing.txt"));
  EXPECT_TRUE(is_nt());
  // A fresh Wine prefix opens .ini files with notepad; an unknown extension
  // has no program.
  EXPECT_NE(std::string::npos, find_associated_program("ini").find("notepad"));
  EXPECT_EQ("", find_associated_program("whnothing"));
}

TEST(Lists, AddWideGrowsTheExtentOnlyForTheWidestLine) {
  FormOptions options;
  options.class_name = "WhRoutinesList";
  Form form(options);
  ListBox& list = form.add<ListBox>("List1", Place{0, 0, 120, 80}, ListBoxOptions{.sorted = true});
  ASSERT_EQ("", list.Tag);
  list_add_wide(list, "b medium line");
  const std::string first = list.Tag;
  EXPECT_GT(std::stoi(first), 10);
  EXPECT_EQ(std::stoi(first), list.send(LB_GETHORIZONTALEXTENT));
  list_add_wide(list, "a short");
  EXPECT_EQ(first, list.Tag);
  list_add_wide(list, "c a much, much longer line than the others");
  EXPECT_GT(std::stoi(list.Tag), std::stoi(first));
  EXPECT_EQ(std::stoi(list.Tag), list.send(LB_GETHORIZONTALEXTENT));
  // LB_ADDSTRING keeps the sorting of the box.
  EXPECT_EQ("a short", list.List(0));
  EXPECT_EQ(3, list.ListCount());
}

TEST(Progress, BarsGrowWithThePercentAndShowIt) {
  wh::test::TestForm m;
  m.spProg2(0);
  // Row 1 stays clear of the centred number.
  const COLORREF bar = GetPixel(m.Picture13.hdc(), 1, 1);
  auto lit = [&](PictureBox& box, int x) { return GetPixel(box.hdc(), x, 1) == bar; };
  ASSERT_NE(GetPixel(m.Picture13.hdc(), 300, 1), bar);
  EXPECT_TRUE(lit(m.Picture13, 25));  // 30 pixels even at nothing
  EXPECT_FALSE(lit(m.Picture13, 40));
  m.spProg2(50);
  EXPECT_TRUE(lit(m.Picture13, 190));  // 50 * 3.3 + 30 = 195
  EXPECT_FALSE(lit(m.Picture13, 200));
  m.spProg3(50);
  EXPECT_TRUE(lit(m.Picture16, 105));  // 50 * 1.6 + 30 = 110
  EXPECT_FALSE(lit(m.Picture16, 115));
}
