// The uninstall section on a small test form, against the prefix's real
// Uninstall key (both views), the memory file in the Windows folder and real
// uninstallers (tests/fixtures/uninst_probe.cpp). Every subkey a test adds
// starts with "WhTest" and goes again, and so does the 32-bit view's
// Uninstall key when a test made it; the memory file is put back as it was.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include "core/globals.h"
#include "core/routines.h"
#include "core/settings.h"
#include "platform/clipboard.h"
#include "platform/registry.h"
#include "support/scratch.h"
#include "support/test_form.h"
#include "system/uninstall_page.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::read_file;
using wh::test::write_file;
using Values = std::map<std::string, std::string>;

namespace {

using wh::test::rows;
using wh::test::row_of;

const std::string uninstall_key = uninstall_key_path;
const std::string probe = "C:\\wh\\uninst_probe.exe";
const std::string apps = "C:\\windows\\apps";

constexpr RegView view64 = RegView::reg64, view32 = RegView::reg32;

void entry(const std::string& subkey, const Values& values, RegView view = RegView::native) {
  RegKey k;
  ASSERT_EQ(ERROR_SUCCESS, k.create(HKEY_LOCAL_MACHINE, uninstall_key + "\\" + subkey, view));
  for (const auto& [name, data] : values) k.set(name, REG_SZ, data + '\0');
}

bool has_entry(const std::string& subkey, RegView view = RegView::native) {
  RegKey k;
  return k.open(HKEY_LOCAL_MACHINE, uninstall_key + "\\" + subkey, view) == ERROR_SUCCESS;
}

const program_record* record_named(const std::string& name) {
  for (int i = 1; i <= program_count && i <= program_table_size; ++i)
    if (program_table[i].name == name) return &program_table[i];
  return nullptr;
}


// Waits (pumping) until the log holds `lines` lines; the probes end by themselves.
std::string wait_for_log(const std::string& log, size_t lines) {
  for (int tries = 0; tries < 400; ++tries) {
    const std::string text = read_file(log);
    if (static_cast<size_t>(std::count(text.begin(), text.end(), '\n')) >= lines) return text;
    Sleep(25);
  }
  return read_file(log);
}

class Uninstall : public ::testing::Test {
protected:
  void SetUp() override {
    RegKey uninstall32;  // a new prefix has none
    had_uninstall32_ = uninstall32.open(HKEY_LOCAL_MACHINE, uninstall_key, view32) == ERROR_SUCCESS;
    saved_apps_ = path_exists(apps);
    if (saved_apps_) apps_bytes_ = read_file(apps);
    remove_test_entries();
    DeleteFileA(apps.c_str());  // a first scan: no marks
    form_.Show();               // the run ends by giving List1 the focus
    language_flag = 1;
    last_selected_index = 0;
    sequential_uninstall = 0;
    for (const char* tip : {"SEARChtip", "talpatip", "Xfoldertip"}) save_setting(tip, "1");
  }
  void TearDown() override {
    remove_test_entries();
    if (!had_uninstall32_) reg_delete_key(HKEY_LOCAL_MACHINE, uninstall_key, view32);
    if (saved_apps_)
      write_file(apps, apps_bytes_);
    else
      DeleteFileA(apps.c_str());
    sequential_uninstall = 0;
    last_selected_index = 0;
  }
  static void remove_test_entries() {
    for (RegView view : {view64, view32})
      for (const std::string& k : reg_enum_keys(HKEY_LOCAL_MACHINE, uninstall_key, view))
        if (k.rfind("WhTest", 0) == 0)
          reg_delete_tree(HKEY_LOCAL_MACHINE, uninstall_key + "\\" + k, view);
  }
  int rows_named(const std::string& name) {
    const std::vector<std::string> shown = rows(page_.List1);
    return static_cast<int>(std::count(shown.begin(), shown.end(), name));
  }
  std::string command(const std::string& log, const std::string& tag, int ms = 0) {
    return "\"" + probe + "\" " + log + " " + tag + " " + std::to_string(ms);
  }

