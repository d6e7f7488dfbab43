// Both languages on the whole form, the hover help of the junk categories
// with their long tips, and the quick tip's demonstration.
#include <windows.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/globals.h"
#include "core/settings.h"
#include "hover_help.h"
#include "support/form_test.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::move_on_surface;
using wh::test::move_over;
using wh::test::panel;
using wh::test::shows;
using wh::test::StoreTest;
using Lines = std::vector<std::string>;

namespace {

// The captions of the kinds of control that carry one, by control name.
std::map<std::string, std::string> captions(const Form& f) {
  std::map<std::string, std::string> out;
  for (const auto& c : f.controls()) {
    if (!dynamic_cast<Label*>(c.get()) && !dynamic_cast<CheckBox*>(c.get()) &&
        !dynamic_cast<OptionButton*>(c.get()) && !dynamic_cast<Frame*>(c.get()))
      continue;
    char text[512] = {};
    GetWindowTextA(c->hwnd(), text, sizeof text);
    out[c->Name()] = text;
  }
  return out;
}

class LanguageTest : public StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");
    save_setting("readed 0.95", "1");
  }
  Mainu& english_form() {
    Mainu& m = start_form();
    language_flag = 1;
    return m;
  }
};

TEST_F(LanguageTest, TheStartSectionKeepsItsPlaceInTheOtherLanguage) {
  save_setting("Limba", "engleza");
  save_setting("mod", "Uninstall programs");
  Mainu& m = start_form();
  EXPECT_EQ(1, ActiveSection);
  m.options.Option11.Value(true);
  EXPECT_EQ("Dezinstalare programe", setting("mod"));
  EXPECT_EQ("romana", setting("Limba"));

  // The next start, in Romanian, enters the same section.
  Mainu& again = start_form();
  EXPECT_EQ(2, language_flag);
  EXPECT_EQ(1, ActiveSection);
  again.options.Option10.Value(true);
  EXPECT_EQ("Uninstall programs", setting("mod"));

  // Only five names are translated: the start-up manager keeps its English.
  save_setting("mod", "StartUp Manager");
  again.options.Option11.Value(true);
  EXPECT_EQ("StartUp Manager", setting("mod"));
}

// Names the two languages share: proper names, the section names that are
// the same word, signs, and what only ever holds data (sizes, paths, counts).
const std::set<std::string> same_in_both = {
    "check(6)", "check(10)", "check(11)", "check(12)", "check(13)", "quicktip", "OKU", "Label46",
    "Label3", "Frame7", "total", "Option5", "Option7", "Label14(11)", "Label30", "close_power",
    "colon"};

bool holds_data(const std::string& name) { return name.rfind("ocupied(", 0) == 0; }

TEST_F(LanguageTest, EveryCaptionChangesWithTheLanguage) {
  Mainu& m = english_form();
  const auto english = captions(m);
  m.options.Option11.Value(true);
  const auto romanian = captions(m);
  std::vector<std::string> same, empty;
  for (const auto& [name, text] : english) {
    const std::string other = romanian.at(name);
    if (text.empty() != other.empty()) empty.push_back(name);
    if (!text.empty() && text == other && !same_in_both.count(name) &&
        !holds_data(name)) same.push_back(name);
  }
  EXPECT_EQ(Lines{}, same) << "captions left as they were";
  EXPECT_EQ(Lines{}, empty) << "captions written in one language only";

  // The rows whose two texts are given: never empty.
  for (const char* name : {"Label14", "l8", "Label24", "Label28", "Frame13", "Check3", "Option10",
                           "Option11", "Command1", "Frame9", "calefisier", "check(1)",
                           "check(18)"}) {
    EXPECT_FALSE(english.at(name).empty()) << name;
    EXPECT_FALSE(romanian.at(name).empty()) << name;
  }
}

TEST_F(LanguageTest, ACategoryWritesItsHelpOncePerEntryAndShowsTheGlass) {
  Mainu& m = english_form();
  JunkPage& j = m.junk_page;
  move_over(*j.check[5]);
  EXPECT_EQ("CHECK5", m.lighton);
  EXPECT_EQ("CHECK5", m.current_check_key);
  EXPECT_EQ((Lines{"Store all the sites", "you visited (incld", "images).These files",
                   "often hide spyware", "and viruses"}),
            panel(m));
  EXPECT_TRUE(j.lupa.Visible());
  EXPECT_EQ(j.check[5]->Top() + 2, j.lupa.Top());
  EXPECT_FALSE(m.timerul.Enabled());

  // Moving about within the box: the panel is not written again.
  m.lcd.Clear();
  move_over(*j.check[5]);
  j.check[5]->send(WM_MOUSEMOVE, 0, MAKELPARAM(40, 8));
  EXPECT_TRUE(panel(m).empty());

  // The glass follows a category of the right column, but not 10 or 17.
  move_over(*j.check[12]);
  const int row_12 = j.lupa.Top();
  EXPECT_EQ(j.check[12]->Top() + 2, row_12);
  EXPECT_GT(j.lupa.Left(), j.check[12]->Left());
  j.lupa.Visible(false);
  move_over(*j.check[17]);
  EXPECT_TRUE(j.lupa.Visible());
  EXPECT_EQ(row_12, j.lupa.Top());
  EXPECT_EQ("CHECK17", m.current_check_key);

  language_flag = 2;
  move_over(*j.check[1]);
  EXPECT_EQ((Lines{"Aici sunt stocate", "fisierele sterse."}), panel(m));
}

