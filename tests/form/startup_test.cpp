// The roads of the start, seen from outside: the real exe is started with a
// command line and the disk and its windows are looked at afterwards.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/routines.h"
#include "core/settings.h"
#include "platform/registry.h"
#include "program.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::Program;
using wh::test::ScratchDir;

TEST(StartWithPaths, FoldersAndFilesInAnyScriptQuotedOrNotAreShreddedAndRemoved) {
  ScratchDir dir("e2e_paths");
  dir.file("some folder\\a.txt", "secret a");
  dir.file("some folder\\inner\\b.doc", std::string(20000, 'b'));
  dir.file("some folder\\inner\\empty\\c", "");
  // "școală", as the folder verb hands it over (unquoted), and "学校 😀"
  // with a file "țară.txt" beside it, dropped on the icon (quoted).
  const std::string school = dir / "\xC8\x99" "coal\xC4\x83";
  const std::string cjk = dir / "\xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80";
  test::write_file(school + "\\\xC8\x9B" "ar\xC4\x83.txt", "secret");
  test::write_file(school + "\\\xC3\xAEn\\\xC3\xA2.doc", std::string(9000, 'd'));
  test::write_file(cjk + "\\a.txt", "a");
  const std::string file = dir.file("\xC8\x9B" "ar\xC4\x83.txt", "loose");
  for (const std::string& tail : {"\"" + dir / "some folder" + "\"", school,
                                  "\"" + cjk + "\" \"" + file + "\""}) {
    Program program(tail);
    ASSERT_TRUE(program.started());
    EXPECT_TRUE(program.ends_within(60000)) << tail;
  }
  // Nothing left, not even renamed leftovers.
  EXPECT_TRUE(wh::test::names_in(dir.path()).empty());
}

TEST(StartWithPaths, TheFolderVerbOfTheProgramShredsAFolderWithBlanks) {
  ScratchDir dir("e2e_verb");
  dir.file("my old folder\\letter.doc", std::string(5000, 'l'));
  dir.file("my old folder\\sub dir\\notes.txt", "notes");
  save_setting("runed", "2");
  save_setting("context", "true");
  {
    Program program;  // ticks "context" at its start, then goes
    ASSERT_NE(nullptr, program.main_window(20000));
    program.wait_idle();
  }
  const char* const verb = "Folder\\shell\\Wellshred\\command";
  std::string command = reg_get_value(HKEY_CLASSES_ROOT, verb, "");
  EXPECT_EQ(std::string(test::program_exe) + " %1", command);
  const size_t placeholder = command.find("%1");
  ASSERT_NE(std::string::npos, placeholder);
  // Explorer puts the path in as it is: no quotes.
  command.replace(placeholder, 2, dir / "my old folder");
  {
    Program shred(command, true);
    ASSERT_TRUE(shred.started());
    EXPECT_TRUE(shred.ends_within(60000));
  }
  EXPECT_FALSE(path_exists(dir / "my old folder"));
  save_setting("context", "false");
  reg_delete_tree(HKEY_CLASSES_ROOT, "*\\shell\\Wellharrow");
  reg_delete_tree(HKEY_CLASSES_ROOT, "Folder\\shell\\Wellshred");
}

TEST(OrdinaryStart, SecondInstanceEndsAtOnceWithoutAWindow) {
  ScratchDir dir("e2e_instances");
  std::string restart_folder = dir.folder("restart here");
  Program first;
  ASSERT_NE(nullptr, first.main_window(20000)) << "the first instance shows its window";

  Program second;
  EXPECT_TRUE(second.ends_within(30000));
  EXPECT_EQ(nullptr, second.main_window(0));

  // "start" inside a path is the word, not a path: the ordinary road, which
  // ends at once beside the running instance and leaves the folder alone.
  Program restart("\"" + restart_folder + "\"");
  EXPECT_TRUE(restart.ends_within(30000));
  EXPECT_TRUE(path_exists(restart_folder));
}

TEST(OrdinaryStart, StartAndXSendTheWindowToTheTray) {
  save_setting("runed", "2");  // a first run would wait for its window instead
  for (const char* tail : {"start", "X start"}) {
    Program program(tail);
    HWND w = program.main_window(20000);
    ASSERT_NE(nullptr, w);
    program.wait_idle();
    EXPECT_EQ(tail[0] != 'X', IsWindowVisible(w) != FALSE) << tail;
  }
}
