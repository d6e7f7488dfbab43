#include "core/app.h"

namespace wh {

namespace {
LRESULT CALLBACK plain_proc(HWND w, UINT m, WPARAM wp, LPARAM lp) {
  if (m == WM_DESTROY) {
    PostQuitMessage(0);
    return 0;
  }
  return DefWindowProcA(w, m, wp, lp);
}
}  // namespace

int app_main(HINSTANCE instance) {
  WNDCLASSA wc{};
  wc.lpfnWndProc = plain_proc;
  wc.hInstance = instance;
  wc.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  wc.lpszClassName = "Wellharrower";
  RegisterClassA(&wc);
  HWND w = CreateWindowExA(0, "Wellharrower", "Wellharrower", WS_OVERLAPPEDWINDOW,
                           CW_USEDEFAULT, CW_USEDEFAULT, 640, 420, nullptr, nullptr,
                           instance, nullptr);
  ShowWindow(w, SW_SHOW);
  MSG msg;
  while (GetMessageA(&msg, nullptr, 0, 0) > 0) {
    TranslateMessage(&msg);
    DispatchMessageA(&msg);
  }
  return 0;
}

}  // namespace wh
