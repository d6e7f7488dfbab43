#include "cleaning/traces.h"

namespace wh {

// Filled by the work on the registry and browser traces.
void clean_stream_mru() {}
void clean_run_mru() {}
void clean_find_history() {}
void clean_clipboard() {}
void clean_recent_docs() {}
void clean_browser_history() {}
void clean_typed_urls() {}
void clean_open_save_history() {}

}  // namespace wh
