#pragma once
// A hidden form per test, and a way to deliver what a user would do.
#include <windows.h>

#include <gtest/gtest.h>

#include "ui/ui.h"

namespace wh::test {

inline FormOptions test_form_options() {
  // A popup, as the skinned windows are. Wine waits up to two seconds for a
  // window manager to withdraw a hidden framed window, and Xvfb runs none.
  FormOptions o;
  o.class_name = "WhTestForm";
  o.width = 420;
  o.height = 320;
  o.popup = true;
  return o;
}

class UiTest : public ::testing::Test {
protected:
  Form form{test_form_options()};

  // A notification as the control itself sends it to its parent.
  static void notify(const Control& c, int code) {
    ::SendMessageA(::GetParent(c.hwnd()), WM_COMMAND,
                   MAKEWPARAM(::GetDlgCtrlID(c.hwnd()), code), reinterpret_cast<LPARAM>(c.hwnd()));
  }
  static void click_at(const Control& c, int x = 2, int y = 2) {
    c.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    c.send(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  }
  void TearDown() override { do_events(); }
};

}  // namespace wh::test
