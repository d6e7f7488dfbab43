// The size texts and the path pieces. The first eight bytes are the size
// (any double, NaN and infinities included), the ninth picks the decimal
// symbol, the rest is a path, cut in two at its first NUL for join_path.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "core/paths.h"
#include "core/text.h"
#include "fuzz_check.h"
#include "platform/utf8.h"

using namespace wh;

namespace {
bool ends_with(std::string_view s, std::string_view tail) {
  return s.size() >= tail.size() && s.substr(s.size() - tail.size()) == tail;
}

void size_text(double n, char decimal) {
  const std::string s = spatiuu_text(n, decimal);
  if (n <= 1024) {
    FUZZ_EXPECT(s.front() == ' ' && ends_with(s, " bytes"));
  } else if (n <= 1048576) {
    FUZZ_EXPECT(ends_with(s, " KB"));
  } else if (n < 1073741824) {
    FUZZ_EXPECT(ends_with(s, " MB"));
  } else {
    FUZZ_EXPECT(ends_with(s, " GB"));
  }
}

void path_pieces(std::string_view path) {
  // A "\" behind character 255 after an earlier one keeps parent_path's
  // walk going for ever, as the program's does: such paths are not asked.
  // Positions count characters, so the cut never splits a sequence.
  const size_t first = path.find('\\');
  const size_t last = path.rfind('\\');
  if (first == std::string_view::npos || utf8::char_position(path, first + 1) > 255) {
    FUZZ_EXPECT(parent_path(path).empty());
  } else if (utf8::char_position(path, last + 1) <= 255) {
    FUZZ_EXPECT(parent_path(path) == path.substr(0, last));
  }

  const std::string ext = file_extension(path);
  const size_t dot = path.rfind('.');
  if (dot == std::string_view::npos) FUZZ_EXPECT(ext == " ");
  else if (dot == 0) FUZZ_EXPECT(ext == ucase(path));
  else FUZZ_EXPECT(ext == ucase(path.substr(dot + 1)));

  const std::string trimmed = trim(path), with = add_backslash(path);
  if (trimmed.empty()) FUZZ_EXPECT(with.empty());
  else FUZZ_EXPECT(with.back() == '\\' && (with == trimmed || with == trimmed + '\\'));

  const size_t nul = path.find('\0');
  if (nul != std::string_view::npos) {
    const std::string_view folder = path.substr(0, nul), name = path.substr(nul + 1);
    const std::string joined = join_path(folder, name);
    FUZZ_EXPECT(joined.substr(0, folder.size()) == folder && ends_with(joined, name));
  }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 9) return 0;
  double n;
  std::memcpy(&n, data, sizeof n);
  size_text(n, data[8] & 1 ? ',' : '.');
  path_pieces(std::string_view(reinterpret_cast<const char*>(data) + 9, size - 9));
  return 0;
}
