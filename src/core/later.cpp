#include "core/later.h"

namespace wh {

void tray_add() {}
void tray_remove() {}
void changelanguage(int) {}
void uninstall_dropped(const std::string&) {}

}  // namespace wh
