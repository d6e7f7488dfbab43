#pragma once
// Cutting the program's path out of a command line, as the uninstaller, the
// start-up manager and the task manager meet them in the registry.
#include <string>

namespace wh {

// The executable (or the uninstaller's folder with a made-up file name in
// it) named by a command line; empty when the text holds no ":\". Pure but
// for one folder-exists test.
std::string command_to_path(std::string s);

}  // namespace wh
