#include "platform/fso.h"

#include <vector>

#include "platform/file_find.h"
#include "platform/handles.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

int rt_from_win32(DWORD error) {
  switch (error) {
    case ERROR_SUCCESS: return rt_ok;
    case ERROR_FILE_NOT_FOUND: return rt_file_not_found;
    case ERROR_PATH_NOT_FOUND: return rt_path_not_found;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT: return rt_permission_denied;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS: return rt_file_exists;
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL: return rt_disk_full;
    case ERROR_NOT_READY: return rt_disk_not_ready;
    case ERROR_INVALID_DRIVE: return rt_device_unavailable;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME: return rt_bad_file_name_or_number;
    default: return rt_path_file_access;
  }
}

namespace {

bool is_sep(char c) { return c == '\\' || c == '/'; }

bool has_wildcards(const std::string& s) { return s.find_first_of("*?") != std::string::npos; }

bool is_dots(const char* name) {
  return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

// Length of the root part: "C:\" 3, "C:" 2, "\" 1, "\\server\share\" whole, else 0.
size_t root_length(const std::string& p) {
  if (p.size() >= 2 && is_sep(p[0]) && is_sep(p[1])) {
    size_t i = 2;
    for (int part = 0; part < 2; ++part) {
      while (i < p.size() && !is_sep(p[i])) ++i;
      if (part == 0 && i < p.size()) ++i;
    }
    if (i < p.size()) ++i;
    return i;
  }
  if (p.size() >= 2 && p[1] == ':') return p.size() >= 3 && is_sep(p[2]) ? 3 : 2;
  if (!p.empty() && is_sep(p[0])) return 1;
  return 0;
}

// The path split into its root and its last component; trailing separators
// are dropped first, as the scripting object does.
struct Split {
  std::string root;    // as in root_length
  std::string parent;  // text before the last component, separators trimmed
  std::string name;    // last component, may be empty
};

Split split(const std::string& path) {
  Split s;
  size_t root = root_length(path);
  s.root = path.substr(0, root);
  size_t end = path.size();
  while (end > root && is_sep(path[end - 1])) --end;
  size_t start = end;
  while (start > root && !is_sep(path[start - 1])) --start;
  s.name = path.substr(start, end - start);
  size_t pend = start;
  while (pend > root && is_sep(path[pend - 1])) --pend;
  s.parent = path.substr(0, pend);
  return s;
}

std::string join(const std::string& folder, const std::string& name) {
  if (folder.empty()) return name;
  if (is_sep(folder.back())) return folder + name;
  return folder + '\\' + name;
}

// Folder part of a pattern whose last component may hold wildcards: what
// FindFirstFile results are joined to.
std::string pattern_folder(const std::string& pattern) {
  size_t i = pattern.find_last_of("\\/");
  if (i == std::string::npos) return pattern.size() >= 2 && pattern[1] == ':' ? pattern.substr(0, 2) : "";
  return pattern.substr(0, i + 1);
}

std::string strip_trailing_seps(const std::string& path) {
  size_t root = root_length(path);
  size_t end = path.size();
  while (end > root && is_sep(path[end - 1])) --end;
  return path.substr(0, end);
}

// No "insert a disk" boxes while probing removable and network drives.
class QuietErrors {
public:
  QuietErrors() : old_(SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX)) {}
  ~QuietErrors() { SetErrorMode(old_); }
  QuietErrors(const QuietErrors&) = delete;
  QuietErrors& operator=(const QuietErrors&) = delete;

private:
  UINT old_;
};

// Lists `pattern`, calling f for each entry but "." and "..". 0 when the
// listing opened (even if empty), else the Win32 error. The cheapest
// listing (no short names, big batches); Wine 8 gains little from it: its
// cost is the stat of each entry.
template <class F>
DWORD list(const std::string& pattern, F&& f) {
  FileFind find(pattern, true);
  if (!find.found()) return find.error();
  do {
    if (!is_dots(find.entry().name.c_str())) f(find.entry());
  } while (find.next());
  return ERROR_SUCCESS;
}

// The matches of a pattern, kept apart by kind. A failed listing counts as no match.
std::vector<FoundEntry> matches(const std::string& pattern, bool folders) {
  std::vector<FoundEntry> out;
  list(pattern, [&](const FoundEntry& fd) {
    if (((fd.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) == folders) out.push_back(fd);
  });
  return out;
}

constexpr DWORD kProtected = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                             FILE_ATTRIBUTE_SYSTEM;

int delete_one_file(const std::string& path, DWORD attributes, bool force) {
  if (attributes & FILE_ATTRIBUTE_READONLY) {
    if (!force) return rt_permission_denied;
  }
  if (force && (attributes & kProtected)) SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!::DeleteFileA(path.c_str())) return rt_from_win32(GetLastError());
  return rt_ok;
}

int delete_tree(const std::string& path, DWORD attributes, bool force) {
  // An empty folder goes without a listing: a walk that emptied it file by
  // file (the junk cleaner) pays one call, not a listing, per folder.
  if (!(attributes & kProtected) && RemoveDirectoryA(path.c_str())) return rt_ok;
  // A junction or symbolic link goes as a link: never walk into its target.
  if (!(attributes & FILE_ATTRIBUTE_REPARSE_POINT)) {
    std::vector<FoundEntry> entries;
    DWORD e = list(join(path, "*"), [&](const FoundEntry& fd) { entries.push_back(fd); });
    if (e != ERROR_SUCCESS && e != ERROR_FILE_NOT_FOUND && e != ERROR_NO_MORE_FILES)
      return rt_from_win32(e);
    for (const auto& fd : entries) {
      std::string child = join(path, fd.name);
      int r = (fd.attributes & FILE_ATTRIBUTE_DIRECTORY)
                  ? delete_tree(child, fd.attributes, force)
                  : delete_one_file(child, fd.attributes, force);
      if (r) return r;
    }
  }
  if (attributes & FILE_ATTRIBUTE_READONLY) {
    if (!force) return rt_permission_denied;
  }
  if (force && (attributes & kProtected)) SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!RemoveDirectoryA(path.c_str())) return rt_from_win32(GetLastError());
  return rt_ok;
}

