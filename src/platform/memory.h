#pragma once
// Memory figures and the tick count.
#include <windows.h>

namespace wh {

// GlobalMemoryStatusEx, bytes as doubles like every size in the program.
struct MemoryStatus {
  DWORD load = 0;  // percent in use
  double total_phys = 0;
  double avail_phys = 0;
  double total_page_file = 0;
  double avail_page_file = 0;
  double total_virtual = 0;
  double avail_virtual = 0;
};
MemoryStatus memory_status();

DWORD tick_count();

}  // namespace wh
