#pragma once
// The folder walk every cleaner of the pack uses: it deletes files and the
// folders they leave empty, skips what is held open (or schedules it for the
// next start), never follows a junction or symbolic link, and never raises.
// Paths are plain ("C:\Users\..."); the walk adds the "\\?\" prefix itself,
// so that no length limit applies.
#include <string>
#include <vector>

namespace pack {

// What becomes of a file that cannot be deleted now because a program holds
// it open: left for the next run, or removed at the next start of Windows
// (MoveFileExW with MOVEFILE_DELAY_UNTIL_REBOOT, as Explorer's own caches
// need: Explorer holds them while it runs).
enum class Locked { skip, schedule };

// A shell folder by CSIDL (CSIDL_LOCAL_APPDATA, CSIDL_APPDATA,
// CSIDL_COMMON_APPDATA); empty when the system has none.
std::wstring known_folder(int csidl);

// a + "\" + b; a alone when b is empty.
std::wstring join(const std::wstring& a, const std::wstring& b);

bool folder_exists(const std::wstring& path);
bool file_exists(const std::wstring& path);

// The names of the real folders in a folder (no links), in the order the
// file system gives them.
std::vector<std::wstring> subfolders(const std::wstring& folder);

// The names of the files in a folder (not its subfolders, no links).
std::vector<std::wstring> files_in(const std::wstring& folder);

// Deletes every file under `folder` and every folder below it that ends up
// empty; the folder itself too unless `keep_folder`. A missing folder is no
// error. Links are left where they are and not entered.
void clear_tree(const std::wstring& folder, bool keep_folder, Locked locked);

// Deletes one file (a read-only one too); a file held open goes the way
// `locked` says. True when the file is gone.
bool delete_file(const std::wstring& path, Locked locked);

struct Tally {
  unsigned long long files = 0;
  unsigned long long bytes = 0;
};

// The files under a folder and their sizes, links not followed.
Tally tally(const std::wstring& folder);
// A file's size; 0 when it cannot be read.
unsigned long long file_size(const std::wstring& path);

// Case-insensitive comparisons of names, as the file system makes them.
bool same_name(const std::wstring& a, const std::wstring& b);
bool name_matches(const std::wstring& name, const std::wstring& prefix, const std::wstring& suffix);

}  // namespace pack
