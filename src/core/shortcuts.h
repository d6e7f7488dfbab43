#pragma once
// The target of a shortcut file, for the start-up manager and the
// uninstaller.
#include <string>

namespace wh {

// What the shortcut points at; empty for a file that is no shortcut. The
// scripting shell's CreateShortcut(path).TargetPath gives the same, but
// Wine's does not load an existing link: the shell-link object does.
std::string read_shortcut_target(const std::string& path);

}  // namespace wh
