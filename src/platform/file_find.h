#pragma once
// Listing a folder through FindFirstFileW, the names handed out as our text.
// The A record holds 259 bytes of name: a UTF-8 name of 255 characters
// needs up to 765, and Wine cuts it at 255 bytes, so a long name in any
// script would list as a name that names nothing.
#include <windows.h>

#include <string>

#include "platform/handles.h"

namespace wh {

struct FoundEntry {
  std::string name;
  DWORD attributes = 0;
  double size = 0;  // bytes
};

class FileFind {
public:
  // `basic`: FindExInfoBasic with FIND_FIRST_EX_LARGE_FETCH (no short
  // names, bigger batches), the cheapest listing; Windows before 7 refuses
  // them and the plain call stands in from then on.
  explicit FileFind(const std::string& pattern, bool basic = false);

  // False when the listing did not open; error() tells why.
  bool found() const { return handle_.valid(); }
  DWORD error() const { return error_; }
  const FoundEntry& entry() const { return entry_; }
  // The next entry; false at the end.
  bool next();

private:
  void take(const WIN32_FIND_DATAW& data);

  FindHandle handle_;
  FoundEntry entry_;
  DWORD error_ = ERROR_SUCCESS;
};

}  // namespace wh
