// The skinned main window in-process: the hover help of its buttons on the
// LCD panel, the drag that moves it and stores its place, its close button.
// Its shape on the screen is the screen test's; minimise is the tray test's.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hover_help.h"
#include "support/form_test.h"
#include "core/globals.h"
#include "core/poweroff.h"
#include "core/settings.h"
#include "monitor/power_off.h"
#include "platform/power.h"
#include "platform/files.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::move_on_surface;
using wh::test::move_over;
using wh::test::panel;
using wh::test::shows;
using wh::test::StoreTest;

namespace {

class WindowTest : public StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");
    m = &start_form();
  }
  Mainu* m = nullptr;
};

TEST_F(WindowTest, AnActionButtonLightsAndWritesItsHelpOnce) {
  language_flag = 1;
  ActiveSection = 6;
  ASSERT_TRUE(shows(m->del, "DELETE_JOS"));
  move_over(m->del);
  EXPECT_EQ("DEL", m->lighton);
  EXPECT_TRUE(shows(m->del, "DELETE_SUS"));
  EXPECT_EQ((std::vector<std::string>{"Shred the chosen", "file or folder"}), panel(*m));

  // A second move over the same button writes nothing.
  m->lcd.Clear();
  move_over(m->del);
  EXPECT_TRUE(panel(*m).empty());

  // Onto the next button: the first goes out.
  move_over(m->ref);
  EXPECT_EQ("REF", m->lighton);
  EXPECT_TRUE(shows(m->del, "DELETE_JOS"));
  EXPECT_TRUE(shows(m->ref, "REFRESH_SUS"));
  EXPECT_EQ((std::vector<std::string>{"Refresh", "list"}), panel(*m));

  // The bare surface puts everything out.
  move_on_surface(*m);
  EXPECT_EQ("MAINU", m->lighton);
  EXPECT_TRUE(shows(m->ref, "REFRESH_JOS"));

  // A section button writes its help but keeps its picture.
  move_over(m->junk);
  EXPECT_EQ("JUNK", m->lighton);
  EXPECT_TRUE(shows(m->junk, "JUNK_JOS"));
  EXPECT_EQ(5u, panel(*m).size());
  // The skin's picture went through a scratch file that is gone again.
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA((temp_path() + "resjpg.tmp").c_str()));
}

TEST_F(WindowTest, FloppyAndShredShareOneKeySoTheFirstHelpStays) {
  language_flag = 1;
  move_over(m->kila);
  move_over(m->shred);
  EXPECT_EQ("KILLA", m->lighton);
  EXPECT_EQ((std::vector<std::string>{"Wellformat", "   a floppy disk"}), panel(*m));
  move_on_surface(*m);
  move_over(m->shred);
  EXPECT_EQ((std::vector<std::string>{"Wellshred files"}), panel(*m));
}

TEST_F(WindowTest, TheHarrowTipComesWithTheFirstHoverOnly) {
  language_flag = 1;
  move_over(m->del);
  EXPECT_TRUE(m->quicktip.Visible());
  EXPECT_TRUE(m->OKU.Visible());
  EXPECT_EQ(0u, m->quicktiptext.Caption().find("Presing the DELETE key"));
  EXPECT_EQ("1", setting("HARROWtip"));
  // On top of whatever page shows.
  m->shred_Click();
  RECT r;
  GetWindowRect(m->quicktip.hwnd(), &r);
  const HWND under = WindowFromPoint(POINT{(r.left + r.right) / 2, (r.top + r.bottom) / 2});
  EXPECT_TRUE(under == m->quicktip.hwnd() || IsChild(m->quicktip.hwnd(), under));
  m->quicktip.Visible(false);
  move_on_surface(*m);
  move_over(m->del);
  EXPECT_FALSE(m->quicktip.Visible());
}

TEST_F(WindowTest, DraggingTheSurfaceMovesTheWindowAndStoresItsPlaceInTwips) {
  // From (150, 40) to (x, y) on the surface with a button held; where the
  // window stood before the button came up.
  auto drag = [&](int x, int y, UINT down = WM_LBUTTONDOWN, WPARAM held = MK_LBUTTON) {
    SendMessageA(m->hwnd(), down, held, MAKELPARAM(150, 40));
    move_on_surface(*m, x, y, held);
    const POINT at{m->Left(), m->Top()};
    SendMessageA(m->hwnd(), down + 1, 0, MAKELPARAM(x, y));
    return at;
  };
  m->Move(300, 200, m->Width(), m->Height());
  const POINT at = drag(190, 70);
  EXPECT_EQ(340, at.x);
  EXPECT_EQ(230, at.y);
  EXPECT_EQ("5100", setting("left"));
  EXPECT_EQ("3450", setting("top"));

  // Off the left edge: stored as it is, and read back as it is.
  m->Move(10, 200, m->Width(), m->Height());
  drag(110, 40);
  EXPECT_EQ("-450", setting("left"));
  drag(190, 70, WM_RBUTTONDOWN, MK_RBUTTON);  // another button held does not drag
  EXPECT_EQ(-30, m->Left());

  Mainu& again = start_form();
  EXPECT_EQ(-30, again.Left());
  EXPECT_EQ(200, again.Top());
}

TEST_F(WindowTest, TheCloseButtonEndsTheProgram) {
  EndHook end;
  wh::test::click(m->Image1);
  EXPECT_TRUE(end.called());
}

TEST_F(WindowTest, ThePowerButtonSchedulesThroughTheFormsTimers) {
  // The real power-off, down to the platform's hook.
  std::vector<PowerCall> calls;
  PowerHook previous_hook = set_power_hook([&](const PowerCall& c) {
    calls.push_back(c);
    return 0L;
  });
  ClockTime now{23, 58};
  Clock previous_clock = set_clock([&] { return now; });

  // The bare surface of the form puts the lit button out.
  move_over(m->power.shut_blue);
  move_on_surface(*m, 400, 30);
  EXPECT_FALSE(m->power.shut_red.Visible());

  m->power.shut_red.send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
  ASSERT_TRUE(m->power.Frame17.Visible());
  m->power.mm.Text("59");
  m->power.negru_Click();
  m->Timer3_Timer();
  EXPECT_TRUE(calls.empty());
  now = {23, 59};
  m->Timer3_Timer();
  ASSERT_EQ(calls.size(), 1u);
  EXPECT_EQ(calls[0].kind, PowerCall::nt_shutdown_system);

  // The uninstaller's question borrows the minutes box.
  m->uninstall_page.mm("7");
  EXPECT_EQ(m->power.mm.Text(), "7");

  set_clock(previous_clock);
  set_power_hook(previous_hook);
}

}  // namespace
