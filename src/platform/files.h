#pragma once
// Plain file operations used beside the file-system object. All return
// run-time error numbers (0 = done) unless stated.
#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

#include "platform/handles.h"

namespace wh {

int get_attributes(const std::string& path, DWORD& attributes);
// SetFileAttributesA. 0 clears read-only, hidden and system.
int set_attributes(const std::string& path, DWORD attributes);
// MoveFileA: renames or moves a file or a folder; fails when `to` exists.
int rename_path(const std::string& from, const std::string& to);
// MoveFileExA. An empty `to` passes NULL, which with
// MOVEFILE_DELAY_UNTIL_REBOOT schedules a deletion.
int move_file_ex(const std::string& from, const std::string& to, DWORD flags);
// MoveFileWithProgressA. `progress` gets (transferred, total) bytes; an empty
// function passes no routine.
using MoveProgress = std::function<void(double transferred, double total)>;
int move_file_with_progress(const std::string& from, const std::string& to,
                            const MoveProgress& progress, DWORD flags);
// DeleteFileA, its result as the API gives it.
bool delete_file_a(const std::string& path);
// GetDriveTypeA on a root such as "C:\" (3 = fixed).
UINT get_drive_type(const std::string& root);

// A file opened for binary access, closed by the destructor.
class BinaryFile {
public:
  BinaryFile() = default;
  BinaryFile(BinaryFile&&) = default;
  BinaryFile& operator=(BinaryFile&&) = default;

  // Existing files only, read access, others may read and write meanwhile.
  // 53 missing, 76 missing folder, 70 locked or denied.
  int open_read(const std::string& path);
  // Read and write, made when missing, shared for read and write. With
  // write_through each write goes past the cache (FILE_FLAG_WRITE_THROUGH).
  int open_binary(const std::string& path, bool write_through = false);
  void close() { h_.reset(); }
  bool is_open() const { return h_.valid(); }
  HANDLE handle() const { return h_.get(); }

  int length(std::int64_t& bytes) const;
  // Reads up to n bytes at offset; `got` is what came (0 at or past the end).
  int read_at(std::int64_t offset, void* buffer, DWORD n, DWORD& got) const;
  // Writes at offset; past the end the file grows (the gap reads as zeros).
  int write_at(std::int64_t offset, const void* data, DWORD n) const;
  // FlushFileBuffers: what was written reaches the disk, not just the cache.
  int flush() const;
  int set_length(std::int64_t bytes) const;

private:
  FileHandle h_;
};

// GetTempPathA, with its trailing backslash; empty on failure.
std::string temp_path();
// GetTempFileNameA in `folder`: makes an empty file, returns its path; empty
// on failure.
std::string temp_file_name(const std::string& folder, const std::string& prefix);
// Folder of the running exe, without a trailing backslash (but "C:\" whole).
std::string app_path();
// The exe's file name without ".exe".
std::string app_exe_name();
// Root of the current directory's drive, e.g. "C:\".
std::string current_drive_root();

}  // namespace wh
