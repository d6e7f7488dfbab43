// The error boundary, the end hook and the dialog service together: what a
// run-time error inside an event turns into.
#include <string>

#include "platform/rt_error.h"
#include "ui_test.h"

namespace wh::test {
namespace {

using Boundary = UiTest;

TEST_F(Boundary, ErrorInAClickShowsTheBoxAndEnds) {
  ScriptedDialogs boxes;
  EndHook end;
  auto& check = form.add<CheckBox>("Check1", Place{10, 10, 100, 20}, "x");
  check.Click = [] { raise(rt_file_not_found); };

  check.send(BM_CLICK);  // the user's click, through the window procedures

  ASSERT_EQ(1u, boxes.count());
  EXPECT_EQ("Run-time error '53':\n\nFile not found", boxes.last().text);
  EXPECT_EQ(unsigned(MB_OK | MB_ICONSTOP), boxes.last().style);
  EXPECT_EQ("Wellharrower", boxes.last().title);
  EXPECT_EQ(1, end.calls());

  // A standard exception gets its run-time number.
  auto& label = form.add<Label>("Label1", Place{0, 0, 50, 20});
  label.Click = [] { throw std::out_of_range("x"); };
  click_at(label);
  ASSERT_EQ(2u, boxes.count());
  EXPECT_EQ(0u, boxes.last().text.find("Run-time error '9':"));
}

TEST_F(Boundary, EndClimbsOutOfTheEventLoopNotThroughIt) {
  ScriptedDialogs boxes;
  EndHook end;
  auto& check = form.add<CheckBox>("Check1", Place{10, 10, 100, 20});
  int after = 0;
  check.Click = [&] {
    end_program(3);
    ++after;
  };
  ::PostMessageA(check.hwnd(), BM_CLICK, 0, 0);
  try {
    do_events();
    FAIL() << "do_events went on after an end";
  } catch (const ProgramEnded& e) {
    EXPECT_EQ(3, e.code);
  }
  EXPECT_EQ(0, after);
  EXPECT_EQ(0u, boxes.count());  // a plain end shows nothing
}

TEST_F(Boundary, ErrorOfAnEventRaisedByCodeGoesToThatCode) {
  ScriptedDialogs boxes;
  EndHook end;
  auto& outer = form.add<CheckBox>("Check1", Place{10, 10, 100, 20});
  auto& inner = form.add<CheckBox>("Check2", Place{10, 40, 100, 20});
  inner.Click = [] { raise(rt_permission_denied); };
  int seen = 0;
  outer.Click = [&] { seen = ignore_errors([&] { inner.Value(1); }); };

  outer.send(BM_CLICK);

  EXPECT_EQ(rt_permission_denied, seen);
  EXPECT_EQ(1, inner.Value());  // the value was set before its handler ran
  EXPECT_EQ(0u, boxes.count());
  EXPECT_FALSE(end.called());
}

TEST_F(Boundary, ErrorOfACodeSetOutsideAnyEventIsTheOutermost) {
  ScriptedDialogs boxes;
  EndHook end;
  auto& check = form.add<CheckBox>("Check1", Place{10, 10, 100, 20});
  check.Click = [] { raise(rt_invalid_call); };
  EXPECT_THROW(check.Value(1), ProgramEnded);
  EXPECT_EQ(1u, boxes.count());
}

TEST_F(Boundary, TimerErrorEndsAWait) {
  ScriptedDialogs boxes;
  EndHook end;
  Timer t("Timer1", 10, true);
  t.Tick = [] { raise(rt_disk_not_ready); };
  EXPECT_THROW(wait_until([] { return false; }), ProgramEnded);
  EXPECT_EQ(1, end.calls());
  EXPECT_EQ(0u, boxes.last().text.find("Run-time error '71':"));
}

}  // namespace
}  // namespace wh::test
