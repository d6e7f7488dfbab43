#include "platform/version.h"

namespace wh {

std::vector<char> file_version_block(const std::string& path) {
  DWORD handle = 0;
  const DWORD size = ::GetFileVersionInfoSizeA(path.c_str(), &handle);
  if (size < 1) return {};
  std::vector<char> block(size);
  if (!::GetFileVersionInfoA(path.c_str(), 0, size, block.data())) return {};
  return block;
}

bool ver_query_value(const std::vector<char>& block, const std::string& sub_block,
                     const char*& data, UINT& length) {
  if (block.empty()) return false;
  void* p = nullptr;
  length = 0;
  if (!::VerQueryValueA(block.data(), sub_block.c_str(), &p, &length) || !p) return false;
  data = static_cast<const char*>(p);
  return true;
}

}  // namespace wh
