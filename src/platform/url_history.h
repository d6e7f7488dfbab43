#pragma once
// The browser's history store. Wine creates it, but every method answers
// E_NOTIMPL: there the store reads as empty and changes nothing.
#include <windows.h>
#include <urlhist.h>

namespace wh {

// CoCreateInstance of the history store (COM is started on this thread
// first); null when it cannot be made. The caller owns the reference.
IUrlHistoryStg2* create_url_history_store();

}  // namespace wh
