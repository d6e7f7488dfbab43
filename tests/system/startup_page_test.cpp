// The start-up manager on a small test form, against the prefix's real Run
// keys (the machine's in both views), Startup folders, ini files, service
// keys, repair folder and regedit. Everything a test adds carries "WhTest" or
// "whtest" and goes again, and so does the 32-bit view's Run key when a test
// made it (a new prefix has none).
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "core/globals.h"
#include "core/routines.h"
#include "core/settings.h"
#include "platform/code_pages.h"
#include "platform/registry.h"
#include "platform/shell_link.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "system/startup_page.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::TestForm;
using wh::test::write_file;
using Texts = std::vector<std::string>;

namespace {

using wh::test::rows;
using wh::test::row_of;

const char* const run_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
const char* const run_services_key = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\RunServices";
const char* const services = "SYSTEM\\CurrentControlSet\\Services\\";
const std::string repair = "C:\\windows\\repair";
// "Școală", "țară" and an emoji.
const std::string school = "\xC8\x98" "coal\xC4\x83";
const std::string land = "\xC8\x9B" "ar\xC4\x83";
const std::string emoji = "\xF0\x9F\x98\x80";

struct Place4 {
  HKEY root;
  const char* key;
};
const Place4 run_places[4] = {{HKEY_LOCAL_MACHINE, run_key},
                              {HKEY_CURRENT_USER, run_key},
                              {HKEY_LOCAL_MACHINE, run_services_key},
                              {HKEY_CURRENT_USER, run_services_key}};

constexpr RegView view64 = RegView::reg64, view32 = RegView::reg32;

void set_sz(HKEY root, const std::string& key, const std::string& name, const std::string& data,
            RegView view = RegView::native) {
  RegKey k;
  ASSERT_EQ(ERROR_SUCCESS, k.create(root, key, view));
  k.set(name, REG_SZ, data + '\0');
}

bool has_value(HKEY root, const std::string& key, const std::string& name,
               RegView view = RegView::native) {
  RegKey k;
  if (k.open(root, key, view) != ERROR_SUCCESS) return false;
  DWORD type = 0, size = 0;
  return k.query_size(name, type, size) == ERROR_SUCCESS;
}

bool has_key(HKEY root, const std::string& key, RegView view = RegView::native) {
  RegKey k;
  return k.open(root, key, view) == ERROR_SUCCESS;
}

Texts ours(const ListBox& list) {
  Texts out;
  for (const std::string& r : rows(list))
    if (r.find("WhTest") != std::string::npos || r.find("whtest") != std::string::npos)
      out.push_back(r);
  return out;
}

void select(ListBox& list, const std::string& text) {
  const int i = row_of(list, text);
  ASSERT_GE(i, 0) << text;
  list.Selected(i, true);
}

// Waits for something that a started regedit does; regedit is not waited
// for by the program.
bool eventually(const std::function<bool()>& done) {
  for (int i = 0; i < 600; ++i) {
    if (done()) return true;
    Sleep(50);
  }
  return done();
}

std::string zone(const std::string& line) { return std::string(14, ' ') + line + "\r\n"; }
// A REGEDIT4 backup of one value, each line in the zone's indent.
std::string backup(const std::string& root, const std::string& value, const std::string& key = "Run") {
  return zone("REGEDIT4") + zone("[" + root + "Microsoft\\Windows\\CUrrentVersion\\" + key + "]") +
         zone(value);
}

class StartupSection : public ::testing::Test {
protected:
  void SetUp() override {
    form.Show();  // entering gives a list the focus
    for (const char* tip : {"SEARChtip2", "Back-upTIP"}) save_setting(tip, "1");
    language_flag = 1;
    ActiveSection = 0;
    form.handlers["del_Click"] = [this] { page.del_block(); };
    form.handlers["ref_Click"] = [this] { page.ref_block(); };
    form.handlers["hide_section_extras"] = [this] { page.hide_extras(); };
    had_user_run_services = has_key(HKEY_CURRENT_USER, run_services_key);
    had_run32 = has_key(HKEY_LOCAL_MACHINE, run_key, view32);
    win_ini = read_file("C:\\windows\\win.ini");
    system_ini = read_file("C:\\windows\\system.ini");
    had_wininit = path_exists("C:\\windows\\wininit.ini");
    wininit_ini = read_file("C:\\windows\\wininit.ini");
    user_startup = special_folder(7);
    common_startup = special_folder(24);
    wipe();
  }
  void TearDown() override {
    wipe();
    write_file("C:\\windows\\win.ini", win_ini);
    write_file("C:\\windows\\system.ini", system_ini);
    if (had_wininit)
      write_file("C:\\windows\\wininit.ini", wininit_ini);
    else
      DeleteFileA("C:\\windows\\wininit.ini");
    if (!had_user_run_services) reg_delete_tree(HKEY_CURRENT_USER, run_services_key);
    if (!had_run32) reg_delete_key(HKEY_LOCAL_MACHINE, run_key, view32);
    reg_delete_tree(HKEY_CURRENT_USER, "Software\\Wellharrower");
  }
  void wipe() {
    for (const Place4& p : run_places) {
      for (RegView view : software_views(p.root)) {
        RegKey k;
        if (k.open(p.root, p.key, view) != ERROR_SUCCESS) continue;
        Texts names;
        RegValue v;
        for (DWORD i = 0; k.enum_value(i, v) == ERROR_SUCCESS; ++i)
          if (v.name.find("WhTest") == 0) names.push_back(v.name);
        for (const std::string& n : names) k.delete_value(n);
      }
    }
    reg_delete_value(HKEY_CURRENT_USER, run_key, "");
    for (const char* s : {"WhTestSvcMs", "WhTestSvcCorp", "WhTestSvcPlain", "WhTestSvcDriver"})
      reg_delete_tree(HKEY_LOCAL_MACHINE, std::string(services) + s);
    for (const std::string& folder : {user_startup, common_startup, repair})
      for (const std::string& f : test::names_in(folder))
        if (f.find("WhTest") != std::string::npos || f.find("whtest") != std::string::npos)
          DeleteFileA((folder + "\\" + f).c_str());
  }
  void service(const std::string& name, const std::string& image, const std::string& display,
               const std::string& description = {}) {
    const std::string key = services + name;
    set_sz(HKEY_LOCAL_MACHINE, key, "ImagePath", image);
    set_sz(HKEY_LOCAL_MACHINE, key, "DisplayName", display);
    if (!description.empty()) set_sz(HKEY_LOCAL_MACHINE, key, "Description", description);
  }
  // Feeds the named backups to regedit as the restore picture does.
  void restore(std::initializer_list<std::string> names) {
    page.Image6_Click(2);
    for (const std::string& name : names) {
      page.List6.ListIndex(row_of(page.List6, name));
      page.Image8_Click(1);
    }
  }
  void write_ini(const std::string& win, const std::string& system_tail,
                 const std::string& wininit) {
    write_file("C:\\windows\\win.ini", win);
    write_file("C:\\windows\\system.ini", system_ini + system_tail);
    write_file("C:\\windows\\wininit.ini", wininit);
  }