// What a copy or a move works on: the entries that the source names, the
// folder they stand in, and where each one goes. A destination ending in
// "\" (or any wildcard source) means "into that folder", which must exist.
struct Transfer {
  std::string folder;
  std::vector<FoundEntry> found;
  std::vector<std::string> targets;
  std::string from(size_t i) const { return folder + found[i].name; }
};

int plan_transfer(std::string source, const std::string& destination, bool folders,
                  Transfer& t) {
  if (folders) {
    source = strip_trailing_seps(source);
    if (split(source).name.empty()) return rt_path_not_found;
  }
  t.folder = pattern_folder(source);
  t.found = matches(source, folders);
  if (t.found.empty()) return folders ? rt_path_not_found : rt_file_not_found;
  const bool into = (!destination.empty() && is_sep(destination.back())) ||
                    has_wildcards(split(source).name);
  if (into && !file_system().FolderExists(destination)) return rt_path_not_found;
  for (const auto& fd : t.found) {
    std::string to = into ? join(destination, fd.name) : destination;
    t.targets.push_back(folders ? strip_trailing_seps(to) : to);
  }
  return rt_ok;
}

}  // namespace

// --- Folder

Folder::Folder(std::string path) : path_(std::move(path)) {}

std::string Folder::Name() const { return split(path_).name; }

int Folder::Files(std::vector<File>& out) const {
  out.clear();
  DWORD e = list(join(path_, "*"), [&](const FoundEntry& fd) {
    if (fd.attributes & FILE_ATTRIBUTE_DIRECTORY) return;
    out.push_back(File{fd.name, join(path_, fd.name), fd.size, fd.attributes});
  });
  return e == ERROR_SUCCESS || e == ERROR_FILE_NOT_FOUND ? rt_ok : rt_from_win32(e);
}

int Folder::SubFolders(std::vector<Folder>& out) const {
  out.clear();
  DWORD e = list(join(path_, "*"), [&](const FoundEntry& fd) {
    if (fd.attributes & FILE_ATTRIBUTE_DIRECTORY) out.emplace_back(join(path_, fd.name));
  });
  return e == ERROR_SUCCESS || e == ERROR_FILE_NOT_FOUND ? rt_ok : rt_from_win32(e);
}

