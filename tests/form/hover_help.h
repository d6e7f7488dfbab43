#pragma once
// The mouse over the main form's controls and what the LCD panel shows.
#include <windows.h>

#include <string>
#include <vector>

#include "form/mainu.h"

namespace wh::test {

// What the panel shows, row by row, without the blanks behind.
inline std::vector<std::string> panel(const Mainu& m) {
  std::vector<std::string> rows;
  for (int r = 1; r <= 5; ++r) {
    std::string line = m.lcd.Line(r);
    while (!line.empty() && line.back() == ' ') line.pop_back();
    rows.push_back(line);
  }
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  return rows;
}

inline void move_over(const Control& c) { c.send(WM_MOUSEMOVE, 0, MAKELPARAM(3, 3)); }
// A left click at (x, y) of the control.
inline void click(const Control& c, int x = 3, int y = 3) {
  c.send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  c.send(WM_LBUTTONUP, 0, MAKELPARAM(x, y));
}
// Over the bare surface between the two tabs.
inline void move_on_surface(const Form& f, int x = 150, int y = 40, WPARAM keys = 0) {
  SendMessageA(f.hwnd(), WM_MOUSEMOVE, keys, MAKELPARAM(x, y));
}

}  // namespace wh::test