TEST_F(LanguageTest, LongTipsTurnTheirPagesUntilTheMouseMovesOn) {
  Mainu& m = english_form();
  JunkPage& j = m.junk_page;
  move_over(*j.check[4]);
  EXPECT_TRUE(m.timerul.Enabled());
  m.timerul.Tick();
  EXPECT_EQ("Recomended deletion", panel(m).at(0));
  // The mouse moving on within the box does not start the pages again.
  j.check[4]->send(WM_MOUSEMOVE, 0, MAKELPARAM(30, 6));
  EXPECT_EQ(1, j.tip_page);
  m.timerul.Tick();
  EXPECT_EQ((Lines{"be requested is", " read ahead into", "   the cache"}), panel(m));
  EXPECT_FALSE(m.timerul.Enabled());
  EXPECT_EQ(0, j.tip_page);

  // Leaving between the pages stops the turning: no old page comes later.
  move_on_surface(m);
  move_over(*j.check[4]);
  m.timerul.Tick();
  move_over(*j.check[3]);
  EXPECT_FALSE(m.timerul.Enabled());
  EXPECT_EQ(0, j.tip_page);
  EXPECT_EQ("Here are stored", panel(m).at(0));

  // Cookies: one more page, written at every tick while the timer runs.
  move_over(*j.check[6]);
  m.timerul.Tick();
  m.lcd.Clear();
  m.timerul.Tick();
  EXPECT_EQ((Lines{"(might store your", "passwords and", "   user IDs)"}), panel(m));
  EXPECT_TRUE(m.timerul.Enabled());
}

TEST_F(LanguageTest, TheIndexFilesTipComesOnTheFirstHoverOnlyWithTheHelp) {
  Mainu& m = english_form();
  JunkPage& j = m.junk_page;
  move_over(*j.check[18]);
  EXPECT_TRUE(m.quicktip.Visible());
  EXPECT_FALSE(m.Command1.Visible());
  EXPECT_EQ(0u, m.quicktiptext.Caption().find("Shredding the index.dat files"));
  EXPECT_EQ("1", setting("Indexdattip"));
  EXPECT_EQ("Are files that will", panel(m).at(0));
  EXPECT_TRUE(m.timerul.Enabled());

  m.quicktip.Visible(false);
  move_on_surface(m);
  m.lcd.Clear();
  move_over(*j.check[18]);
  EXPECT_FALSE(m.quicktip.Visible());
  EXPECT_EQ("Are files that will", panel(m).at(0));
  m.timerul.Tick();
  EXPECT_EQ("and files opened", panel(m).at(0));
}

TEST_F(LanguageTest, ASectionsControlGetsTheHelpBeforeItsOwnTip) {
  Mainu& m = english_form();
  move_over(m.uninstall_page.delfolder);
  EXPECT_EQ("DELFOLDER", m.lighton);
  EXPECT_FALSE(panel(m).empty());
  EXPECT_TRUE(m.quicktip.Visible());
  EXPECT_EQ("1", setting("Xfoldertip"));
  move_over(*m.duplicates_page.Image36[3]);
  EXPECT_EQ((Lines{"   Graphic files"}), panel(m));
  move_over(m.options.Check7);
  EXPECT_EQ("ALOHA", m.lighton);
  EXPECT_EQ(" right  click", panel(m).at(4));
}

TEST_F(LanguageTest, TheDemonstrationGlidesASampleOntoTheTarget) {
  Mainu& m = english_form();
  ActiveSection = 6;
  m.quick_tip("tip", true, true);
  ASSERT_TRUE(m.Command1.Visible());
  m.Command1_Click();
  EXPECT_TRUE(m.Frame16.Visible());
  EXPECT_TRUE(m.Timer5.Enabled());
  EXPECT_EQ("Secret.txt", m.Label47.Caption());
  EXPECT_TRUE(shows(m.sample, "TIP_SECRET"));
  int left = m.sample.Left();
  for (int tick = 1; tick < 4; ++tick) {
    m.Timer5.Tick();
    EXPECT_GT(m.sample.Left(), left);
    left = m.sample.Left();
  }
  m.Timer5.Tick();  // over the target: it takes the file
  EXPECT_FALSE(m.sample.Visible());
  EXPECT_TRUE(shows(m.trace, "TIP_TRACE_SUS"));
  m.Timer5.Tick();
  EXPECT_FALSE(m.Frame16.Visible());
  EXPECT_FALSE(m.Timer5.Enabled());

  // A new tip ends a demonstration under way.
  m.Command1_Click();
  EXPECT_TRUE(m.Timer5.Enabled());
  m.quick_tip("another", false, true);
  EXPECT_FALSE(m.Frame16.Visible());
  EXPECT_FALSE(m.Timer5.Enabled());
}

}  // namespace
