#pragma once
// Ending processes by their image name.
#include <string>

namespace wh {

// Terminates every process whose image name, without folder and without a
// closing ".EXE", equals `name` (case-insensitive; "explorer" matches
// "explorer.exe").
void kill_process_by_name(const std::string& name);

}  // namespace wh
