// The skinned main window in-process: its shape, the hover help of its
// buttons on the LCD panel, the drag that moves it and stores its place,
// and its own close and minimise buttons.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/form_test.h"
#include "core/globals.h"
#include "core/poweroff.h"
#include "core/settings.h"
#include "core/skin_layout.h"
#include "monitor/power_off.h"
#include "platform/power.h"
#include "platform/files.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::shows;
using wh::test::StoreTest;

namespace {

std::string rtrim(std::string s) {
  while (!s.empty() && s.back() == ' ') s.pop_back();
  return s;
}

// What the panel shows, row by row, without the blanks behind.
std::vector<std::string> panel(const Mainu& m) {
  std::vector<std::string> rows;
  for (int r = 1; r <= 5; ++r) rows.push_back(rtrim(m.lcd.Line(r)));
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  return rows;
}

void move_over(const Control& c) { c.send(WM_MOUSEMOVE, 0, MAKELPARAM(3, 3)); }
void move_on_surface(const Form& f, int x, int y, WPARAM keys = 0) {
  SendMessageA(f.hwnd(), WM_MOUSEMOVE, keys, MAKELPARAM(x, y));
}

class WindowTest : public StoreTest {
protected:
  void SetUp() override {
    StoreTest::SetUp();
    save_setting("runed", "3");
    m = &start_form();
  }
  Mainu* m = nullptr;
};

TEST_F(WindowTest, TheSkinGivesTheWindowItsPictureAndOutline) {
  EXPECT_EQ(0, GetWindowLongA(m->hwnd(), GWL_STYLE) & WS_CAPTION);
  SIZE size = picture_size(m->picture());
  EXPECT_EQ(skin::window_width, size.cx);
  EXPECT_EQ(skin::window_height, size.cy);
  HRGN rgn = CreateRectRgn(0, 0, 0, 0);
  ASSERT_EQ(COMPLEXREGION, GetWindowRgn(m->hwnd(), rgn));
  // The corners are cut away, the middle and the section bar are kept.
  EXPECT_FALSE(PtInRegion(rgn, 0, 0));
  EXPECT_FALSE(PtInRegion(rgn, skin::window_width - 1, skin::window_height - 1));
  EXPECT_FALSE(PtInRegion(rgn, 0, skin::window_height - 1));
  EXPECT_FALSE(PtInRegion(rgn, skin::window_width / 2, 2));  // between the two tabs
  EXPECT_TRUE(PtInRegion(rgn, skin::window_width / 2, skin::window_height / 2));
  EXPECT_TRUE(PtInRegion(rgn, skin::uninstall.left, skin::uninstall.top));
  DeleteObject(rgn);
  // The picture went through a scratch file that is gone again.
  EXPECT_EQ(INVALID_FILE_ATTRIBUTES, GetFileAttributesA((temp_path() + "resjpg.tmp").c_str()));
}

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
  move_on_surface(*m, 150, 40);
  EXPECT_EQ("MAINU", m->lighton);
  EXPECT_TRUE(shows(m->ref, "REFRESH_JOS"));
}

TEST_F(WindowTest, SectionButtonsWriteTheirHelpAndKeepTheirPicture) {
  language_flag = 2;
  move_over(m->junk);
  EXPECT_EQ("JUNK", m->lighton);
  EXPECT_TRUE(shows(m->junk, "JUNK_JOS"));
  EXPECT_EQ((std::vector<std::string>{"Sterge fisierele", "inutile", "si elimina", "toate urmele",
                                      "folosirii PC-ului"}),
            panel(*m));
  language_flag = 1;
  move_over(m->Image1);
  EXPECT_EQ((std::vector<std::string>{"Close Wellharrower"}), panel(*m));
  move_over(m->Image10);
  EXPECT_EQ("MINIM", m->lighton);
  EXPECT_EQ(4u, panel(*m).size());
}

