#include "cleaning/junk_state.h"

namespace wh {

std::string appdata_folder;
std::string programs_folder;
std::string opera_folder;
std::string firefox_folder;
std::string firefox_profile;
std::string history_folder;
std::string temp_folder;
std::string windows_temp_folder;
std::string downloaded_programs_folder;
std::string downloaded_installations_folder;
std::string internet_logs_folder;
std::string prefetch_folder;
std::string cache_folder;
std::string cookies_folder;
std::string recent_folder;

std::vector<JunkItem> junk_folder_items;
std::vector<JunkItem> junk_file_items;
std::vector<std::string> cache_folders;

int16_t locked_count = 0;
double locked_bytes = 0;

}  // namespace wh
