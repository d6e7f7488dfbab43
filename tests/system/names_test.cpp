// The system sections with names in any script (Romanian letters, CJK, an
// emoji): a Run value so named, listed, found, removed, backed up and
// restored by regedit as far as the REGEDIT4 format carries it; a window so
// titled, and its program, in the task manager. (Section 1's list: the
// search test of tests/form.)
#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "core/globals.h"
#include "core/routines.h"
#include "core/settings.h"
#include "core/tasks.h"
#include "platform/code_pages.h"
#include "platform/environment.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "system/startup_page.h"
#include "system/task_page.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::row_of;
using wh::test::ScratchDir;

namespace {

// "Școală", "țară", "学校" and an emoji.
const std::string school = "\xC8\x98" "coal\xC4\x83";
const std::string land = "\xC8\x9B" "ar\xC4\x83";
const std::string cjk = "\xE5\xAD\xA6\xE6\xA0\xA1";
const std::string emoji = "\xF0\x9F\x98\x80";
const char* const run_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// Waits for what a started program does: regedit is not waited for by the
// program, and a window comes when it comes.
bool eventually(const std::function<bool()>& done) {
  for (int i = 0; i < 600; ++i) {
    if (done()) return true;
    do_events();
    Sleep(20);
  }
  return done();
}

bool has_value(HKEY root, const std::string& key, const std::string& name) {
  RegKey k;
  if (k.open(root, key) != ERROR_SUCCESS) return false;
  DWORD type = 0, size = 0;
  return k.query_size(name, type, size) == ERROR_SUCCESS;
}

void set_sz(HKEY root, const std::string& key, const std::string& name, const std::string& data) {
  RegKey k;
  ASSERT_EQ(ERROR_SUCCESS, k.create(root, key));
  k.set(name, REG_SZ, data + '\0');
}

class StartupNames : public ::testing::Test {
protected:
  void SetUp() override {
    form.Show();
    save_setting("SEARChtip2", "1");
    save_setting("Back-upTIP", "1");
    language_flag = 1;
    ActiveSection = 0;
    form.handlers["ref_Click"] = [this] { page.ref_block(); };
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
    wipe();
  }
  void TearDown() override {
    wipe();
    reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
  }
  void wipe() {
    RegKey k;
    if (k.open(HKEY_CURRENT_USER, run_key) == ERROR_SUCCESS) {
      std::vector<std::string> names;
      RegValue v;
      for (DWORD i = 0; k.enum_value(i, v) == ERROR_SUCCESS; ++i)
        if (v.name.rfind("WhTest", 0) == 0) names.push_back(v.name);
      for (const std::string& n : names) k.delete_value(n);
    }
    for (const std::string& f : test::names_in(repair))
      if (f.find("WhTest") != std::string::npos) DeleteFileA((repair + "\\" + f).c_str());
  }
  // Removes `name` with the umbrella open; true when its backup was written.
  bool remove_with_backup(const std::string& name, const std::string& data) {
    set_sz(HKEY_CURRENT_USER, run_key, name, data);
    page.enter();
    if (page.backup_enabled == 0) page.umb_up_Click();
    const int row = row_of(page.run_reg, name + "->" + data);
    EXPECT_GE(row, 0) << name;
    if (row < 0) return false;
    page.run_reg.Selected(row, true);
    page.del_block();
    EXPECT_FALSE(has_value(HKEY_CURRENT_USER, run_key, name));
    return path_exists(repair + "\\(" + name + ").reg");
  }
  // Feeds the backup of `name` to regedit as the restore picture does.
  void restore(const std::string& name) {
    page.Image6_Click(2);
    const int row = row_of(page.List6, name);
    ASSERT_GE(row, 0) << name;
    page.List6.ListIndex(row);
    page.Image8_Click(1);
  }

