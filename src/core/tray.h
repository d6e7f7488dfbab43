#pragma once
// The program's icons in the notification area. There is no hidden window
// of its own: each icon belongs to a picture box, whose window gets the
// shell's messages as WM_MOUSEMOVE, the real message in the X coordinate.
#include <windows.h>

namespace wh {

enum class TrayIcon {
  main,       // Picture4 of the main form
  ram_busy,   // Picture6 of the main form, while RAM is freed
  menu_busy,  // Picture1 of the tray menu's form, while junk is harrowed
};

// The control that carries an icon: its window and its picture. Set by
// whoever makes the control; an icon without an owner fails quietly.
void set_tray_owner(TrayIcon icon, HWND window, HICON picture);

void tray_add();     // the main icon, no tip
void tray_remove();
void tray_modify();  // the main icon given an empty tip
void tray_add_busy();  // the RAM icon with its tip in the language in use
void tray_remove_busy();
void tray_add_menu();  // the clean-up icon with its tip
void tray_remove_menu();

// What the last call answered: kept, never looked at.
extern BOOL tray_result;

}  // namespace wh
