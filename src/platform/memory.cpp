#include "platform/memory.h"

#include "platform/rt_error.h"

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

int VirtualBlock::allocate(std::size_t bytes, DWORD protect) {
  release();
  p_ = VirtualAlloc(nullptr, bytes, MEM_COMMIT | MEM_RESERVE, protect);
  if (!p_) return rt_out_of_memory;
  size_ = bytes;
  return rt_ok;
}

int VirtualBlock::lock() {
  if (!p_) return rt_object_not_set;
  // Fails when the working set is too small for the block.
  if (!VirtualLock(p_, size_)) return rt_out_of_memory;
  locked_ = true;
  return rt_ok;
}

int VirtualBlock::unlock() {
  if (!p_) return rt_object_not_set;
  locked_ = false;
  return VirtualUnlock(p_, size_) ? rt_ok : rt_invalid_call;
}

void VirtualBlock::release() {
  if (!p_) return;
  if (locked_) VirtualUnlock(p_, size_);
  VirtualFree(p_, 0, MEM_RELEASE);
  p_ = nullptr;
  size_ = 0;
  locked_ = false;
}

DWORD tick_count() { return GetTickCount(); }

}  // namespace wh
