#include "core/paths.h"

#include <cstdint>

#include "core/text.h"
#include "platform/utf8.h"

namespace wh {

namespace {
// 1-based position of c at or after `from` (1-based), 0 when absent.
size_t instr(std::string_view s, size_t from, char c) {
  if (from == 0 || from > s.size()) return 0;
  size_t p = s.find(c, from - 1);
  return p == std::string_view::npos ? 0 : p + 1;
}

// Left(s, n) for the cut of a size text; a negative count is an error that
// the size code never meets (position + 2 is at least 2).
std::string left(std::string_view s, size_t n) { return std::string(s.substr(0, n)); }
}  // namespace

std::string spatiuu_text(double n, char decimal) {
  if (n <= 1024) {
    std::string s(1, ' ');  // built stepwise: gcc 12 warns falsely on " " + temp
    s += number_text(n, decimal);
    return s + " bytes";
  }
  if (n <= 1048576) {
    auto whole = static_cast<int32_t>(round_even(n));
    return std::to_string(whole / 1024) + " KB";
  }
  if (n < 1073741824) {
    double mb = n / 1048576;
    std::string s = number_text(mb, decimal);
    double whole = static_cast<double>(static_cast<int32_t>(round_even(n)) / 1048576);
    if (mb != whole) s = left(s, instr(s, 1, '.') + 2);
    return s + " MB";
  }
  std::string s = number_text(n / 1073741824, decimal);
  return left(s, instr(s, 1, '.') + 2) + " GB";
}

std::string parent_path(std::string_view path) {
  // Positions live in a byte; storing a larger one fails (ignored), so the
  // position stays and the same search is made again. They count
  // characters: a "\\" behind byte 255 but before character 256 is reached.
  uint8_t pos = 0, last = 0;
  size_t from = 0;  // byte just behind the "\\" at `pos`
  size_t hit = path.find('\\');
  if (hit != std::string_view::npos && utf8::char_position(path, hit + 1) <= 255) {
    pos = static_cast<uint8_t>(utf8::char_position(path, hit + 1));
    from = hit + 1;
  }
  while (pos > 0) {
    last = pos;
    hit = path.find('\\', from);
    if (hit == std::string_view::npos) break;
    const size_t at = utf8::char_position(path, hit + 1);
    if (at > 255) continue;  // the walk never ends, as the byte made it
    pos = static_cast<uint8_t>(at);
    from = hit + 1;
  }
  if (last == 0) return {};  // Left(path, -1) fails; the result stays empty
  return std::string(utf8::left(path, last - 1u));
}

std::string file_extension(std::string_view name) {
  size_t last = 0;
  for (size_t hit = instr(name, 2, '.'); hit != 0; hit = instr(name, hit + 1, '.')) last = hit;
  if (name.find('.') == std::string_view::npos) return " ";
  return ucase(name.substr(last));
}

std::string add_backslash(std::string_view path) {
  std::string p = trim(path);
  if (p.empty()) return p;
  if (p.back() != '\\') p += '\\';
  return p;
}

std::string join_path(std::string_view folder, std::string_view name) {
  std::string f(folder);
  if (folder.size() >= 3 && folder.substr(2) == "\\") return f + std::string(name);
  return f + "\\" + std::string(name);
}

}  // namespace wh