  const std::string repair = environment_variable("windir") + "\\repair";
  test::TestForm form;
  Frame& search = form.add<Frame>("search", Place{0, 0, 250, 42});
  TextBox& Text6 = form.add<TextBox>("Text6", Place{8, 12, 234, 22, &search});
  FileListBox& k1 = form.add<FileListBox>("k1", Place{0, 0, 10, 10});
  StartupPage page{form, search, Text6, k1};
};

TEST_F(StartupNames, ARunValueInAnyScriptIsListedFoundAndRemoved) {
  const std::string name = "WhTest " + school + " " + cjk + " " + emoji;
  const std::string data = "C:\\Programe\\" + school + "\\" + land + ".exe /min";
  set_sz(HKEY_CURRENT_USER, run_key, name, data);
  page.enter();
  const int row = row_of(page.run_reg, name + "->" + data);
  ASSERT_GE(row, 0);
  // The search box: three characters in any case select it, two do not.
  page.search_select("\xC8\x99" "c");
  EXPECT_FALSE(page.run_reg.Selected(row)) << "two letters in three bytes";
  page.search_select("\xC8\x99" "coal\xC4\x83");
  EXPECT_TRUE(page.run_reg.Selected(row)) << "lower case finds the capitals";
  page.del_block();
  EXPECT_FALSE(has_value(HKEY_CURRENT_USER, run_key, name));
  EXPECT_LT(row_of(page.run_reg, name + "->" + data), 0);
}

TEST_F(StartupNames, ABackupInTheSystemsAnsiCodePageRestoresTheNameWhole) {
  // "Pâine în cuptor": letters that 1252 and 1250 both have.
  const std::string name = "WhTest P\xC3\xA2ine \xC3\xAEn cuptor";
  const std::string data = "C:\\P\xC3\xA2ine\\\xC3\xAEn.exe";
  std::string ansi;
  if (!encode_text(name + data, system_ansi_code_page(), ansi))
    GTEST_SKIP() << "the system's code page lacks a and i with circumflex";
  ASSERT_TRUE(remove_with_backup(name, data));
  std::string expected;
  ASSERT_TRUE(encode_text("\"" + name + "\"=\"C:\\\\P\xC3\xA2ine\\\\\xC3\xAEn.exe\"", system_ansi_code_page(),
                          expected));
  EXPECT_NE(std::string::npos, read_file(repair + "\\(" + name + ").reg").find(expected))
      << "regedit reads REGEDIT4 in the system's code page, not in UTF-8";
  restore(name);
  EXPECT_TRUE(eventually([&] { return has_value(HKEY_CURRENT_USER, run_key, name); }));
  EXPECT_EQ(data, reg_get_value(HKEY_CURRENT_USER, run_key, name));
}

// A limit of the format: REGEDIT4 is ANSI text, and a name outside the
// system's ANSI code page (ș, CJK, an emoji) has no way into it. The backup
// keeps UTF-8, which regedit reads right only on a system set to UTF-8; the
// restore here brings the value back under another name.
TEST_F(StartupNames, ANameOutsideTheAnsiCodePageComesBackUnderAnotherName) {
  if (system_ansi_code_page() == CP_UTF8) GTEST_SKIP() << "a UTF-8 system reads every name";
  const std::string name = "WhTest " + school + " " + emoji;
  const std::string data = "C:\\" + land + ".exe";
  ASSERT_TRUE(remove_with_backup(name, data)) << "the file itself takes any name";
  EXPECT_NE(std::string::npos, read_file(repair + "\\(" + name + ").reg").find(name));
  restore(name);
  std::string restored;
  EXPECT_TRUE(eventually([&] {
    RegKey k;
    RegValue v;
    if (k.open(HKEY_CURRENT_USER, run_key) != ERROR_SUCCESS) return false;
    for (DWORD i = 0; k.enum_value(i, v) == ERROR_SUCCESS; ++i)
      if (v.name.rfind("WhTest ", 0) == 0) restored = v.name;
    return !restored.empty();
  }));
  EXPECT_NE(name, restored);
}

TEST(TaskNames, AWindowTitledInAnyScriptIsListedWithItsProgramsName) {
  ScratchDir dir("names_tasks");
  const std::string exe = "whtask_" + land + ".exe";
  const std::string path = dir / exe;
  ASSERT_TRUE(CopyFileA("C:\\wh\\whwindow.exe", path.c_str(), FALSE));
  const std::string title = "WhTest " + school + " " + cjk + " " + emoji;
  ProcessResult r;
  ASSERT_EQ(0, create_process("\"" + path + "\" " + title, false, r));
  test::TestForm form;
  Frame& frame1 = form.add<Frame>("frame1", Place{0, 0, 10, 10});
  TaskPage page{form, frame1};
  task_list = std::make_unique<clsApplicazioni>();
  active_process = std::make_unique<clsActiveProcess>();
  ActiveSection = 0;
  EXPECT_TRUE(eventually([&] {
    page.afis_tasks();
    task_list->List3 = &page.List3;
    task_list->RefreshTaskList(form.hwnd(), true);
    return row_of(page.List3, title) >= 0;
  })) << "the title whole in the window list";
  EXPECT_GE(row_of(page.List2, exe), 0) << "the program's name in the process list";
  terminate_process_wait(r.pid, 0, 5000);
  task_list.reset();
  active_process.reset();
}

}  // namespace
