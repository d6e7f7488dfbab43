// The pack through the program, as a user meets it in the portable zip: the
// pack unregistered in "JunkHarrower Plugins" beside the program, a PC of
// today (two Chromium browsers with two profiles each, Firefox, Explorer's
// caches held by Explorer, error reports, shader caches, crash dumps). At
// the first start every member is listed (the program registers one, which
// registers the rest); one Harrow in section 8 with the pack selected takes
// the caches and leaves everything else as it was.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>

#include "core/routines.h"
#include "core/settings.h"
#include "pack_support.h"
#include "support/form_test.h"
#include "support/pending.h"
#include "support/test_form.h"

using namespace wh;
using namespace pack_test;
using Lines = std::vector<std::string>;

namespace {

const std::wstring plugin_folder = L"C:\\wh\\JunkHarrower Plugins";

Lines panel(const Mainu& m) {
  Lines rows;
  for (int r = 1; r <= 5; ++r) {
    std::string line = m.lcd.Line(r);
    while (!line.empty() && line.back() == ' ') line.pop_back();
    rows.push_back(line);
  }
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  return rows;
}

class PackThroughTheProgram : public wh::test::StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");
    save_setting("readed 0.95", "1");
    save_setting("Limba", "engleza");
  }
};

TEST_F(PackThroughTheProgram, APcOfTodayLosesItsCachesInOneHarrowAndKeepsTheRest) {
  Made made;
  Expect expect(made);
  ASSERT_FALSE(exists(plugin_folder));
  made.folder(plugin_folder);
  for (const std::wstring& name : pack_names()) {
    ASSERT_EQ(L"", registered_server(name + L".Plugin")) << utf8(name);
    ASSERT_TRUE(CopyFileW(pack_file(name).c_str(), (plugin_folder + L"\\" + name + L".dll").c_str(),
                          FALSE));
  }

  const std::wstring local = local_appdata(), roaming = roaming_appdata();
  for (const std::wstring& data :
       {local + L"\\Google\\Chrome\\User Data", local + L"\\Microsoft\\Edge\\User Data"}) {
    chromium_user_data(expect, data);
    chromium_profile(expect, data + L"\\Default");
    chromium_profile(expect, data + L"\\Profile 3");
  }
  firefox_profile(expect, L"Mozilla\\Firefox", L"abcd1234.default-release");
  firefox_profile(expect, L"Mozilla\\Firefox", L"efgh5678.work");
  const std::wstring explorer = local + L"\\Microsoft\\Windows\\Explorer";
  expect.gone(explorer + L"\\iconcache_32.db");
  expect.keep(explorer + L"\\ExplorerStartupLog.etl");
  const std::wstring held = made.file(explorer + L"\\thumbcache_96.db", "Explorer's");
  for (const std::wstring& wer : {program_data() + L"\\Microsoft\\Windows\\WER",
                                  local + L"\\Microsoft\\Windows\\WER"}) {
    expect.gone(wer + L"\\ReportArchive\\AppCrash_x.exe_1\\Report.wer");
    expect.gone(wer + L"\\ReportQueue\\AppHang_y.exe_2\\Report.wer");
  }
  expect.gone(local + L"\\D3DSCache\\0f\\a.idx");
  expect.gone(local + L"\\NVIDIA\\DXCache\\b.bin");
  expect.gone(local + L"\\CrashDumps\\game.exe.1234.dmp");
  // Outside every tree the pack names.
  expect.keep(local + L"\\Temp\\keep\\draft.txt");
  expect.keep(roaming + L"\\Microsoft\\Windows\\Recent\\keep.txt");

  Mainu& m = start_form();
  JunkPage& j = m.junk_page;
  Lines listed = wh::test::rows(j.pluginlist), names;
  std::sort(listed.begin(), listed.end());
  for (const std::wstring& name : pack_names()) names.push_back(utf8(name));
  EXPECT_EQ(names, listed) << "the whole pack at the first start";
  for (const std::wstring& name : pack_names())
    EXPECT_EQ(plugin_folder + L"\\" + name + L".dll", registered_server(name + L".Plugin"));
  EXPECT_TRUE(wh::test::shows(j.showplugins, "PLUGINS_FOUND"));

  m.junk_Click();
  j.showplugins_Click();
  EXPECT_TRUE(j.plugins.Visible());
  const int chromium = wh::test::row_of(j.pluginlist, "Chromium");
  j.pluginlist.TopIndex(0);
  j.pluginlist_MouseMove(chromium * j.pluginlist.TextHeight("Xyz") + 1);
  EXPECT_EQ((Lines{"Browser caches of", "Chrome, Edge", "(cookies stay)"}), panel(m));

  for (int i = 1; i <= 18; ++i) j.check[i]->Value(0);
  for (int row = 0; row < j.pluginlist.ListCount(); ++row) j.pluginlist.Selected(row, true);
  const std::string pending = wh::test::pending_operations();
  {
    Holder explorer_holds(held);
    ASSERT_TRUE(explorer_holds.holding());
    m.del_Click();
  }

  expect.check();
  EXPECT_EQ("Explorer's", read(held));
  EXPECT_TRUE(scheduled(held));
  wh::test::restore_pending(pending);
  EXPECT_EQ(j.pluginlist.ListCount(), j.pluginlist.SelCount());

  // One member's unregistration takes the pack's registration back.
  EXPECT_EQ(0, register_component(nullptr, utf8(plugin_folder) + "\\Firefox.dll", false));
  for (const std::wstring& name : pack_names())
    EXPECT_EQ(L"", registered_server(name + L".Plugin")) << utf8(name);
  CoFreeUnusedLibrariesEx(0, 0);
}

}  // namespace
