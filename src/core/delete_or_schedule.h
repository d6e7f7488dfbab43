#pragma once
// Removal of a locked file at the next start of the system.
#include <string>

namespace wh {

// Turns `path` into its short form (kept as it is when it has none), then
// hands it to the system: MoveFileExA with delay-until-reboot when the
// environment's OS is "Windows_NT", else a "NUL=" line at the end of
// WinInit.ini in WinDir. Errors ignored.
void delete_or_schedule(std::string& path);

}  // namespace wh
