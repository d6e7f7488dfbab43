// The ini side of the start-up manager without files: the record reader and
// what the three files yield, and the lines written back on removal.
#include <gtest/gtest.h>

#include "system/startup_ini.h"

using namespace wh;
using Texts = std::vector<std::string>;

namespace {

// The records as texts of their own.
Texts records(std::string_view text) {
  Texts out;
  for (std::string_view r : read_records(text)) out.emplace_back(r);
  return out;
}

TEST(Records, EndAtLineEndsAndCommasAndLoseTheirQuotes) {
  EXPECT_EQ((Texts{"[windows]", "load=a.exe;b.exe", "run=c.exe"}),
            records("[windows]\r\nload=a.exe;b.exe\r\nrun=c.exe\r\n"));
  // A comma splits a line in two; the quotes around a record go, and what
  // follows a closing quote up to the separator is lost.
  EXPECT_EQ((Texts{"run=x.exe", "y.exe"}), records("run=x.exe, y.exe\r\n"));
  EXPECT_EQ((Texts{"C:\\a b\\c.exe", "next"}), records("\"C:\\a b\\c.exe\" tail\nnext"));
  // A quote that is not the first character stays.
  EXPECT_EQ((Texts{"run=\"C:\\p.exe\""}), records("run=\"C:\\p.exe\"\r\n"));
  // Empty lines are empty records; a lone CR or LF ends a record too;
  // blanks around an unquoted record go.
  EXPECT_EQ((Texts{"a", "", "b", "c"}), records("a\r\n\r\nb\rc"));
  EXPECT_EQ((Texts{"shell=Explorer.exe"}), records("  shell=Explorer.exe  \r\n"));
  EXPECT_EQ((Texts{"a", ""}), records("a,\r\n"));
  EXPECT_EQ(Texts{}, records(""));
}

TEST(Records, HostileTextReadsWithoutACrash) {
  EXPECT_EQ(Texts{""}, records("\""));
  EXPECT_EQ(Texts(3, ""), records("\"\"\r\n\"\r\n\""));
  EXPECT_EQ(10001u, read_records(std::string(10000, ',')).size());
  EXPECT_EQ((Texts{std::string("a\0b", 3)}), records(std::string("a\0b", 3)));
}

TEST(IniItems, WhatEachFileYieldsAndTheOrderOfTheRows) {
  IniStartup ini;
  read_win_ini(read_records("[windows]\r\nload=a.exe;;b.exe\r\nx,y\r\nrun=c.exe\r\nRUN=no\r\n"),
               ini);
  EXPECT_EQ((Texts{"a.exe", "", "b.exe"}), ini.load_items);
  EXPECT_EQ(2, ini.load_line);
  EXPECT_EQ(Texts{"c.exe"}, ini.run_items);
  EXPECT_EQ(5, ini.run_line) << "records are counted, not lines";

  read_system_ini(read_records("[boot]\r\nshell=Explorer.exe tray.exe\r\n"), ini);
  EXPECT_EQ(" tray.exe", ini.shell_tail) << "the leading blank stays";
  read_wininit_ini(read_records("[Rename]\r\nNUL=C:\\a.txt\r\nNUL=C:\\b.txt\r\n"), ini);
  EXPECT_EQ((Texts{"C:\\a.txt", "C:\\b.txt", ""}), ini.nul_items);

  EXPECT_EQ((Texts{"a.exe", "", "b.exe", "c.exe", " tray.exe", "C:\\a.txt", "C:\\b.txt"}),
            ini_rows(ini));
  // A line the file no longer has keeps its items.
  read_win_ini(read_records("[windows]\r\n"), ini);
  EXPECT_EQ((Texts{"a.exe", "", "b.exe"}), ini.load_items);
}

TEST(IniItems, NothingBehindTheHeadsGivesNoRow) {
  IniStartup ini;
  read_win_ini(read_records("load=\r\nrun=\r\n"), ini);
  read_system_ini(read_records("shell=Explorer.exe\r\nshell=other.exe\r\n"), ini);
  read_wininit_ini(read_records("[Rename]\r\n"), ini);
  EXPECT_EQ(Texts{}, ini_rows(ini));
  // Heads are case-sensitive and anchored.
  read_win_ini(read_records("Load=x\r\nxload=y\r\n;load=z\r\n"), ini);
  EXPECT_EQ(Texts{}, ini.load_items);
}

TEST(IniLines, TheLoadAndRunSeparatorsDiffer) {
  const Texts one{"a"}, two{"a", "b"}, three{"a", "b", "c"};
  EXPECT_EQ("load=", load_line_without(one, 0));
  EXPECT_EQ("load=b", load_line_without(two, 0));
  EXPECT_EQ("load=a", load_line_without(two, 1));
  EXPECT_EQ("load=a;c;", load_line_without(three, 1));
  EXPECT_EQ("load=a;b;", load_line_without(three, 2));

  EXPECT_EQ("run=", run_line_without(one, 0));
  EXPECT_EQ("run=b", run_line_without(two, 0));
  EXPECT_EQ("run=a;", run_line_without(two, 1));
  EXPECT_EQ("run=a;c", run_line_without(three, 1));
  EXPECT_EQ("run=a;b;", run_line_without(three, 2));
}

}  // namespace
