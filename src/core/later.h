#pragma once
// Routines of the core that belong to work still to come. Each is an empty
// function with its final name, so that the callers stand whole; the
// sections' own blocks are empty members of their pages.
namespace wh {

void tray_add();  // notification area
void tray_remove();

}  // namespace wh
