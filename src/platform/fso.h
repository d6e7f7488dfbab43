#pragma once
// The file-system object: folders, files and drives with the behaviour of the
// scripting runtime's object of the same shape, on plain Win32 calls.
//
// <windows.h> comes first on purpose: DeleteFile, CopyFile and MoveFile are
// its macros (-> ...A). Including it here means the member declarations and
// every call site are rewritten the same way, so `file_system().DeleteFile`
// works whether or not the caller included <windows.h> itself. Inside the
// members the Win32 calls must be written ::CopyFileA and so on: unqualified,
// CopyFileA finds the member first and calls itself.
#include <windows.h>

#include <string>
#include <vector>

namespace wh {

// Win32 error -> run-time error number (0 stays 0). Used throughout.
int rt_from_win32(DWORD error);

// One file as a folder listing sees it.
struct File {
  std::string Name;
  std::string Path;
  double Size = 0;
  DWORD Attributes = 0;
};

class Folder {
public:
  Folder() = default;
  explicit Folder(std::string path);

  // Full path without a trailing backslash, except for a root ("C:\").
  const std::string& Path() const { return path_; }
  // Last component; empty for a root.
  std::string Name() const;

  // Files and subfolders in the order the file system lists them, hidden
  // and system ones included. Empty when the folder cannot be read.
  std::vector<File> Files() const;
  std::vector<Folder> SubFolders() const;
  // Same, with the error number of the listing.
  int Files(std::vector<File>& out) const;
  int SubFolders(std::vector<Folder>& out) const;
  // Both from one listing of the folder.
  int Entries(std::vector<File>& files, std::vector<Folder>& folders) const;

  // Sum of the sizes of every file in the tree. 70 when some folder inside
  // cannot be listed (size is then what was counted so far).
  int Size(double& size) const;

private:
  std::string path_;
};

class Drive {
public:
  Drive() = default;
  explicit Drive(char letter);

  std::string Path() const;      // "C:"
  std::string RootPath() const;  // "C:\"
  // The scripting object's numbering: 0 unknown, 1 removable, 2 fixed,
  // 3 network, 4 CD-ROM, 5 RAM disk (not GetDriveTypeA's).
  int DriveType() const;
  bool IsReady() const;
  // 71 when the drive is not ready.
  int FreeSpace(double& bytes) const;       // free to the caller (quotas)
  int AvailableSpace(double& bytes) const;  // the same figure
  int TotalSize(double& bytes) const;
  int VolumeName(std::string& name) const;
  int FileSystem(std::string& name) const;

private:
  char letter_ = 0;
};

class FileSystemObject {
public:
  FileSystemObject() = default;
  FileSystemObject(const FileSystemObject&) = delete;
  FileSystemObject& operator=(const FileSystemObject&) = delete;

  // --- objects
  int GetFolder(const std::string& path, Folder& out) const;  // 76 when missing
  int GetFile(const std::string& path, File& out) const;      // 53 when missing
  int GetDrive(const std::string& drive, Drive& out) const;    // 68 when missing
  std::vector<Drive> Drives() const;                          // A: to Z: present
  // 0 the Windows folder, 1 the system folder, 2 the temporary folder; 5
  // for any other number.
  int GetSpecialFolder(int which, Folder& out) const;

  // --- tests
  bool FileExists(const std::string& path) const;
  bool FolderExists(const std::string& path) const;

  // --- changes; wildcards (* ?) allowed in the last component of a source.
  // Matching is FindFirstFile's, short names included: "*.htm" also takes
  // "page.html" (Wine always matches that way; Windows where 8.3 names exist).
  // 53 when nothing matches; 70 on a read-only file unless force.
  int DeleteFile(const std::string& pattern, bool force = false) const;
  // Whole trees. 76 when nothing matches; 70 on a read-only file inside
  // unless force (what came before it is gone by then).
  int DeleteFolder(const std::string& pattern, bool force = false) const;
  // A destination ending in "\" means "into that folder". 58 when the target
  // exists and overwrite is false.
  int CopyFile(const std::string& source, const std::string& destination,
               bool overwrite = true) const;
  // 58 when it exists, 76 when its parent is missing.
  int CreateFolder(const std::string& path) const;

  // --- path text, no disk access
  std::string GetFileName(const std::string& path) const;
  std::string GetBaseName(const std::string& path) const;
  std::string GetParentFolderName(const std::string& path) const;
  std::string GetDriveName(const std::string& path) const;
  // Full path from the current directory (GetFullPathNameA).
  std::string GetAbsolutePathName(const std::string& path) const;
};

// How many Folder::Size computations this process has run.
long folder_size_calls();

// The program's one instance, made on first use.
FileSystemObject& file_system();

}  // namespace wh
