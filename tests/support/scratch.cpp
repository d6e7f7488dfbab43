#include "support/scratch.h"

#include <algorithm>
#include <cwchar>

#include <shlwapi.h>

namespace wh::test {

namespace {
const char* const kScratchRoot = "C:\\wh\\scratch";

void make_folders(const std::string& path) {
  for (size_t i = 3; i <= path.size(); ++i) {
    if (i == path.size() || path[i] == '\\') CreateDirectoryA(path.substr(0, i).c_str(), nullptr);
  }
}
}  // namespace

namespace {
// The listing goes through the W calls: the A record holds 259 bytes of
// name, too few for a long UTF-8 one.
std::wstring wide(const std::string& s) {
  std::wstring w(s.size() + 1, L'\0');
  w.resize(static_cast<size_t>(MultiByteToWideChar(CP_UTF8, 0, s.c_str(), -1, w.data(),
                                                   static_cast<int>(w.size()))));
  if (!w.empty()) w.pop_back();  // the NUL
  return w;
}

std::string narrow(const wchar_t* w) {
  std::string s(wcslen(w) * 3 + 1, '\0');
  s.resize(static_cast<size_t>(
      WideCharToMultiByte(CP_UTF8, 0, w, -1, s.data(), static_cast<int>(s.size()), nullptr, nullptr)));
  if (!s.empty()) s.pop_back();
  return s;
}

std::vector<std::string> listing(const std::string& folder) {
  std::vector<std::string> out;
  WIN32_FIND_DATAW fd;
  HANDLE h = FindFirstFileW(wide(folder + "\\*").c_str(), &fd);
  if (h == INVALID_HANDLE_VALUE) return out;
  do {
    const std::string n = narrow(fd.cFileName);
    if (n != "." && n != "..") out.push_back(n);
  } while (FindNextFileW(h, &fd));
  FindClose(h);
  return out;
}
}  // namespace

void remove_tree(const std::string& path) {
  DWORD a = GetFileAttributesA(path.c_str());
  if (a == INVALID_FILE_ATTRIBUTES) return;
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (!(a & FILE_ATTRIBUTE_DIRECTORY)) {
    DeleteFileA(path.c_str());
    return;
  }
  if (!(a & FILE_ATTRIBUTE_REPARSE_POINT))
    for (const std::string& n : listing(path)) remove_tree(path + "\\" + n);
  RemoveDirectoryA(path.c_str());
}

std::vector<std::string> names_in(const std::string& folder) {
  std::vector<std::string> out = listing(folder);
  std::sort(out.begin(), out.end());
  return out;
}

bool path_exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string read_file(const std::string& path) {
  HANDLE h = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                         OPEN_EXISTING, 0, nullptr);
  if (h == INVALID_HANDLE_VALUE) return {};
  std::string out;
  char buf[4096];
  DWORD got = 0;
  while (ReadFile(h, buf, sizeof buf, &got, nullptr) && got > 0) out.append(buf, got);
  CloseHandle(h);
  return out;
}

void write_file(const std::string& path, const std::string& bytes) {
  size_t slash = path.find_last_of('\\');
  if (slash != std::string::npos) make_folders(path.substr(0, slash));
  HANDLE h = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE) return;
  DWORD written = 0;
  WriteFile(h, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(h);
}

bool sparse_file(const std::string& path, long long size) {
  HANDLE h = CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
  if (h == INVALID_HANDLE_VALUE) return false;
  LARGE_INTEGER at;
  at.QuadPart = size;
  const bool ok = SetFilePointerEx(h, at, nullptr, FILE_BEGIN) && SetEndOfFile(h);
  CloseHandle(h);
  return ok;
}

ScratchDir::ScratchDir(const std::string& name) : path_(std::string(kScratchRoot) + "\\" + name) {
  remove_tree(path_);
  make_folders(path_);
}

ScratchDir::~ScratchDir() { remove_tree(path_); }

std::string ScratchDir::operator/(const std::string& relative) const {
  return path_ + "\\" + relative;
}

std::string ScratchDir::file(const std::string& relative, const std::string& bytes) const {
  std::string p = *this / relative;
  write_file(p, bytes);
  return p;
}

std::string ScratchDir::folder(const std::string& relative) const {
  std::string p = *this / relative;
  make_folders(p);
  return p;
}

ScratchKey::ScratchKey(const std::string& name) : subkey_("Software\\WhTest\\" + name) {
  SHDeleteKeyA(HKEY_CURRENT_USER, subkey_.c_str());
  RegCreateKeyExA(HKEY_CURRENT_USER, subkey_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                  &key_, nullptr);
}

ScratchKey::~ScratchKey() {
  if (key_) RegCloseKey(key_);
  SHDeleteKeyA(HKEY_CURRENT_USER, subkey_.c_str());
  // The parent goes too once the last scratch key is gone.
  RegDeleteKeyA(HKEY_CURRENT_USER, "Software\\WhTest");
}

}  // namespace wh::test