  TestForm form;
  Frame& search = form.add<Frame>("search", Place{0, 0, 250, 42});
  TextBox& Text6 = form.add<TextBox>("Text6", Place{8, 12, 234, 22, &search});
  FileListBox& k1 = form.add<FileListBox>("k1", Place{0, 0, 10, 10});
  StartupPage page{form, search, Text6, k1};
  bool had_user_run_services = false, had_run32 = false, had_wininit = false;
  std::string win_ini, system_ini, wininit_ini, user_startup, common_startup;
};

TEST_F(StartupSection, EverySourceGivesItsRowsAndARowGoesFromEveryPlaceOfItsName) {
  for (int k = 0; k < 4; ++k)
    set_sz(run_places[k].root, run_places[k].key, "WhTestFoo", "C:\\x\\y" + std::to_string(k + 1) + ".exe");
  set_sz(HKEY_CURRENT_USER, run_key, "", "C:\\whtest_default.exe");  // the default value
  set_sz(HKEY_CURRENT_USER, run_key, "WhTestLong", "C:\\" + std::string(300, 'l') + ".exe");
  RegKey zero;
  zero.create(HKEY_CURRENT_USER, run_key);
  zero.set("WhTestZero", REG_BINARY, std::string());  // no data at all
  service("WhTestSvcMs", "C:\\wh\\idle_ms.exe", "WhTest MS");
  service("WhTestSvcCorp", "C:\\wh\\idle_mscorp.exe -run", "WhTest Corp", "lower-case vendor");
  service("WhTestSvcPlain", "C:\\wh\\idle_plain.exe /service", "WhTest Plain", "no version");
  service("WhTestSvcDriver", "system32\\drivers\\whtest.sys", "WhTest Driver");
  ASSERT_EQ(0, shell_link_create(user_startup + "\\whtest_app.lnk", "C:\\wh\\idle_plain.exe", "-x"));
  write_file(user_startup + "\\whtest_note.txt", "twice");
  write_file(common_startup + "\\whtest_note.txt", "not a link");
  write_ini("[windows]\r\nload=whtest_a.exe;whtest_b.exe\r\nrun=whtest_r.exe;\r\n[mail]\r\nmapi=1\r\n",
            "[boot]\r\nshell=Explorer.exe whtest_shell.exe\r\n",
            "[Rename]\r\nNUL=C:\\whtest1.txt\r\nNUL=C:\\whtest2.txt\r\n");

  page.enter();
  EXPECT_EQ(9, ActiveSection);

  // Data longer than the 255-character buffer fail the walk's call (Wine
  // then gives no row), and the walk goes on: the key's other values stay.
  // Neither the default value nor one without data has a row.
  EXPECT_EQ((Texts{"WhTestFoo->C:\\x\\y1.exe", "WhTestFoo->C:\\x\\y2.exe",
                   "WhTestFoo->C:\\x\\y3.exe", "WhTestFoo->C:\\x\\y4.exe"}),
            ours(page.run_reg));
  for (long k = 1; k <= 4; ++k)
    EXPECT_EQ(k, page.run_reg.ItemData(row_of(page.run_reg, "WhTestFoo->C:\\x\\y" +
                                                                std::to_string(k) + ".exe")));
  // The prefix's own RunServices value is there too.
  EXPECT_GE(row_of(page.run_reg, "winemenubuilder->C:\\windows\\system32\\winemenubuilder.exe -a -r"), 0);

  EXPECT_EQ((Texts{"whtest_app.lnk->C:\\wh\\idle_plain.exe", "whtest_note.txt->", "whtest_note.txt->"}),
            ours(page.run_folder));

  EXPECT_EQ((Texts{"whtest_a.exe", "whtest_b.exe", "whtest_r.exe", "", " whtest_shell.exe",
                   "C:\\whtest1.txt", "C:\\whtest2.txt"}),
            rows(page.run_ini));
  EXPECT_EQ(2, page.ini.load_line);
  EXPECT_EQ(3, page.ini.run_line);

  // "Microsoft" with its capital is left out; "microsoft corp", no version
  // resource, kept; a path without a drive drops out.
  EXPECT_EQ((Texts{"WhTest Corp->C:\\wh\\idle_mscorp.exe", "WhTest Plain->C:\\wh\\idle_plain.exe"}),
            ours(page.run_services));
  const Texts all = rows(page.run_services);
  EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
  ASSERT_EQ(all.size(), page.startup_services.size());
  const StartupService& plain =
      page.startup_services[row_of(page.run_services, "WhTest Plain->C:\\wh\\idle_plain.exe")];
  EXPECT_EQ("no version", plain.description + plain.company);

  // The tool tip follows the row under the pointer, measured in the
  // height of "Xyz" in the list's font.
  const int height = page.run_services.TextHeight("Xyz");
  ASSERT_GT(height, 0);
  const int corp_row = row_of(page.run_services, "WhTest Corp->C:\\wh\\idle_mscorp.exe");
  page.run_services.TopIndex(corp_row);
  page.run_services_MouseMove((corp_row - page.run_services.TopIndex()) * height + 1);
  EXPECT_EQ("lower-case vendor (microsoft corp)", page.run_services.ToolTipText());
  page.run_services_MouseMove(height * 1000);
  EXPECT_EQ("", page.run_services.ToolTipText()) << "past the last row";

  // One row takes its name from all four keys and both folders; the closed
  // umbrella writes no backup.
  const Texts backups = test::names_in(repair);
  select(page.run_reg, "WhTestFoo->C:\\x\\y3.exe");
  select(page.run_folder, "whtest_note.txt->");
  page.del_block();
  for (const Place4& p : run_places) EXPECT_FALSE(has_value(p.root, p.key, "WhTestFoo"));
  EXPECT_TRUE(has_value(HKEY_CURRENT_USER, run_key, "WhTestLong"));
  EXPECT_FALSE(path_exists(user_startup + "\\whtest_note.txt"));
  EXPECT_FALSE(path_exists(common_startup + "\\whtest_note.txt"));
  EXPECT_EQ(backups, test::names_in(repair));
  EXPECT_EQ(Texts{}, ours(page.run_reg)) << "scanned again";
  EXPECT_EQ(Texts{"whtest_app.lnk->C:\\wh\\idle_plain.exe"}, ours(page.run_folder));
}

// 32-bit programs write their Run values into the 32-bit view: each machine
// key is read in its 64-bit view and then in its 32-bit one, and a name goes
// from every key of both views. regedit is a 64-bit program: a backup of the
// 32-bit view names its key under Wow6432Node, and a restore puts each value
// back where it was.
TEST_F(StartupSection, RunValuesOfBothViewsAreListedGoTogetherAndComeBackEachInItsView) {
  set_sz(HKEY_LOCAL_MACHINE, run_key, "WhTestBoth", "C:\\x\\b64.exe", view64);
  set_sz(HKEY_LOCAL_MACHINE, run_key, "WhTestOnly64", "C:\\x\\o64.exe", view64);
  set_sz(HKEY_LOCAL_MACHINE, run_key, "WhTestBoth", "C:\\x\\b32.exe", view32);
  set_sz(HKEY_LOCAL_MACHINE, run_key, "WhTestOnly32", "C:\\x\\o32.exe", view32);
  set_sz(HKEY_CURRENT_USER, run_key, "WhTestBoth", "C:\\x\\user.exe");
  set_sz(HKEY_LOCAL_MACHINE, run_services_key, "WhTestSvc32", "C:\\x\\s32.exe", view32);
  page.enter();
  EXPECT_EQ((Texts{"WhTestBoth->C:\\x\\b64.exe", "WhTestOnly64->C:\\x\\o64.exe",
                   "WhTestBoth->C:\\x\\b32.exe", "WhTestOnly32->C:\\x\\o32.exe",
                   "WhTestBoth->C:\\x\\user.exe", "WhTestSvc32->C:\\x\\s32.exe"}),
            ours(page.run_reg));
  // ItemData still tells the key alone.
  EXPECT_EQ(1, page.run_reg.ItemData(row_of(page.run_reg, "WhTestOnly32->C:\\x\\o32.exe")));
  EXPECT_EQ(3, page.run_reg.ItemData(row_of(page.run_reg, "WhTestSvc32->C:\\x\\s32.exe")));

  page.umb_up_Click();
  select(page.run_reg, "WhTestBoth->C:\\x\\b32.exe");
  select(page.run_reg, "WhTestOnly64->C:\\x\\o64.exe");
  page.del_block();
  EXPECT_EQ((Texts{"WhTestOnly32->C:\\x\\o32.exe", "WhTestSvc32->C:\\x\\s32.exe"}),
            ours(page.run_reg)) << "read again from both views and the user's key";
  EXPECT_EQ(backup("HKEY_LOCAL_MACHINE\\SOFTWARE\\", "\"WhTestOnly64\"=\"C:\\\\x\\\\o64.exe\""),
            read_file(repair + "\\(WhTestOnly64).reg"));
  EXPECT_EQ(backup("HKEY_LOCAL_MACHINE\\SOFTWARE\\Wow6432Node\\",
                   "\"WhTestBoth\"=\"C:\\\\x\\\\b32.exe\""),
            read_file(repair + "\\(WhTestBoth).reg"));

  restore({"WhTestOnly64", "WhTestBoth"});
  EXPECT_TRUE(eventually([] {
    return has_value(HKEY_LOCAL_MACHINE, run_key, "WhTestOnly64", view64) &&
           has_value(HKEY_LOCAL_MACHINE, run_key, "WhTestBoth", view32);
  }));
  EXPECT_EQ("C:\\x\\b32.exe", reg_get_value(HKEY_LOCAL_MACHINE, run_key, "WhTestBoth", "", view32));
  EXPECT_FALSE(has_value(HKEY_LOCAL_MACHINE, run_key, "WhTestBoth", view64));
  EXPECT_FALSE(has_value(HKEY_LOCAL_MACHINE, run_key, "WhTestOnly64", view32));
}

TEST(StartupBackup, QuotesStayAndBothRunServicesKeysGoToTheMachine) {
  const std::string hklm = "HKEY_LOCAL_MACHINE\\SOFTWARE\\";
  EXPECT_EQ(backup(hklm, "\"B\"=\"\"C:\\\\p q\\\\r.exe\" -s\"", "Run_Services"),
            run_value_backup(3, "B", "\"C:\\p q\\r.exe\" -s"));
  EXPECT_EQ(backup(hklm, "\"D\"=\"\\\\\\\\\"", "Run_Services"), run_value_backup(4, "D", "\\\\"));
}

TEST_F(StartupSection, AnOpenUmbrellaBacksUpAndRegeditRestores) {
  set_sz(HKEY_CURRENT_USER, run_key, "WhTestBak", "C:\\x\\y.exe");
  page.enter();
  page.Image6_Click(2);  // the panel open on registry backups during the removal
  page.umb_up_Click();
  EXPECT_EQ(-1, page.backup_enabled);
  select(page.run_reg, "WhTestBak->C:\\x\\y.exe");
  page.del_block();
  EXPECT_FALSE(has_value(HKEY_CURRENT_USER, run_key, "WhTestBak"));
  EXPECT_EQ(backup("HKEY_CURRENT_USER\\SOFTWARE\\", "\"WhTestBak\"=\"C:\\\\x\\\\y.exe\""),
            read_file(repair + "\\(WhTestBak).reg"));
  // The panel was read again, not closed.
  EXPECT_TRUE(page.backupitems.Visible());
  EXPECT_EQ(1, form.restore_type);
  const int row = row_of(page.List6, "WhTestBak");
  ASSERT_GE(row, 0);
  EXPECT_EQ("(WhTestBak).reg", page.k1.List(page.List6.ItemData(row)));

  page.List6.ListIndex(row);
  page.Image8_Click(1);
  EXPECT_TRUE(eventually([] { return has_value(HKEY_CURRENT_USER, run_key, "WhTestBak"); }));
  EXPECT_EQ("C:\\x\\y.exe", reg_get_value(HKEY_CURRENT_USER, run_key, "WhTestBak"));

  // Forget: the row goes, the file stays and is listed again next time.
  page.List6.ListIndex(row_of(page.List6, "WhTestBak"));
  page.Image8_Click(0);
  EXPECT_LT(row_of(page.List6, "WhTestBak"), 0);
  EXPECT_TRUE(path_exists(repair + "\\(WhTestBak).reg")) << "neither a restore nor a forget takes the file";
  page.Image6_Click(2);  // the same picture closes the panel
  EXPECT_FALSE(page.backupitems.Visible());
  page.Image6_Click(2);
  EXPECT_GE(row_of(page.List6, "WhTestBak"), 0);
  // The other picture switches the open panel to the service backups,
  // which a registry backup is not among.
  page.Image6_Click(4);
  EXPECT_TRUE(page.backupitems.Visible());
  EXPECT_EQ(2, form.restore_type);
  EXPECT_LT(row_of(page.List6, "WhTestBak"), 0);
  page.Image6_Click(4);
  EXPECT_FALSE(page.backupitems.Visible());
}

TEST_F(StartupSection, ABackupThatCannotBeWrittenEndsTheProgramAndKeepsTheValue) {
  set_sz(HKEY_CURRENT_USER, run_key, "WhTest/Slash", "C:\\x\\y.exe");
  page.enter();
  page.umb_up_Click();
  select(page.run_reg, "WhTest/Slash->C:\\x\\y.exe");
  ScriptedDialogs boxes;
  EndHook end;
  page.run_reg.send(WM_KEYDOWN, VK_DELETE);  // the user's Delete key
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ(0u, boxes.last().text.find("Run-time error '"));
  EXPECT_EQ(unsigned(MB_OK | MB_ICONSTOP), boxes.last().style);
  EXPECT_EQ(1, end.calls());
  EXPECT_TRUE(has_value(HKEY_CURRENT_USER, run_key, "WhTest/Slash"));
}

TEST_F(StartupSection, IniItemsAreCutOutOfTheirLines) {
  write_ini("[windows]\r\nload=whtest_both.exe;whtest_k.exe\r\nrun=whtest_both.exe\r\n"
            "device=a,b\r\n",
            "[boot]\r\nshell=Explorer.exe whtest_shell.exe\r\n",
            "[Rename]\r\nNUL=C:\\whtest1.txt\r\nNUL=C:\\whtest2.txt\r\n");
  page.enter();
  // A row in both lines goes from both; the two items' load line keeps no
  // separator, the shell line falls back to Explorer alone, one NUL goes.
  select(page.run_ini, "whtest_both.exe");
  select(page.run_ini, " whtest_shell.exe");
  select(page.run_ini, "C:\\whtest1.txt");
  page.del_block();
  // The comma of "device" made two records, and two lines they stay.
  EXPECT_EQ("[windows]\r\nload=whtest_k.exe\r\nrun=\r\ndevice=a\r\nb\r\n",
            read_file("C:\\windows\\win.ini"));
  const std::string system = read_file("C:\\windows\\system.ini");
  EXPECT_NE(std::string::npos, system.find("[boot]\r\nshell=Explorer.exe\r\n"));
  EXPECT_EQ("[Rename]\r\nNUL=C:\\whtest2.txt\r\n", read_file("C:\\windows\\wininit.ini"));
  for (const char* tmp : {"win.ini.tmp", "system.ini.tmp", "wininit.ini.tmp"})
    EXPECT_FALSE(path_exists(std::string("C:\\windows\\") + tmp));
  EXPECT_EQ((Texts{"whtest_k.exe", "C:\\whtest2.txt"}), rows(page.run_ini));
}

// No repair folder, as Vista and later have it: one that is there is moved
// aside for the test and put back after it, and the one the test made goes.
class NoRepairFolder {
public:
  NoRepairFolder()
      : existed_(path_exists(repair)),
        moved_(existed_ && MoveFileA(repair.c_str(), aside_.c_str())) {}
  ~NoRepairFolder() {
    if (existed_ && !moved_) return;
    // A regedit started by the test may still hold a file for a moment.
    for (int i = 0; i < 100 && path_exists(repair); ++i) {
      test::remove_tree(repair);
      if (path_exists(repair)) Sleep(50);
    }
    if (moved_) MoveFileA(aside_.c_str(), repair.c_str());
  }
  bool ready() const { return !path_exists(repair); }

private:
  const std::string aside_ = repair + ".whtest";
  const bool existed_;
  const bool moved_;
};

TEST_F(StartupSection, AServiceIsExportedUnderItsDisplayNameAndRestored) {
  NoRepairFolder none;
  ASSERT_TRUE(none.ready());
  const std::string key = std::string(services) + "WhTestSvcPlain";
  service("WhTestSvcPlain", "C:\\wh\\idle_plain.exe", "WhTest Plain");
  reg_set_value(HKEY_LOCAL_MACHINE, key + "\\Parameters", "x", "1");
  page.enter();
  page.umb_up_Click();
  select(page.run_services, "WhTest Plain->C:\\wh\\idle_plain.exe");

  // regedit runs beside the program and mostly finds the key gone: keep a
  // bare key (no ImagePath, no subkeys) coming back until it has exported.
  std::atomic<bool> stop{false};
  std::thread keeper([&] {
    while (!stop) {
      HKEY k = nullptr;
      RegCreateKeyA(HKEY_LOCAL_MACHINE, key.c_str(), &k);
      RegCloseKey(k);
      Sleep(2);
    }
  });
  page.del_block();
  // The export, narrowed from the UTF-16 that regedit writes, holding the
  // key's line.
  std::string text;
  const bool exported = eventually([&] {
    const std::string bytes = read_file(repair + "\\WhTest Plain.reg");
    text.clear();
    for (size_t i = 2; i + 1 < bytes.size(); i += 2) text += bytes[i];
    return text.find("WhTestSvcPlain]") != std::string::npos;
  });
  stop = true;
  keeper.join();
  EXPECT_FALSE(has_value(HKEY_LOCAL_MACHINE, key, "ImagePath"));
  EXPECT_FALSE(has_key(HKEY_LOCAL_MACHINE, key + "\\Parameters"));
  EXPECT_EQ(Texts{}, ours(page.run_services));
  ASSERT_TRUE(exported) << "the missing repair folder was made first";

  // It is a service backup, not a registry one, and a restore brings the
  // key back.
  reg_delete_tree(HKEY_LOCAL_MACHINE, key);  // the keeper's
  page.Image6_Click(2);
  EXPECT_LT(row_of(page.List6, "WhTest Plain"), 0);
  page.Image6_Click(4);
  const int row = row_of(page.List6, "WhTest Plain");
  ASSERT_GE(row, 0);
  page.List6.ListIndex(row);
  page.Image8_Click(1);
  EXPECT_TRUE(eventually([&] { return has_key(HKEY_LOCAL_MACHINE, key); }));
}

TEST_F(StartupSection, KeysClicksAndFocus) {
  page.enter();
  page.run_folder.SetFocus();
  EXPECT_EQ(2, form.startup_tab);
  page.run_services.SetFocus();
  EXPECT_EQ(4, form.startup_tab);
  page.focus_by_tab();
  EXPECT_EQ(page.run_services.hwnd(), GetFocus());
  form.calls.clear();
  int del = VK_DELETE;
  page.run_folder.KeyDown(del, 0);
  EXPECT_EQ(Texts{"del_Click"}, form.calls);
  fire(page.run_ini.DblClick);
  EXPECT_EQ((Texts{"del_Click", "del_Click"}), form.calls);

  int f = 'F';
  page.search.Visible(false);
  Text6.Text("old");
  page.run_reg.KeyDown(f, 2);  // shown for section 9's list: tests/form's search test
  EXPECT_EQ("", Text6.Text());
  EXPECT_EQ(Text6.hwnd(), GetFocus());
  page.run_reg.KeyDown(f, 2);
  EXPECT_FALSE(page.search.Visible());
}

// REGEDIT4 is ANSI text, and regedit reads a backup in the system's code
// page: a name that fits it comes back whole; one outside it (ș, an emoji)
// has no way in, and the backup keeps UTF-8, which regedit reads right only
// on a system set to UTF-8.
TEST_F(StartupSection, NamesInAnyScriptAreFoundRemovedAndBackedUpAsFarAsRegedit4Carries) {
  // "Pâine în cuptor": letters that 1252 and 1250 both have.
  const std::string fits = "WhTest P\xC3\xA2ine \xC3\xAEn cuptor";
  const std::string fits_data = "C:\\P\xC3\xA2ine\\\xC3\xAEn.exe";
  const std::string other = "WhTestX " + school + " \xE5\xAD\xA6\xE6\xA0\xA1 " + emoji;
  const std::string other_data = "C:\\Programe\\" + school + "\\" + land + ".exe /min";
  std::string expected;
  if (!encode_text("\"" + fits + "\"=\"C:\\\\P\xC3\xA2ine\\\\\xC3\xAEn.exe\"",
                   system_ansi_code_page(), expected))
    GTEST_SKIP() << "the system's code page lacks a and i with circumflex";
  set_sz(HKEY_CURRENT_USER, run_key, fits, fits_data);
  set_sz(HKEY_CURRENT_USER, run_key, other, other_data);
  page.enter();
  page.umb_up_Click();
  const int row = row_of(page.run_reg, other + "->" + other_data);
  ASSERT_GE(row, 0);
  // The search box: three characters in any case select it, two do not.
  page.search_select("\xC8\x99" "c");
  EXPECT_FALSE(page.run_reg.Selected(row)) << "two letters in three bytes";
  page.search_select("\xC8\x99" "coal\xC4\x83");
  EXPECT_TRUE(page.run_reg.Selected(row)) << "lower case finds the capitals";
  select(page.run_reg, fits + "->" + fits_data);
  page.del_block();
  EXPECT_FALSE(has_value(HKEY_CURRENT_USER, run_key, fits));
  EXPECT_FALSE(has_value(HKEY_CURRENT_USER, run_key, other));
  EXPECT_EQ(Texts{}, ours(page.run_reg));
  EXPECT_NE(std::string::npos, read_file(repair + "\\(" + fits + ").reg").find(expected))
      << "regedit reads REGEDIT4 in the system's code page, not in UTF-8";
  EXPECT_NE(std::string::npos, read_file(repair + "\\(" + other + ").reg").find(other))
      << "the file itself takes any name";

  restore({fits, other});
  std::string restored;
  EXPECT_TRUE(eventually([&] {
    RegKey k;
    RegValue v;
    if (k.open(HKEY_CURRENT_USER, run_key) != ERROR_SUCCESS) return false;
    for (DWORD i = 0; k.enum_value(i, v) == ERROR_SUCCESS; ++i)
      if (v.name.rfind("WhTestX ", 0) == 0) restored = v.name;
    return !restored.empty() && has_value(HKEY_CURRENT_USER, run_key, fits);
  }));
  EXPECT_EQ(fits_data, reg_get_value(HKEY_CURRENT_USER, run_key, fits));
  if (system_ansi_code_page() == CP_UTF8)
    EXPECT_EQ(other, restored);
  else
    EXPECT_NE(other, restored) << "back under another name";
}

}  // namespace
