#pragma once
// What the junk scan finds and the cleaners of section 8 read: the folders
// of the traces, set on each entry to the section, and the lists of the
// last scan. Module-level, alive until the end.
#include <cstdint>
#include <string>
#include <vector>

namespace wh {

struct JunkItem {
  std::string path;
  double size = 0;
};

// Set by find_browsers; an empty browser folder means not installed.
extern std::string appdata_folder;
extern std::string programs_folder;
extern std::string opera_folder;     // no closing backslash
extern std::string firefox_folder;
extern std::string firefox_profile;  // ends in a backslash
// Set by collect_trace_paths.
extern std::string history_folder;
extern std::string temp_folder;
extern std::string windows_temp_folder;
extern std::string downloaded_programs_folder;
extern std::string downloaded_installations_folder;
extern std::string internet_logs_folder;
extern std::string prefetch_folder;
extern std::string cache_folder;
extern std::string cookies_folder;
extern std::string recent_folder;

// One-based, as the scan fills them: element 0 is never used, and an empty
// vector is a list never dimensioned (the cleaners then do nothing).
extern std::vector<JunkItem> junk_folder_items;  // the FOUND.* folders
extern std::vector<JunkItem> junk_file_items;
extern std::vector<std::string> cache_folders;

// Files that proved locked during the last cleaning, and their bytes.
extern int16_t locked_count;
extern double locked_bytes;

// Element `count` of a one-based list, growing it to count + 1 elements
// and keeping what the first elements hold (a shorter new scan shrinks it).
template <class T>
void put_item(std::vector<T>& list, int count, T item) {
  list.resize(static_cast<size_t>(count) + 1);
  list[static_cast<size_t>(count)] = std::move(item);
}

}  // namespace wh
