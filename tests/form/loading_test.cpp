// The first-run window: what its two options store, and the wait of the
// first start on it.
#include <windows.h>

#include <gtest/gtest.h>

#include "hover_help.h"
#include "support/form_test.h"
#include "core/globals.h"
#include "core/loading.h"
#include "core/settings.h"

using namespace wh;
using wh::test::click;
using wh::test::StoreTest;

namespace {

void select(const OptionButton& o) {
  SendMessageA(GetParent(o.hwnd()), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(o.hwnd()), BN_CLICKED),
               reinterpret_cast<LPARAM>(o.hwnd()));
}

class LoadingTest : public StoreTest {
protected:
  void TearDown() override {
    if (loading_loaded()) loading_unload();
    StoreTest::TearDown();
  }
};

TEST_F(LoadingTest, EachOptionStoresItsLanguageAndStartSection) {
  Loading& w = loading();
  // Form_Load picks English before anyone chose.
  EXPECT_TRUE(w.Option1.Value());
  EXPECT_EQ("engleza", setting("Limba"));
  EXPECT_EQ("Uninstall programs", setting("mod"));
  EXPECT_EQ(1, language_flag);

  select(w.Option2);
  EXPECT_FALSE(w.Option1.Value());
  EXPECT_EQ("romana", setting("limba"));
  EXPECT_EQ("Dezinstalare programe", setting("mod"));
  EXPECT_EQ(2, language_flag);

  // The flags pick their option.
  click(w.en);
  EXPECT_TRUE(w.Option1.Value());
  EXPECT_EQ("Uninstall programs", setting("mod"));
}

TEST_F(LoadingTest, TheFirstStartWaitsForItAndCountsTheRunAfterwards) {
  std::string runs_while_shown = "?";
  LoadingAnswer answer([&](Loading& w) {
    runs_while_shown = setting("runed");
    EXPECT_TRUE(w.Visible());
    select(w.Option2);
    click(w.Command1);
  });
  start_form();
  EXPECT_EQ(1, answer.shown());
  EXPECT_FALSE(loading_loaded()) << "its button ends the wait and the window";
  EXPECT_EQ("", runs_while_shown);
  EXPECT_EQ("1", setting("runed"));
  EXPECT_EQ("romana", setting("limba"));
  // The stored start section is entered.
  EXPECT_EQ(1, ActiveSection);

  start_form();
  EXPECT_EQ(1, answer.shown()) << "only the first run asks";
  EXPECT_EQ("2", setting("runed"));
}

}  // namespace
