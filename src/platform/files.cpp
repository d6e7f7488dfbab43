#include "platform/files.h"

#include "platform/fso.h"
#include "platform/rt_error.h"
#include "platform/utf8.h"

namespace wh {

namespace {
int last_error() { return rt_from_win32(GetLastError()); }
}  // namespace

int get_attributes(const std::string& path, DWORD& attributes) {
  attributes = GetFileAttributesA(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    attributes = 0;
    return last_error();
  }
  return rt_ok;
}

int set_attributes(const std::string& path, DWORD attributes) {
  // NORMAL is the documented spelling of "no attributes".
  if (attributes == 0) attributes = FILE_ATTRIBUTE_NORMAL;
  return SetFileAttributesA(path.c_str(), attributes) ? rt_ok : last_error();
}

int rename_path(const std::string& from, const std::string& to) {
  return MoveFileA(from.c_str(), to.c_str()) ? rt_ok : last_error();
}

int move_file_ex(const std::string& from, const std::string& to, DWORD flags) {
  return MoveFileExA(from.c_str(), to.empty() ? nullptr : to.c_str(), flags) ? rt_ok
                                                                             : last_error();
}

namespace {
DWORD CALLBACK progress_thunk(LARGE_INTEGER total, LARGE_INTEGER transferred, LARGE_INTEGER,
                              LARGE_INTEGER, DWORD, DWORD, HANDLE, HANDLE, LPVOID data) {
  const auto& progress = *static_cast<const MoveProgress*>(data);
  progress(static_cast<double>(transferred.QuadPart), static_cast<double>(total.QuadPart));
  return PROGRESS_CONTINUE;
}
}  // namespace

int move_file_with_progress(const std::string& from, const std::string& to,
                            const MoveProgress& progress, DWORD flags) {
  BOOL ok = MoveFileWithProgressA(from.c_str(), to.empty() ? nullptr : to.c_str(),
                                  progress ? progress_thunk : nullptr,
                                  progress ? const_cast<MoveProgress*>(&progress) : nullptr,
                                  flags);
  return ok ? rt_ok : last_error();
}

bool delete_file_a(const std::string& path) { return DeleteFileA(path.c_str()) != 0; }

UINT get_drive_type(const std::string& root) { return GetDriveTypeA(root.c_str()); }

// --- BinaryFile

int BinaryFile::open_read(const std::string& path) {
  h_.reset(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  return h_ ? rt_ok : last_error();
}

int BinaryFile::open_binary(const std::string& path, bool write_through) {
  DWORD flags = FILE_ATTRIBUTE_NORMAL | (write_through ? FILE_FLAG_WRITE_THROUGH : 0);
  h_.reset(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE,
                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, flags, nullptr));
  return h_ ? rt_ok : last_error();
}

int BinaryFile::length(std::int64_t& bytes) const {
  LARGE_INTEGER size{};
  bytes = 0;
  if (!GetFileSizeEx(h_.get(), &size)) return last_error();
  bytes = size.QuadPart;
  return rt_ok;
}

namespace {
bool seek(HANDLE h, std::int64_t offset) {
  LARGE_INTEGER to;
  to.QuadPart = offset;
  return SetFilePointerEx(h, to, nullptr, FILE_BEGIN) != 0;
}
}  // namespace

int BinaryFile::read_at(std::int64_t offset, void* buffer, DWORD n, DWORD& got) const {
  got = 0;
  if (!seek(h_.get(), offset)) return last_error();
  return ReadFile(h_.get(), buffer, n, &got, nullptr) ? rt_ok : last_error();
}

int BinaryFile::write_at(std::int64_t offset, const void* data, DWORD n) const {
  if (!seek(h_.get(), offset)) return last_error();
  DWORD written = 0;
  if (!WriteFile(h_.get(), data, n, &written, nullptr)) return last_error();
  return written == n ? rt_ok : rt_disk_full;
}

int BinaryFile::flush() const { return FlushFileBuffers(h_.get()) ? rt_ok : last_error(); }

int BinaryFile::set_length(std::int64_t bytes) const {
  if (!seek(h_.get(), bytes)) return last_error();
  return SetEndOfFile(h_.get()) ? rt_ok : last_error();
}

// --- places

std::string temp_path() {
  char buf[utf8::bytes_for(MAX_PATH) + 1];
  DWORD n = GetTempPathA(sizeof buf, buf);
  return n == 0 || n > sizeof buf ? std::string() : std::string(buf, n);
}

std::string temp_file_name(const std::string& folder, const std::string& prefix) {
  char buf[MAX_PATH + 1];
  if (!GetTempFileNameA(folder.c_str(), prefix.c_str(), 0, buf)) return {};
  return buf;
}

namespace {
std::string module_file_name() {
  std::string buf(MAX_PATH, '\0');
  for (;;) {
    DWORD n = GetModuleFileNameA(nullptr, buf.data(), static_cast<DWORD>(buf.size()));
    if (n == 0) return {};
    if (n < buf.size()) return buf.substr(0, n);
    buf.assign(buf.size() * 2, '\0');  // truncated: try a larger buffer
  }
}
}  // namespace

std::string app_path() {
  std::string exe = module_file_name();
  size_t slash = exe.find_last_of("\\/");
  if (slash == std::string::npos) return {};
  // The root keeps its backslash ("C:\"), any other folder loses it.
  if (slash == 2 && exe[1] == ':') return exe.substr(0, 3);
  return exe.substr(0, slash);
}

std::string app_exe_name() {
  std::string exe = module_file_name();
  size_t slash = exe.find_last_of("\\/");
  std::string name = slash == std::string::npos ? exe : exe.substr(slash + 1);
  size_t dot = name.rfind('.');
  return dot == std::string::npos ? name : name.substr(0, dot);
}

std::string current_drive_root() {
  char buf[utf8::bytes_for(MAX_PATH) + 1];
  DWORD n = GetCurrentDirectoryA(sizeof buf, buf);
  if (n == 0 || n > sizeof buf) return {};
  std::string dir(buf, n);
  std::string drive = file_system().GetDriveName(dir);
  return drive.empty() ? drive : drive + '\\';
}

}  // namespace wh