int Folder::Entries(std::vector<File>& files, std::vector<Folder>& folders) const {
  files.clear();
  folders.clear();
  DWORD e = list(join(path_, "*"), [&](const FoundEntry& fd) {
    if (fd.attributes & FILE_ATTRIBUTE_DIRECTORY)
      folders.emplace_back(join(path_, fd.name));
    else
      files.push_back(File{fd.name, join(path_, fd.name), fd.size, fd.attributes});
  });
  return e == ERROR_SUCCESS || e == ERROR_FILE_NOT_FOUND ? rt_ok : rt_from_win32(e);
}

std::vector<File> Folder::Files() const {
  std::vector<File> out;
  Files(out);
  return out;
}

std::vector<Folder> Folder::SubFolders() const {
  std::vector<Folder> out;
  SubFolders(out);
  return out;
}

namespace {
long g_size_calls = 0;
}  // namespace

long folder_size_calls() { return g_size_calls; }

int Folder::Size(double& size) const {
  ++g_size_calls;
  // One listing per folder and no file opened: the sizes come with the
  // entries. Junctions are counted as empty rather than followed, which keeps
  // the walk finite and keeps linked trees from being counted twice.
  size = 0;
  int result = rt_ok;
  std::vector<std::string> pending{path_};
  std::string pattern;
  while (!pending.empty()) {
    std::string folder = std::move(pending.back());
    pending.pop_back();
    pattern = join(folder, "*");
    DWORD e = list(pattern, [&](const FoundEntry& fd) {
      if (fd.attributes & FILE_ATTRIBUTE_DIRECTORY) {
        if (!(fd.attributes & FILE_ATTRIBUTE_REPARSE_POINT))
          pending.push_back(join(folder, fd.name));
      } else {
        size += fd.size;
      }
    });
    if (e != ERROR_SUCCESS && e != ERROR_FILE_NOT_FOUND && result == rt_ok)
      result = e == ERROR_PATH_NOT_FOUND ? rt_path_not_found : rt_permission_denied;
  }
  return result;
}

// --- Drive

Drive::Drive(char letter)
    : letter_(letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter) {}

std::string Drive::Path() const { return std::string{letter_, ':'}; }

std::string Drive::RootPath() const { return std::string{letter_, ':', '\\'}; }

int Drive::DriveType() const {
  switch (GetDriveTypeA(RootPath().c_str())) {
    case DRIVE_REMOVABLE: return 1;
    case DRIVE_FIXED: return 2;
    case DRIVE_REMOTE: return 3;
    case DRIVE_CDROM: return 4;
    case DRIVE_RAMDISK: return 5;
    default: return 0;
  }
}

bool Drive::IsReady() const {
  QuietErrors quiet;
  return GetVolumeInformationA(RootPath().c_str(), nullptr, 0, nullptr, nullptr, nullptr,
                               nullptr, 0) != 0;
}

namespace {
// Free space is what the caller may use (quotas honoured), as the
// scripting object reports it for both FreeSpace and AvailableSpace.
int disk_space(const Drive& d, bool total_size, double& bytes) {
  QuietErrors quiet;
  ULARGE_INTEGER avail{}, total{}, free{};
  bytes = 0;
  if (!GetDiskFreeSpaceExA(d.RootPath().c_str(), &avail, &total, &free))
    return rt_from_win32(GetLastError());
  bytes = static_cast<double>(total_size ? total.QuadPart : avail.QuadPart);
  return rt_ok;
}
}  // namespace

int Drive::FreeSpace(double& bytes) const { return disk_space(*this, false, bytes); }
int Drive::AvailableSpace(double& bytes) const { return disk_space(*this, false, bytes); }
int Drive::TotalSize(double& bytes) const { return disk_space(*this, true, bytes); }

int Drive::VolumeName(std::string& name) const {
  QuietErrors quiet;
  char buf[MAX_PATH + 1] = {};
  name.clear();
  if (!GetVolumeInformationA(RootPath().c_str(), buf, sizeof buf, nullptr, nullptr, nullptr,
                             nullptr, 0))
    return rt_from_win32(GetLastError());
  name = buf;
  return rt_ok;
}

