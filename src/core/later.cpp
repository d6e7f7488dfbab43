// The empty routines that later work fills; see docs/ARCHITECTURE.md for who
// fills which.
#include "core/later.h"

namespace wh {

bool register_context_menu() { return false; }
bool unregister_context_menu() { return false; }

}  // namespace wh
