// The search box of sections 1 and 9 on the real main form: typing selects,
// ENTER removes what was found, CTRL+F puts the box away.
#include <gtest/gtest.h>

#include "support/form_test.h"
#include "system/installed_programs.h"

using namespace wh;

namespace {

const char* const run_key = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

class Search : public test::StoreTest {
protected:
  void TearDown() override {
    reg_delete_value(HKEY_CURRENT_USER, run_key, "WhTestSought");
    reg_delete_value(HKEY_CURRENT_USER, run_key, "WhTestOther");
    StoreTest::TearDown();
  }
};

TEST_F(Search, FoundStartUpItemsGoOnEnter) {
  save_setting("runed", "7");
  save_setting("SEARChtip2", "1");
  reg_set_value(HKEY_CURRENT_USER, run_key, "WhTestSought", "C:\\x\\sought.exe");
  reg_set_value(HKEY_CURRENT_USER, run_key, "WhTestOther", "C:\\x\\other.exe");
  Mainu& m = start_form();
  m.RUN_Click();
  ASSERT_EQ(9, ActiveSection);
  StartupPage& page = m.startup_page;
  int f = 'F';
  page.run_reg.KeyDown(f, 2);
  ASSERT_TRUE(m.search.Visible());
  EXPECT_EQ(2, m.search_target);

  m.Text6.Text("so");
  EXPECT_EQ(0, page.search_hits()) << "fewer than three letters select nothing";
  m.Text6.Text("TESTSOUGHT");
  EXPECT_EQ(1, page.search_hits()) << "case does not matter";

  int enter = 13;
  m.Text6_KeyPress(enter);
  EXPECT_FALSE(m.search.Visible());
  EXPECT_EQ("", reg_get_value(HKEY_CURRENT_USER, run_key, "WhTestSought"));
  EXPECT_EQ("C:\\x\\other.exe", reg_get_value(HKEY_CURRENT_USER, run_key, "WhTestOther"));

  // CTRL+F in the box hands the focus back to the list last used.
  page.run_reg.KeyDown(f, 2);
  m.Text6.Text("abc");
  int esc = 27;
  m.Text6_KeyPress(esc);
  EXPECT_EQ("", m.Text6.Text());
  m.startup_tab = 1;
  m.Text6_KeyDown(f, 2);
  EXPECT_FALSE(m.search.Visible());
  EXPECT_EQ(page.run_reg.hwnd(), GetFocus());
}

TEST_F(Search, AProgramIsFoundByThreeLettersOfAnyScriptInEitherCase) {
  save_setting("runed", "7");
  save_setting("SEARChtip", "1");
  const std::string key = std::string(uninstall_key_path) + "\\WhTestSoughtName";
  // "WhTest ȘCOALĂ 学校"; typed as "școală", "ș" and "șc" (four bytes).
  const std::string name = "WhTest \xC8\x98" "COAL\xC4\x82 \xE5\xAD\xA6\xE6\xA0\xA1";
  reg_set_value(HKEY_LOCAL_MACHINE, key, "DisplayName", name);
  Mainu& m = start_form();
  m.uninstall_Click();
  ListBox& list = m.uninstall_page.List1;
  int row = -1;  // with the NEW mark behind it when the memory file knew others
  for (int i = 0; i < list.ListCount(); ++i)
    if (list.List(i).rfind(name, 0) == 0) row = i;
  ASSERT_GE(row, 0);
  int f = 'F';
  list.KeyDown(f, 2);
  ASSERT_EQ(1, m.search_target);
  m.Text6.Text("\xC8\x99" "c");
  EXPECT_FALSE(list.Selected(row)) << "two letters select nothing, whatever their bytes";
  m.Text6.Text("\xC8\x99" "coal\xC4\x83");
  EXPECT_TRUE(list.Selected(row));
  m.Text6.Text(" \xE5\xAD\xA6\xE6\xA0\xA1");
  EXPECT_TRUE(list.Selected(row)) << "three characters: two of them CJK";
  reg_delete_tree(HKEY_LOCAL_MACHINE, key);
}

}  // namespace
