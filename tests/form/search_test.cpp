// The search box of section 9 on the real main form: typing selects, ENTER
// removes what was found, CTRL+F puts the box away. Section 1's is the
// uninstall form test's.
#include <gtest/gtest.h>

#include "support/form_test.h"

using namespace wh;
using wh::test::run_key;

namespace {

class Search : public test::StoreTest {
protected:
  void TearDown() override {
    for (const char* name : {"WhTestSought", "WhTestOther"})
      reg_delete_value(HKEY_CURRENT_USER, run_key, name);
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

}  // namespace
