#include "platform/tray.h"

namespace wh {

static_assert(sizeof(TrayRecord) == NOTIFYICONDATAA_V1_SIZE);

BOOL shell_notify_icon(DWORD message, TrayRecord& record) {
  return ::Shell_NotifyIconA(message, reinterpret_cast<NOTIFYICONDATAA*>(&record));
}

}  // namespace wh
