// The routines that three sections share: the path of a command line, the
// strings of a version resource, the target of a shortcut.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "core/commands.h"
#include "core/shortcuts.h"
#include "core/version_info.h"
#include "platform/shell_link.h"
#include "support/scratch.h"

using namespace wh;
using wh::test::ScratchDir;

namespace {

TEST(CommandToPath, QuotesMarksAndDriveColons) {
  const struct {
    const char *line, *path;
  } cases[] = {
      // A launcher ahead of the real path: the last drive colon wins.
      {"C:\\WINDOWS\\remove.exe -f \"C:\\Apps\\Foo\\log.txt\"", "C:\\Apps\\Foo\\log.txt"},
      {"C:\\windows\\system32\\svchost.exe -k netsvcs", "C:\\windows\\system32\\svchost.exe"},
      // Only the closing quote goes; an opening quote is cut off with what is
      // ahead of the drive letter, and a quote inside stays. The quote is
      // looked at before the blanks are trimmed.
      {"\"C:\\Program Files\\App\\app.exe\" -k", "C:\\Program Files\\App\\app.exe\""},
      {"  \"C:\\a b\\c.exe\"  ", "C:\\a b\\c.exe\""},
      {"  \"C:\\a b\\c.exe\"", "C:\\a b\\c.exe"},
      // "/" at 10 and " -" at 12: 10 OR 12 is 14.
      {"C:\\a.exe /b -c", "C:\\a.exe /b -"},
      // A colon that is no drive colon falls back to the first ":\".
      {"C:\\prog.exe http://host", "C:\\prog.exe http:"},
      // "/" at 5 and " -" at 7 are characters: 5 OR 7 is 7. Counted in bytes
      // (6 and 8, 14) the cut would take the whole line.
      {"C:\\\xC4\x83/b -x", "C:\\\xC4\x83/b"},
      // A path in any script behind other text keeps its letters whole.
      {"\xE5\xAD\xA6 C:\\\xC8\x99" "coal\xC4\x83\\app.exe /s", "C:\\\xC8\x99" "coal\xC4\x83\\app.exe"},
      // No ":\" at all, or nothing ahead of it for a drive letter.
      {"system32\\drivers\\x.sys", ""},
      {":\\x.exe", ""},
      {"\"", ""},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(c.path, command_to_path(c.line)) << c.line;
}

TEST(CommandToPath, AnUninstallerFolderGivesTheProgramFolderWithAMadeUpFile) {
  ScratchDir dir("ctp");
  dir.folder("Foo\\Uninstall");
  EXPECT_EQ(dir / "Foo\\cucu.exe", command_to_path(dir / "Foo\\Uninstall\\setup.exe /x"));
  // The folder need not exist: the same text comes out of the last step.
  EXPECT_EQ("C:\\Gone\\cucu.exe", command_to_path("C:\\Gone\\unins000.exe"));
  // The marker positions are added up: with two of them the cut lands
  // inside the uninstaller's own name.
  EXPECT_EQ("C:\\Apps\\Setup\\1033\\Unins00\\cucu.exe",
            command_to_path("C:\\Apps\\Setup\\1033\\Unins000.exe"));
}

TEST(CommandToPath, HostileTextEndsWithoutACrash) {
  EXPECT_EQ("", command_to_path(std::string(10000, '"')));
  EXPECT_EQ("", command_to_path(std::string(10000, ':')));
  const std::string nul_path = std::string("C:\\a\0b.exe", 10);
  EXPECT_EQ(nul_path, command_to_path(nul_path));
  std::string long_path = "C:\\" + std::string(10000, 'x') + ".exe -k";
  EXPECT_EQ(long_path.size() - 3, command_to_path(long_path).size());
  EXPECT_NO_THROW(command_to_path(std::string(5000, '\0') + ":\\"));
  EXPECT_NO_THROW(command_to_path("\\UNINS\\SHARED~1\\SETUP\\1033 C:\\"));
}

TEST(VersionInfo, EightStringsOrNothing) {
  EXPECT_EQ("040904B0", translation_digits(0x09, 0x04, 0xb0, 0x04));
  VersionStrings s;
  s.fill("stale");
  ASSERT_EQ(1, file_version_info("C:\\wh\\idle_ms.exe", s));
  EXPECT_EQ((VersionStrings{"Microsoft Corporation", "Idle fixture", "1.2.3.4", "idle", "none",
                            "idle.exe", "Idle", "1.2"}),
            s);
  ASSERT_EQ(1, file_version_info("C:\\wh\\idle_mscorp.exe", s));
  EXPECT_EQ("microsoft corp", s[0]);

  s.fill("stale");
  EXPECT_EQ(2, file_version_info("C:\\wh\\idle_plain.exe", s));
  EXPECT_EQ(VersionStrings{}, s);
  EXPECT_EQ(2, file_version_info("C:\\wh\\no such file.exe", s));
}

TEST(Shortcuts, TheTargetOfALinkAndNothingForAnyOtherFile) {
  ScratchDir dir("shortcuts");
  const std::string target = dir.file("app.exe", "MZ");
  ASSERT_EQ(0, shell_link_create(dir / "app.lnk", target, "-quiet"));
  EXPECT_EQ(target, read_shortcut_target(dir / "app.lnk"));
  // A link whose target went away still names it.
  ASSERT_EQ(0, shell_link_create(dir / "gone.lnk", dir / "gone.exe"));
  EXPECT_EQ(dir / "gone.exe", read_shortcut_target(dir / "gone.lnk"));
  EXPECT_EQ("", read_shortcut_target(dir.file("plain.txt", "just text")));
  EXPECT_EQ("", read_shortcut_target(dir / "missing.lnk"));
}

}  // namespace
