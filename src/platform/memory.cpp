#include "platform/memory.h"

namespace wh {

MemoryStatus memory_status() {
  MEMORYSTATUSEX m{};
  m.dwLength = sizeof m;
  MemoryStatus s;
  if (!GlobalMemoryStatusEx(&m)) return s;
  s.load = m.dwMemoryLoad;
  s.total_phys = static_cast<double>(m.ullTotalPhys);
  s.avail_phys = static_cast<double>(m.ullAvailPhys);
  s.total_page_file = static_cast<double>(m.ullTotalPageFile);
  s.avail_page_file = static_cast<double>(m.ullAvailPageFile);
  s.total_virtual = static_cast<double>(m.ullTotalVirtual);
  s.avail_virtual = static_cast<double>(m.ullAvailVirtual);
  return s;
}

DWORD tick_count() { return GetTickCount(); }

}  // namespace wh
