#pragma once
// The internet library's URL cache, all containers in one walk. Results are
// the library's own: a null handle or false on failure, the reason in
// GetLastError (122 with the needed size set, 259 at the end).
#include <windows.h>

#include <string>

namespace wh {

// FindFirstUrlCacheEntryA with no pattern. `entry` may be null to ask for
// the size; `size` is in/out as in the API.
HANDLE find_first_url_cache_entry(void* entry, DWORD& size);
bool find_next_url_cache_entry(HANDLE search, void* entry, DWORD& size);
void find_close_url_cache(HANDLE search);
// DeleteUrlCacheEntryA; run-time number, 53 when the URL is not cached.
int delete_url_cache_entry(const std::string& url);

}  // namespace wh