int Drive::FileSystem(std::string& name) const {
  QuietErrors quiet;
  char buf[MAX_PATH + 1] = {};
  name.clear();
  if (!GetVolumeInformationA(RootPath().c_str(), nullptr, 0, nullptr, nullptr, nullptr, buf,
                             sizeof buf))
    return rt_from_win32(GetLastError());
  name = buf;
  return rt_ok;
}

// --- FileSystemObject: objects and tests

int FileSystemObject::GetSpecialFolder(int which, Folder& out) const {
  char buf[utf8::bytes_for(MAX_PATH) + 1] = {};
  UINT n = 0;
  if (which == 0)
    n = GetWindowsDirectoryA(buf, sizeof buf);
  else if (which == 1)
    n = GetSystemDirectoryA(buf, sizeof buf);
  else if (which == 2)
    n = GetTempPathA(sizeof buf, buf);
  else
    return rt_invalid_call;
  if (n == 0 || n >= sizeof buf) return rt_path_not_found;
  out = Folder(strip_trailing_seps(std::string(buf, n)));
  return rt_ok;
}

int FileSystemObject::GetFolder(const std::string& path, Folder& out) const {
  if (path.empty() || has_wildcards(path)) return rt_path_not_found;
  std::string full = GetAbsolutePathName(path);
  DWORD a = GetFileAttributesA(full.c_str());
  if (a == INVALID_FILE_ATTRIBUTES) {
    DWORD e = GetLastError();
    return e == ERROR_NOT_READY ? rt_disk_not_ready : rt_path_not_found;
  }
  if (!(a & FILE_ATTRIBUTE_DIRECTORY)) return rt_path_not_found;
  out = Folder(full);
  return rt_ok;
}

int FileSystemObject::GetFile(const std::string& path, File& out) const {
  if (path.empty() || has_wildcards(path)) return rt_file_not_found;
  std::string full = GetAbsolutePathName(path);
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExA(full.c_str(), GetFileExInfoStandard, &data)) {
    DWORD e = GetLastError();
    return e == ERROR_NOT_READY ? rt_disk_not_ready : rt_file_not_found;
  }
  if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) return rt_file_not_found;
  out.Name = split(full).name;
  out.Path = full;
  out.Size = static_cast<double>(data.nFileSizeHigh) * 4294967296.0 + data.nFileSizeLow;
  out.Attributes = data.dwFileAttributes;
  return rt_ok;
}

namespace {
// "C", "C:", "C:\" -> the letter; anything else -> 0.
char drive_letter_of(const std::string& drive) {
  if (drive.empty() || drive.size() > 3) return 0;
  char c = drive[0];
  if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))) return 0;
  if (drive.size() >= 2 && drive[1] != ':') return 0;
  if (drive.size() == 3 && !is_sep(drive[2])) return 0;
  return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool letter_present(char letter) { return (GetLogicalDrives() >> (letter - 'A')) & 1u; }
}  // namespace

int FileSystemObject::GetDrive(const std::string& drive, Drive& out) const {
  char letter = drive_letter_of(drive);
  if (!letter) return rt_invalid_call;
  if (!letter_present(letter)) return rt_device_unavailable;
  out = Drive(letter);
  return rt_ok;
}

std::vector<Drive> FileSystemObject::Drives() const {
  std::vector<Drive> out;
  DWORD mask = GetLogicalDrives();
  for (int i = 0; i < 26; ++i)
    if (mask & (1u << i)) out.emplace_back(static_cast<char>('A' + i));
  return out;
}

bool FileSystemObject::FileExists(const std::string& path) const {
  if (path.empty() || has_wildcards(path)) return false;
  DWORD a = GetFileAttributesA(path.c_str());
  return a != INVALID_FILE_ATTRIBUTES && !(a & FILE_ATTRIBUTE_DIRECTORY);
}

bool FileSystemObject::FolderExists(const std::string& path) const {
  if (path.empty() || has_wildcards(path)) return false;
  DWORD a = GetFileAttributesA(path.c_str());
  return a != INVALID_FILE_ATTRIBUTES && (a & FILE_ATTRIBUTE_DIRECTORY);
}

