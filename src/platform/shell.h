#pragma once
// Shell calls. Results are the shell's own (codes above 32 mean success for
// ShellExecuteA and FindExecutableA, HRESULTs for the recycle bin).
#include <windows.h>

#include <cstdint>
#include <string>

namespace wh {

// SHGetSpecialFolderPathA(no window, csidl); empty when the folder is unknown.
std::string special_folder_path(int csidl, bool create = false);

// ShellExecuteA. An empty verb passes NULL (the default verb); the other
// texts are passed as given. Returns the instance code as a number.
std::intptr_t shell_execute(HWND hwnd, const std::string& verb, const std::string& file,
                            const std::string& params, const std::string& dir, int show);

// FindExecutableA for an existing file; result cut at its NUL. Returns the
// code (> 32 found).
std::intptr_t find_executable(const std::string& file, std::string& result,
                              const std::string& dir = {});

// SHQueryRecycleBinA for the bin of `root` ("" = every drive).
HRESULT query_recycle_bin(const std::string& root, double& bytes, double& items);
// SHEmptyRecycleBinA; flags SHERB_NOCONFIRMATION and friends.
HRESULT empty_recycle_bin(HWND hwnd, const std::string& root, DWORD flags);
// SHUpdateRecycleBinIcon, looked up at run time: old shell32 exports lack it.
void update_recycle_bin_icon();
// SHAddToRecentDocs with a path; an empty path clears the recent documents.
void add_to_recent_docs(const std::string& path);

// SHBrowseForFolderA, opened on `start` when given, + SHGetPathFromIDListA
// into a buffer of 512 characters, cut at its first NUL. "" when cancelled.
std::string shell_browse_folder(HWND owner, const std::string& title, const std::string& start);

// GetShortPathNameA as is: the caller owns the buffer and the size it
// claims, and gets the API's return value.
DWORD get_short_path_name(const std::string& path, char* buffer, DWORD bufsize);
// GetTempPathA as is.
DWORD get_temp_path(char* buffer, DWORD bufsize);

}  // namespace wh
