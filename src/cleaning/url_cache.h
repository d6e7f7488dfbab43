#pragma once
// Reading the system's URL cache into the viewer's list, through a block of
// raw memory per entry.
#include <windows.h>

#include <string>

namespace wh {

class ListBox;

// One committed, locked block. Its size field is read on release but never
// written, so it stays 0.
class MemoryBlock {
public:
  MemoryBlock() = default;
  MemoryBlock(const MemoryBlock&) = delete;
  MemoryBlock& operator=(const MemoryBlock&) = delete;
  ~MemoryBlock() { ReleaseMemory(); }

  void* Handle() const { return handle_; }
  // Releases any old block, then commits a new one, readable, writable and
  // executable, and locks it.
  void Allocate(DWORD size);
  // From the block's start; nothing happens when either side is unusable.
  void ReadFrom(void* destination, SIZE_T length) const;
  // A zero-ended single-byte string; empty when the pointer is unusable.
  std::string ExtractString(const char* source, UINT_PTR maximum) const;
  // The last free is refused by the system (its flag is sign-extended), so
  // the address range stays reserved until the process ends.
  void ReleaseMemory();

private:
  void* handle_ = nullptr;
  SIZE_T size_ = 0;
};

// Appends the source URL of every cache entry, in the order of the walk,
// doubles included. The list is not cleared: callers note where they began.
void load_url_cache_list(ListBox& junk_files);

}  // namespace wh
