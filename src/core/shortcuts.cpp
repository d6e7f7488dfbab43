#include "core/shortcuts.h"

#include "platform/shell_link.h"

namespace wh {

std::string read_shortcut_target(const std::string& path) {
  std::string target;
  shell_link_target(path, target);
  return target;
}

}  // namespace wh
