#include "ui/events.h"

#include <windows.h>

#include <new>
#include <stdexcept>
#include <string>

#include "platform/rt_error.h"
#include "ui/dialogs.h"
#include "ui/end.h"

namespace wh {

namespace {
int depth = 0;         // handlers running on the stack since the last window procedure
int window_level = 0;  // window procedures on the stack
int forms = 0;
bool quit_seen = false;
int quit_code = 0;

struct DepthGuard {
  DepthGuard() { ++depth; }
  ~DepthGuard() { --depth; }
};

// After a turn of the loop: an end that a window procedure stopped goes on
// from here, in plain code.
void pass_end_on(int ends_before) {
  if (hooked_end_count() != ends_before) throw ProgramEnded{hooked_end_code()};
}
}  // namespace

namespace detail {
WindowScope::WindowScope() : saved_depth_(depth) {
  depth = 0;
  ++window_level;
}
WindowScope::~WindowScope() {
  depth = saved_depth_;
  --window_level;
}
void form_created() { ++forms; }
void form_destroyed() { --forms; }
int live_forms() { return forms; }
}  // namespace detail

void runtime_error_end(int number, const char* text) {
  msg_box("Run-time error '" + std::to_string(number) + "':\n\n" + text, MB_OK | MB_ICONSTOP,
          "Wellharrower");
  end_program(number);
}

void raise_event(const std::function<void()>& handler) {
  if (!handler) return;
  if (depth > 0) {
    // Raised by code inside a handler: errors go back to that code.
    DepthGuard nested;
    handler();
    return;
  }
  DepthGuard outer;
  try {
    try {
      handler();
    } catch (const RuntimeError& e) {
      runtime_error_end(e.number(), e.what());
    } catch (const std::out_of_range&) {
      runtime_error_end(rt_subscript, rt_text(rt_subscript));
    } catch (const std::bad_alloc&) {
      runtime_error_end(rt_out_of_memory, rt_text(rt_out_of_memory));
    } catch (const std::exception& e) {
      runtime_error_end(51, e.what());
    }
  } catch (const ProgramEnded&) {
    // Never through a window procedure: do_events picks the end up again.
    if (window_level > 0) return;
    throw;
  }
}

void do_events() {
  int ends = hooked_end_count();
  MSG m;
  // W retrieval: an A one turns a typed character into the keyboard's code
  // page (a "?" for most letters) before any window sees it.
  while (::PeekMessageW(&m, nullptr, 0, 0, PM_REMOVE)) {
    if (m.message == WM_QUIT) {
      // Kept for message_loop; re-posting would stop every later turn here.
      quit_seen = true;
      quit_code = static_cast<int>(m.wParam);
      break;
    }
    ::TranslateMessage(&m);
    ::DispatchMessageW(&m);
    pass_end_on(ends);
  }
  pass_end_on(ends);
}

void wait_until(const std::function<bool()>& done) {
  while (!done()) {
    do_events();
    if (done()) return;
    // MWMO_INPUTAVAILABLE: wake for input that is already queued too, not only
    // for what arrives after the last peek. The time-out re-tests predicates
    // that no message changes.
    ::MsgWaitForMultipleObjectsEx(0, nullptr, 250, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

int message_loop() {
  int ends = hooked_end_count();
  MSG m;
  while (!quit_seen && detail::live_forms() > 0) {
    BOOL got = ::GetMessageW(&m, nullptr, 0, 0);  // W: see do_events
    if (got == 0) return static_cast<int>(m.wParam);
    if (got < 0) break;
    ::TranslateMessage(&m);
    ::DispatchMessageW(&m);
    pass_end_on(ends);
  }
  if (quit_seen) {
    quit_seen = false;
    return quit_code;
  }
  return 0;
}

}  // namespace wh
