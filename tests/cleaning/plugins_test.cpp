// Section 8's plug-ins with real components: copies of the sample plug-in
// (C:\wh\plugins\CrashDumps.dll) under other base names in the folder beside the
// program, registered in the prefix's HKEY_CLASSES_ROOT.
#include <windows.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cleaning/junk_page.h"
#include "cleaning/junk_support.h"
#include "core/globals.h"
#include "core/routines.h"
#include "platform/files.h"
#include "platform/rt_error.h"
#include "support/scratch.h"
#include "support/test_form.h"

using namespace wh;
using wh::test::path_exists;
using Names = std::vector<std::string>;

namespace {

using wh::test::rows;

std::string sample() { return app_path() + "\\plugins\\CrashDumps.dll"; }

// The class id a copy registered, read back from its ProgID; empty when the
// class is unknown.
std::string registered_server(const std::string& base) {
  const std::string clsid = reg_get_value(HKEY_CLASSES_ROOT, base + ".Plugin\\CLSID", "");
  if (clsid.empty()) return {};
  return reg_get_value(HKEY_CLASSES_ROOT, "CLSID\\" + clsid + "\\InprocServer32", "");
}

// The folder "JunkHarrower Plugins" beside the test binary, and copies of the
// sample in it or elsewhere. Every copy is unregistered and unloaded at the
// end, and the folder goes if the test made it.
class Plugins {
public:
  Plugins() : folder_(app_path() + "\\JunkHarrower Plugins") {
    made_ = CreateDirectoryA(folder_.c_str(), nullptr) != 0;
  }
  ~Plugins() {
    CoFreeUnusedLibraries();  // the servers loaded for the objects
    for (const std::string& copy : copies_) {
      register_component(nullptr, copy, false);
      DeleteFileA(copy.c_str());
    }
    if (made_) RemoveDirectoryA(folder_.c_str());
  }
  Plugins(const Plugins&) = delete;
  Plugins& operator=(const Plugins&) = delete;

  // A copy of the sample in the plug-in folder.
  std::string add(const std::string& name) { return copy_to(folder_ + "\\" + name); }
  std::string copy_to(const std::string& path) {
    CopyFileA(sample().c_str(), path.c_str(), FALSE);
    copies_.push_back(path);
    return path;
  }

private:
  std::string folder_;
  bool made_ = false;
  std::vector<std::string> copies_;
};

// The folder the sample cleans, made for the test when the prefix has none.
class CrashDumps {
public:
  CrashDumps() {
    char local[MAX_PATH] = {};
    SHGetFolderPathA(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, local);
    path = std::string(local) + "\\CrashDumps";
    made = CreateDirectoryA(path.c_str(), nullptr) != 0;
  }
  ~CrashDumps() {
    if (made) wh::test::remove_tree(path);
  }
  std::string path;
  bool made = false;
};

class PluginPage : public JunkPage {
public:
  PluginPage(test::TestForm& form, test::JunkShared& s)
      : JunkPage(form, s.frame1, s.File1, s.Dir3, s.Drive1, s.k1) {}
  Names calls;
  void junk_scan() override { calls.push_back("junk_scan"); }
};

std::vector<std::string> panel(const MainForm& form) {
  std::vector<std::string> rows;
  for (int r = 1; r <= 5; ++r) {
    rows.push_back(form.lcd.Line(r));
    rows.back().erase(rows.back().find_last_not_of(' ') + 1);
  }
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  return rows;
}

class PluginScan : public ::testing::Test {
protected:
  void SetUp() override {
    ASSERT_TRUE(path_exists(sample())) << "test.sh copies the sample";
    form.lcd.WriteSpeed(0);
  }
  test::TestForm form;
  test::JunkShared shared{form};
};

}  // namespace

TEST_F(PluginScan, ARegisteredPluginIsListedWithoutRegisteringAndEachFileOfItsNameCounts) {
  test::ScratchDir elsewhere("plugin_elsewhere");
  Plugins plugins;
  const std::string first = plugins.copy_to(elsewhere / "Foo.dll");
  ASSERT_EQ(0, register_component(nullptr, first, true));
  plugins.add("Foo.dll");
  plugins.add("Foo.txt");  // no filter by extension: the same class once more

  PluginPage page(form, shared);
  EXPECT_TRUE(page.scan_plugins());
  EXPECT_EQ((Names{"Foo", "Foo"}), rows(page.pluginlist));
  EXPECT_EQ(first, registered_server("Foo"));  // still the copy registered before
}

