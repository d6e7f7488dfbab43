#include <string>

#include "core/commands.h"
#include "core/routines.h"
#include "core/tasks.h"
#include "core/text.h"
#include "core/version_info.h"
#include "platform/fso.h"
#include "platform/processes.h"
#include "platform/rt_error.h"

namespace wh {

void stop_service(const std::string& display_name) {
  // Not waited for: the refresh right after usually still shows the process.
  ProcessResult started;
  create_process("net stop \"" + display_name + "\"", false, started, SW_HIDE);
}

void killem(uint32_t pid, const std::string& name) {
  if (terminate_process(pid, 0) == 0 || !is_nt()) return;
  // Refused on NT: a service. Only one whose file is not Microsoft's.
  const std::string services = "SYSTEM\\CurrentControlSet\\Services";
  for (const std::string& key : reg_enum_keys(HKEY_LOCAL_MACHINE, services)) {
    bool found = false;
    ignore_errors([&] {
      const std::string subkey = services + "\\" + key;
      const std::string path = command_to_path(reg_get_value(HKEY_LOCAL_MACHINE, subkey, "Imagepath"));
      if (!file_system().FileExists(path)) return;
      VersionStrings info;
      file_version_info(path, info);
      if (info[0].find("Microsoft") != std::string::npos) return;
      if (ucase(file_system().GetFileName(path)) != ucase(name)) return;
      found = true;
      stop_service(reg_get_value(HKEY_LOCAL_MACHINE, subkey, "DisplayName"));
    });
    if (found) return;
  }
}

}  // namespace wh
