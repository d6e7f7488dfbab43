#pragma once
// The event model. Everything runs on the one interface thread. A handler
// is a std::function member of a control or form; the layer calls it
// through raise_event, the one boundary for run-time errors:
//  - an event raised from a window procedure (a click, a key, a tick) is
//    outermost: a RuntimeError that leaves the handler is shown in the
//    run-time error box and the program ends (end_program);
//  - an event raised by code, as when a handler sets a check box's Value and
//    its Click runs, is nested: errors pass to the code that set it, as a
//    call would.
// No C++ exception ever crosses a window procedure.
#include <functional>
#include <utility>

namespace wh {

// Calls `handler` under the rules above.
void raise_event(const std::function<void()>& handler);

// raise_event for a handler with arguments; an empty handler costs nothing.
// The handler is copied first: it may replace itself while it runs.
template <class F, class... A>
void fire(const F& handler, A&&... args) {
  if (!handler) return;
  F h = handler;
  raise_event([&] { h(std::forward<A>(args)...); });
}

// Shows the run-time error box for `number` and `text`, then ends.
void runtime_error_end(int number, const char* text);

// Gives the event loop one turn: dispatches every message waiting now.
// Throws ProgramEnded when a hooked end happened during the turn.
void do_events();

// Turns of the event loop until `done()` holds, sleeping in
// MsgWaitForMultipleObjectsEx between turns so that the wait costs no CPU
// while timers, input and sent messages still wake it.
void wait_until(const std::function<bool()>& done);

// The program's main loop: runs until WM_QUIT or until no form is left.
// Returns the WM_QUIT code (0 when the last form went).
int message_loop();

namespace detail {
// Marks a window procedure: events raised inside are outermost.
class WindowScope {
public:
  WindowScope();
  ~WindowScope();
  WindowScope(const WindowScope&) = delete;
  WindowScope& operator=(const WindowScope&) = delete;

private:
  int saved_depth_;
};

// Live top-level forms, for message_loop.
void form_created();
void form_destroyed();
int live_forms();
}  // namespace detail

}  // namespace wh
