// Forms, panels, pictures and the mouse.
#include <string>

#include "platform/rt_error.h"
#include "ui_test.h"
#include "support/errors.h"

namespace wh::test {
namespace {

using Forms = UiTest;

TEST_F(Forms, StartHiddenAndAWindowStateWaitsForTheShow) {
  form.Move(30, 40, 300, 200);
  EXPECT_EQ(200, form.ScaleHeight());  // a popup has no frame
  Form framed;
  framed.Move(0, 0, 300, 200);
  EXPECT_LT(framed.ScaleWidth(), 300);
  form.WindowState(1);
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(1, form.WindowState());
  form.WindowState(0);
  form.Show();
  EXPECT_FALSE(::IsIconic(form.hwnd()));
  EXPECT_EQ(0, form.WindowState());
  // Wine waits two seconds for the X focus to leave an active window that
  // is hidden or destroyed when no window manager runs, as under Xvfb; the
  // other tests show their forms without activating them.
}

TEST_F(Forms, QueryUnloadCanCancelAndTellsTheMode) {
  std::string log;
  int cancel_next = 1;
  form.QueryUnload = [&](int& cancel, int mode) {
    log += "Q" + std::to_string(mode);
    cancel = cancel_next;
  };
  form.Unload = [&](int&) { log += "U"; };
  ::SendMessageA(form.hwnd(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(form.loaded());
  cancel_next = 0;
  form.unload();
  EXPECT_EQ("Q0Q1U", log);
  EXPECT_FALSE(form.loaded());
}

TEST_F(Forms, HidingAFrameHidesWhatIsInside) {
  auto& frame = form.add<Frame>("optiuni", Place{0, 0, 200, 150}, "Options");
  auto& check = form.add<CheckBox>("Check4", Place{10, 20, 100, 20, &frame});
  ::ShowWindow(form.hwnd(), SW_SHOWNA);  // not activated: see below
  EXPECT_TRUE(::IsWindowVisible(check.hwnd()));
  frame.Visible(false);
  EXPECT_FALSE(::IsWindowVisible(check.hwnd()));
  EXPECT_TRUE(check.Visible());  // its own property is untouched
  frame.Visible(true);
  frame.Enabled(false);
  EXPECT_FALSE(::IsWindowEnabled(frame.hwnd()));
}

TEST_F(Forms, FocusOnAnUnseenControlOrAControlInALabelRaises) {
  auto& text = form.add<TextBox>("Text1", Place{0, 0, 50, 20});
  EXPECT_EQ(rt_invalid_call, test::error_of([&] { text.SetFocus(); }));  // the form is hidden
  auto& label = form.add<Label>("Label1", Place{0, 0, 50, 20});
  EXPECT_THROW(form.add<Label>("Label2", Place{0, 0, 10, 10, &label}), RuntimeError);
}

TEST_F(Forms, PicturesLoadByResourceNameAndAMissingOneRaises) {
  auto& image = form.add<ImageButton>("shred", Place{0, 0, 20, 20});
  EXPECT_EQ(326, test::error_of([&] { image.LoadPicture("NO_SUCH_JOS"); }));
  EXPECT_EQ(nullptr, image.picture());
  if (!::FindResourceA(exe_module(), "SHRED_JOS", MAKEINTRESOURCEA(2)))
    GTEST_SKIP() << "this exe carries no button pictures";
  image.LoadPicture("SHRED_JOS");
  EXPECT_GT(picture_size(image.picture()).cx, 0);
}

class Mouse : public UiTest {
protected:
  ImageButton& image = form.add<ImageButton>("del", Place{40, 40, 30, 20});
  std::string log;
  void SetUp() override {
    image.MouseDown = [&](int b, int, int x, int y) { log += "D" + std::to_string(b) + "@" + std::to_string(x) + "," + std::to_string(y) + " "; };
    image.MouseUp = [&](int b, int, int, int) { log += "U" + std::to_string(b) + " "; };
    image.MouseMove = [&](int b, int, int, int) { log += "M" + std::to_string(b) + " "; };
    image.Click = [&] { log += "C "; };
    image.DblClick = [&] { log += "W "; };
  }
};

// A release outside, or of the right button, is no click. Images are hit,
// so hover reaches them.
TEST_F(Mouse, PressAndReleaseGiveDownUpClickInOrder) {
  POINT pt{55, 50};
  ::ClientToScreen(form.hwnd(), &pt);
  EXPECT_EQ(HTCLIENT, image.send(WM_NCHITTEST, 0, MAKELPARAM(pt.x, pt.y)));
  const struct { UINT msg; WPARAM keys; int x; } events[] = {
      {WM_MOUSEMOVE, 0, 3},        {WM_LBUTTONDOWN, MK_LBUTTON, 3}, {WM_LBUTTONUP, 0, 3},
      {WM_LBUTTONDBLCLK, MK_LBUTTON, 3}, {WM_LBUTTONUP, 0, 3},      {WM_LBUTTONDOWN, MK_LBUTTON, 3},
      {WM_LBUTTONUP, 0, 300},      {WM_RBUTTONDOWN, MK_RBUTTON, 3}, {WM_RBUTTONUP, 0, 3}};
  for (const auto& e : events) image.send(e.msg, e.keys, MAKELPARAM(e.x, 4));
  EXPECT_EQ("M0 D1@3,4 U1 C W U1 D1@3,4 U1 D2@3,4 U2 ", log);
}

TEST_F(Mouse, FormSurfaceGetsItsOwnEvents) {
  form.MouseDown = [&](int b, int, int, int) { log += "F" + std::to_string(b); };
  ::SendMessageA(form.hwnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
  EXPECT_EQ("F1", log);
}

using Pictures = UiTest;

Picture solid_picture(int w, int h, COLORREF color) {
  HDC screen = ::GetDC(nullptr);
  HBITMAP bmp = ::CreateCompatibleBitmap(screen, w, h);
  ::ReleaseDC(nullptr, screen);
  MemoryDC dc;
  dc.select(bmp);
  RECT rc{0, 0, w, h};
  Brush b(::CreateSolidBrush(color));
  ::FillRect(dc.get(), &rc, b.get());
  return make_picture(bmp);
}

TEST_F(Pictures, DrawingSurvivesRepaintsAndGrowth) {
  auto& pic = form.add<PictureBox>("Picture9", Place{0, 0, 40, 30});
  pic.BackColor(RGB(0, 0, 0));
  pic.Cls();
  pic.FillRect(2, 2, 5, 5, RGB(255, 0, 0));
  pic.Line(0, 20, 10, 20, RGB(0, 255, 0));
  ::ShowWindow(form.hwnd(), SW_SHOWNA);
  pic.Refresh();
  EXPECT_EQ(RGB(255, 0, 0), ::GetPixel(pic.hdc(), 5, 5));  // both corners inside
  EXPECT_EQ(RGB(0, 0, 0), ::GetPixel(pic.hdc(), 6, 6));
  EXPECT_EQ(RGB(0, 255, 0), ::GetPixel(pic.hdc(), 9, 20));
  pic.Move(0, 0, 80, 60);
  EXPECT_EQ(RGB(255, 0, 0), ::GetPixel(pic.hdc(), 3, 3));
  EXPECT_EQ(RGB(0, 0, 0), ::GetPixel(pic.hdc(), 70, 50));  // the new part is cleared
  Picture copy = pic.Image();
  EXPECT_EQ(80, picture_size(copy).cx);
}

// What a control paints, drawn into a memory bitmap through WM_PRINTCLIENT,
// which the statics answer with their owner drawing.
class Snapshot {
public:
  Snapshot(const Control& c, int w, int h) {
    HDC screen = ::GetDC(nullptr);
    bmp_.reset(::CreateCompatibleBitmap(screen, w, h));
    ::ReleaseDC(nullptr, screen);
    dc_.select(bmp_.get());
    c.send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc_.get()), PRF_CLIENT);
  }
  COLORREF at(int x, int y) const { return ::GetPixel(dc_.get(), x, y); }

private:
  Bitmap bmp_;
  MemoryDC dc_;
};

TEST_F(Pictures, TransparentLabelShowsTheContainerBeneath) {
  Picture skin = solid_picture(100, 100, RGB(0, 0, 255));
  {
    // A mark where a label 20,30 in finds it at its own 1,1.
    MemoryDC dc;
    dc.select(skin->get());
    ::SetPixel(dc.get(), 21, 31, RGB(255, 255, 0));
  }
  form.picture(skin);
  auto& clear = form.add<Label>("Label1", Place{20, 30, 40, 15}, "",
                                Label::Options{.transparent = true});
  auto& solid = form.add<Label>("Label2", Place{20, 50, 40, 15}, "");
  solid.BackColor(RGB(0, 128, 0));
  Snapshot a(clear, 40, 15);
  EXPECT_EQ(RGB(255, 255, 0), a.at(1, 1));
  EXPECT_EQ(RGB(0, 0, 255), a.at(2, 2));
  Snapshot b(solid, 40, 15);
  EXPECT_EQ(RGB(0, 128, 0), b.at(2, 2));
  // Inside a frame, the frame is the container beneath.
  auto& frame = form.add<Frame>("Frame15", Place{10, 70, 100, 25}, "",
                                Frame::Options{.border = false});
  frame.BackColor(RGB(10, 20, 30));
  auto& framed = form.add<Label>("Label3", Place{5, 5, 30, 15, &frame}, "",
                                 Label::Options{.transparent = true});
  Snapshot c(framed, 30, 15);
  EXPECT_EQ(RGB(10, 20, 30), c.at(3, 3));
}

TEST_F(Pictures, PicturesAreSharedBetweenControls) {
  auto& a = form.add<ImageButton>("Image22", Place{0, 0, 10, 10});
  auto& b = form.add<ImageButton>("showplugins", Place{20, 0, 10, 10});
  a.picture(solid_picture(6, 6, RGB(200, 0, 0)));
  b.picture(a.picture());
  a.picture(nullptr);
  ASSERT_NE(nullptr, b.picture());
  form.BackColor(RGB(0, 0, 90));
  Snapshot s(b, 10, 10);
  EXPECT_EQ(RGB(200, 0, 0), s.at(5, 5));
  EXPECT_EQ(RGB(0, 0, 90), s.at(8, 8));  // beyond the picture: the form
  b.Stretch(true);
  Snapshot stretched(b, 10, 10);
  EXPECT_EQ(RGB(200, 0, 0), stretched.at(8, 8));
}

}  // namespace
}  // namespace wh::test
