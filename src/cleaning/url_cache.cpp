#include "cleaning/url_cache.h"

#include <wininet.h>

#include <algorithm>

#include "platform/url_cache.h"
#include "ui/list_box.h"

namespace wh {

void MemoryBlock::Allocate(DWORD size) {
  ReleaseMemory();
  handle_ = VirtualAlloc(nullptr, size, MEM_COMMIT, PAGE_EXECUTE_READWRITE);
  VirtualLock(handle_, size);
}

void MemoryBlock::ReadFrom(void* destination, SIZE_T length) const {
  if (!IsBadWritePtr(destination, length) && !IsBadReadPtr(handle_, length))
    RtlMoveMemory(destination, handle_, length);
}

std::string MemoryBlock::ExtractString(const char* source, UINT_PTR maximum) const {
  std::string result;
  if (!IsBadStringPtrA(source, maximum)) {
    result.assign(maximum, ' ');
    lstrcpyA(result.data(), source);
    result.resize(static_cast<size_t>(lstrlenA(source)));
  }
  return result;
}

void MemoryBlock::ReleaseMemory() {
  if (!handle_) return;
  VirtualUnlock(handle_, size_);
  VirtualFree(handle_, size_, MEM_DECOMMIT);
  VirtualFree(handle_, 0, 0xFFFF8000);
  handle_ = nullptr;
}

namespace {

// The record is copied whole (sizeof: pointers are 8 bytes on x64); only
// the source URL, a pointer into the block, is used.
void add_entry(const MemoryBlock& block, DWORD size, ListBox& junk_files) {
  INTERNET_CACHE_ENTRY_INFOA record{};
  block.ReadFrom(&record, sizeof record);
  if (record.lpszSourceUrlName)
    junk_files.AddItem(block.ExtractString(record.lpszSourceUrlName, size));
}

}  // namespace

void load_url_cache_list(ListBox& junk_files) {
  MemoryBlock block;
  DWORD room = 0;  // what the block holds: it keeps no size of its own
  // Each entry is read into the block as it stands. Only one that does not
  // fit comes back with its size (122, the entry not taken), and is read
  // again into a block made for it. Under Wine every call walks the cache
  // index, so asking each entry's size first doubled the walk.
  auto read = [&](HANDLE search, DWORD& size) -> HANDLE {
    for (;;) {
      size = room;
      const HANDLE found = search ? (find_next_url_cache_entry(search, block.Handle(), size)
                                         ? search
                                         : nullptr)
                                  : find_first_url_cache_entry(block.Handle(), size);
      if (found || GetLastError() != ERROR_INSUFFICIENT_BUFFER || size <= room) return found;
      room = std::max<DWORD>(size, 4096);
      block.Allocate(room);
    }
  };
  DWORD size = 0;
  HANDLE search = read(nullptr, size);
  if (!search) return;  // an empty cache
  ListBox::Batch batch(junk_files);
  add_entry(block, size, junk_files);
  while (read(search, size)) add_entry(block, size, junk_files);
  find_close_url_cache(search);
}

}  // namespace wh
