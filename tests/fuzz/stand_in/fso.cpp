#include "platform/fso.h"

#include <array>
#include <string_view>

#include "core/text.h"

namespace wh {

namespace {
bool is_sep(char c) { return c == '\\' || c == '/'; }

size_t root_length(std::string_view p) {
  if (p.size() >= 2 && p[1] == ':') return p.size() >= 3 && is_sep(p[2]) ? 3 : 2;
  return p.size() >= 1 && is_sep(p[0]) ? 1 : 0;
}

// What a fresh prefix holds, plus the folders the uninstallers' paths name.
constexpr std::array<std::string_view, 7> folders = {
    "C:\\",           "C:\\WINDOWS",          "C:\\WINDOWS\\system32",
    "C:\\Program Files", "C:\\Program Files\\Acme", "C:\\Program Files\\Common Files",
    "D:\\Games",
};
}  // namespace

bool FileSystemObject::FolderExists(const std::string& path) const {
  std::string p = ucase(path);
  while (p.size() > root_length(p) && is_sep(p.back())) p.pop_back();
  for (std::string_view f : folders)
    if (p == ucase(f)) return true;
  return false;
}

std::string FileSystemObject::GetParentFolderName(const std::string& path) const {
  const size_t root = root_length(path);
  size_t end = path.size();
  while (end > root && is_sep(path[end - 1])) --end;
  size_t start = end;
  while (start > root && !is_sep(path[start - 1])) --start;
  if (start == end) return "";
  while (start > root && is_sep(path[start - 1])) --start;
  return path.substr(0, start);
}

FileSystemObject& file_system() {
  static FileSystemObject instance;
  return instance;
}

}  // namespace wh
