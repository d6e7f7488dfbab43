#include "core/version_info.h"

#include <cstdio>
#include <cstring>

#include "platform/utf8.h"
#include "platform/version.h"

namespace wh {

std::string translation_digits(unsigned char b0, unsigned char b1, unsigned char b2,
                               unsigned char b3) {
  // Language then code page, both as stored little-endian words.
  const uint32_t n = b3 * 256u + b2 + b0 * 65536u + b1 * 16777216u;
  char buf[16];
  std::snprintf(buf, sizeof buf, "%08X", static_cast<unsigned>(n));
  return buf;
}

int32_t file_version_info(const std::string& path, VersionStrings& out) {
  static const char* const names[8] = {"CompanyName",    "FileDescription", "FileVersion",
                                       "InternalName",   "LegalCopyright",  "OriginalFileName",
                                       "ProductName",    "ProductVersion"};
  out.fill({});
  const std::vector<char> block = file_version_block(path);
  if (block.empty()) return 2;
  const char* data = nullptr;
  UINT length = 0;
  if (!ver_query_value(block, "\\VarFileInfo\\Translation", data, length) || length < 4) return 2;
  const auto* b = reinterpret_cast<const unsigned char*>(data);
  const std::string table = "\\StringFileInfo\\" + translation_digits(b[0], b[1], b[2], b[3]) + "\\";
  for (int i = 0; i < 8; ++i) {
    if (!ver_query_value(block, table + names[i], data, length)) continue;
    // A 255-character buffer, cut at its first NUL: the text up to its NUL
    // inside the block (the length the call gives need not count UTF-8
    // bytes), then 255 characters of it.
    const bool inside = data >= block.data() && data < block.data() + block.size();
    const size_t room =
        inside ? static_cast<size_t>(block.data() + block.size() - data) : length;
    const std::string_view text(data, strnlen(data, room));
    out[i] = std::string(utf8::left(text, 255));
  }
  return 1;
}

}  // namespace wh