  test::TestForm form_;
  UninstallPage page_{form_, form_.add<Frame>("search", Place{0, 0, 10, 10}),
                      form_.add<TextBox>("Text6", Place{0, 0, 10, 10})};
  test::ScratchDir dir_{"progs"};  // "\\unins" in it would mark a path

private:
  bool had_uninstall32_ = false;
  bool saved_apps_ = false;
  std::string apps_bytes_;
};

TEST_F(Uninstall, ScanKeepsOneNamedRecordPerProgramAndTidiesTheKey) {
  entry("WhTestDupA", {{"DisplayName", "WhTest Twin"}, {"UninstallString", "C:\\a\\first.exe"}});
  entry("WhTestDupB", {{"DisplayName", "WhTest Twin"}, {"UninstallString", "C:\\b\\second.exe"}});
  entry("WhTestIssc", {{"DisplayName", "WhTest ISSC thing"},
                       {"QuietDisplayName", "WhTest Quiet"},
                       {"QuietUninstallString", "C:\\q\\quiet.exe"},
                       {"InstallLocation", dir_.path()}});
  entry("WhTestIsscBare", {{"DisplayName", "WhTest issc only"}});
  entry("WhTestNoUninstall", {{"DisplayName", "WhTest Nothing"}});
  page_.scan_installed_programs();

  EXPECT_TRUE(has_entry("WhTestIsscBare")) << "ISSC without a quiet name: kept, not listed";
  EXPECT_EQ(nullptr, record_named("WhTest issc only"));
  const program_record* twin = record_named("WhTest Twin");
  ASSERT_NE(nullptr, twin);
  EXPECT_EQ("WhTestDupA", twin->key) << "the first of two equal names wins";
  EXPECT_EQ(1, rows_named("WhTest Twin"));
  const program_record* quiet = record_named("WhTest Quiet");
  ASSERT_NE(nullptr, quiet);
  EXPECT_EQ("C:\\q\\quiet.exe", quiet->uninstall);
  EXPECT_EQ("", quiet->key);
  EXPECT_EQ("", quiet->folder) << "the quiet case works out no folder";
  const program_record* nothing = record_named("WhTest Nothing");
  ASSERT_NE(nullptr, nothing);
  EXPECT_EQ("", nothing->uninstall);
  EXPECT_EQ(0, cmdline_path_count);
}

TEST_F(Uninstall, ARecordPastTheTableIsLeftOutButCounted) {
  page_.scan_installed_programs();
  const int before = program_count;
  char key[32], name[32];
  for (int i = 0; i < program_table_size + 1 - before; ++i) {
    std::snprintf(key, sizeof key, "WhTestMany%04d", i);
    std::snprintf(name, sizeof name, "WhTest Many %04d", i);
    entry(key, {{"DisplayName", name}});
  }
  entry("WhTestZzzLast", {{"DisplayName", "WhTest Zzz Last"}});  // enumerated last
  page_.scan_installed_programs();
  EXPECT_EQ(program_table_size + 2, program_count);
  EXPECT_FALSE(program_table[program_table_size].name.empty());
  EXPECT_EQ(nullptr, record_named("WhTest Zzz Last"));
  EXPECT_EQ(program_table_size, page_.List1.ListCount());
  EXPECT_EQ(-1, row_of(page_.List1, "WhTest Zzz Last"));
}

TEST_F(Uninstall, ScanWorksOutEachProgramsFolderAndThePieMeasuresIt) {
  // Program Files of the prefix; what is made there goes again.
  page_.scan_installed_programs();
  const std::string word = program_files_dir + "\\WhTestWord";
  const std::string pub = program_files_dir + "\\WhTestPub";
  CreateDirectoryA(word.c_str(), nullptr);
  CreateDirectoryA(pub.c_str(), nullptr);
  CreateDirectoryA((pub + "\\Only").c_str(), nullptr);
  entry("WhTestByWord", {{"DisplayName", "WhTestWord Suite 2"}});
  entry("WhTestByPub", {{"DisplayName", "WhTestPubTool"}, {"Publisher", "WhTestPub"}});
  const std::string foo = dir_.folder("Apps\\Foo");
  dir_.file("Apps\\Foo\\a.bin", std::string(3000, 'x'));
  const std::string bar = dir_.folder("Apps\\Bar");
  entry("WhTestLauncher", {{"DisplayName", "WhTest Launcher"},
                           {"UninstallString", "C:\\WINDOWS\\remove.exe -f \"" + foo + "\\log.txt\""}});
  entry("WhTestSetup", {{"DisplayName", "WhTest Setup"},
                        {"UninstallString", bar + "\\Uninstall\\setup.exe /x"}});
  entry("WhTestNoDrive", {{"DisplayName", "WhTestNoDrive"}, {"UninstallString", "uninst.exe /q"}});
  entry("WhTestLocation", {{"DisplayName", "WhTest Location"},
                           {"InstallLocation", "\"" + foo + "\\\""}});
  entry("WhTestPf", {{"DisplayName", "WhTest Pf"},
                     {"UninstallString", "\"%ProgramFiles%\\WhTestPf\\unins000.exe\""},
                     {"InstallLocation", "%ProgramFiles%\\WhTestPf"}});
  entry("WhTestInWindows", {{"DisplayName", "WhTest InWindows"},
                            {"UninstallString", "C:\\windows\\whtest_uninst.exe"},
                            {"DisplayIcon", foo + "\\foo.exe,0"}});
  entry("WhTestMissingTo", {{"DisplayName", "WhTestMissingTo"},
                            {"InstallTo", dir_.path() + "\\gone"}});
  page_.scan_installed_programs();

  auto folder_of = [](const std::string& name) {
    const program_record* r = record_named(name);
    return r ? r->folder : std::string("(no record)");
  };
  EXPECT_EQ(foo, folder_of("WhTest Launcher")) << "the last drive colon wins";
  EXPECT_EQ(bar, folder_of("WhTest Setup")) << "the uninstaller's own folder is passed over";
  EXPECT_EQ("", folder_of("WhTestNoDrive"));
  EXPECT_EQ("", folder_of("WhTestMissingTo")) << "an InstallTo that is not there changes nothing";
  EXPECT_EQ(foo, folder_of("WhTest Location")) << "quotes and the trailing backslash cut";
  EXPECT_EQ(program_files_dir + "\\WhTestPf", folder_of("WhTest Pf"));
  // The opening quote went with the variable; the closing one stays.
  EXPECT_EQ(program_files_dir + "\\WhTestPf\\unins000.exe\"", record_named("WhTest Pf")->uninstall);
  EXPECT_EQ(foo, folder_of("WhTest InWindows")) << "a Windows folder gives way to the icon's";
  EXPECT_EQ(word, folder_of("WhTestWord Suite 2"));
  EXPECT_EQ(pub + "\\Only", folder_of("WhTestPubTool"))
      << "a subfolder of the publisher, never the publisher's folder";

  page_.PIE_Click();
  double size = 3000;
  EXPECT_NE(-1, row_of(page_.List1, "WhTest Location (" + form_.spatiuu(size) + ")"));
  EXPECT_NE(-1, row_of(page_.List1, "WhTestNoDrive(?)")) << "no blank ahead of the mark";
  EXPECT_EQ(static_cast<int16_t>(65535), sizes_shown);
  EXPECT_FALSE(page_.QM.Visible());
  EXPECT_TRUE(page_.lupe.Visible());
  test::remove_tree(word);
  test::remove_tree(pub);
}

TEST_F(Uninstall, TheMemoryFileMarksNewProgramsOnce) {
  entry("WhTestOld", {{"DisplayName", "WhTest Old"}});
  page_.scan_installed_programs();
  EXPECT_EQ(-1, row_of(page_.List1, "WhTest Old        <<<<NEW>>>>")) << "first scan: no marks";
  EXPECT_NE(std::string::npos, read_file(apps).find("WhTest Old\r\n"));

  // Installed by a 32-bit setup: the mark sees the 32-bit view too.
  entry("WhTestFresh", {{"DisplayName", "WhTest Fresh"}}, view32);
  page_.scan_installed_programs();
  EXPECT_EQ("WhTest Fresh        <<<<NEW>>>>", page_.List1.List(0)) << "new ones on top";
  EXPECT_NE(-1, row_of(page_.List1, "WhTest Old")) << "known: no mark";
  EXPECT_NE(std::string::npos, read_file(apps).find("WhTest Fresh\r\n"));
  page_.scan_installed_programs();
  EXPECT_NE(-1, row_of(page_.List1, "WhTest Fresh")) << "marked in one scan only";

  // Removed, a scan, installed again: new again, in Romanian this time.
  reg_delete_tree(HKEY_LOCAL_MACHINE, uninstall_key + "\\WhTestFresh", view32);
  page_.scan_installed_programs();
  entry("WhTestFresh", {{"DisplayName", "WhTest Fresh"}}, view32);
  language_flag = 2;
  page_.scan_installed_programs();
  EXPECT_EQ("WhTest Fresh       <<<<NOU>>>>", page_.List1.List(0));
}

// The list is filled unseen and drawn once; what shows must be as a row by
// row fill left it: the new ones on top in the table's order (not sorted),
// and the row acted on last scrolled into view, nothing selected.
TEST_F(Uninstall, AScanComesBackWhereTheUserWasWithTheNewOnTop) {
  char key[32], name[32];
  for (int i = 0; i < 60; ++i) {
    std::snprintf(key, sizeof key, "WhTestRow%02d", i);
    std::snprintf(name, sizeof name, "WhTest Row %02d", i);
    entry(key, {{"DisplayName", name}});
  }
  page_.scan_installed_programs();
  // Keys in the order the registry lists them; names against it.
  entry("WhTestZ1", {{"DisplayName", "WhTest Zulu"}});
  entry("WhTestZ2", {{"DisplayName", "WhTest Alpha"}});
  const int count = page_.List1.ListCount() + 2;
  last_selected_index = static_cast<int16_t>(count - 3);
  page_.scan_installed_programs();

  ASSERT_EQ(count, page_.List1.ListCount());
  EXPECT_EQ("WhTest Zulu        <<<<NEW>>>>", page_.List1.List(0));
  EXPECT_EQ("WhTest Alpha        <<<<NEW>>>>", page_.List1.List(1));
  const int known = row_of(page_.List1, "WhTest Row 00");
  EXPECT_GE(known, 2);
  EXPECT_EQ(known + 1, row_of(page_.List1, "WhTest Row 01")) << "the known ones sorted below";
  EXPECT_EQ(0, page_.List1.SelCount());
  RECT client{};
  GetClientRect(page_.List1.hwnd(), &client);
  const int row_height = static_cast<int>(page_.List1.send(LB_GETITEMHEIGHT, 0));
  ASSERT_GT(row_height, 0);
  const int page_rows = client.bottom / row_height;
  ASSERT_LT(page_rows, count - 4) << "the list must scroll for the test to tell";
  const int wanted = last_selected_index - 1, top = page_.List1.TopIndex();
  EXPECT_GT(top, 0);
  EXPECT_LE(top, wanted);
  EXPECT_LT(wanted, top + page_rows) << "the row is in view";
}

// What 32-bit installers write lands in the 32-bit view; the section reads
// both as one list, 64-bit first.
TEST_F(Uninstall, BothViewsMakeOneListAndEachEntryKeepsItsView) {
  const std::string log = dir_ / "views.log";
  entry("WhTestOnly64", {{"DisplayName", "WhTest Only64"}, {"UninstallString", command(log, "only64")}},
        view64);
  entry("WhTestOnly32", {{"DisplayName", "WhTest Only32"}, {"UninstallString", command(log, "only32")}},
        view32);
  // The same name in both views, under the same subkey: one record.
  entry("WhTestTwin", {{"DisplayName", "WhTest Twin View"}, {"UninstallString", command(log, "twin64")}},
        view64);
  entry("WhTestTwin", {{"DisplayName", "WhTest Twin View"}, {"UninstallString", command(log, "twin32")}},
        view32);
  // A nameless subkey of the 32-bit view beside a named twin in the 64-bit one.
  entry("WhTestNameless", {{"UninstallString", "C:\\x\\unins000.exe"}}, view32);
  entry("WhTestNameless", {{"DisplayName", "WhTest Named Twin"}}, view64);
  page_.scan_installed_programs();

  EXPECT_FALSE(has_entry("WhTestNameless", view32)) << "deleted in its own view";
  EXPECT_TRUE(has_entry("WhTestNameless", view64)) << "its twin of the other view stays";
  EXPECT_NE(-1, row_of(page_.List1, "WhTest Named Twin"));
  EXPECT_EQ(1, rows_named("WhTest Twin View"));
  // The twin's record is the 64-bit view's, which comes first.
  for (auto [name, view] : {std::pair{"WhTest Only32", view32}, {"WhTest Only64", view64},
                            {"WhTest Twin View", view64}}) {
    ASSERT_NE(nullptr, record_named(name));
    EXPECT_EQ(view, record_named(name)->view) << name;
  }

  // Each row starts the uninstaller of its own entry.
  for (const char* name : {"WhTest Only64", "WhTest Only32", "WhTest Twin View"})
    page_.List1.Selected(row_of(page_.List1, name), true);
  ScriptedDialogs boxes;
  page_.del_block();
  const std::string started = wait_for_log(log, 6);
  for (const char* tag : {"only64 end", "only32 end", "twin64 end"})
    EXPECT_NE(std::string::npos, started.find(tag)) << tag;
  EXPECT_EQ(std::string::npos, started.find("twin32"));
}

TEST_F(Uninstall, OneRowStartsWithoutWaitingOrAsking) {
  const std::string log = dir_ / "one.log";
  const std::string app = dir_.folder("One");
  entry("WhTestOne", {{"DisplayName", "WhTest One"}, {"UninstallString", command(log, "one", 1500)},
                      {"InstallLocation", app}});
  sequential_uninstall = static_cast<int16_t>(65535);
  page_.scan_installed_programs();
  page_.List1.Selected(row_of(page_.List1, "WhTest One"), true);
  EXPECT_FALSE(page_.talpa.Visible()) << "the foot shows for two rows";
  EXPECT_TRUE(page_.QM.Visible()) << "sizes not known yet";
  ScriptedDialogs boxes;
  page_.del_block();
  EXPECT_EQ(0u, boxes.count());
  EXPECT_EQ(std::string::npos, read_file(log).find("one end")) << "not waited for";
  std::string clip;
  clipboard_get_text(clip);
  EXPECT_EQ(app, clip) << "the folder lies on the clipboard for delfolder";
  EXPECT_NE(std::string::npos, wait_for_log(log, 2).find("one end"));
}

TEST_F(Uninstall, SequentialRowsWaitAndAskInBetween) {
  const std::string log = dir_ / "seq.log";
  const std::string a = dir_.folder("SeqA");
  const std::string b = dir_.folder("SeqB");
  entry("WhTestSeqA", {{"DisplayName", "WhTest SeqA"}, {"UninstallString", command(log, "a", 300)},
                       {"InstallLocation", a}});
  entry("WhTestSeqB", {{"DisplayName", "WhTest SeqB"}, {"UninstallString", command(log, "b", 0)},
                       {"InstallLocation", b}});
  page_.scan_installed_programs();
  page_.List1.Selected(row_of(page_.List1, "WhTest SeqA"), true);
  page_.List1.Selected(row_of(page_.List1, "WhTest SeqB"), true);
  EXPECT_TRUE(page_.talpa.Visible());
  EXPECT_FALSE(page_.PIE.Visible());
  EXPECT_FALSE(page_.QM.Visible());
  page_.talpa_Click();
  EXPECT_EQ(static_cast<int16_t>(65535), sequential_uninstall);

  // Each question sees the log as it stands when it is asked.
  struct LogAtQuestion : DialogService {
    std::string log;
    std::vector<std::string> seen, texts;
    int msg_box(const std::string& text, unsigned, const std::string&) override {
      seen.push_back(read_file(log));
      texts.push_back(text);
      return texts.size() == 1 ? IDYES : IDNO;
    }
  } asked;
  asked.log = log;
  {
    DialogScope scope(asked);
    page_.del_block();
  }
  ASSERT_EQ(2u, asked.texts.size());
  EXPECT_EQ("The folder " + a + " is not empty.Would  you like to delete it?", asked.texts[0]);
  EXPECT_EQ("a start\r\na end\r\n", asked.seen[0]) << "the first ended before the question";
  EXPECT_EQ("a start\r\na end\r\nb start\r\nb end\r\n", read_file(log));
  EXPECT_FALSE(path_exists(a)) << "yes deletes the left-over folder";
  EXPECT_TRUE(path_exists(b));
}

TEST_F(Uninstall, AMissingUninstallerLosesItsEntry) {
  // In the 32-bit view, with a subkey of the same name in the 64-bit one.
  entry("WhTestBroken", {{"DisplayName", "WhTest Broken"},
                         {"UninstallString", dir_.path() + "\\missing\\unins000.exe"}},
        view32);
  entry("WhTestBroken", {{"DisplayName", "WhTest Fine"}}, view64);
  entry("WhTestEmpty", {{"DisplayName", "WhTest Empty"}});
  page_.scan_installed_programs();
  page_.List1.Selected(row_of(page_.List1, "WhTest Broken"), true);
  ScriptedDialogs boxes;
  page_.del_block();
  EXPECT_FALSE(has_entry("WhTestBroken", view32));
  EXPECT_TRUE(has_entry("WhTestBroken", view64)) << "the entry goes in its own view only";
  EXPECT_EQ(-1, row_of(page_.List1, "WhTest Broken")) << "the list healed";
  EXPECT_NE(-1, row_of(page_.List1, "WhTest Fine"));
  page_.List1.Selected(row_of(page_.List1, "WhTest Empty"), true);
  page_.del_block();
  EXPECT_FALSE(has_entry("WhTestEmpty")) << "an empty command fails the same way";
  EXPECT_EQ(0u, boxes.count()) << "nothing is shown";
}

TEST_F(Uninstall, OwnEntryAnsweredNoStopsTheRun) {
  const std::string log = dir_ / "own.log";
  dir_.folder("Wellharrower");
  entry("WhTestAaaOwn", {{"DisplayName", "WhTest Aaa Wellharrower"},
                         {"UninstallString", command(log, "own") + " Wellharrower"}});
  entry("WhTestZzz", {{"DisplayName", "WhTest Zzz"}, {"UninstallString", command(log, "zzz")}});
  page_.scan_installed_programs();
  page_.List1.Selected(row_of(page_.List1, "WhTest Aaa Wellharrower"), true);
  page_.List1.Selected(row_of(page_.List1, "WhTest Zzz"), true);
  std::string answer;
  page_.mm = [&](const std::string& text) { answer = text; };
  ScriptedDialogs boxes({IDNO});
  page_.del_block();
  ASSERT_EQ(2u, boxes.count());
  EXPECT_EQ("Are you sure you want to uninstall such a great software?", boxes.boxes()[0].text);
  EXPECT_EQ("Good choice!", boxes.last().text);
  EXPECT_EQ("7", answer);
  Sleep(300);
  EXPECT_FALSE(path_exists(log)) << "neither this program nor the rows after it started";
}

}  // namespace
