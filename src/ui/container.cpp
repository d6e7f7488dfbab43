// The window class of frames and picture boxes: it hands the notifications
// of the controls inside to their objects, as the form does.
#include <windows.h>

#include "ui/events.h"
#include "ui/form.h"
#include "ui/internal.h"

namespace wh::detail {

namespace {
LRESULT CALLBACK container_proc(HWND w, UINT msg, WPARAM wp, LPARAM lp) {
  WindowScope scope;
  LRESULT result = 0;
  if (Form::route_child_message(msg, wp, lp, result)) return result;
  return ::DefWindowProcA(w, msg, wp, lp);
}
}  // namespace

const char* container_class() {
  static const char* name = [] {
    WNDCLASSA wc{};
    wc.style = CS_DBLCLKS;
    wc.lpfnWndProc = container_proc;
    wc.hInstance = ::GetModuleHandleA(nullptr);
    wc.hCursor = ::LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    wc.lpszClassName = "WellharrowerPanel";
    ::RegisterClassA(&wc);
    return "WellharrowerPanel";
  }();
  return name;
}

}  // namespace wh::detail
