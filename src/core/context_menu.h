#pragma once
// The two Explorer verbs under HKEY_CLASSES_ROOT: "Wellharrow" on every
// file, "Wellshred" on folders. Both run the program with the path.
#include <string>

namespace wh {

// The verbs' command: the folder (one backslash added unless it ends in
// one), the exe's name, ".exe" and " %1" without quotes, so a path with
// blanks arrives as the whole tail.
std::string context_menu_command(const std::string& folder, const std::string& exe_name);

// Writes the four keys in order, each only when the one before went well.
// True once the file verb is complete; the folder verb does not count.
bool register_context_menu();
// Deletes the four keys, children first, stopping at the first failure.
// True when all four went.
bool unregister_context_menu();

}  // namespace wh
