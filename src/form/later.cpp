// The form's own blocks that later work fills; see docs/ARCHITECTURE.md for
// who fills which.
#include "form/mainu.h"

namespace wh {

void Mainu::Command1_Click() {}
void Mainu::monitor_start() { monitor.start(); }

}  // namespace wh
