// The roads of the start, seen from outside: the real exe is started with a
// command line and the disk and its windows are looked at afterwards.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/routines.h"
#include "core/settings.h"
#include "platform/registry.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;

namespace {

const char* exe = "C:\\wh\\Wellharrower.exe";

class Program {
public:
  // The exe with a command tail, or a whole command line of its own.
  explicit Program(const std::string& tail, bool whole_line = false) {
    std::string line = whole_line ? tail
                                  : std::string("\"") + exe + "\"" + (tail.empty() ? "" : " " + tail);
    STARTUPINFOA si{};
    si.cb = sizeof si;
    started_ = CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                              "C:\\", &si, &pi_);
  }
  ~Program() {
    if (!started_) return;
    if (WaitForSingleObject(pi_.hProcess, 0) == WAIT_TIMEOUT) TerminateProcess(pi_.hProcess, 9);
    WaitForSingleObject(pi_.hProcess, 10000);
    CloseHandle(pi_.hProcess);
    CloseHandle(pi_.hThread);
  }
  bool started() const { return started_; }
  // Until its start is over and it waits for input (a fixed sleep raced
  // with the slower starts under Wine).
  void wait_idle() const { WaitForInputIdle(pi_.hProcess, 20000); }
  // True when it ended within the time.
  bool ends_within(DWORD ms) const { return WaitForSingleObject(pi_.hProcess, ms) == WAIT_OBJECT_0; }
  // Its main window, once it has one (waits up to `ms`).
  HWND main_window(DWORD ms) const {
    for (DWORD waited = 0; waited < ms; waited += 50) {
      HWND found = nullptr;
      for (HWND w = FindWindowExA(nullptr, nullptr, "Wellharrower", nullptr); w;
           w = FindWindowExA(nullptr, w, "Wellharrower", nullptr)) {
        DWORD pid = 0;
        GetWindowThreadProcessId(w, &pid);
        if (pid == pi_.dwProcessId) found = w;
      }
      if (found) return found;
      if (ends_within(50)) return nullptr;
    }
    return nullptr;
  }

private:
  PROCESS_INFORMATION pi_{};
  bool started_ = false;
};

}  // namespace

TEST(StartWithPaths, QuotedAndUnquotedFoldersAreShreddedAndRemoved) {
  ScratchDir dir("e2e_folders");
  dir.file("some folder\\a.txt", "secret a");
  dir.file("some folder\\inner\\b.doc", std::string(20000, 'b'));
  dir.file("some folder\\inner\\empty\\c", "");
  dir.file("somefolder\\d.txt", "secret d");
  {
    Program quoted("\"" + dir.path() + "\\some folder\"");
    ASSERT_TRUE(quoted.started());
    EXPECT_TRUE(quoted.ends_within(60000));
  }
  {
    Program unquoted(dir.path() + "\\somefolder");
    EXPECT_TRUE(unquoted.ends_within(60000));
  }
  EXPECT_FALSE(path_exists(dir / "some folder"));
  EXPECT_FALSE(path_exists(dir / "somefolder"));
  // Nothing left beside them either: no renamed leftovers.
  EXPECT_TRUE(wh::test::names_in(dir.path()).empty());
}

TEST(StartWithPaths, NamesInAnyScriptArriveWholeAndAreShredded) {
  ScratchDir dir("e2e_letters");
  // "școală", as the folder verb hands it over (unquoted), and "学校 😀"
  // with a file "țară.txt" beside it, dropped on the icon (quoted).
  const std::string school = dir / "\xC8\x99" "coal\xC4\x83";
  const std::string cjk = dir / "\xE5\xAD\xA6\xE6\xA0\xA1 \xF0\x9F\x98\x80";
  test::write_file(school + "\\\xC8\x9B" "ar\xC4\x83.txt", "secret");
  test::write_file(school + "\\\xC3\xAEn\\\xC3\xA2.doc", std::string(9000, 'd'));
  test::write_file(cjk + "\\a.txt", "a");
  const std::string file = dir.file("\xC8\x9B" "ar\xC4\x83.txt", "loose");
  {
    Program verb(school);
    ASSERT_TRUE(verb.started());
    EXPECT_TRUE(verb.ends_within(60000));
  }
  {
    Program dropped("\"" + cjk + "\" \"" + file + "\"");
    EXPECT_TRUE(dropped.ends_within(60000));
  }
  EXPECT_FALSE(path_exists(school));
  EXPECT_FALSE(path_exists(cjk));
  EXPECT_FALSE(path_exists(file));
  EXPECT_TRUE(wh::test::names_in(dir.path()).empty());
}

TEST(StartWithPaths, TheFolderVerbOfTheProgramShredsAFolderWithBlanks) {
  ScratchDir dir("e2e_verb");
  dir.file("my old folder\\letter.doc", std::string(5000, 'l'));
  dir.file("my old folder\\sub dir\\notes.txt", "notes");
  save_setting("runed", "2");
  save_setting("context", "true");
  {
    Program program("");  // ticks "context" at its start, then goes
    ASSERT_NE(nullptr, program.main_window(20000));
    program.wait_idle();
  }
  const char* const verb = "Folder\\shell\\Wellshred\\command";
  std::string command = reg_get_value(HKEY_CLASSES_ROOT, verb, "");
  EXPECT_EQ(std::string(exe) + " %1", command);
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
  Program first("");
  ASSERT_NE(nullptr, first.main_window(20000)) << "the first instance shows its window";

  Program second("");
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
  {
    Program shown("start");
    HWND w = shown.main_window(20000);
    ASSERT_NE(nullptr, w);
    shown.wait_idle();
    EXPECT_TRUE(IsWindowVisible(w));
  }
  {
    Program hidden("X start");
    HWND w = hidden.main_window(20000);
    ASSERT_NE(nullptr, w);
    hidden.wait_idle();
    EXPECT_FALSE(IsWindowVisible(w));
  }
}
