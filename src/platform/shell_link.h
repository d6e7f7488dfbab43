#pragma once
// Shortcut (.lnk) files through the shell-link object. Results are run-time
// error numbers (0 fine, 53 not a readable shortcut, 429 no object).
#include <string>

namespace wh {

// IShellLinkA + IPersistFile::Load, GetPath with SLGP_RAWPATH: the target as
// stored (also when it no longer exists), without the arguments.
int shell_link_target(const std::string& link, std::string& target);

// Makes a shortcut to `target` with `arguments`.
int shell_link_create(const std::string& link, const std::string& target,
                      const std::string& arguments = {});

}  // namespace wh
