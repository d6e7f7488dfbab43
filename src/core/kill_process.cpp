#include "core/kill_process.h"

#include <windows.h>

#include <vector>

#include "platform/processes.h"

namespace wh {

namespace {
std::string upper(std::string text) {
  CharUpperBuffA(text.data(), static_cast<DWORD>(text.size()));
  return text;
}
}  // namespace

void kill_process_by_name(const std::string& name) {
  std::vector<ProcessEntry> processes;
  process_snapshot(processes);
  const std::string wanted = upper(name);
  for (const ProcessEntry& p : processes) {
    std::string image = p.exe.substr(0, p.exe.find('\0'));
    if (image.size() >= 4 && upper(image.substr(image.size() - 4)) == ".EXE")
      image.resize(image.size() - 4);
    // 9x gives the whole path.
    const size_t slash = image.find_last_of("\\/");
    if (slash != std::string::npos) image.erase(0, slash + 1);
    if (upper(image) == wanted) terminate_process(p.pid, 0);
  }
}

}  // namespace wh
