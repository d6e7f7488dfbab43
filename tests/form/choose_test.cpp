// The choose window: where it comes up, which answer its frame gives, and the
// start with a file that asks before it shreds.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "core/choose.h"
#include "core/globals.h"
#include "core/text.h"
#include "hover_help.h"
#include "form/mainu.h"
#include "support/scratch.h"
#include "ui/ui.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;

namespace {

// As a user answers: over a picture, then a click on the frame that followed.
void point_at(const ImageButton& picture) { picture.send(WM_MOUSEMOVE, 0, MAKELPARAM(20, 20)); }
void click(const ImageButton& b) { wh::test::click(b, 20, 20); }

bool topmost(HWND w) { return (GetWindowLongA(w, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

POINT cursor() {
  POINT p{};
  GetCursorPos(&p);
  return p;
}

class ChooseTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (choose_loaded()) choose_unload();
    choose_result = -1;
    language_flag = 1;
  }
  void TearDown() override {
    if (choose_loaded()) choose_unload();
    language_flag = 0;
    do_events();
  }
};

TEST_F(ChooseTest, ComesUpUnderTheMouseOnTopPushedBackFromTheCornerButNotTheLeft) {
  SetCursorPos(500, 400);
  Choose& c = choose();
  // x * 15 - 1095 and y * 15 - 270 twips.
  EXPECT_EQ(500 - 73, c.Left());
  EXPECT_EQ(400 - 18, c.Top());
  EXPECT_TRUE(c.Visible());
  EXPECT_TRUE(topmost(c.hwnd()));
  const POINT p = cursor();
  EXPECT_EQ(c.Left() + 17, p.x);
  EXPECT_EQ(c.Top() + 24, p.y);
  // The pointer rests on the frame: a click answers at once.
  EXPECT_EQ(c.Image4.hwnd(), WindowFromPoint(p));
  choose_unload();

  // Near the corner it is pushed back; the pointer goes where it would have.
  const int sw = GetSystemMetrics(SM_CXSCREEN), sh = GetSystemMetrics(SM_CYSCREEN);
  SetCursorPos(sw - 10, sh - 8);
  Choose& corner = choose();
  EXPECT_EQ(sw - corner.Width(), corner.Left());
  EXPECT_EQ(sh - corner.Height(), corner.Top());
  EXPECT_EQ(sw - 10 - 73 + 17, cursor().x);
  EXPECT_EQ(std::min(sh - 1, sh - 8 - 18 + 24), cursor().y);
  choose_unload();

  // Near the left edge nothing pulls it back.
  SetCursorPos(20, 300);
  EXPECT_EQ(20 - 73, choose().Left());
}

TEST_F(ChooseTest, TheAnswerIsWhereTheFrameStands) {
  struct Case {
    int picture;  // 1, 2 or 3
    int frame_left;
    int answer;
  };
  for (const Case& k : {Case{1, 8, 0}, Case{2, 56, 1}, Case{3, 104, 2}, Case{1, 8, 0}}) {
    choose_result = -1;
    Choose& c = choose();
    // Over the last answer first, so that each move is seen to move the frame.
    point_at(c.Image3);
    point_at(k.picture == 1 ? c.Image1 : k.picture == 2 ? c.Image2 : c.Image3);
    EXPECT_EQ(k.frame_left, c.Image4.Left());
    const HWND w = c.hwnd();
    click(c.Image4);
    EXPECT_EQ(k.answer, choose_result);
    EXPECT_FALSE(choose_loaded());
    EXPECT_FALSE(IsWindow(w));
  }
  // Without a move the frame answers Harrow, even with Split hidden.
  choose_result = -1;
  choose().Image2.Visible(false);
  click(choose().Image4);
  EXPECT_EQ(0, choose_result);
}

// Answers the window of a start with paths once it is up, over the picture
// `answer_with` (2 splits, 3 shreds).
int answer_with = 3;
void CALLBACK answer(HWND, UINT, UINT_PTR id, DWORD) {
  if (!choose_loaded()) return;
  KillTimer(nullptr, id);
  Choose& c = choose();
  point_at(answer_with == 2 ? c.Image2 : c.Image3);
  click(c.Image4);
}

TEST_F(ChooseTest, AStartWithAFileAsksAndTheThirdAnswerShredsIt) {
  ScratchDir dir("choose_file");
  const std::string file = dir.file("secret.txt", std::string(10000, 's'));
  EndHook end;
  ScriptedDialogs boxes;
  answer_with = 3;
  SetTimer(nullptr, 0, 20, answer);
  EXPECT_THROW(mainu().start("\"" + file + "\""), ProgramEnded);
  EXPECT_EQ(2, choose_result);
  EXPECT_FALSE(path_exists(file));
  EXPECT_EQ(0u, boxes.count());
  // The window stays up as the wait panel until the end.
  ASSERT_TRUE(choose_loaded());
  EXPECT_TRUE(choose().Picture1.Visible());
  mainu_clear();
}

TEST_F(ChooseTest, TheSplitAnswerOpensTheSplitterOnTheFile) {
  ScratchDir dir("choose_split");
  dir.file("a first.txt", "a");
  const std::string file = dir.file("Holiday pictures.zip", std::string(3000, 'h'));
  ScriptedDialogs boxes;
  answer_with = 2;
  SetTimer(nullptr, 0, 20, answer);
  mainu().start("\"" + file + "\"");
  EXPECT_EQ(1, choose_result);
  Mainu& m = mainu();
  SplitPage& page = m.split_page;
  EXPECT_EQ(3, ActiveSection);
  EXPECT_EQ(file, page.calefisier.Caption());
  EXPECT_EQ(dir.path(), page.dir1.Path());
  EXPECT_EQ("Holiday pictures.zip", page.File1.FileName());
  EXPECT_TRUE(page.split_mode());
  EXPECT_EQ("2 KB", trim(page.Label4.Caption()));
  EXPECT_EQ(0u, boxes.count());
  mainu_clear();
}

}  // namespace
