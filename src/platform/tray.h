#pragma once
// The notification area: Shell_NotifyIconA with the first, smallest record.
#include <windows.h>
#include <shellapi.h>

namespace wh {

// The record of the first shell versions, field for field: size, window,
// icon id, flags, callback message, icon, a tip of 64 characters. On x64
// its size is NOTIFYICONDATAA_V1_SIZE, which every shell takes.
struct TrayRecord {
  DWORD cbSize = sizeof(TrayRecord);
  HWND hWnd = nullptr;
  UINT uID = 0;
  UINT uFlags = 0;
  UINT uCallbackMessage = 0;
  HICON hIcon = nullptr;
  char szTip[64] = {};
};

// Shell_NotifyIconA(message, record): 0 add, 1 modify, 2 delete. The BOOL.
BOOL shell_notify_icon(DWORD message, TrayRecord& record);

}  // namespace wh
