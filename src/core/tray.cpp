#include "core/tray.h"

#include <cstring>
#include <string>

#include "core/globals.h"
#include "platform/tray.h"

namespace wh {

BOOL tray_result = FALSE;

namespace {

struct Owner {
  HWND window = nullptr;
  HICON picture = nullptr;
};
Owner owners[3];

enum : DWORD { add = 0, modify = 1, remove = 2 };

// Message, icon and tip; the shell's messages come as WM_MOUSEMOVE.
void notify(DWORD message, TrayIcon icon, const std::string& tip = {}) {
  const Owner& o = owners[static_cast<int>(icon)];
  TrayRecord r;
  r.hWnd = o.window;
  r.uID = 1;
  if (message != remove) {
    r.uFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
    r.uCallbackMessage = WM_MOUSEMOVE;
    r.hIcon = o.picture;
    std::strncpy(r.szTip, tip.c_str(), sizeof r.szTip - 1);
  }
  tray_result = shell_notify_icon(message, r);
}

}  // namespace

void set_tray_owner(TrayIcon icon, HWND window, HICON picture) {
  owners[static_cast<int>(icon)] = {window, picture};
}

void tray_add() { notify(add, TrayIcon::main); }
void tray_remove() { notify(remove, TrayIcon::main); }
void tray_modify() { notify(modify, TrayIcon::main); }

void tray_add_busy() {
  notify(add, TrayIcon::ram_busy,
         language_flag == 1 ? "Freeing up RAM...Please Wait.." : "Se elibereaza RAM...Asteptati..");
}
void tray_remove_busy() { notify(remove, TrayIcon::ram_busy); }

void tray_add_menu() {
  notify(add, TrayIcon::menu_busy,
         language_flag == 1 ? "Harrowing junk..Please wait " : "Curat..Asteptati..");
}
void tray_remove_menu() { notify(remove, TrayIcon::menu_busy); }

}  // namespace wh
