// The key store as the form applies it at start, and the handlers of the
// Options page, on the real form and the real registry of the prefix.
#include <gtest/gtest.h>

#include "hover_help.h"
#include "support/form_test.h"
#include "platform/files.h"
#include "platform/memory.h"

using namespace wh;
using wh::test::run_value;
using wh::test::topmost;

namespace {
class LoadSettings : public wh::test::StoreTest {};
class OptionsPageTest : public wh::test::StoreTest {};
}  // namespace

TEST_F(LoadSettings, FreshUserTakesTheFirstRunRoadIntoTheFirstSection) {
  Mainu& m = start_form();
  EXPECT_TRUE(m.displaytips);
  EXPECT_EQ("1", setting("runed"));
  EXPECT_EQ("1", setting("readed 0.95"));
  EXPECT_TRUE(m.options.Option10.Value());  // English, written by its handler
  // The first-run window's English brought "mod" along: the first section.
  EXPECT_EQ(1, ActiveSection);
  EXPECT_TRUE(wh::test::shows(m.uninstall, "DEZ_SUS"));
  EXPECT_TRUE(m.Visible());
  EXPECT_EQ(2820 / 15, m.Top());
  EXPECT_EQ("0", setting("ramtime"));  // the field's handler stored its 0
  EXPECT_FALSE(m.Timer1.Enabled());

  EXPECT_FALSE(start_form().displaytips) << "an ordinary start: no tips";
}

TEST_F(LoadSettings, StoredTrueTicksTheBoxesAndRedoesTheirOutsideEffects) {
  for (const char* key :
       {"keyboard", "autorefresh", "autofree", "harrowall", "autostart", "context"})
    save_setting(key, "true");
  save_setting("autorefreshtime", "7");
  save_setting("autofreetype", "timp");
  save_setting("ramtime", "10");
  save_setting("runed", "3");
  const DWORD before = tick_count();
  Mainu& m = start_form();
  OptionsPage& o = m.options;
  for (CheckBox* box : {&o.Check1, &o.Check2, &o.Check3, &o.Check4, &o.Check5, &o.Check7})
    EXPECT_EQ(1, box->Value()) << box->Name();
  EXPECT_EQ(app_path() + "\\Wellharrower.exe", run_value());
  EXPECT_TRUE(topmost(m.hwnd()));
  // Check1's own focus call fails on the hidden page; the start runs the timer.
  EXPECT_TRUE(m.Timer1.Enabled());
  EXPECT_EQ(7000u, m.Timer1.Interval());
  EXPECT_TRUE(o.Text1.Enabled());
  EXPECT_TRUE(o.Frame12.Enabled());
  EXPECT_TRUE(o.Option8.Value());
  EXPECT_GE(m.next_free_tick, before + 600000);  // ten minutes on
  const char* const verb = "Folder\\shell\\Wellshred\\command";
  EXPECT_EQ(app_path() + "\\" + app_exe_name() + ".exe %1",
            reg_get_value(HKEY_CLASSES_ROOT, verb, ""));
  raise_event([&] { o.Check7.Value(0); });  // unticked: the four keys go
  EXPECT_EQ("<none>", reg_get_value(HKEY_CLASSES_ROOT, verb, "", "<none>"));
}

TEST_F(LoadSettings, StoredFalseLeavesOthersAloneAndTheTrayHalfEntersTheSection) {
  reg_set_value(HKEY_LOCAL_MACHINE, wh::test::run_key, "Wellharrower", "C:\\other.exe");
  for (const char* key : {"keyboard", "autostart", "autofree"}) save_setting(key, "false");
  save_setting("autofreetype", "timp");  // read only while "autofree" is on
  save_setting("runed", "3");
  save_setting("tray", "true");
  save_setting("mod", "Uninstall programs");
  save_setting("left", "0");  // 0 is unset, each coordinate alone
  save_setting("top", "3000");
  SaveSetting("Wellharrower", "Optiuni", "LIMBA", "romana");  // names ignore case
  Mainu& m = start_form();
  EXPECT_EQ(4410 / 15, m.Left());
  EXPECT_EQ(200, m.Top());
  EXPECT_TRUE(m.options.Option11.Value());
  EXPECT_EQ("C:\\other.exe", run_value());
  EXPECT_FALSE(topmost(m.hwnd()));
  EXPECT_FALSE(m.options.Option8.Value());
  EXPECT_FALSE(m.Visible());
  // The focus failed on the hidden window before the section number was
  // set; the rest of the start went on.
  EXPECT_EQ(0, ActiveSection);
  EXPECT_TRUE(m.uninstall_page.PIE.Visible());
  EXPECT_EQ(2, language_flag);
  m.Show();
  m.uninstall_Click();  // a click completes the entry
  EXPECT_EQ(1, ActiveSection);
}

