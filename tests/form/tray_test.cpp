// The notification area with the real shell calls: the main icon of
// Picture4, the busy icons, and the tray menu's form that the first right
// click on the icon makes. The shell's messages are posted as it sends them:
// WM_MOUSEMOVE with the mouse message in lParam.
#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "cleaning/junk_support.h"
#include "hover_help.h"
#include "support/form_test.h"
#include "support/scratch.h"
#include "core/choose.h"
#include "core/globals.h"
#include "core/settings.h"
#include "core/tray.h"
#include "form/meniu.h"
#include "platform/tray.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::StoreTest;

namespace {

// A modify answers TRUE only while the icon stands.
bool icon_stands(HWND owner) {
  TrayRecord r;
  r.hWnd = owner;
  r.uID = 1;
  r.uFlags = NIF_TIP;
  return shell_notify_icon(NIM_MODIFY, r) != FALSE;
}

void tray_message(Mainu& m, UINT message) {
  PostMessageA(m.Picture4.hwnd(), WM_MOUSEMOVE, 1, message);
  do_events();
}

void to_tray(Mainu& m) {
  m.Image10.send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
  m.Image10.send(WM_RBUTTONUP, 0, MAKELPARAM(3, 3));
}

class Tray : public StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");  // no first run, no tips
    save_setting("readed 0.95", "1");
    m = &start_form();
    language_flag = 1;
  }
  void TearDown() override {
    tray_remove();
    StoreTest::TearDown();
  }
  Mainu* m = nullptr;
};

TEST_F(Tray, RightClickOnMinimiseGoesToTheTrayAndTheIconsLeftButtonComesBack) {
  ASSERT_TRUE(IsWindowVisible(m->hwnd()));
  to_tray(*m);
  EXPECT_TRUE(icon_stands(m->Picture4.hwnd()));
  EXPECT_FALSE(IsWindowVisible(m->hwnd()));

  // The mouse passing over the icon empties the caption; other messages
  // than the table's do nothing.
  tray_message(*m, WM_MOUSEMOVE);
  EXPECT_EQ("", m->Caption());
  tray_message(*m, WM_LBUTTONUP);
  tray_message(*m, WM_LBUTTONDBLCLK);
  EXPECT_FALSE(IsWindowVisible(m->hwnd()));
  EXPECT_TRUE(icon_stands(m->Picture4.hwnd()));

  tray_message(*m, WM_LBUTTONDOWN);
  EXPECT_TRUE(IsWindowVisible(m->hwnd()));
  EXPECT_FALSE(IsIconic(m->hwnd()));
  EXPECT_EQ("Wellharrower", m->Caption());
  EXPECT_FALSE(icon_stands(m->Picture4.hwnd()));

  // The left button on minimise only minimises.
  wh::test::click(m->Image10);
  EXPECT_TRUE(IsIconic(m->hwnd()));
  EXPECT_FALSE(icon_stands(m->Picture4.hwnd()));
}

TEST_F(Tray, TheFirstRightClickMakesTheMenuFormOnceAndTheLanguagePicksTheMenu) {
  to_tray(*m);
  EXPECT_FALSE(m->meniu_loaded());
  tray_message(*m, WM_RBUTTONDOWN);
  ASSERT_TRUE(m->meniu_loaded());
  Meniu& menu = m->meniu();
  EXPECT_EQ(1, menu.loads);
  language_flag = 2;
  tray_message(*m, WM_RBUTTONDOWN);
  language_flag = 0;  // anything but 2 is English
  tray_message(*m, WM_RBUTTONDOWN);
  EXPECT_EQ(1, menu.loads);
  EXPECT_EQ((std::vector<HMENU>{menu.fili2.handle(), menu.fili.handle(), menu.fili2.handle()}),
            boxes.menus());
  EXPECT_FALSE(IsWindowVisible(menu.hwnd()));
  EXPECT_FALSE(IsWindowVisible(m->hwnd())) << "a menu closed without a choice leaves it hidden";
}

TEST_F(Tray, EverySectionItemOfBothMenusShowsTheWindowAndEntersItsSection) {
  struct Item {
    int language;
    const char* name;
    uint8_t section;
  };
  // Neighbours differ, as an entry into the section showing returns early.
  const Item items[] = {{1, "uninst1", 1}, {2, "curata", 8}, {1, "task1", 2},  {2, "split", 3},
                        {1, "format1", 5}, {2, "dirinfo", 4}, {1, "wipe1", 6}, {2, "startuppp", 9},
                        {2, "uninst", 1},  {1, "junk", 8},    {2, "mem", 2},   {1, "split1", 3},
                        {2, "killa", 5},   {1, "dir1", 4},    {2, "wipe", 6},  {1, "STP", 9}};
  Meniu& menu = m->meniu();
  for (const Item& item : items) {
    to_tray(*m);
    language_flag = static_cast<uint8_t>(item.language);
    const Menu& sub = item.language == 2 ? menu.fili : menu.fili2;
    ASSERT_TRUE(sub.find(item.name)) << item.name;
    boxes.choose_item(static_cast<int>(sub.find(item.name)->id));
    tray_message(*m, WM_RBUTTONDOWN);
    EXPECT_EQ(item.section, ActiveSection) << item.name;
    EXPECT_TRUE(IsWindowVisible(m->hwnd())) << item.name;
    EXPECT_FALSE(icon_stands(m->Picture4.hwnd())) << item.name;
  }
}