TEST_F(PluginScan, OnlyTheFirstUnknownFileOfAStartIsRegistered) {
  Plugins plugins;
  plugins.add("Bar.dll");
  plugins.add("Baz.dll");
  {
    PluginPage page(form, shared);
    EXPECT_TRUE(page.scan_plugins());
    ASSERT_EQ(1, page.pluginlist.ListCount());
    const std::string listed = page.pluginlist.List(0);
    const std::string other = listed == "Bar" ? "Baz" : "Bar";
    EXPECT_NE("", registered_server(listed));
    EXPECT_EQ("", registered_server(other));
    // A scan again in the same start (showplugins with an empty list) tries no
    // registration either.
    page.pluginlist.Clear();
    page.scan_plugins();
    EXPECT_EQ((Names{listed}), rows(page.pluginlist));
  }
  test::TestForm next_start;
  test::JunkShared next_shared(next_start);
  PluginPage page(next_start, next_shared);
  page.scan_plugins();
  EXPECT_EQ(2, page.pluginlist.ListCount());
}

TEST_F(PluginScan, TheDescriptionUnderThePointerGoesOnThePanelAndHarrowRunsTheSelected) {
  CrashDumps dumps;
  if (!dumps.made) GTEST_SKIP() << "the prefix has crash dumps of its own";
  Plugins plugins;
  plugins.add("Foo.dll");
  PluginPage page(form, shared);
  page.scan_plugins();
  const int row = page.pluginlist.TextHeight("Xyz");

  // An empty folder: a description without "|", one line.
  page.pluginlist_MouseMove(1);
  EXPECT_EQ((Names{"  No crash dumps"}), panel(form));
  EXPECT_EQ("Foo", form.lighton);

  // The same line again is not read anew.
  wh::test::write_file(dumps.path + "\\one.dmp", "dump");
  page.pluginlist_MouseMove(2);
  EXPECT_EQ((Names{"  No crash dumps"}), panel(form));

  // Past the last line the key goes back to the window's.
  page.pluginlist_MouseMove(row * 3);
  EXPECT_EQ("MAINU", form.lighton);
  page.pluginlist_MouseMove(1);
  EXPECT_EQ((Names{"    Crash dumps", "1 file", "left by programs", "that crashed"}),
            panel(form));

  wh::test::write_file(dumps.path + "\\old\\two.dmp", "dump");
  page.del_block();  // not selected: not run
  EXPECT_TRUE(path_exists(dumps.path + "\\one.dmp"));

  page.pluginlist.Selected(0, true);
  page.del_block();
  EXPECT_TRUE(wh::test::names_in(dumps.path).empty());
  EXPECT_TRUE(path_exists(dumps.path));
  EXPECT_TRUE(page.pluginlist.Selected(0));  // the selection stays
  EXPECT_EQ((Names{"junk_scan", "junk_scan"}), page.calls);

  // A plug-in that cannot be made stops the run, before the scan.
  page.pluginlist.AddItem("Gone");
  page.pluginlist.Selected(1, true);
  try {
    page.del_block();
    ADD_FAILURE() << "a plug-in that cannot be made stops the run";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(rt_cannot_create_object, e.number());
  }
  EXPECT_EQ(2u, page.calls.size());
}

TEST_F(PluginScan, TheButtonOpensThePanelScanningAgainOnlyWhenTheListIsEmpty) {
  PluginPage page(form, shared);
  page.showplugins_Click();
  EXPECT_EQ((Names{"load_settings"}), form.calls);
  EXPECT_TRUE(page.plugins.Visible());
  page.Picture14_Click();
  EXPECT_FALSE(page.plugins.Visible());

  page.pluginlist.AddItem("Foo");
  page.pluginlist.AddItem("Bar");
  page.showplugins_Click();
  EXPECT_EQ(1u, form.calls.size());

  language_flag = 1;
  page.showplugins_MouseMove();
  EXPECT_EQ((Names{"      Plugins", " 2 installed"}), panel(form));
  EXPECT_EQ("SHOWPLUGIN", form.lighton);
  language_flag = 2;
  page.showplugins_MouseMove();  // once per entry
  EXPECT_EQ((Names{"      Plugins", " 2 installed"}), panel(form));
  form.lighton = "MAINU";
  page.pluginlist.RemoveItem(1);
  page.showplugins_MouseMove();
  EXPECT_EQ((Names{"      Plugins", " 1 instalat"}), panel(form));
}