TEST_F(WindowTest, FloppyAndShredShareOneKeySoTheFirstHelpStays) {
  language_flag = 1;
  move_over(m->kila);
  move_over(m->shred);
  EXPECT_EQ("KILLA", m->lighton);
  EXPECT_EQ((std::vector<std::string>{"Wellformat", "   a floppy disk"}), panel(*m));
  move_on_surface(*m, 150, 40);
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
  move_on_surface(*m, 150, 40);
  move_over(m->del);
  EXPECT_FALSE(m->quicktip.Visible());
}

TEST_F(WindowTest, DraggingTheSurfaceMovesTheWindowAndStoresItsPlaceInTwips) {
  m->Move(300, 200, m->Width(), m->Height());
  SendMessageA(m->hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(150, 40));
  move_on_surface(*m, 190, 70, MK_LBUTTON);
  EXPECT_EQ(340, m->Left());
  EXPECT_EQ(230, m->Top());
  SendMessageA(m->hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(190, 70));
  EXPECT_EQ("5100", setting("left"));
  EXPECT_EQ("3450", setting("top"));

  // Off the left edge: stored as it is, and read back as it is.
  m->Move(10, 200, m->Width(), m->Height());
  SendMessageA(m->hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(150, 40));
  move_on_surface(*m, 110, 40, MK_LBUTTON);
  SendMessageA(m->hwnd(), WM_LBUTTONUP, 0, MAKELPARAM(110, 40));
  EXPECT_EQ("-450", setting("left"));
  Mainu& again = start_form();
  EXPECT_EQ(-30, again.Left());
  EXPECT_EQ(200, again.Top());
}

TEST_F(WindowTest, AMoveWithoutTheButtonDoesNotDrag) {
  const int left = m->Left(), top = m->Top();
  SendMessageA(m->hwnd(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(150, 40));
  move_on_surface(*m, 190, 70, MK_RBUTTON);
  SendMessageA(m->hwnd(), WM_RBUTTONUP, 0, MAKELPARAM(190, 70));
  EXPECT_EQ(left, m->Left());
  EXPECT_EQ(top, m->Top());
}

TEST_F(WindowTest, TheFrameButtonsCloseMinimiseAndHide) {
  m->Image10.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  m->Image10.send(WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  EXPECT_TRUE(IsIconic(m->hwnd()));
  m->WindowState(0);
  m->Image10.send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
  m->Image10.send(WM_RBUTTONUP, 0, MAKELPARAM(3, 3));
  EXPECT_FALSE(IsWindowVisible(m->hwnd()));

  EndHook end;
  m->Image1.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  m->Image1.send(WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  EXPECT_TRUE(end.called());
}

TEST_F(WindowTest, TheAppreciationWindowsPostButtonShowsTheAddressAndCloses) {
  Poweroff& p = poweroff();
  for (Control* c : std::initializer_list<Control*>{&p.md, &p.sm, &p.sp, &p.Label3})
    c->Visible(true);
  ScriptedDialogs boxes;
  p.sp.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
  p.sp.send(WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
  EXPECT_FALSE(poweroff_loaded());
  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ("My adress", boxes.last().title);
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

  // Lit under the mouse, plain again on the bare surface.
  move_over(m->power.shut_blue);
  EXPECT_TRUE(m->power.shut_red.Visible());
  move_on_surface(*m, 400, 30);
  EXPECT_FALSE(m->power.shut_red.Visible());
  EXPECT_EQ(m->lighton, "MAINU");

  m->power.shut_red.send(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(3, 3));
  ASSERT_TRUE(m->power.Frame17.Visible());
  m->power.mm.Text("59");
  m->power.negru_Click();
  m->Timer3_Timer();
  EXPECT_TRUE(calls.empty());
  now = {23, 59};
  m->Timer3_Timer();
  m->Timer3_Timer();
  ASSERT_EQ(calls.size(), 1u) << "once in its minute";
  EXPECT_EQ(calls[0].kind, PowerCall::nt_shutdown_system);

  // The uninstaller's question borrows the minutes box.
  m->uninstall_page.mm("7");
  EXPECT_EQ(m->power.mm.Text(), "7");

  set_clock(previous_clock);
  set_power_hook(previous_hook);
}

}  // namespace