// --- FileSystemObject: changes

int FileSystemObject::DeleteFile(const std::string& pattern, bool force) const {
  // One named file needs no listing: a folder by that name is no match,
  // and a short name reaches the same file as the listing would.
  // The delete is tried first: the attributes are only read when it fails.
  if (!has_wildcards(split(pattern).name)) {
    if (::DeleteFileA(pattern.c_str())) return rt_ok;
    const DWORD e = GetLastError();
    const DWORD a = GetFileAttributesA(pattern.c_str());
    if (a == INVALID_FILE_ATTRIBUTES || (a & FILE_ATTRIBUTE_DIRECTORY)) return rt_file_not_found;
    if (e == ERROR_ACCESS_DENIED && force && (a & kProtected)) return delete_one_file(pattern, a, true);
    return rt_from_win32(e);
  }
  std::string folder = pattern_folder(pattern);
  auto found = matches(pattern, false);
  if (found.empty()) return rt_file_not_found;
  for (const auto& fd : found) {
    int r = delete_one_file(folder + fd.name, fd.attributes, force);
    if (r) return r;
  }
  return rt_ok;
}

int FileSystemObject::DeleteFolder(const std::string& pattern, bool force) const {
  // A trailing backslash names the folder itself; a bare root is never a match.
  std::string s = strip_trailing_seps(pattern);
  if (split(s).name.empty()) return rt_path_not_found;
  // One named folder needs no listing of its parent.
  if (!has_wildcards(split(s).name)) {
    const DWORD a = GetFileAttributesA(s.c_str());
    if (a == INVALID_FILE_ATTRIBUTES || !(a & FILE_ATTRIBUTE_DIRECTORY)) return rt_path_not_found;
    return delete_tree(s, a, force);
  }
  std::string folder = pattern_folder(s);
  auto found = matches(s, true);
  if (found.empty()) return rt_path_not_found;
  for (const auto& fd : found) {
    int r = delete_tree(folder + fd.name, fd.attributes, force);
    if (r) return r;
  }
  return rt_ok;
}

int FileSystemObject::CopyFile(const std::string& source, const std::string& destination,
                               bool overwrite) const {
  Transfer t;
  if (int r = plan_transfer(source, destination, false, t)) return r;
  for (size_t i = 0; i < t.found.size(); ++i)
    if (!::CopyFileA(t.from(i).c_str(), t.targets[i].c_str(), !overwrite))
      return rt_from_win32(GetLastError());
  return rt_ok;
}

int FileSystemObject::CreateFolder(const std::string& path) const {
  if (path.empty()) return rt_path_not_found;
  if (CreateDirectoryA(path.c_str(), nullptr)) return rt_ok;
  return rt_from_win32(GetLastError());
}

// --- FileSystemObject: path text

std::string FileSystemObject::GetFileName(const std::string& path) const {
  return split(path).name;
}

std::string FileSystemObject::GetBaseName(const std::string& path) const {
  std::string name = split(path).name;
  size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

std::string FileSystemObject::GetParentFolderName(const std::string& path) const {
  Split s = split(path);
  if (s.name.empty()) return "";  // a root, or nothing at all, has no parent
  return s.parent;
}

std::string FileSystemObject::GetDriveName(const std::string& path) const {
  if (path.size() >= 2 && path[1] == ':') return path.substr(0, 2);
  if (path.size() > 2 && is_sep(path[0]) && is_sep(path[1])) {
    // "\\server\share" without anything after it.
    size_t i = path.find_first_of("\\/", 2);
    if (i == std::string::npos) return path;
    size_t j = path.find_first_of("\\/", i + 1);
    return j == std::string::npos ? path : path.substr(0, j);
  }
  return "";
}


std::string FileSystemObject::GetAbsolutePathName(const std::string& path) const {
  char buf[utf8::bytes_for(MAX_PATH * 2)];
  DWORD n = GetFullPathNameA(path.empty() ? "." : path.c_str(), sizeof buf, buf, nullptr);
  if (n == 0 || n >= sizeof buf) return path;
  return strip_trailing_seps(std::string(buf, n));
}

FileSystemObject& file_system() {
  static FileSystemObject instance;
  return instance;
}

}  // namespace wh
