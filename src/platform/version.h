#pragma once
// File version resources: GetFileVersionInfoSizeA, GetFileVersionInfoA and
// VerQueryValueA.
#include <windows.h>

#include <string>
#include <vector>

namespace wh {

// The whole version block of a file; empty when it has none or cannot be
// read (GetFileVersionInfoSizeA below 1).
std::vector<char> file_version_block(const std::string& path);

// VerQueryValueA on a block: the bytes of the value, false when absent.
bool ver_query_value(const std::vector<char>& block, const std::string& sub_block,
                     const char*& data, UINT& length);

}  // namespace wh
