// The uninstall section on the real main form: the search box over List1,
// and a shortcut handed over on the command line.
#include <windows.h>

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "core/choose.h"
#include "core/globals.h"
#include "core/routines.h"
#include "hover_help.h"
#include "platform/shell_link.h"
#include "support/form_test.h"
#include "support/scratch.h"
#include "support/test_form.h"

using namespace wh;
using wh::test::read_file;
using wh::test::row_of;
using wh::test::ScratchDir;

namespace {

const std::string uninstall_key = uninstall_key_path;

void entry(const std::string& subkey, const std::map<std::string, std::string>& values) {
  RegKey k;
  ASSERT_EQ(ERROR_SUCCESS, k.create(HKEY_LOCAL_MACHINE, uninstall_key + "\\" + subkey));
  for (const auto& [name, data] : values) k.set(name, REG_SZ, data + '\0');
}


class UninstallForm : public test::StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    had_apps_ = test::path_exists(apps_);
    if (had_apps_) apps_bytes_ = read_file(apps_);
    DeleteFileA(apps_.c_str());
  }
  void TearDown() override {
    for (const std::string& k : reg_enum_keys(HKEY_LOCAL_MACHINE, uninstall_key))
      if (k.rfind("WhTest", 0) == 0) reg_delete_tree(HKEY_LOCAL_MACHINE, uninstall_key + "\\" + k);
    if (had_apps_)
      test::write_file(apps_, apps_bytes_);
    else
      DeleteFileA(apps_.c_str());
    if (choose_loaded()) choose_unload();
    StoreTest::TearDown();
  }
  const std::string apps_ = "C:\\windows\\apps";
  bool had_apps_ = false;
  std::string apps_bytes_;
};

TEST_F(UninstallForm, TheSearchSelectsAcrossTheListAndEnterUninstallsEveryHit) {
  ScratchDir dir("search_progs");
  const std::string log = dir / "hits.log";
  const std::string probe = "\"C:\\wh\\uninst_probe.exe\" " + log + " ";
  entry("WhTestHitOne", {{"DisplayName", "WhTest Finder One"}, {"UninstallString", probe + "one 0"}});
  entry("WhTestHitTwo", {{"DisplayName", "WhTest Finder Two"}, {"UninstallString", probe + "two 0"}});
  entry("WhTestMiss", {{"DisplayName", "WhTest Other"}, {"UninstallString", probe + "miss 0"}});
  // "WhTest ȘCOALĂ 学校"; typed as "școală", "ș" and "șc" (four bytes).
  const std::string school = "WhTest \xC8\x98" "COAL\xC4\x82 \xE5\xAD\xA6\xE6\xA0\xA1";
  entry("WhTestSchool", {{"DisplayName", school}});
  save_setting("SEARChtip", "1");
  Mainu& m = start_form();
  if (ActiveSection == 1) m.ref_Click(); else m.uninstall_Click();
  ListBox& list = m.uninstall_page.List1;
  ASSERT_NE(-1, row_of(list, "WhTest Other"));

  int f = 'F';
  m.uninstall_page.List1_KeyDown(f, 2);
  ASSERT_TRUE(m.search.Visible());
  EXPECT_EQ(1, m.search_target);
  // Three characters of any script in either case.
  const int row = row_of(list, school);
  ASSERT_NE(-1, row);
  m.Text6.Text("\xC8\x99" "coal\xC4\x83");
  EXPECT_TRUE(list.Selected(row));
  m.Text6.Text(" \xE5\xAD\xA6\xE6\xA0\xA1");
  EXPECT_TRUE(list.Selected(row)) << "three characters: two of them CJK";
  list.Selected(row_of(list, "WhTest Other"), true);  // by hand
  m.Text6.Text("\xC8\x99" "c");
  EXPECT_EQ(0, list.SelCount()) << "two letters clear every selection, whatever their bytes";
  m.Text6.Text("FINDER");
  EXPECT_EQ(2, list.SelCount());
  EXPECT_TRUE(list.Selected(row_of(list, "WhTest Finder One")));

  int enter = 13;
  m.Text6_KeyPress(enter);
  EXPECT_FALSE(m.search.Visible());
  // Started without waiting, in either order: wait for both ends.
  std::string text;
  auto ended = [&] { return text.find("one end") != text.npos && text.find("two end") != text.npos; };
  for (int tries = 0; tries < 800 && !ended(); ++tries, Sleep(25)) text = read_file(log);
  EXPECT_TRUE(ended()) << text;
  EXPECT_EQ(std::string::npos, text.find("miss"));
}

// Answers the choose window with its first picture: the uninstaller.
void CALLBACK answer_harrow(HWND, UINT, UINT_PTR id, DWORD) {
  if (!choose_loaded()) return;
  KillTimer(nullptr, id);
  Choose& c = choose();
  c.Image1.send(WM_MOUSEMOVE, 0, MAKELPARAM(20, 20));
  test::click(c.Image4, 20, 20);
}

TEST_F(UninstallForm, AShortcutOnTheCommandLineRunsItsUninstallerAndTheProgramEnds) {
  ScratchDir dir("dropped_progs");
  const std::string log = dir / "drop.log";
  const std::string app = dir.folder("Tool");
  const std::string exe = dir.file("Tool\\tool.exe", "MZ");
  entry("WhTestTool", {{"DisplayName", "WhTest Tool"},
                       {"UninstallString", "\"C:\\wh\\uninst_probe.exe\" " + log + " tool 0"},
                       {"InstallLocation", app}});
  const std::string link = dir / "Tool.lnk";
  ASSERT_EQ(0, shell_link_create(link, exe));
  SetTimer(nullptr, 0, 20, answer_harrow);
  EXPECT_THROW(mainu().start("\"" + link + "\""), ProgramEnded);
  EXPECT_EQ(0, choose_result);
  std::string text;
  for (int tries = 0; tries < 200 && text.find("end") == std::string::npos; ++tries, Sleep(25))
    text = read_file(log);
  EXPECT_EQ("tool start\r\ntool end\r\n", text);
  mainu_clear();
  if (choose_loaded()) choose_unload();

  // A shortcut to a folder no entry names, with no uninstall.exe: nothing.
  const std::string lone = dir.file("Lone\\lone.exe", "MZ");
  const std::string lone_link = dir / "Lone.lnk";
  ASSERT_EQ(0, shell_link_create(lone_link, lone));
  SetTimer(nullptr, 0, 20, answer_harrow);
  EXPECT_THROW(mainu().start("\"" + lone_link + "\""), ProgramEnded);
  EXPECT_EQ(0u, boxes.count());
  EXPECT_EQ("tool start\r\ntool end\r\n", read_file(log));
  mainu_clear();
}

}  // namespace
