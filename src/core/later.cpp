// The empty routines that later work fills; see docs/ARCHITECTURE.md for who
// fills which.
#include "core/later.h"

namespace wh {

void tray_add() {}
void tray_remove() {}

}  // namespace wh
