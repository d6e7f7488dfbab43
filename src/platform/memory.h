#pragma once
// Memory figures and locked blocks.
#include <windows.h>

#include <cstddef>

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

// VirtualAlloc(MEM_COMMIT) block, unlocked and freed by the destructor.
class VirtualBlock {
public:
  VirtualBlock() = default;
  VirtualBlock(const VirtualBlock&) = delete;
  VirtualBlock& operator=(const VirtualBlock&) = delete;
  ~VirtualBlock() { release(); }

  // Frees any earlier block first. 7 when the system refuses.
  int allocate(std::size_t bytes, DWORD protect = PAGE_READWRITE);
  // VirtualLock / VirtualUnlock on the whole block.
  int lock();
  int unlock();
  void release();

  void* data() const { return p_; }
  std::size_t size() const { return size_; }
  bool locked() const { return locked_; }

private:
  void* p_ = nullptr;
  std::size_t size_ = 0;
  bool locked_ = false;
};

DWORD tick_count();

}  // namespace wh
