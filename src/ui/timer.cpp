#include "ui/timer.h"

#include <map>
#include <set>

#include "ui/events.h"

namespace wh {

namespace {
std::map<UINT_PTR, Timer*>& timers() {
  static std::map<UINT_PTR, Timer*> all;
  return all;
}
std::set<const Timer*>& live() {
  static std::set<const Timer*> all;
  return all;
}
UINT_PTR last_id = 0;
}  // namespace

LRESULT CALLBACK Timer::proc(HWND w, UINT msg, WPARAM wp, LPARAM lp) {
  if (msg != WM_TIMER) return ::DefWindowProcA(w, msg, wp, lp);
  detail::WindowScope scope;
  UINT_PTR id = wp;
  // Ids are never reused, so a tick of a stopped timer finds nobody.
  auto it = timers().find(id);
  if (it == timers().end()) return 0;
  Timer* t = it->second;
  if (t->in_tick_) return 0;
  t->in_tick_ = true;
  fire(t->Tick);  // a copy: the handler may destroy its timer
  // The handler may have restarted the timer (a new id) or destroyed it.
  if (live().count(t)) t->in_tick_ = false;
  return 0;
}

namespace {
// A message-only window: it gets the ticks with no form shown, or none made.
HWND tick_window(WNDPROC proc) {
  static HWND w = [proc] {
    WNDCLASSA wc{};
    wc.lpfnWndProc = proc;
    wc.hInstance = ::GetModuleHandleA(nullptr);
    wc.lpszClassName = "WellharrowerTicks";
    ::RegisterClassA(&wc);
    return ::CreateWindowExA(0, wc.lpszClassName, "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                             wc.hInstance, nullptr);
  }();
  return w;
}
}  // namespace

Timer::Timer(std::string name, unsigned interval, bool enabled)
    : name_(std::move(name)), interval_(interval), enabled_(enabled) {
  live().insert(this);
  restart();
}

Timer::~Timer() {
  stop();
  live().erase(this);
}

void Timer::Interval(unsigned ms) {
  interval_ = ms;
  restart();
}

void Timer::Enabled(bool on) {
  if (on == enabled_) return;
  enabled_ = on;
  restart();
}

void Timer::restart() {
  stop();
  if (!enabled_ || interval_ == 0) return;
  id_ = ++last_id;
  timers()[id_] = this;
  ::SetTimer(tick_window(proc), id_, interval_, nullptr);
}

void Timer::stop() {
  if (!id_) return;
  ::KillTimer(tick_window(proc), id_);
  timers().erase(id_);
  id_ = 0;
}

}  // namespace wh
