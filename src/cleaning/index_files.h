#pragma once
// Category 18 of section 8: the browsers' index files, overwritten and
// scheduled for removal, which takes stopping Explorer.
#include <cstdint>
#include <functional>
#include <string>

namespace wh {

// The shredder's silent one-file overwrite and delete (it lives with the
// file tools; the form hands it in).
using ShredFile = std::function<void(const std::string& path, uint8_t passes)>;

// Every "index.dat" of the tree shredded, every other file deleted with
// force, subfolders walked. Errors ignored.
void shred_index_dat(const std::string& folder, uint8_t passes, const ShredFile& shred);

// Shreds and schedules the index files, stops Explorer, and starts it again
// on 9x only. On NT the relaunch line is written to "c:\temp" and removed at
// once; a failure to make that file raises. `window_hidden` puts "X" on it.
void clean_index_files(const ShredFile& shred, bool window_hidden);

}  // namespace wh
