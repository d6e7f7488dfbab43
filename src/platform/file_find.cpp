#include "platform/file_find.h"

#include "platform/code_pages.h"

namespace wh {

namespace {
bool g_basic_find_refused = false;
}  // namespace

FileFind::FileFind(const std::string& pattern, bool basic) {
  const std::wstring w = wide_text(pattern);
  WIN32_FIND_DATAW data;
  HANDLE h = INVALID_HANDLE_VALUE;
  if (basic && !g_basic_find_refused) {
    h = FindFirstFileExW(w.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr,
                         FIND_FIRST_EX_LARGE_FETCH);
    if (h == INVALID_HANDLE_VALUE && GetLastError() == ERROR_INVALID_PARAMETER) {
      g_basic_find_refused = true;
      basic = false;
    }
  }
  if (!basic || g_basic_find_refused) h = FindFirstFileW(w.c_str(), &data);
  if (h == INVALID_HANDLE_VALUE) {
    error_ = GetLastError();
    return;
  }
  handle_.reset(h);
  take(data);
}

bool FileFind::next() {
  if (!handle_) return false;
  WIN32_FIND_DATAW data;
  if (!FindNextFileW(handle_.get(), &data)) return false;
  take(data);
  return true;
}

void FileFind::take(const WIN32_FIND_DATAW& data) {
  entry_.name = narrow_text(data.cFileName);
  entry_.attributes = data.dwFileAttributes;
  entry_.size = static_cast<double>(data.nFileSizeHigh) * 4294967296.0 + data.nFileSizeLow;
}

}  // namespace wh
