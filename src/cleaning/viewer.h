#pragma once
// What the trace viewer reads for its list: the browsers' files through the
// address finder of cleaning/url_scan.h, and the history lists of the
// registry.
#include <string>
#include <vector>

#include "cleaning/url_scan.h"

namespace wh {

class ListBox;

// The one state of all three scanners, kept for the life of the program:
// an address open at the end of one file goes on in the next one scanned.
extern UrlScanState url_scan_state;

// Each opens the file as a binary open does (made empty when missing) and
// appends what it finds to the list, widening the list's scroll extent.
void scan_index_file(ListBox& junk_files, const std::string& path);
// Every file named index.dat (any case) in the tree. `passes` is handed on
// by the callers and not used.
void scan_index_tree(ListBox& junk_files, const std::string& folder, int passes);
void scan_opera_file(ListBox& junk_files, const std::string& path);
void scan_firefox_history(ListBox& junk_files, const std::string& path);

// The addresses one file gives, with the shared state; the scanners above
// are this and the list.
std::vector<std::string> scan_url_file(const std::string& path, UrlScanner scanner);

// RunMRU in the order of its MRUList, each without its last two characters.
std::vector<std::string> run_history_lines();
// The search history: on NT the values of each subkey of the search
// assistant's key under HKEY_USERS, else Doc Find Spec MRU by its MRUList.
std::vector<std::string> search_history_lines();
// IE's TypedURLs url1, url2 ... up to and with the first empty one.
std::vector<std::string> typed_url_lines();

}  // namespace wh