TEST_F(LoadSettings, OnlyThe45thStartInEnglishAsksForAppreciation) {
  struct Case {
    const char* runs_before;
    const char* language;
    bool shown;
  };
  for (const Case& c : {Case{"44", "engleza", true}, Case{"44", "romana", false},
                        Case{"45", "engleza", false}}) {
    save_setting("runed", c.runs_before);
    save_setting("limba", c.language);
    start_form();
    ASSERT_EQ(c.shown, poweroff_loaded()) << c.runs_before << " " << c.language;
    if (!c.shown) continue;
    Poweroff& p = poweroff();
    EXPECT_TRUE(p.Visible() && topmost(p.hwnd()));
    EXPECT_TRUE(p.Label3.Visible() && p.md.Visible() && p.sm.Visible() && p.sp.Visible());
    const size_t before = boxes.count();
    wh::test::click(p.sp);  // the post button shows the address and closes
    EXPECT_FALSE(poweroff_loaded());
    ASSERT_EQ(before + 1, boxes.count());
    EXPECT_EQ("My adress", boxes.last().title);
  }
}

TEST_F(LoadSettings, StartSectionComesFromModInEitherLanguage) {
  struct Case {
    const char* mod;
    int section;
  };
  for (const Case& c : {Case{"Radere fisiere", 6}, Case{"Shred Files", 6}, Case{"StartUp", 9},
                        Case{"Gasire fisiere duplicat", 10}, Case{"DirInfo", 4},
                        Case{"Disk Space Explorer", 0}, Case{"shred files", 0}}) {
    save_setting("runed", "3");
    save_setting("mod", c.mod);
    start_form();
    EXPECT_EQ(c.section, ActiveSection) << c.mod;
  }
}

TEST_F(OptionsPageTest, NumberFieldsFilterKeysAndKeepTheirLimits) {
  Mainu& m = start_form();
  m.Image11_Click();
  OptionsPage& o = m.options;
  o.Check2.Value(1);  // Text3 and Text4 sit in Frame12
  o.Text3.Text("");
  for (char c : std::string("1a2.-0 \b")) o.Text3.send(WM_CHAR, static_cast<unsigned char>(c), 1);
  EXPECT_EQ("12", setting("ramamount"));
  o.Text3.SelText("x");  // a paste is not filtered
  EXPECT_EQ("12x", setting("ramamount"));

  o.Check1.Value(1);
  o.Text1.Text("75");
  EXPECT_EQ("59", o.Text1.Text());
  EXPECT_EQ("59", setting("autorefreshtime"));
  EXPECT_EQ(59000u, m.Timer1.Interval());
  o.Text1.Text("");
  EXPECT_EQ("0", setting("autorefreshtime"));
  EXPECT_TRUE(m.Timer1.Enabled());  // interval 0 stops it without disabling it
  EXPECT_FALSE(m.Timer1.running());

  EXPECT_EQ(0u, m.next_free_tick);
  o.Text4.Text("1441");
  EXPECT_EQ("1440", setting("ramtime"));
  EXPECT_GE(m.next_free_tick, tick_count() + 1440u * 60000 - 5000);
}

TEST_F(OptionsPageTest, SwitchesUndoTheirEffectsAndComboStoresOnlyAPickedLine) {
  Mainu& m = start_form();
  m.Image11_Click();  // Check1 puts the focus in Text1: the page must show
  OptionsPage& o = m.options;
  for (int v : {1, 0})
    for (CheckBox* box : {&o.Check1, &o.Check4, &o.Check5}) box->Value(v);
  EXPECT_EQ("false", setting("autostart"));
  EXPECT_EQ("<none>", run_value());
  EXPECT_FALSE(topmost(m.hwnd()));
  EXPECT_FALSE(m.Timer1.Enabled() || o.Text1.Enabled());

  o.Combo1.ListIndex(2);
  EXPECT_EQ("TaskManager", setting("mod"));
  o.Combo1.Text("Something typed");
  EXPECT_EQ("TaskManager", setting("mod"));
}
