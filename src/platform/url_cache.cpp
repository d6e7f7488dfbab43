#include "platform/url_cache.h"

#include <wininet.h>

#include "platform/fso.h"

namespace wh {

HANDLE find_first_url_cache_entry(void* entry, DWORD& size) {
  return FindFirstUrlCacheEntryA(nullptr, static_cast<INTERNET_CACHE_ENTRY_INFOA*>(entry), &size);
}

bool find_next_url_cache_entry(HANDLE search, void* entry, DWORD& size) {
  return FindNextUrlCacheEntryA(search, static_cast<INTERNET_CACHE_ENTRY_INFOA*>(entry), &size) !=
         FALSE;
}

void find_close_url_cache(HANDLE search) { FindCloseUrlCache(search); }

int delete_url_cache_entry(const std::string& url) {
  return DeleteUrlCacheEntryA(url.c_str()) ? 0 : rt_from_win32(GetLastError());
}

}  // namespace wh