TEST_F(Tray, OptionsFromTheRomanianMenuLeavesTheIconAndFromTheEnglishTakesIt) {
  language_flag = 2;
  to_tray(*m);
  m->meniu().opt_Click();
  EXPECT_TRUE(IsWindowVisible(m->hwnd()));
  EXPECT_TRUE(m->options.optiuni.Visible());
  EXPECT_TRUE(icon_stands(m->Picture4.hwnd()));
  // A left click on the icon of a window already there takes the icon.
  tray_message(*m, WM_LBUTTONDOWN);
  EXPECT_TRUE(IsWindowVisible(m->hwnd()));
  EXPECT_FALSE(icon_stands(m->Picture4.hwnd()));

  to_tray(*m);
  m->meniu().opt2_Click();
  EXPECT_TRUE(IsWindowVisible(m->hwnd()));
  EXPECT_FALSE(icon_stands(m->Picture4.hwnd()));
}

// The quick actions of the menu on a form that watches the Harrow All of
// sections 2 and 8 start. Section 2's is not run: it would end processes
// that are not the test's. Section 8's runs on its folders moved into a
// scratch folder, once the entry has found the real ones.
class Watched : public Mainu {
public:
  void delall_tasks() override {
    strip_shown = choose_loaded() && choose().Picture1.Visible() && choose().Label2.Visible() &&
                  IsWindowVisible(choose().hwnd());
    hidden = !IsWindowVisible(hwnd());
    ++closes;
  }
  void delall_junk() override {
    busy_icon = icon_stands(meniu().Picture1.hwnd());
    main_icon = icon_stands(Picture4.hwnd());
    world = std::make_unique<wh::test::JunkWorld>();
    junk = world->dir.file("temp\\old.tmp", "junk");
    Mainu::delall_junk();
  }
  int closes = 0;
  bool strip_shown = false, hidden = false;
  bool busy_icon = false, main_icon = true;
  std::unique_ptr<wh::test::JunkWorld> world;
  std::string junk;
};

class QuickActions : public StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");
    save_setting("readed 0.95", "1");
    form = std::make_unique<Watched>();
    raise_event([&] { form->ordinary_start(); });
    language_flag = 1;
    to_tray(*form);
  }
  void TearDown() override {
    tray_remove();
    tray_remove_menu();
    form.reset();
    StoreTest::TearDown();
  }
  std::unique_ptr<Watched> form;
};

TEST_F(QuickActions, HarrowAllCleansWhatSection8WouldUnderTheBusyIconAndStaysInTheTray) {
  const char* const mru = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU";
  reg_set_value(HKEY_CURRENT_USER, mru, "a", "notepad\\1");
  ASSERT_EQ("notepad\\1", reg_get_value(HKEY_CURRENT_USER, mru, "a"));

  Meniu& menu = form->meniu();
  menu.harrowalljunk_Click();
  ASSERT_TRUE(form->world);
  EXPECT_TRUE(form->busy_icon);
  EXPECT_FALSE(form->main_icon);
  EXPECT_FALSE(path_exists(form->junk));
  HKEY k = nullptr;
  EXPECT_NE(ERROR_SUCCESS, RegOpenKeyExA(HKEY_CURRENT_USER, mru, 0, KEY_READ, &k));
  for (int i = 1; i <= 18; ++i) EXPECT_EQ(0, form->junk_page.check[i]->Value()) << i;

  EXPECT_EQ(8, ActiveSection);
  EXPECT_FALSE(IsWindowVisible(form->hwnd()));
  EXPECT_FALSE(icon_stands(menu.Picture1.hwnd()));
  EXPECT_TRUE(icon_stands(form->Picture4.hwnd()));
  // The next restore shows the section harrowed.
  tray_message(*form, WM_LBUTTONDOWN);
  EXPECT_TRUE(IsWindowVisible(form->hwnd()));
  EXPECT_TRUE(form->junk_page.junk_form.Visible());
}

TEST_F(QuickActions, CloseAllClosesUnderTheWaitStripAndEndsOnlyWhenHarrowAllEnds) {
  form->meniu().closeall_Click();
  EXPECT_EQ(1, form->closes);
  EXPECT_TRUE(form->strip_shown);
  EXPECT_TRUE(form->hidden);
  EXPECT_EQ(2, ActiveSection);
  EXPECT_FALSE(choose_loaded());
  EXPECT_FALSE(IsWindowVisible(form->hwnd()));
  EXPECT_TRUE(icon_stands(form->Picture4.hwnd()));

  // With Harrow All set to end the program the same item ends it.
  save_setting("harrowall", "true");
  {
    EndHook ended;
    EXPECT_THROW(form->meniu().closeall_Click(), ProgramEnded);
    EXPECT_TRUE(ended.called());
  }
  EXPECT_EQ(2, form->closes);
  EXPECT_FALSE(icon_stands(form->Picture4.hwnd()));
  if (choose_loaded()) choose_unload();
}

}  // namespace
