#pragma once
// The cleaners of the usage traces, categories 10 to 17 of section 8: the
// registry's history lists, the clipboard, the recent documents, the
// browsers' history.
#include <string>

namespace wh {

class ListBox;

// Under HKEY_USERS: the search history's key of the NT family.
extern const std::string find_history_key;

void clean_stream_mru();         // 10
void clean_run_mru();            // 11
void clean_find_history();       // 12
void clean_clipboard();          // 13
void clean_recent_docs();        // 14
// Deletes from the URL cache exactly the lines it appends to junk_files,
// then clears the whole list.
void clean_browser_history(ListBox& junk_files);  // 15
void clean_typed_urls();         // 16
void clean_open_save_history();  // 17

}  // namespace wh
